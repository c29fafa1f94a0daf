// How many entries there are since the last calculation: by entering, undo, paste, added rows, and other programs.
#include "report/entry_age.h"

#include "calc/driver.h"
#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/forms.h"
#include "screens/paste.h"
#include "structure/edit_key.h"

namespace tallmar {

namespace {

void Enter_Row(OpenForm& form, Currency line, std::string_view column, std::string_view text) {
    ASSERT_TRUE(form.Go_To(line));
    ASSERT_TRUE(form.Enter(*form.Find_Column(column), text).stored);
    ASSERT_TRUE(form.Leave_Row().stored);
}

}  // namespace

TEST(EntryAgeTest, ANewReportIsNotCalculated) {
    Report r(fy2016);
    EXPECT_FALSE(Entry_Age().Is_Older());
    EXPECT_EQ(Entry_Age().Text(), "Not calculated since it was opened");
    EXPECT_EQ(Entry_Age().Calculation_Text(), "");
}

TEST(EntryAgeTest, CountsCellsUntilTheReportIsCalculated) {
    Report r(fy2016);
    Enter("A", "6", "1", "100");
    EXPECT_EQ(Entry_Age().Text(), "1 entry since it was opened, not calculated");
    Calc_All();
    EXPECT_FALSE(Entry_Age().Is_Older());
    EXPECT_TRUE(Entry_Age().Text().starts_with("Calculated "));
    EXPECT_TRUE(Entry_Age().Calculation_Text().ends_with(", no messages.")) << Entry_Age().Calculation_Text();
    Enter("A", "6", "1", "200");
    Enter("A", "6", "2", "5");
    EXPECT_EQ(Entry_Age().Text(), "2 entries since the last calculation");
}

TEST(EntryAgeTest, AnEntryThatIsTakenBackIsNone) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    Enter_Row(form, 6_cur, "1", "100");
    Enter_Row(form, 6_cur, "1", "101");
    EXPECT_EQ(Entry_Age().Entries(), 1U) << "one cell";
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 1U);
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 0U);
    Calc_All();
    Enter_Row(form, 6_cur, "1", "7");
    Calc_All();
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 1U) << "an undo of what was calculated is an entry";
}

TEST(EntryAgeTest, CountsWhatAPasteStored) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const std::vector<const GridColumn*> columns{form.Find_Column("1"), form.Find_Column("2")};
    const std::vector<Currency> lines{6_cur, 7_cur};
    Enter_Block(form, Block_At(Parse_Clipboard("1\tx\n2\t0\n"), lines, columns), "paste");
    EXPECT_EQ(Entry_Age().Entries(), 2U);
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 0U);
}

TEST(EntryAgeTest, ARowThatCameOrWentIsOneEntry) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    const Currency line = form.Add_Row({});
    EXPECT_EQ(Entry_Age().Entries(), 1U);
    form.Remove_Row(line);
    EXPECT_EQ(Entry_Age().Entries(), 0U);
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 1U);
    form.Undo();
    EXPECT_EQ(Entry_Age().Entries(), 0U);
}

TEST(EntryAgeTest, NamesFilledInBesideANumberAreNotCounted) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    form.Add_Row({});
    Enter_Row(form, 1_cur, "Explanation", "Insurance");
    Enter_Row(form, 1_cur, "3", "1");
    EXPECT_EQ(Entry_Age().Entries(), 3U) << "the row, its explanation and its number";
}

TEST(EntryAgeTest, HeaderLinesAreNoEntries) {
    Report r(fy2016);
    OpenForm form(kHeaderLines, "HeaderLines");
    ASSERT_TRUE(form.Go_To(1_cur));
    ASSERT_TRUE(form.Enter(*form.Find_Column("LineText"), "Draft").stored);
    ASSERT_TRUE(form.Leave_Row().stored);
    EXPECT_EQ(Entry_Age().Entries(), 0U);
}

TEST(EntryAgeTest, AMessageOfTheCalculationIsCounted) {
    Report r(fy2016);
    Entry_Age().Calculated(1);
    EXPECT_TRUE(Entry_Age().Calculation_Text().ends_with(", 1 message."));
    Entry_Age().Calculated(3);
    EXPECT_TRUE(Entry_Age().Calculation_Text().ends_with(", 3 messages."));
}

TEST(EntryAgeTest, AWindowKeepsTheCountFromOneOpeningToTheNext) {
    Report r(fy2016);
    r.platform.keepsReportsOpen = true;
    Entry_Age().Report_Opened();
    Enter("A", "6", "1", "100");
    Enter("A", "6", "2", "5");
    Entry_Age().Remember();
    Entry_Age().Report_Opened();
    EXPECT_EQ(Entry_Age().Text(), "2 entries since the last calculation");
    Enter("A", "7", "1", "9");
    EXPECT_EQ(Entry_Age().Entries(), 3U);
    Entry_Age().Remember();

    const std::string path = CRFPath;
    CRFPath = "/elsewhere/other report.CRF";
    Entry_Age().Report_Opened();
    EXPECT_EQ(Entry_Age().Entries(), 0U) << "another report has its own count";
    CRFPath = path;
    Entry_Age().Report_Opened();
    EXPECT_EQ(Entry_Age().Entries(), 3U);
    Calc_All();
    Entry_Age().Remember();
    Entry_Age().Report_Opened();
    EXPECT_EQ(Entry_Age().Text(), "Not calculated since it was opened");
}

TEST(EntryAgeTest, ACommandRemembersNothing) {
    Report r(fy2016);
    Enter("A", "6", "1", "100");
    Entry_Age().Remember();
    EXPECT_TRUE(r.platform.settings.empty());
}

}  // namespace tallmar
