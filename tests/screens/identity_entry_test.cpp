// Lines 2 and 7 of S-2: an entry there is the identity editor's save.
#include <filesystem>

#include "report/open_report.h"
#include "report/paths.h"
#include "report/registry.h"
#include "report/store.h"
#include "screens/cell_block.h"
#include "screens/edit_history.h"
#include "screens/entry_test.h"
#include "screens/forms.h"
#include "support/short_wait.h"

namespace tallmar {

namespace {

constexpr const char* kSixDigits =
    "Tallmar 1728: You have entered an invalid Provider Number!\rProvider number must be 6 numeric digits.";
constexpr const char* kShortName =
    "Error: Invalid Facility Name: Facility Name must be at least 8 characters.  Please (re-)enter.";
constexpr const char* kBadSequence = "Error: Invalid Dates: Invalid sequence of dates -- FY End preceeds FY Start.";
constexpr const char* kYearTitle = "Change of Fiscal Year";
constexpr const char* kLongTitle = "Warning: Dates Span More Than One Fiscal Year";
constexpr const char* kToLimits =
    "The new fiscal year uses other worksheets: A-1, A-2, A-3, A-8-3; no longer used: S-2-1.  Do you wish to continue?";

// Both dates as one row of a list.
std::vector<std::optional<Refusal>> Enter_Year(const char* start, const char* end) {
    const std::vector<CellText> cells{{"S2", "7", "1", start}, {"S2", "7", "2", end}};
    return Enter_Cells(cells);
}

void Expect_Identity(const Report& r, const char* number, const char* name, const FiscalYear& year) {
    EXPECT_EQ(r.Read("SELECT ProviderNumber FROM Master;"), Value(number));
    EXPECT_EQ(r.Read("SELECT ProviderName FROM Master;"), Value(name));
    EXPECT_EQ(r.Read("SELECT FYStart FROM Master;"), Value(year.start));
    EXPECT_EQ(r.Read("SELECT FYEnd FROM Master;"), Value(year.end));
    EXPECT_EQ(openReport.ProviderNumber, number);
    EXPECT_EQ(openReport.ProviderName, name);
    EXPECT_EQ(openReport.FYStart, year.start);
    EXPECT_EQ(openReport.FYEnd, year.end);
}

constexpr const char* kNumber = "14-7100";
constexpr const char* kName = "Prairie Home Health";

}  // namespace

TEST(EnterIdentity, AProviderNumberIsCheckedAndChangesTheIdentity) {
    Report r(fy2016);
    for (const char* bad : {"14710", "HO1234", "abcdef", "14-71000", ""}) {
        EXPECT_EQ(Answer_To("S2", "2", "2", bad), kSixDigits) << bad;
    }
    Expect_Identity(r, kNumber, kName, fy2016);
    r.platform.Advance(60);
    EXPECT_EQ(Answer_To("S2", "2", "2", "157200"), kStored);
    EXPECT_CELL("S2", 2, 2, "15-7200");
    EXPECT_EQ(r.Read("SELECT BuildDate FROM Master;"), Value(r.platform.Now()));
    Expect_Identity(r, "15-7200", kName, fy2016);
}

TEST(EnterIdentity, AFacilityNameHasEightToThirtySixCharacters) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "2", "1", "NorthSt"), kShortName);
    EXPECT_EQ(Answer_To("S2", "2", "1", ""), kShortName);
    EXPECT_EQ(Title_Of("S2", "2", "1", std::string(37, 'x')), "Error: Invalid Facility Name");
    Expect_Identity(r, kNumber, kName, fy2016);
    EXPECT_EQ(Answer_To("S2", "2", "1", " The \"New\" Harbor "), kStored);
    EXPECT_CELL("S2", 2, 1, "The \"New\" Harbor");
    Expect_Identity(r, kNumber, "The \"New\" Harbor", fy2016);
}

// Somebody reads the file when the row is left.
TEST(EnterIdentity, AChangeThatTheFileDoesNotTakeLeavesTheIdentityAsItWas) {
    const ShortWait wait;
    Report r(fy2016);
    ASSERT_TRUE(Finish_CRF());
    Database other = DBEngine::OpenDatabase(Native_Path(openReport.CRFPath));
    OpenForm form(kEditS2, "S2");
    ASSERT_TRUE(form.Place_Cursor(2_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("2"), "157200"));
    {
        const Job reading(other, Job::Kind::Reading);
        EXPECT_TRUE(form.Store_Row());
    }
    Expect_Identity(r, kNumber, kName, fy2016);
    EXPECT_FALSE(form.Store_Row());
    Expect_Identity(r, "15-7200", kName, fy2016);
}

