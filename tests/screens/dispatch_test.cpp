#include "screens/dispatch.h"

#include "report/open_report.h"
#include "report/registry.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

std::string Next(std::string_view caption) {
    return Next_Worksheet(caption, Direction::Next);
}
std::string Previous(std::string_view caption) {
    return Next_Worksheet(caption, Direction::Previous);
}

// The items that a walk meets, its start left out.
std::string Walk(FormMode mode, std::string item, Direction direction = Direction::Next) {
    std::string met;
    for (int step = 0; step < 200; ++step) {
        item = Next_Worksheet(Form_Caption(mode, item), direction);
        if (item.empty()) return met;
        met += (met.empty() ? "" : " ") + item;
    }
    return "the walk does not end";
}

// Registers a hospice worksheet; navigation reads no more of it than that.
void Register(std::string_view item) {
    Edit_Worksheets(item, "Make", 0);
}

constexpr std::string_view kKSeries[] = {"S5p1h0", "S5p2h0", "Kh0", "K1h0", "K4p0h0", "K4p1h0", "K5p1h0", "K6h0"};
constexpr std::string_view kOSeries[] = {"S5p3h0", "S5p4h0", "Oh0", "O1h0", "O5h0", "O6p1h0", "O6p2h0", "O8h0"};

}  // namespace

TEST(CaptionTest, HoldsModeAndItem) {
    EXPECT_EQ(Form_Caption(FormMode::Edit, "A6pC"), "Edit Worksheet A6pC");
    EXPECT_EQ(Form_Caption(FormMode::View, "Cp2m1600"), "View Worksheet Cp2m1600");
    EXPECT_EQ(Item_Of_Caption("Edit Worksheet A6pC"), Item("A6pC"));
    EXPECT_EQ(Item_Of_Caption("View Worksheet B"), Item("B"));
    EXPECT_EQ(Item_Of_Caption("Edit"), Item(""));
    EXPECT_EQ(Mode_Of_Caption("Edit Worksheet A"), FormMode::Edit);
    EXPECT_EQ(Mode_Of_Caption("View Worksheet A"), FormMode::View);
}

TEST(RecordStatusTest, TellsTheFirstAndTheLastRecord) {
    EXPECT_EQ(Record_Status(0, 10), "Record: 1 (First record)");
    EXPECT_EQ(Record_Status(4, 10), "Record: 5");
    EXPECT_EQ(Record_Status(9, 10), "Record: 10 (Last record)");
    EXPECT_EQ(Record_Status(0, 1), "Record: 1 (First record) (Last record)");
    EXPECT_EQ(Record_Status(0, 0), "Record: 0");
}

TEST(FormOfTest, IsTheCataloguesOrThatOfAnotherTable) {
    Report r(fy2016);
    EXPECT_EQ(Form_Of(FormMode::Edit, "A"), &kEditA);
    EXPECT_EQ(Form_Of(FormMode::View, "A"), &kViewA);
    EXPECT_EQ(Form_Of(FormMode::Edit, "Cp2c12345"), &kEditCp2);
    EXPECT_EQ(Form_Of(FormMode::Edit, "B"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::Edit, "A83p2P"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::View, "A83p2P"), &kViewA83p2);
    EXPECT_EQ(Form_Of(FormMode::View, "CCs"), &kViewCCs);
    EXPECT_EQ(Form_Of(FormMode::Edit, "CCs"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::Edit, "HeaderLines"), &kHeaderLines);
    EXPECT_EQ(Form_Of(FormMode::View, "HeaderLines"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::View, "B1X"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::View, "Z9"), nullptr);
}

