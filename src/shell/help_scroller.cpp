#include "shell/help_scroller.h"

namespace tallmar {

namespace {

constexpr const char* kHelpText =
    "Use the menus at the top of the form to manipulate Tallmar.  Use the Edit menu to edit worksheet information.  "
    "Use "
    "View to review worksheets and use Report File to perform all generalized operations.";
constexpr const char* kRunning = "Running";
constexpr const char* kStopped = "Stopped";
constexpr int kLineBreaks = 14;
constexpr int kInterval = 100;
constexpr QChar kLineBreak = '\n';

QString Without_Line_Breaks(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text[at] == kLineBreak) ++at;
    return text.mid(at);
}

}  // namespace

void Scroll_Help(HelpScroll& scroll) {
    if (scroll.tag == kStopped) return;
    if (scroll.tag.isEmpty()) {
        scroll.tag = kRunning;
        scroll.text = QString(kLineBreaks, kLineBreak) + Without_Line_Breaks(scroll.text);
    } else if (scroll.text.startsWith(kLineBreak)) {
        scroll.text.remove(0, 1);
    } else {
        scroll.ticking = false;
    }
}

HelpScroller::HelpScroller(QWidget* parent) : QObject(parent), lblHelp_(new QLabel(kHelpText, parent)) {
    lblHelp_->setObjectName("lblHelp");
    lblHelp_->setAccessibleName(tr("Help"));
    lblHelp_->setAccessibleDescription(kHelpText);
    lblHelp_->setTextFormat(Qt::PlainText);
    lblHelp_->setWordWrap(true);
    lblHelp_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblHelp_->setVisible(false);
    tmrMain_.setInterval(kInterval);
    tmrMain_.setObjectName("tmrMain");
    connect(&tmrMain_, &QTimer::timeout, this, &HelpScroller::Tick);
}

void HelpScroller::Start() {
    tag_.clear();
    tmrMain_.start(kInterval);
}

void HelpScroller::Stop() {
    tag_ = kStopped;
}

void HelpScroller::Tick() {
    HelpScroll scroll{tag_, lblHelp_->text()};
    if (tag_.isEmpty()) lblHelp_->setVisible(true);
    Scroll_Help(scroll);
    tag_ = scroll.tag;
    lblHelp_->setText(scroll.text);
    if (!scroll.ticking) tmrMain_.stop();
}

}  // namespace tallmar