TEST(EnterIdentity, TheCertificationDateBesideThemIsAnAnswerLikeAnyOther) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "2", "3", "7/1/1966"), kStored);
    const std::vector<CellText> cells{{"S2", "2", "1", "Harbor Home Health"}, {"S2", "2", "3", "7/2/1966"}};
    for (const auto& refusal : Enter_Cells(cells)) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("S2", 2, 3, "07/02/1966");
    Expect_Identity(r, kNumber, "Harbor Home Health", fy2016);
}

TEST(EnterIdentity, DatesAreRefusedWithTheTextsOfTheEditor) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "7", "1", "abc"),
              "Error: Invalid Fiscal Year Start Date: Fiscal Year Start date is not a valid date.  Please (re-)enter "
              "one.");
    EXPECT_EQ(Answer_To("S2", "7", "2", "13/1/2016"),
              "Error: Invalid Fiscal Year End Date: Fiscal Year End date is not a valid date.  Please (re-)enter one.");
    EXPECT_EQ(Answer_To("S2", "7", "2", "10/1/2015"), kBadSequence);
    EXPECT_EQ(Answer_To("S2", "7", "1", "9/30/2016"), kBadSequence);
    Expect_Identity(r, kNumber, kName, fy2016);
    EXPECT_CELL("S2", 7, 1, "10/1/2015");
}

TEST(EnterIdentity, BothDatesOfAListGoInTogether) {
    Report r(fy2016);
    for (const auto& refusal : Enter_Year("10/1/2016", "9/30/2017")) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("S2", 7, 1, "10/01/2016");
    EXPECT_CELL("S2", 7, 2, "09/30/2017");
    Expect_Identity(r, kNumber, kName, {Date_Of(2016, 10, 1), Date_Of(2017, 9, 30)});
}

TEST(EnterIdentity, AnEmptyEndIsAYearAfterTheStart) {
    Report r(fy2016);
    for (const auto& refusal : Enter_Year("1/1/2017", "")) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("S2", 7, 2, "12/31/2017");
    Expect_Identity(r, kNumber, kName, {Date_Of(2017, 1, 1), Date_Of(2017, 12, 31)});
}

TEST(EnterIdentity, AYearThatSpansMoreThanOneIsAsked) {
    Report r(fy2016);
    r.platform.Expect_Box_Starting(kLongTitle, "The F/Y Start and F/Y End dates entered span", Answer::No,
                                   kYesNo | kExclamation);
    EXPECT_EQ(Answer_To("S2", "7", "2", "10/1/2016"), std::string(kLongTitle) + ": The fiscal year was not changed.");
    Expect_Identity(r, kNumber, kName, fy2016);
    r.platform.Expect_Box_Starting(kLongTitle, "The F/Y Start", Answer::Yes);
    EXPECT_EQ(Answer_To("S2", "7", "2", "10/1/2016"), kStored);
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 10, 1));
    EXPECT_EQ(Answer_To("S2", "7", "2", "10/01/2016"), kStored) << "the same year is not asked again";
}

TEST(EnterIdentity, AMoveOverADividingDateIsAskedAndBringsTheWorksheets) {
    Report r(fy2016);
    r.platform.Expect_Box(kYearTitle, kToLimits, Answer::No, kYesNo + kQuestion + kDefaultButton2);
    for (const auto& outcome : Enter_Year("10/1/1998", "9/30/1999")) {
        EXPECT_TRUE(outcome);
        EXPECT_TRUE(outcome->shown) << "the question was the box";
        EXPECT_EQ(Text_Of(outcome), "The fiscal year was not changed.");
    }
    Expect_Identity(r, kNumber, kName, fy2016);
    EXPECT_TRUE(TableExists("S21", true));

    r.platform.Expect_Box(kYearTitle, kToLimits, Answer::Yes);
    for (const auto& refusal : Enter_Year("10/1/1998", "9/30/1999")) EXPECT_EQ(Text_Of(refusal), "");
    Expect_Identity(r, kNumber, kName, fy1999);
    EXPECT_FALSE(TableExists("S21", false));
    for (const char* item : {"A1", "A2", "A3", "A83p1P", "A83p5S"}) EXPECT_TRUE(TableExists(item, true)) << item;
    EXPECT_EQ(r.platform.formLeftOpen, "frmEditS2");
    r.Calc();
}

TEST(EnterIdentity, FormsKeptOpenKeepTheYear) {
    Report r(fy2016);
    r.platform.closeFormsCancelled = true;
    r.platform.Expect_Box(kYearTitle, kToLimits, Answer::Yes);
    for (const auto& outcome : Enter_Year("10/1/1998", "9/30/1999")) {
        EXPECT_EQ(Text_Of(outcome), "The fiscal year was not changed, since forms are open.");
    }
    Expect_Identity(r, kNumber, kName, fy2016);
}