TEST(FormToOpenTest, NeedsTheFormsTableInTheReport) {
    Report r(fy2016);
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "A"), &kEditA);
    EXPECT_EQ(Form_To_Open(FormMode::View, "CCs"), &kViewCCs);
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "A1"), nullptr) << "a report of 2016 has no A-1";
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "Cp2c12345"), nullptr);
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "B"), nullptr);
    db.Close();
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "A"), nullptr);
    EXPECT_EQ(Unknown_Worksheet(FormMode::Edit, "A1"), "Unknown worksheet requested (A1) for edit");
    EXPECT_EQ(Unknown_Worksheet(FormMode::View, "Z9"), "Unknown worksheet requested (Z9) for view");
}

TEST(FormToOpenTest, ATableThatIsNotRegisteredIsNoWorksheet) {
    Report r(fy2016);
    r.Execute("SELECT LineNum, CCName, Col_1 INTO A1 FROM A;");
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "A1"), nullptr);
    EXPECT_EQ(Form_To_Open(FormMode::View, "A1"), nullptr);
    EXPECT_TRUE(TableExists("A1", false)) << "asking for a form deletes nothing";
    r.Execute("DELETE FROM Worksheets WHERE Item=\"A7\";");
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "A7"), nullptr);
}

TEST(NextWorksheetTest, WalksDisplayNamesInEditMode) {
    Report r(fy2016);
    EXPECT_EQ(Walk(FormMode::Edit, "A"),
              "A4 A5 A6pA A6pB A6pC A7 B1 Cp3 Cp5 Dp1 Dp2 D1 F F1 F2 S2 S21 S3p1 S3p2 S3p3 S3p4");
    EXPECT_EQ(Walk(FormMode::Edit, "S3p4", Direction::Previous),
              "S3p3 S3p2 S3p1 S21 S2 F2 F1 F D1 Dp2 Dp1 Cp5 Cp3 B1 A7 A6pC A6pB A6pA A5 A4 A");
}

TEST(NextWorksheetTest, MeetsTheComputedWorksheetsInViewMode) {
    Report r(fy2016);
    EXPECT_EQ(Walk(FormMode::View, "A"),
              "A4 A5 A6pA A6pB A6pC A7 B B1 Cp1 Cp3 Cp4 Cp5 Dp1 Dp2 D1 F F1 F2 Sp2 S2 S21 S3p1 S3p2 S3p3 S3p4");
}

TEST(NextWorksheetTest, IsEmptyBeyondTheEnds) {
    Report r(fy2016);
    EXPECT_EQ(Next("Edit Worksheet S3p4"), "");
    EXPECT_EQ(Previous("Edit Worksheet A"), "");
    EXPECT_EQ(Neighbour_Tip("Edit Worksheet S3p4", Direction::Next), "");
}

TEST(NextWorksheetTest, YearsDecideWhatAWalkPassesOver) {
    Report r(fy1999);
    EXPECT_EQ(Next("Edit Worksheet A"), "A1");
    EXPECT_EQ(Next("Edit Worksheet A3"), "A4");
    EXPECT_EQ(
        Walk(FormMode::Edit, "A7"),
        "A83p1O A83p4O A83p5O A83p1P A83p4P A83p5P A83p1S A83p4S A83p5S B1 Cp3 Cp4 Cp5 Dp1 Dp2 D1 F F1 F2 S2 S3p1 "
        "S3p2 S3p3");
    EXPECT_EQ(Next("View Worksheet S3p3"), "S3p4") << "a view passes over by A's year rule alone";
    openReport.FYEnd = kCostLimitsEnd;
    EXPECT_EQ(Next("Edit Worksheet S3p3"), "S3p4");
    openReport.FYStart = kCostLimitsEnd;  // the worksheets of before still stand in the registry
    EXPECT_EQ(Next("Edit Worksheet A"), "A4");
    EXPECT_EQ(Next("View Worksheet A"), "A4");
    EXPECT_EQ(Next("Edit Worksheet A7"), "B1");
    EXPECT_EQ(Next("View Worksheet A7"), "B");
    EXPECT_EQ(Next("Edit Worksheet Cp3"), "Cp5");
    EXPECT_EQ(Next("View Worksheet Cp3"), "Cp4");
    openReport.FYStart = Date{kCostLimitsEnd.serial - 1};
    EXPECT_EQ(Next("Edit Worksheet Cp3"), "Cp4");
}

