// The help text of the main window: it scrolls into view when a report is opened. The timer `tmrMain` works by its tag.
#pragma once

#include <QLabel>
#include <QTimer>

namespace tallmar {

// What one tick of the timer works on.
struct HelpScroll {
    QString tag;   // "", "Running" or "Stopped"
    QString text;  // of lblHelp
    bool ticking = true;
};
// Empty: "Running", and 14 line breaks stand before the text. "Running": one line break less; none left: the timer
// stops. "Stopped": nothing.
void Scroll_Help(HelpScroll& scroll);

class HelpScroller : public QObject {
    Q_OBJECT

  public:
    explicit HelpScroller(QWidget* parent);

    QLabel& Label() const { return *lblHelp_; }
    const QString& Tag() const { return tag_; }
    void Set_Tag(const QString& tag) { tag_ = tag; }
    void Set_Interval(int milliseconds) { tmrMain_.setInterval(milliseconds); }
    void Set_Enabled(bool enabled);
    bool Is_Enabled() const { return tmrMain_.isActive(); }
    void Tick();

  private:
    QLabel* lblHelp_;
    QTimer tmrMain_{this};
    QString tag_ = "Stopped";
};

}  // namespace tallmar