TEST(EnterIdentity, APasteAsksNothingAndKeepsTheYear) {
    Report r(fy2016);
    OpenForm form(kEditS2, "S2");
    const std::vector<Currency> lines{7_cur};
    const std::vector<const GridColumn*> columns{form.Find_Column("1"), form.Find_Column("2")};
    BlockOutcome outcome = Enter_Block(form, Block_At(Parse_Clipboard("10/1/1998\t9/30/1999"), lines, columns));
    EXPECT_EQ(outcome.notes.size(), 2U);
    Expect_Identity(r, kNumber, kName, fy2016);
    outcome = Enter_Block(form, Block_At(Parse_Clipboard("10/1/2016\t9/30/2017"), lines, columns));
    EXPECT_TRUE(outcome.notes.empty());
    Expect_Identity(r, kNumber, kName, {Date_Of(2016, 10, 1), Date_Of(2017, 9, 30)});
}

TEST(EnterIdentity, AnEntryEqualToWhatStandsIsNoChange) {
    Report r(fy2016);
    const Value built = r.Read("SELECT BuildDate FROM Master;");
    r.platform.Advance(60);
    EXPECT_EQ(Answer_To("S2", "7", "1", "10/01/2015"), kStored);
    EXPECT_EQ(Answer_To("S2", "7", "2", ""), kStored) << "the end of a whole year";
    EXPECT_EQ(Answer_To("S2", "2", "2", "147100"), kStored);
    EXPECT_CELL("S2", 7, 1, "10/1/2015");
    EXPECT_EQ(r.Read("SELECT BuildDate FROM Master;"), built);
}

TEST(EnterIdentity, ALineThatSaysOtherwiseThanTheReportIsSetRight) {
    Report r(fy2016);
    r.Cell("S2", 2, 1, "Somebody Else");
    EXPECT_EQ(Answer_To("S2", "2", "1", kName), kStored);
    EXPECT_CELL("S2", 2, 1, kName);
}

TEST(EnterIdentity, ClearingManyCellsLeavesTheYear) {
    Report r(FiscalYear{Date_Of(2015, 10, 1), Date_Of(2016, 6, 30)});
    OpenForm form(kEditS2, "S2");
    const std::vector<Currency> lines{7_cur};
    const std::vector<const GridColumn*> columns{form.Find_Column("1"), form.Find_Column("2")};
    const BlockOutcome outcome = Enter_Block(form, Block_At(Parse_Clipboard("\t"), lines, columns));
    EXPECT_EQ(outcome.notes.size(), 2U);
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 6, 30));
}

TEST(EnterIdentity, UndoTakesTheIdentityBackAndAYearsWorksheetsWithTheirEntries) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S21", "1", "1", "Y"), kStored);
    OpenForm form(kEditS2, "S2");
    EditHistory history(form);
    ASSERT_TRUE(form.Place_Cursor(2_cur));
    EXPECT_FALSE(form.Enter(*form.Find_Column("2"), "157200"));
    EXPECT_FALSE(form.Store_Row());
    form.Follow_Changes();
    r.platform.Expect_Box(kYearTitle, kToLimits, Answer::Yes);
    ASSERT_TRUE(form.Place_Cursor(7_cur));
    EXPECT_FALSE(form.Enter(*form.Find_Column("1"), "10/1/1998"));
    EXPECT_FALSE(form.Enter(*form.Find_Column("2"), "9/30/1999"));
    EXPECT_FALSE(form.Store_Row());
    form.Follow_Changes();
    Expect_Identity(r, "15-7200", kName, fy1999);

    r.platform.Expect_Box(kYearTitle,
                          "The new fiscal year uses other worksheets: S-2-1; no longer used: A-1, A-2, A-3, A-8-3.  Do "
                          "you wish to continue?",
                          Answer::Yes);
    history.Undo();
    Expect_Identity(r, "15-7200", kName, fy2016);
    EXPECT_CELL("S21", 1, 1, "Y");
    EXPECT_FALSE(TableExists("A1", false));
    history.Undo();
    Expect_Identity(r, kNumber, kName, fy2016);
}

TEST(EnterIdentity, WhatTheEngineRefusesChangesNothing) {
    Report r(fy2016);
    r.Execute("DROP TABLE Master;");
    OpenForm form(kEditS2, "S2");
    ASSERT_TRUE(form.Place_Cursor(2_cur));
    EXPECT_FALSE(form.Enter(*form.Find_Column("2"), "157200"));
    EXPECT_FALSE(form.Enter(*form.Find_Column("3"), "7/1/1999"));
    EXPECT_EQ(Title_Of(form.Store_Row()), "Entry Not Stored");
    EXPECT_CELL("S2", 2, 2, kNumber);
    EXPECT_CELL("S2", 2, 3, Null);
    EXPECT_EQ(openReport.ProviderNumber, kNumber);
}

}  // namespace tallmar
