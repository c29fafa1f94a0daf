// A cell that refuses its entry holds whatever would leave it: one box, nothing goes on, nothing is lost.
#include <QMdiSubWindow>

#include "report/open_report.h"
#include "report/store.h"
#include "shell/journeys/desk.h"

namespace tallmar {

namespace {

struct Leaving {
    const char* name;
    void (*leave)(Desk&);
    bool asks = false;           // all forms are to be closed
    const char* file = nullptr;  // that a dialog asks for first
    friend std::ostream& operator<<(std::ostream& out, const Leaving& leaving) { return out << leaving.name; }
};
constexpr Leaving kLeavings[] = {
    {"CloseButton", [](Desk& desk) { desk.Push("cmdClose"); }},
    {"WindowClose", [](Desk& desk) { desk.Window().close(); }},
    {"WindowShortcut", [](Desk&) { Desk::Press(Qt::Key_W, Qt::ControlModifier); }},
    {"RecalculateButton", [](Desk& desk) { desk.Push("cmdRecalculate"); }},
    {"OpenView", [](Desk& desk) { desk.Push("cmdOpenView"); }},
    {"OtherRow", [](Desk& desk) { desk.At(9, 2); }},
    {"CalculateEntry", [](Desk& desk) { desk.Choose("mnuReportCalculate"); }},
    {"CloseAllEdits", [](Desk& desk) { desk.Choose("mnuEditClose"); }},
    {"SaveAs", [](Desk& desk) { desk.Choose("mnuReportSaveAs"); }, false, "copy.CRF"},
    {"Identity", [](Desk& desk) { desk.Choose("mnuReportKey"); }},
    {"MainWindow", [](Desk& desk) { desk.main->close(); }},
    {"Exit", [](Desk& desk) { desk.Choose("mnuReportExit"); }},
    {"CloseReport", [](Desk& desk) { desk.Choose("mnuReportClose"); }, true},
    {"NewReport", [](Desk& desk) { desk.Choose("mnuReportNew"); }, true},
    {"OpenReport", [](Desk& desk) { desk.Choose("mnuReportOpen"); }, true},
    {"OpenRecent", [](Desk& desk) { desk.Open(desk.Report_Path()); }, true},
};

class RefusedCell : public testing::TestWithParam<Leaving> {};

TEST_P(RefusedCell, HoldsTheFormOpen) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    ASSERT_TRUE(desk.At(6, 1));
    Desk::Type("lots");
    ASSERT_NE(desk.Editor(), nullptr);
    if (GetParam().asks) desk.Expect_Close_All("frmEditA", Answer::Ok);
    if (GetParam().file != nullptr) desk.Expect_File_Dialog(desk.folder.File(GetParam().file));
    desk.Expect("Invalid Non-Numeric Entry",
                "You're attempting to enter invalid data ['lots'].  The cell you're attempting to input or modify only "
                "accepts numeric data.  Your entry or modification is being discarded.  Select OK to continue.",
                Answer::Ok, kStop);
    GetParam().leave(desk);
    Desk::Settle();
    EXPECT_TRUE(desk.boxes.Done());
    ASSERT_EQ(desk.Open_Forms(), 1U);
    EXPECT_TRUE(desk.main->isVisible());
    EXPECT_TRUE(desk.main->isEnabled());
    EXPECT_FALSE(desk.platform.Guard().Is_On());
    EXPECT_EQ(openReport.CRFPath, desk.Report_Path());
    EXPECT_EQ(desk.Cursor(), "6 Col_1");
    EXPECT_EQ(desk.Shown(6, 1), "1,200");
    // The form goes on as if nothing had been.
    desk.Key(6, 1, "7");
    EXPECT_EQ(Desk::Stored("A", 6, 1), "7");
}

INSTANTIATE_TEST_SUITE_P(Leavings, RefusedCell, testing::ValuesIn(kLeavings),
                         [](const auto& leaving) { return std::string(leaving.param.name); });

// The same by an entry that is good: it is stored first.
TEST_P(RefusedCell, AGoodEntryIsStoredFirst) {
    const std::string name = GetParam().name;
    if (name == "SaveAs" || name == "Identity" || GetParam().asks) return;  // they go on with a dialog
    Desk desk(fy2016);
    desk.Edit("A");
    ASSERT_TRUE(desk.At(6, 1));
    Desk::Type("88");
    const std::string path = desk.Report_Path();
    GetParam().leave(desk);
    Desk::Settle();
    if (!Report_Is_Open()) desk.Open(path);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "88");
}

}  // namespace

}  // namespace tallmar
