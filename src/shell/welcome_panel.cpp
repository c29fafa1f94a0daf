#include "shell/welcome_panel.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <array>

#include "shell/logo.h"

namespace tallmar {

namespace {

constexpr const char* kCaption = "Welcome to Brennwick System's Tallmar 1728 Program";
constexpr int kLogoSize = 96;
constexpr int kSpace = 24;

struct WelcomeRow {
    const char* label;
    const char* text;
    const char* button;
    const char* caption;
    void (WelcomePanel::*asked)();
};
constexpr std::array kRows{
    WelcomeRow{"lblNew", "To create a new Cost Report File, select ...", "cmdNew", "&New ...",
               &WelcomePanel::New_Requested},
    WelcomeRow{"lblOpen", "To open an existing Cost Report File, select ...", "cmdOpen", "&Open ...",
               &WelcomePanel::Open_Requested},
    WelcomeRow{"lblExit", "To close and leave the Tallmar program, select ...", "cmdExit", "E&xit",
               &WelcomePanel::Exit_Requested},
};

}  // namespace

WelcomePanel::WelcomePanel(QWidget* parent)
    : QWidget(parent), fraWelcome_(new QGroupBox(kCaption, this)), logo_(new QLabel(this)) {
    fraWelcome_->setObjectName("fraWelcome");
    fraWelcome_->setAccessibleName(kCaption);
    auto* grid = new QGridLayout(fraWelcome_);
    grid->setContentsMargins(kSpace, kSpace, kSpace, kSpace);
    grid->setHorizontalSpacing(kSpace);
    grid->setVerticalSpacing(kSpace / 2);
    int line = 0;
    for (const WelcomeRow& row : kRows) {
        auto* label = new QLabel(row.text, fraWelcome_);
        label->setObjectName(row.label);
        auto* button = new QPushButton(row.caption, fraWelcome_);
        button->setObjectName(row.button);
        button->setAccessibleName(QString(row.caption).remove('&'));
        button->setAccessibleDescription(row.text);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, row.asked);
        grid->addWidget(label, line, 0);
        grid->addWidget(button, line, 1);
        ++line;
    }
    logo_->setObjectName("picWelcome");
    logo_->setAlignment(Qt::AlignHCenter);
    auto* column = new QVBoxLayout(this);
    column->addStretch(1);
    column->addWidget(logo_);
    column->addSpacing(kSpace);
    column->addWidget(fraWelcome_, 0, Qt::AlignHCenter);
    column->addStretch(2);
    setFocusProxy(fraWelcome_->findChild<QPushButton*>("cmdOpen"));
    Draw_Logo();
}

void WelcomePanel::Draw_Logo() {
    logo_->setPixmap(Logo({kLogoSize, kLogoSize}, palette()));
}

void WelcomePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Draw_Logo();
    QWidget::changeEvent(event);
}

}  // namespace tallmar
