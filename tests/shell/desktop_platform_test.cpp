// The desktop's platform: boxes, file dialogs, settings, and no input while a job runs.
#include "shell/desktop_platform.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "shell/desktop_platform_boxes.h"
#include "shell/dialog.h"
#include "shell/shell_test.h"
#include "shell/startup.h"
#include "shell/tallmar_application.h"

namespace tallmar {
namespace {

class DesktopPlatformTest : public ShellTest {
  protected:
    BoxDriver boxes;
};

TEST_F(DesktopPlatformTest, BoxesHaveTheirButtonsIconAndDefault) {
    for (const int icon : {kStop, kQuestion, kExclamation, kInformation}) {
        boxes.Expect_Box("T", "a\nb", Answer::Ok, kOkOnly + icon);
        EXPECT_EQ(platform.Message_Box("a\r\nb", kOkOnly + icon, "T"), Answer::Ok);
    }
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        boxes.Expect_Box("T", "<b>&amp;", answer, kYesNoCancel + kDefaultButton2);
        EXPECT_EQ(platform.Message_Box("<b>&amp;", kYesNoCancel + kDefaultButton2, "T"), answer);
    }
}

TEST_F(DesktopPlatformTest, SettingsAreKeptByApplication) {
    EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "Startup", "CRFLoc", "None"), "None");
    platform.Save_Setting("Tallmar 1728", "Startup", "CRFLoc", "C:\\Reports, é");
    EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "Startup", "CRFLoc", "None"), "C:\\Reports, é");
    EXPECT_EQ(platform.Get_Setting("Tallmar", "Startup", "CRFLoc", "None"), "None");
}

TEST_F(DesktopPlatformTest, ARelativePathInTheEnvironmentIsNoPlaceOfTheUsers) {
    const QByteArray data = qgetenv("XDG_DATA_HOME"), config = qgetenv("XDG_CONFIG_HOME");
    QStandardPaths::setTestModeEnabled(false);
    qputenv("XDG_DATA_HOME", "relative");
    qputenv("XDG_CONFIG_HOME", "relative");
    const DesktopPlaces places = User_Places();
    qputenv("XDG_DATA_HOME", data);
    qputenv("XDG_CONFIG_HOME", config);
    QStandardPaths::setTestModeEnabled(true);
    EXPECT_EQ(places.dataFolder, Plain_Text(QDir::homePath()) + "/.local/share/Tallmar 1728");
    EXPECT_EQ(places.settingsFolder, Plain_Text(QDir::homePath()) + "/.config/Tallmar 1728");
}

TEST_F(DesktopPlatformTest, FilterFindsBothCases) {
    EXPECT_EQ(Desktop_Filter("Cost Report Files (*.CRF)|*.CRF"), "Cost Report Files (*.CRF *.crf)");
}

TEST_F(DesktopPlatformTest, FileDialogStartsAsItIsAsked) {
    boxes.Expect_Dialog("cdlMain", [this](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.windowTitle(), "Open An Existing CRF");
        EXPECT_EQ(dialog.directory().absolutePath(), Qt_Text(folder.Path()));
        EXPECT_EQ(dialog.defaultSuffix(), "CRF");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "");
        dialog.reject();
    });
    const FileDialog wanted{folder.Path(), folder.Path() + "\\*.CRF", "Open An Existing CRF", ".CRF",
                            "Cost Report Files (*.CRF)|*.CRF"};
    EXPECT_EQ(platform.Open_File(wanted), std::nullopt);
}

TEST_F(DesktopPlatformTest, SavedNameGetsTheExtension) {
    boxes.Expect_Dialog("cdlMain", [](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        dialog.findChild<QLineEdit*>()->setText("copy");
        static_cast<QDialog&>(dialog).accept();
    });
    const FileDialog wanted{folder.Path(), "", "Save Cost Report File As ...", ".CRF",
                            "Cost Report Files (*.CRF)|*.CRF"};
    EXPECT_EQ(platform.Save_File(wanted), folder.Path() + "/copy.CRF");
}

// A job that keys and clicks reach while it runs.
class JobTest : public DesktopPlatformTest {
  protected:
    JobTest() { line.show(); }
    void Key(int key, quint64 time = 0) {
        auto* press = new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)));
        press->setTimestamp(time);
        QCoreApplication::postEvent(&line, press);
    }
    QLineEdit line;
};