TEST(NextWorksheetTest, ANewWorksheetIsMetAtOnce) {
    Report r(fy2016);
    EXPECT_EQ(Next("Edit Worksheet S3p4"), "");
    Register("S5p3h0");
    EXPECT_EQ(Next("Edit Worksheet S3p4"), "S5p3h0");
    EXPECT_EQ(Next("Edit Worksheet F2"), "S2");
    Register("Kh0");
    EXPECT_EQ(Next("Edit Worksheet F2"), "Kh0");
    EXPECT_FALSE(Enter("S3p3", "29", "2", "16580"));
    EXPECT_EQ(Next("Edit Worksheet B1"), "Cp2c16580");
}

TEST(NextWorksheetTest, TheKSeriesKeepsToItself) {
    Report r(fy1999);
    for (const std::string_view item : kKSeries) Register(item);
    for (const std::string_view item : kOSeries) Register(item);
    EXPECT_EQ(Walk(FormMode::View, "Kh0"), "K1h0 K4p0h0 K4p1h0 K5p1h0 K6h0 S5p1h0 S5p2h0 S5p3h0 S5p4h0");
    EXPECT_EQ(Next("View Worksheet K6h0"), "S5p1h0");
    EXPECT_EQ(Previous("View Worksheet Kh0"), "");
    EXPECT_EQ(Walk(FormMode::Edit, "Kh0"), "K1h0 K4p0h0 S5p1h0 S5p2h0 S5p3h0 S5p4h0");
}

TEST(NextWorksheetTest, TheOSeriesKeepsToItself) {
    Report r(fy2016);
    for (const std::string_view item : kKSeries) Register(item);
    for (const std::string_view item : kOSeries) Register(item);
    EXPECT_EQ(Walk(FormMode::View, "Oh0"), "O1h0 O5h0 O6p1h0 O6p2h0 O8h0 S5p3h0 S5p4h0");
    EXPECT_EQ(Walk(FormMode::Edit, "Oh0"), "O1h0 O6p2h0 S5p3h0 S5p4h0");
    EXPECT_EQ(Previous("View Worksheet Oh0"), "") << "K is before O by name";
    EXPECT_EQ(Previous("Edit Worksheet S2"), "O6p2h0");
}

TEST(NextWorksheetTest, TheCensusIsEnteredFromItsOwnFamilyAlone) {
    Report r(fy1999);
    Register("S5p2h0");
    EXPECT_EQ(Next("Edit Worksheet S3p3"), "");
    EXPECT_EQ(Next("View Worksheet S3p4"), "S5p2h0");
    Register("S5p1h0");
    EXPECT_EQ(Next("Edit Worksheet S3p3"), "S5p1h0");
    EXPECT_EQ(Next("Edit Worksheet S5p1h0"), "S5p2h0");
}

TEST(NextWorksheetTest, TablesThatAreNoWorksheetsHaveNoNeighbours) {
    Report r(fy2016);
    EXPECT_EQ(Next("View Worksheet CCs"), "");
    EXPECT_EQ(Previous("Edit Worksheet HeaderLines"), "");
    db.Close();
    EXPECT_EQ(Next("Edit Worksheet A"), "");
}

TEST(NeighbourTipTest, NamesTheWorksheetAndTheMode) {
    Report r(fy2016);
    EXPECT_EQ(Neighbour_Tip("Edit Worksheet A4", Direction::Next), "Open A-5 For Edit");
    EXPECT_EQ(Neighbour_Tip("View Worksheet A4", Direction::Next), "Open A-5 For View");
    EXPECT_EQ(Neighbour_Tip("View Worksheet A5", Direction::Previous), "Open A-4 For View");
    EXPECT_EQ(Neighbour_Tip("Edit Worksheet A5", Direction::Next), "Open A-6  Part-A For Edit");
}

}  // namespace tallmar
