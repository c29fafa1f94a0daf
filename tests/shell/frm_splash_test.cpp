#include "shell/frm_splash.h"

#include <QElapsedTimer>
#include <QLabel>

#include "common/program.h"
#include "shell/dialog_test.h"
#include "shell/frm_help_about.h"
#include "shell/logo.h"
#include "support/fake_platform.h"

namespace tallmar {

namespace {

QString All_Texts(const QWidget& form) {
    QString texts;
    for (const QLabel* label : form.findChildren<QLabel*>()) texts += label->text() + QLatin1Char('\n');
    return texts;
}

QColor Middle(const QPixmap& pixmap, double x, double y) {
    return pixmap.toImage().pixelColor(int(x * pixmap.width()), int(y * pixmap.height()));
}

// The maker's name is in the program's folder.
struct Splash : testing::Test {
    FakePlatform platform;
};
using HelpAbout = Splash;

}  // namespace

TEST_F(Splash, ShowsProductNameVersionAndLogo) {
    const auto splash = Make_Splash();
    EXPECT_EQ(splash->objectName(), "frmSplash");
    EXPECT_EQ(Child<QLabel>(*splash, "lblVersion").text(), QString::fromStdString("Version " + Short_Version()));
    EXPECT_TRUE(All_Texts(*splash).contains("Tallmar 1728"));
    EXPECT_FALSE(Child<QLabel>(*splash, "picLogo").pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(Splash, StandsForItsTimeWhileEventsRun) {
    bool seen = false;
    QTimer::singleShot(20, qApp, [&seen] {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            seen = seen || (window->objectName() == "frmSplash" && window->isVisible());
        }
    });
    QElapsedTimer clock;
    clock.start();
    Show_Splash(std::chrono::milliseconds(150));
    EXPECT_GE(clock.elapsed(), 150);
    EXPECT_TRUE(seen);
    for (const QWidget* window : QApplication::topLevelWidgets()) EXPECT_NE(window->objectName(), "frmSplash");
}

TEST_F(Splash, DoesNotEndTheProgramWhenItGoes) {
    EXPECT_FALSE(Make_Splash()->testAttribute(Qt::WA_QuitOnClose));
}

TEST(Logo, TakesItsColoursFromThePalette) {
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::red);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    const QPixmap logo = Logo({64, 64}, palette);
    EXPECT_EQ(logo.deviceIndependentSize(), QSizeF(64, 64));
    EXPECT_EQ(Middle(logo, 0.5, 0.1), QColor(Qt::red));
    EXPECT_EQ(Middle(logo, 0.5, 0.28), QColor(Qt::white));
    EXPECT_EQ(Middle(logo, 0.0, 0.0).alpha(), 0);
}

TEST_F(HelpAbout, TellsTheVersionOfTheProgramAndOfTheForm) {
    const DialogPtr about = Make_Help_About(nullptr);
    EXPECT_EQ(about->objectName(), "frmHelpAbout");
    EXPECT_EQ(about->windowTitle(), "About Tallmar 1728");
    const QStringList lines = Child<QLabel>(*about, "lblAbout").text().split('\n');
    EXPECT_TRUE(lines.contains("Version " TALLMAR_VERSION));
    EXPECT_TRUE(lines.contains("CMS Version 1728-94 T16"));
}

TEST_F(HelpAbout, EnterAndEscCloseIt) {
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        const DialogPtr about = Make_Help_About(nullptr);
        Open(*about);
        Press(key);
        EXPECT_FALSE(about->isVisible());
    }
}

TEST_F(HelpAbout, StandsUntilItIsClosed) {
    QString caption;
    When_Modal([&caption](QDialog& dialog) {
        caption = dialog.windowTitle();
        Press(Qt::Key_Return);
    });
    Show_Help_About(nullptr);
    EXPECT_EQ(caption, "About Tallmar 1728");
}

}  // namespace tallmar
