// How many entries there are since the last calculation: by entering, undo, paste, added rows, and other programs.
#include "report/entry_age.h"

#include "calc/driver.h"
#include "report/open_report.h"
#include "screens/cell_block.h"
#include "screens/edit_history.h"
#include "screens/entry_test.h"
#include "screens/forms.h"
#include "structure/edit_key.h"

namespace tallmar {

namespace {

void Enter_Row(OpenForm& form, Currency line, std::string_view column, std::string_view text) {
    ASSERT_TRUE(form.Place_Cursor(line));
    ASSERT_FALSE(form.Enter(*form.Find_Column(column), text));
    ASSERT_FALSE(form.Store_Row());
}

}  // namespace

TEST(EntryAgeTest, ANewReportIsNotCalculated) {
    Report r(fy2016);
    EXPECT_FALSE(openReport.entryAge.Is_Older());
    EXPECT_EQ(openReport.entryAge.Text(), "Not calculated since it was opened");
    EXPECT_EQ(openReport.entryAge.Calculation_Text(), "");
}

TEST(EntryAgeTest, CountsCellsUntilTheReportIsCalculated) {
    Report r(fy2016);
    Enter("A", "6", "1", "100");
    EXPECT_EQ(openReport.entryAge.Text(), "1 entry since it was opened, not calculated");
    Calc_All();
    EXPECT_FALSE(openReport.entryAge.Is_Older());
    EXPECT_TRUE(openReport.entryAge.Text().starts_with("Calculated "));
    EXPECT_TRUE(openReport.entryAge.Calculation_Text().ends_with(", no messages."))
        << openReport.entryAge.Calculation_Text();
    Enter("A", "6", "1", "200");
    Enter("A", "6", "2", "5");
    EXPECT_EQ(openReport.entryAge.Text(), "2 entries since the last calculation");
}

TEST(EntryAgeTest, AnEntryThatIsTakenBackIsNone) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    Enter_Row(form, 6_cur, "1", "100");
    Enter_Row(form, 6_cur, "1", "101");
    EXPECT_EQ(openReport.entryAge.Entries(), 1U) << "one cell";
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 1U);
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
    Calc_All();
    Enter_Row(form, 6_cur, "1", "7");
    Calc_All();
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 1U) << "an undo of what was calculated is an entry";
}

TEST(EntryAgeTest, CountsWhatAPasteStored) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    const std::vector<const GridColumn*> columns{form.Find_Column("1"), form.Find_Column("2")};
    const std::vector<Currency> lines{6_cur, 7_cur};
    {
        const EditHistory::OneStep step(history, "paste");
        Enter_Block(form, Block_At(Parse_Clipboard("1\tx\n2\t0\n"), lines, columns));
    }
    EXPECT_EQ(openReport.entryAge.Entries(), 2U);
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
}

TEST(EntryAgeTest, ARowThatCameOrWentIsOneEntry) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    EditHistory history(form);
    const Currency line = form.Add_Row({});
    EXPECT_EQ(openReport.entryAge.Entries(), 1U);
    form.Remove_Row(line);
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 1U);
    history.Undo();
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
}

TEST(EntryAgeTest, NamesFilledInBesideANumberAreNotCounted) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    form.Add_Row({});
    Enter_Row(form, 1_cur, "Explanation", "Insurance");
    Enter_Row(form, 1_cur, "3", "1");
    EXPECT_EQ(openReport.entryAge.Entries(), 3U) << "the row, its explanation and its number";
}

TEST(EntryAgeTest, HeaderLinesAreNoEntries) {
    Report r(fy2016);
    OpenForm form(kHeaderLines, "HeaderLines");
    ASSERT_TRUE(form.Place_Cursor(1_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("LineText"), "Draft"));
    ASSERT_FALSE(form.Store_Row());
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
}

TEST(EntryAgeTest, AMessageOfTheCalculationIsCounted) {
    Report r(fy2016);
    openReport.entryAge.Calculated(db, 1);
    EXPECT_TRUE(openReport.entryAge.Calculation_Text().ends_with(", 1 message."));
    openReport.entryAge.Calculated(db, 3);
    EXPECT_TRUE(openReport.entryAge.Calculation_Text().ends_with(", 3 messages."));
}

TEST(EntryAgeTest, AWindowKeepsTheCountFromOneOpeningToTheNext) {
    Report r(fy2016);
    r.platform.keepsReportsOpen = true;
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    Enter("A", "6", "1", "100");
    Enter("A", "6", "2", "5");
    openReport.entryAge.Remember(openReport.CRFPath);
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    EXPECT_EQ(openReport.entryAge.Text(), "2 entries since the last calculation");
    Enter("A", "7", "1", "9");
    EXPECT_EQ(openReport.entryAge.Entries(), 3U);
    openReport.entryAge.Remember(openReport.CRFPath);

    const std::string path = openReport.CRFPath;
    openReport.CRFPath = "/elsewhere/other report.CRF";
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    EXPECT_EQ(openReport.entryAge.Entries(), 0U) << "another report has its own count";
    openReport.CRFPath = path;
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    EXPECT_EQ(openReport.entryAge.Entries(), 3U);
    Calc_All();
    openReport.entryAge.Remember(openReport.CRFPath);
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    EXPECT_EQ(openReport.entryAge.Text(), "Not calculated since it was opened");
}

TEST(EntryAgeTest, ACommandRemembersNothing) {
    Report r(fy2016);
    Enter("A", "6", "1", "100");
    openReport.entryAge.Remember(openReport.CRFPath);
    EXPECT_TRUE(r.platform.settings.empty());
}

}  // namespace tallmar
