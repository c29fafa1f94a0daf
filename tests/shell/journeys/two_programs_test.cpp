// The window beside other programs at the same report, and after a crash of its own.
#include <QProcess>
#include <QProcessEnvironment>
#include <filesystem>

#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"
#include "support/other_window.h"

namespace tallmar {

namespace {

void Expect_In_Use(Desk& desk, const std::string& path) {
    desk.boxes.Expect_Box_Starting(
        "Report In Use", "The report " + path + " is open in another program [Tallmar 1728, user ", Answer::Ok, kStop);
}

TEST(TwoPrograms, AReportThatIsOpenElsewhereIsNotOpened) {
    Desk desk;
    const std::string path = desk.Report_Path();
    Make_Empty_Sample(Samples()[2], path);
    OtherWindow other(path);
    Expect_In_Use(desk, path);
    desk.Open(path);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(desk.main->findChild<QWidget*>("fraWelcome")->isVisible());
    // Another report does not come to harm by the refusal.
    desk.Make(desk.folder.File("mine.CRF"), fy2016);
    Expect_In_Use(desk, path);
    EXPECT_FALSE(Report_Save_As(path));
    EXPECT_EQ(openReport.CRFPath, desk.folder.File("mine.CRF"));
    desk.Edit("A");
    desk.Key(6, 1, "5");
    desk.Push("cmdClose");
    desk.Choose("mnuReportClose");

    other.Close();
    desk.Open(path);
    EXPECT_EQ(openReport.CRFPath, path);
    EXPECT_TRUE(desk.boxes.Done());
}

TEST(TwoPrograms, TheCommandLineKeepsOffAnOpenReport) {
    Desk desk;
    const std::string path = desk.Report_Path();
    Make_Empty_Sample(Samples()[2], path);
    desk.Open(path);
    const auto enter = [&] {
        QProcess program;
        program.start(TALLMAR_BIN_DIR "/tallmar", {"enter", Qt_Text(path), Qt_Text(Cells_File(Samples()[2]))});
        EXPECT_TRUE(program.waitForFinished(120000));
        return std::pair(program.exitCode(), Plain_Text(QString::fromUtf8(program.readAllStandardError())));
    };
    const auto [status, told] = enter();
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(told.starts_with("Report In Use: The report " + path + " is open in another program")) << told;
    desk.Edit("A");
    desk.Key(6, 1, "5");
    desk.Push("cmdClose");
    desk.Choose("mnuReportClose");
    EXPECT_EQ(enter(), (std::pair(0, std::string())));
    desk.Open(path);
    EXPECT_TRUE(Report_Is_Open());
}

// However the program ends, the rows that the cursor has left are in the file.
TEST(TwoPrograms, ACrashLosesTheRowUnderEditAtMost) {
    Desk desk;
    for (const char* last : {"6", "13", "ready"}) {
        SCOPED_TRACE(last);
        const std::string path = desk.folder.File(std::string(last) + ".CRF");
        Make_Empty_Sample(Samples()[2], path);
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TMPDIR", Qt_Text(desk.folder.Path()));
        program.setProcessEnvironment(environment);
        program.start(TALLMAR_BIN_DIR "/desk_program", {Qt_Text(path)});
        std::vector<std::string> told;  // the lines that were left
        for (bool reached = false; !reached;) {
            ASSERT_TRUE(program.canReadLine() || program.waitForReadyRead(60000))
                << program.readAllStandardError().toStdString();
            while (!reached && program.canReadLine()) {
                const QString line = QString::fromUtf8(program.readLine()).trimmed();
                if (line != "ready") told.push_back(line.toStdString());
                reached = line == last;
            }
        }
        program.kill();
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_TRUE(std::filesystem::exists(path + ".lock")) << "it was left behind";

        desk.Open(path);
        ASSERT_TRUE(Report_Is_Open());
        ASSERT_FALSE(told.empty());
        for (std::size_t i = 0; i < told.size(); ++i) {
            EXPECT_EQ(Desk::Stored("A", *Currency::From_Text(told[i]), 1), std::to_string(101 + i)) << told[i];
        }
        EXPECT_EQ(db.Read_Row("SELECT Count(*) AS Cnt FROM A WHERE Col_1 = 999;")["Cnt"].To_Long(), 0);
        desk.Choose("mnuReportClose");
        EXPECT_FALSE(std::filesystem::exists(path + ".lock"));
    }
}

}  // namespace

}  // namespace tallmar