TEST_F(JobTest, InputIsThrownAwayWhileAJobRuns) {
    platform.Hourglass(true);
    Key('A');
    platform.Do_Events();
    Key('B');  // still waiting when the job ends
    platform.Hourglass(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(line.text(), "");
    Key('C', 5000);  // an entry of its own
    QCoreApplication::processEvents();
    EXPECT_EQ(line.text(), "C");
}

TEST_F(JobTest, ClicksAndClosingDoNothingWhileAJobRuns) {
    Make_Report(fy2016);
    QPushButton button;
    button.show();
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    platform.Hourglass(true);
    QTest::mouseClick(&button, Qt::LeftButton);
    main->close();
    EXPECT_TRUE(main->isVisible());
    platform.Hourglass(false);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(JobTest, BoxOfAJobCanBeAnswered) {
    platform.Hourglass(true);
    boxes.Expect_Box("T", "Go on?", Answer::No, kYesNo);
    EXPECT_EQ(platform.Message_Box("Go on?", kYesNo, "T"), Answer::No);
    EXPECT_TRUE(platform.Guard().Is_On());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    platform.Hourglass(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopPlatformTest, BatchMessagesAreShown) {
    boxes.Expect_Dialog("frmBatchMsgs", [](QWidget& dialog) { dialog.close(); });
    platform.Show_Batch_Messages("The following messages were generated during the CalcAll process.",
                                 {{"E", "A", "A message"}});
}

TEST_F(DesktopPlatformTest, FailureOfAHandlerIsToldAndTheProgramGoesOn) {
    platform.Hourglass(true);
    main->setEnabled(false);
    boxes.Expect_Box("System Error", "It broke.", Answer::Ok, kOkOnly + kStop);
    Tell_Failure(std::runtime_error("It broke."));
    EXPECT_FALSE(platform.Guard().Is_On());
    EXPECT_TRUE(main->isEnabled());
}

TEST_F(DesktopPlatformTest, StartShowsTheCaptionAndTheWelcome) {
    main->hide();
    StartOptions options;
    options.splash = false;
    EXPECT_TRUE(Start_Up(*main, options, true));
    EXPECT_EQ(main->windowTitle(), "Brennwick System Inc.'s Tallmar 1728 (version 1.0)");
    EXPECT_TRUE(main->isVisible());
}

TEST_F(DesktopPlatformTest, SecondCopyIsToldAndDoesNotStart) {
    main->hide();
    boxes.Expect_Box_Starting("Attempt to Run Multiple Copies of Tallmar 1728",
                              "A copy of Tallmar 1728 is already running.  Only one copy may be run at a time.",
                              Answer::Ok, kOkOnly + kStop);
    StartOptions options;
    options.splash = false;
    EXPECT_FALSE(Start_Up(*main, options, false));
    EXPECT_FALSE(main->isVisible());
}

TEST_F(DesktopPlatformTest, SecondCopyLeavesTheReportOfTheFirstAlone) {
    const std::string path = Make_Report(fy2016);
    const std::string other = folder.File("other.CRF");
    std::filesystem::copy_file(path, other);
    const auto content = [](const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    const std::string before = content(path), otherBefore = content(other);
    for (const std::string& asked : {path, other}) {
        boxes.Expect_Box_Starting("Attempt to Run Multiple Copies of Tallmar 1728", "A copy of Tallmar 1728 is");
        EXPECT_FALSE(Start_Up(*main, Start_Options({"tallmar1728", "--no-splash", Qt_Text(asked)}), false));
        EXPECT_EQ(openReport.CRFPath, path) << "nothing else was opened";
        EXPECT_TRUE(Report_Is_Open());
    }
    EXPECT_EQ(content(path), before);
    EXPECT_EQ(content(other), otherBefore);
    EXPECT_FALSE(std::filesystem::exists(other + ".lock"));
}

TEST_F(DesktopPlatformTest, BoxIsAsWideAsItsTitle) {
    constexpr const char* kTitle = "Error: Invalid Fiscal Year Start Date Of The Report";
    boxes.Otherwise([&](QWidget& box) {
        EXPECT_GT(box.width(), QFontMetrics(box.font()).horizontalAdvance(kTitle));
        return box.close();
    });
    platform.Message_Box("No.", kOkOnly + kStop, kTitle);
    QDialog dialog;
    Set_Up_Dialog(dialog, "frmHelpAbout", kTitle);
    EXPECT_GT(dialog.minimumWidth(), QFontMetrics(dialog.font()).horizontalAdvance(kTitle));
}

TEST_F(DesktopPlatformTest, StartOpensTheReportOfTheCommandLine) {
    const std::string path = Make_Report(fy2016);
    Report_Close();
    StartOptions options = Start_Options({"tallmar1728", "--no-splash", Qt_Text(path)});
    EXPECT_FALSE(options.splash);
    EXPECT_TRUE(Start_Up(*main, options, true));
    EXPECT_EQ(openReport.CRFPath, path);
}

TEST(StartOptionsTest, WrongOptionsAreToldAndNothingStarts) {
    EXPECT_TRUE(Start_Options({"tallmar1728", "--nonsense"}).failed);
    EXPECT_TRUE(Start_Options({"tallmar1728", "a.CRF", "b.CRF"}).failed);
    const StartOptions version = Start_Options({"tallmar1728", "--version"});
    EXPECT_FALSE(version.failed);
    EXPECT_EQ(version.help, "Tallmar 1728 1.0.0\n");
    EXPECT_TRUE(Start_Options({"tallmar1728"}).help.isEmpty());
}

}  // namespace
}  // namespace tallmar
