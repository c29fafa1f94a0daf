// Every box that the window raises outside a cell: new, open, save as, close, drops, documents, the second copy.
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <fstream>
#include <functional>

#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"
#include "shell/main_commands.h"
#include "shell/one_copy.h"

namespace tallmar {

namespace {

constexpr int kWarning = kOkOnly + kExclamation;

// ---- Entries of a new report

struct NewBox {
    const char* name;
    const char *provider, *start, *end, *facility;
    const char *title, *text;
    int buttons = kWarning;
    Answer answer = Answer::Ok;
    friend std::ostream& operator<<(std::ostream& out, const NewBox& box) { return out << box.name; }
};
constexpr const char* kGood = "Prairie Hearth Home Health";
constexpr NewBox kNewBoxes[] = {
    {"SixDigits", "14710", "10/1/15", "9/30/16", kGood, "Tallmar 1728",
     "You have entered an invalid Provider Number!\nProvider number must be 6 numeric digits.", kOkOnly},
    {"NoStart", "147100", "", "9/30/16", kGood, "Error: Invalid Fiscal Year Start Date",
     "Fiscal Year Start date is not a valid date.  Please (re-)enter one."},
    {"Sequence", "147100", "10/1/16", "9/30/16", kGood, "Error: Invalid Dates",
     "Invalid sequence of dates -- FY End preceeds FY Start."},
    {"LongYear", "147100", "10/1/15", "9/30/17", kGood, "Warning: Dates Span More Than One Fiscal Year",
     "The F/Y Start and F/Y End dates entered span more than one fiscal year.  Click on the 'Yes' button to verify "
     "that "
     "this is what you intended.  Or, click on the 'No' button to return to the form to alter one or both of the "
     "dates.",
     kYesNo + kExclamation, Answer::No},
    {"ShortName", "147100", "10/1/15", "9/30/16", "Short", "Error: Invalid Facility Name",
     "Facility Name must be at least 8 characters.  Please (re-)enter."},
    {"LongName", "147100", "10/1/15", "9/30/16", "Prairie Hearth Home Health Agency of Harlan",
     "Error: Invalid Facility Name", "Facility Name must be at most 36 characters.  Please (re-)enter."},
};

class NewBoxes : public testing::TestWithParam<NewBox> {};

TEST_P(NewBoxes, StandsOverTheDialog) {
    const NewBox& box = GetParam();
    Desk desk;
    desk.boxes.Expect_Dialog("frmCreateNewCRF", [&](QWidget& dialog) {
        const auto fill = [&](const char* control, const char* text) {
            dialog.findChild<QLineEdit*>(QLatin1String(control))->setText(text);
        };
        fill("txtProviderNum", box.provider);
        fill("txtFYStart", box.start);
        fill("txtFYEnd", box.end);
        fill("txtFacilityName", box.facility);
        desk.Expect(box.title, box.text, box.answer, box.buttons);
        dialog.findChild<QPushButton*>("cmdCreate")->click();
        EXPECT_TRUE(dialog.isVisible());
        dialog.findChild<QPushButton*>("cmdCancel")->click();
    });
    desk.Choose("mnuReportNew");
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_FALSE(Report_Is_Open());
}

INSTANTIATE_TEST_SUITE_P(Entries, NewBoxes, testing::ValuesIn(kNewBoxes),
                         [](const auto& box) { return std::string(box.param.name); });

// What an entry says as the focus leaves it.
TEST(NewBoxes, DatesAreCheckedAsTheyAreLeft) {
    Desk desk;
    desk.boxes.Expect_Dialog("frmCreateNewCRF", [&](QWidget& dialog) {
        for (const auto& [control, title, text] : {std::tuple{"txtFYStart", "Error: Invalid Fiscal Year Start Date",
                                                              "Fiscal Year Start date is not a valid date."},
                                                   std::tuple{"txtFYEnd", "Error: Invalid Fiscal Year End Date",
                                                              "Fiscal Year End date is not a valid date."}}) {
            // The box of the first date takes the activation with it.
            QApplication::setActiveWindow(&dialog);
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            auto* entry = dialog.findChild<QLineEdit*>(control);
            entry->setFocus();
            EXPECT_TRUE(QTest::qWaitFor([&] { return entry->hasFocus(); }));
            entry->setText("soon");
            desk.Expect(title, text, Answer::Ok, kWarning);
            Desk::Press(Qt::Key_Tab);
            Desk::Settle();
            entry->setText("10/1/15");
        }
        dialog.findChild<QPushButton*>("cmdCancel")->click();
    });
    desk.Choose("mnuReportNew");
    EXPECT_TRUE(desk.boxes.Done());
}

// ---- What the window itself says

struct WindowBox {
    const char* name;
    std::function<void(Desk&)> prepare;  // makes the case; a report is open unless it says otherwise
    std::function<void(Desk&)> act;
    const char *title, *text;  // <path> stands for the report's
    int buttons = kStop;
    Answer answer = Answer::Ok;
    bool starts = false;  // the rest of the text is the engine's own
    friend std::ostream& operator<<(std::ostream& out, const WindowBox& box) { return out << box.name; }
};

void Nothing(Desk&) {}
void Close(Desk& desk) {
    desk.Choose("mnuReportClose");
}
void View_A(Desk& desk) {
    desk.View("A");
}
void Open_It(Desk& desk) {
    desk.Open(desk.Report_Path());
}
void Drop(Desk& desk, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(desk.main.get(), &enter);
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(desk.main.get(), &drop);
    Desk::Settle();
}
constexpr const char* kCloseText =
    "This process requires all forms to be closed.  Pressing OK will close all open forms.";
constexpr const char* kDropText = "Drop one Cost Report File (*.CRF) at a time on the window to open it.";

const std::vector<WindowBox>& Window_Boxes() {
    const auto choose = [](const char* entry) { return [entry](Desk& desk) { desk.Choose(entry); }; };
    static const std::vector<WindowBox> boxes{
        {"NewAsksToCloseForms", View_A, choose("mnuReportNew"), "Close form frmViewA", kCloseText, kCloseAllButtons,
         Answer::Cancel},
        {"OpenAsksToCloseForms", View_A, choose("mnuReportOpen"), "Close form frmViewA", kCloseText, kCloseAllButtons,
         Answer::Cancel},
        {"CloseAsksToCloseForms", View_A, choose("mnuReportClose"), "Close form frmViewA", kCloseText, kCloseAllButtons,
         Answer::Cancel},
        {"CloseAllViewsAsks", View_A, choose("mnuViewCloseAll"), "Close form frmViewA", kCloseText, kCloseAllButtons,
         Answer::Cancel},
        {"UnknownWorksheet", Nothing,
         [](Desk& desk) { desk.main->Forms().Open_Worksheet_Form(FormMode::Edit, std::string("Zz")); }, "Tallmar 1728",
         "Unknown worksheet requested (Zz) for edit", kWarning},
        {"ForeignForm",
         [](Desk& desk) {
             db.Execute("UPDATE Master SET FormNum = '2552';");
             Close(desk);
         },
         Open_It, "Error: Attempting to Open Invalid CRF file",
         "You are presently running Tallmar 1728.  This program is for use only in producing CMS 1728 Cost Reports.  "
         "You have just attempted to open a CRF file (report.CRF) containing data for a CMS 2552 Cost Report.  Your "
         "request is being aborted.  Select OK to proceed."},
        {"NoMaster",
         [](Desk& desk) {
             db.Execute("DELETE * FROM Master;");
             Close(desk);
         },
         Open_It, "Error: Attempting to Open Invalid CRF file",
         "The file <path> cannot be opened as a Cost Report File.  It has no Master record."},
        {"TextFile",
         [](Desk& desk) {
             Close(desk);
             std::ofstream(desk.Report_Path(), std::ios::trunc) << "Dear Sir or Madam\n";
         },
         Open_It, "Error: Attempting to Open Invalid CRF file",
         "The file <path> cannot be opened as a Cost Report File.  ", kStop, Answer::Ok, true},
        {"Damaged",
         [](Desk& desk) {
             Close(desk);
             std::fstream file(desk.Report_Path(), std::ios::in | std::ios::out | std::ios::binary);
             file.seekp(4096);
             file << std::string(60000, 'x');
         },
         Open_It, "Error: Attempting to Open Invalid CRF file",
         "The file <path> cannot be opened as a Cost Report File.  ", kStop, Answer::Ok, true},
        {"Folder", Close, [](Desk& desk) { desk.Open(desk.folder.Path()); },
         "Error: Attempting to Open Invalid CRF file", "The file ", kStop, Answer::Ok, true},
        {"Gone",
         [](Desk& desk) {
             Close(desk);
             std::remove(desk.Report_Path().c_str());
         },
         Open_It, "Error: File Not Found", "The file <path> is not there any more.  It is taken off the list.",
         kWarning},
        {"SaveAsFails", Nothing, [](Desk&) { Report_Save_As("/proc/copy.CRF"); }, "Error: Save As Request Failed",
         "PROBLEM Encountered: Your Save As request failed and was not able to be accomplished.  Your original CRF "
         "file "
         "has not been altered.  Hit OK to continue running Tallmar."},
        {"TwoFilesDropped", Nothing,
         [](Desk& desk) {
             const QUrl report = QUrl::fromLocalFile(Qt_Text(desk.Report_Path()));
             Drop(desk, {report, report});
         },
         "Error: Not A Cost Report File", kDropText, kWarning},
        {"FolderDropped", Nothing, [](Desk& desk) { Drop(desk, {QUrl::fromLocalFile(Qt_Text(desk.folder.Path()))}); },
         "Error: Not A Cost Report File", kDropText, kWarning},
        {"DocumentNotThere", Nothing, choose("mnu2"), "Error: Document Not Found",
         "The document <program>/BAD DEBT.DOCX is not there.", kWarning},
        {"SecondCopy", Nothing, [](Desk&) { Tell_Second_Copy(); }, "Attempt to Run Multiple Copies of Tallmar 1728",
         "A copy of Tallmar 1728 is already running.  Only one copy may be run at a time.  After leaving this message "
         "box, this copy of Tallmar 1728 will shut down.  Then, you may [1] use the already running copy, [2] shut "
         "down the already running copy and then restart it, or [3] call QVR for additional assistance."},
        {"CalculationFails", [](Desk&) { db.Execute("DROP TABLE Worksheets;"); },
         [](Desk& desk) { desk.Choose("mnuReportCalculate"); }, "Error: Calculation Failed", "", kStop, Answer::Ok,
         true},
        {"ChangedByAnother",
         [](Desk& desk) {
             desk.Edit("A");
             desk.Grid().setCurrentIndex(desk.Index(6, 1));
             Desk::Type("5\t");
             DBEngine::OpenDatabase(desk.Report_Path()).Execute("UPDATE A SET Col_1 = 9 WHERE LineNum = 6;");
         },
         [](Desk&) { Desk::Press(Qt::Key_Down); }, "Warning: Entry Changed By Another Program",
         "Worksheet A, line 6 was changed by another program meanwhile.  Column 1 Salaries holds '9', you entered '5'. "
         " Select "
         "OK to store your entry, or Cancel to keep it in the row without storing it.",
         kOkCancel + kExclamation, Answer::Cancel},
    };
    return boxes;
}

class WindowBoxes : public testing::TestWithParam<WindowBox> {};

TEST_P(WindowBoxes, IsShownToTheLetter) {
    const WindowBox& box = GetParam();
    Desk desk(fy2016);
    box.prepare(desk);
    ASSERT_EQ(desk.boxes.Boxes_Seen(), 0);
    QString text = box.text;
    text.replace("<path>", Qt_Text(desk.Report_Path()));
    text.replace("<program>", Qt_Text(desk.folder.File("program")));
    if (box.starts) {
        desk.boxes.Expect_Box_Starting(box.title, Plain_Text(text), box.answer, box.buttons);
    } else {
        desk.Expect(box.title, Plain_Text(text), box.answer, box.buttons);
    }
    box.act(desk);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(desk.boxes.Boxes_Seen(), 1);
    EXPECT_FALSE(desk.platform.Guard().Is_On()) << "the window takes input again";
    EXPECT_TRUE(desk.main->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Window, WindowBoxes, testing::ValuesIn(Window_Boxes()),
                         [](const auto& box) { return std::string(box.param.name); });

// A foreign report is closed again, and the next one opens.
TEST(WindowBoxes, AfterARefusedFileTheNextOneOpens) {
    Desk desk(fy2016);
    desk.Choose("mnuReportClose");
    const std::string bad = desk.folder.File("bad.CRF");
    std::ofstream(bad) << "no report";
    desk.boxes.Expect_Box_Starting("Error: Attempting to Open Invalid CRF file", "The file " + bad);
    desk.Open(bad);
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(desk.main->findChild<QWidget*>("fraWelcome")->isVisible());
    EXPECT_FALSE(desk.Entry("mnuReportClose").isEnabled());
    desk.Open(desk.Report_Path());
    EXPECT_TRUE(Report_Is_Open());
    desk.Edit("A");
    EXPECT_EQ(desk.boxes.Boxes_Seen(), 1);
}

TEST(WindowBoxes, ANewReportThatCannotBeMadeSaysSo) {
    Desk desk;
    desk.boxes.Expect_Dialog("frmCreateNewCRF", [&](QWidget& dialog) {
        dialog.findChild<QLineEdit*>("txtProviderNum")->setText("147100");
        dialog.findChild<QLineEdit*>("txtFYStart")->setText("10/1/15");
        dialog.findChild<QLineEdit*>("txtFacilityName")->setText(kGood);
        desk.Expect_File_Dialog("/proc/report.CRF");
        desk.boxes.Expect_Box_Starting("System Error", "", Answer::Ok, kStop);
        dialog.findChild<QPushButton*>("cmdCreate")->click();
        EXPECT_TRUE(dialog.isVisible()) << "the entries are still there";
        dialog.findChild<QPushButton*>("cmdCancel")->click();
    });
    desk.Choose("mnuReportNew");
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(desk.Entry("mnuReportNew").isEnabled());
}

}  // namespace

}  // namespace tallmar
