// Cells of S-2 and S-2-1, entered as a person types them.
#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

TEST(EnterS2, EachLineTakesItsKindOfAnswer) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "1", "1", "418 Old Mill Road"), kStored);
    EXPECT_EQ(Answer_To("S2", "1.01", "2", "IL"), kStored);
    EXPECT_EQ(Answer_To("S2", "1.01", "3", "61999"), kStored);
    EXPECT_EQ(Answer_To("S2", "2", "3", "7/1/1966"), kStored);
    EXPECT_CELL("S2", 2, 3, "07/01/1966");
    EXPECT_EQ(Answer_To("S2", "2", "3", "12/31/1965"),
              "Entry Error: Certification Dates must be on or after 7/1/1966.");
    EXPECT_EQ(Answer_To("S2", "2", "3", "not yet"), "Entry Error: Invalid date");
    EXPECT_EQ(Answer_To("S2", "8", "1", "14"), "Entry Error: Valid types of controls are one(1) through thirteen(13).");
    EXPECT_EQ(Answer_To("S2", "9", "1", "low"), kStored);
    EXPECT_CELL("S2", 9, 1, "L");
    EXPECT_EQ(Answer_To("S2", "10", "1", "61,350"), kStored);
    EXPECT_CELL("S2", 10, 1, "61350");
    EXPECT_EQ(Answer_To("S2", "14", "1", "yes"), kStored);
    EXPECT_CELL("S2", 14, 1, "Y");
    EXPECT_EQ(Answer_To("S2", "22.01", "1", "x"), "Entry Error: Please enter Y or N.");
    EXPECT_EQ(Answer_To("S2", "23", "2", "n"), kStored);
    EXPECT_EQ(Answer_To("S2", "27.03", "1", "much"), "Entry Error: This field accepts numeric data only.");
}

TEST(EnterS2, AnAmountKeepsItsDigitsOrIsRefused) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "27.01", "1", "922,337,203,685,477"), kStored);
    EXPECT_CELL("S2", 27.01, 1, "922337203685477");
    EXPECT_EQ(Title_Of("S2", "27.01", "1", "1234567890123456789"), "Number Too Large");
    EXPECT_CELL("S2", 27.01, 1, "922337203685477");
}

TEST(EnterS2, TextsAreAsLongAsTheirColumns) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "1", "1", std::string(40, 'a')), kStored);
    EXPECT_EQ(Title_Of("S2", "1", "1", std::string(41, 'a')), "Invalid Length Entry");
    EXPECT_EQ(Answer_To("S2", "1", "2", std::string(16, '9')), kStored);
    EXPECT_EQ(Title_Of("S2", "1", "2", std::string(17, '9')), "Invalid Length Entry");
}

TEST(EnterS2, CellsThatALineHasNotAreShut) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("S2", "1", "3", "x"), kShut);
    EXPECT_EQ(Title_Of("S2", "8", "2", "1"), kShut);
    EXPECT_EQ(Title_Of("S2", "13", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S2", "22", "2", "Y"), kShut);
    EXPECT_EQ(Title_Of("S2", "27", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S2", "8", "LineLabel", "x"), kShut);
}

TEST(EnterS2, TheHomeOfficeIsAskedForInAChainOnly) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("S2", "29.01", "1", "Head Office"), kShut);
    EXPECT_EQ(Answer_To("S2", "29", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S2", "29.01", "1", "Head Office"), kStored);
    EXPECT_EQ(Answer_To("S2", "29.02", "3", "Suite 4"), kStored);
    EXPECT_EQ(Answer_To("S2", "29.03", "2", "Illinois"), "Entry Error: Please only use the two character state code.");
    EXPECT_EQ(Answer_To("S2", "29", "1", "N"), kStored);
    EXPECT_EQ(Answer_To("S2", "29.01", "1", "Other Office"),
              "Locked Cell: Worksheet S2, line 29.01, column 1 Name takes no entry: answer line 29 with Y first.");
    EXPECT_CELL("S2", 29.01, 1, "Head Office");
    EXPECT_EQ(Answer_To("S2", "29.01", "1", ""), kStored) << "what is there can be cleared";
    EXPECT_CELL("S2", 29.01, 1, Null);
    EXPECT_EQ(Title_Of("S2", "29.01", "1", "Head Office"), kShut);
}

TEST(EnterS2, TheOptionExchangesLineFive) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "26", "1", "1"), kStored);
    EXPECT_EQ(r.platform.formClosings, 1);
    EXPECT_EQ(r.platform.formLeftOpen, "frmEditS2") << "the form that asks";
    EXPECT_EQ(openReport.AGOption, 1);
    EXPECT_CELL("A", 5.01, "CCName", "Administrative & General");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM CostCenters WHERE LineNum = 5;"), Value(0));
    EXPECT_EQ(Answer_To("S2", "26", "1", ""), kStored);
    EXPECT_EQ(openReport.AGOption, 0);
    EXPECT_CELL("A", 5, "CCName", "Administrative & General");
    EXPECT_EQ(Answer_To("S2", "26", "1", "3"), "Entry Error: Valid types of controls are zero(0), one(1) or two(2).");
}

TEST(EnterS2, OptionTwoTakesTheSplitLineToo) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "26", "1", "2"), kStored);
    EXPECT_EQ(openReport.AGOption, 2);
    EXPECT_CELL("A", 5.01, "CCName", "Administrative & General");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM CostCenters WHERE LineNum = 5;"), Value(0));
    EXPECT_EQ(Answer_To("S2", "26", "1", "1"), kStored);
    EXPECT_CELL("A", 5.01, "CCName", "Administrative & General");
    EXPECT_EQ(Answer_To("S2", "26", "1", "0"), kStored);
    EXPECT_CELL("A", 5, "CCName", "Administrative & General");
}

TEST(EnterS2, OptionZeroGoesBackWhereTheSplitLineStandsAlone) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "26", "1", "1"), kStored);
    r.Execute(
        "INSERT INTO CostCenters (LineNum, CCNum, CCName, CCType, LineType) VALUES (5.02, 5.02, 'A & G Reimbursable', "
        "'G', 'U');");
    EXPECT_EQ(Answer_To("S2", "26", "1", "0"), kStored);
    EXPECT_EQ(openReport.AGOption, 0);
    EXPECT_CELL("A", 5.01, "CCName", "Administrative & General");
}

TEST(EnterS2, FormsKeptOpenKeepTheOption) {
    Report r(fy2016);
    r.platform.closeFormsCancelled = true;
    EXPECT_TRUE(Enter("S2", "26", "1", "1"));
    EXPECT_CELL("S2", 26, 1, Null);
    EXPECT_CELL("A", 5, "CCName", "Administrative & General");
}

TEST(EnterS2, TheSplitLineTakesAmountsWhereverItsOptionStandsInTheList) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"A", "5.01", "1", "700"}, {"S2", "26", "1", "1"}};
    for (const auto& refusal : Enter_Cells(cells)) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("A", 5.01, 1, 700_cur);
}

TEST(EnterS21, AnswersCountByTheirLetter) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S21", "1", "1", "Yes"), kStored);
    EXPECT_CELL("S21", 1, 1, "Y");
    EXPECT_EQ(Answer_To("S21", "1", "2", "9/30/2016"), kStored);
    EXPECT_CELL("S21", 1, 2, "09/30/2016");
    EXPECT_EQ(Answer_To("S21", "1", "2", "13/1/2016"), "Entry Error: Enter a valid date.");
    EXPECT_EQ(Answer_To("S21", "4", "3", "12/31/2039"), kStored) << "a statement that is still to come";
    EXPECT_EQ(Answer_To("S21", "2", "3", "x"), "Entry Error: Please enter V or I.");
    EXPECT_EQ(Answer_To("S21", "4", "2", "audited"), kStored);
    EXPECT_CELL("S21", 4, 2, "A");
    EXPECT_EQ(Answer_To("S21", "4", "2", "x"), "Entry Error: Please enter A, C or R.");
    EXPECT_EQ(Answer_To("S21", "5", "1", "x"), "Entry Error: Please enter Y or N.");
    EXPECT_EQ(Title_Of("S21", "5", "2", "x"), kShut);
    EXPECT_EQ(Answer_To("S21", "15", "3", "Controller"), kStored);
    EXPECT_EQ(Title_Of("S21", "16", "2", "x"), kShut);
}

TEST(EnterS21, FollowUpsOpenWithTheirLead) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("S21", "7", "1", "Y"), kShut);
    EXPECT_EQ(Answer_To("S21", "6", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S21", "7", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S21", "8", "1", "N"), kStored);
    EXPECT_EQ(Title_Of("S21", "11", "1", "Y"), kShut) << "line 6 does not open line 11";
    EXPECT_EQ(Answer_To("S21", "10", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S21", "11", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S21", "6", "1", "N"), kStored);
    EXPECT_EQ(Answer_To("S21", "7", "1", "N"),
              "Locked Cell: Worksheet S21, line 7, column 1 Answer takes no entry: answer line 6 with Y first.");
    EXPECT_CELL("S21", 7, 1, "Y");
    EXPECT_EQ(Answer_To("S21", "7", "1", ""), kStored) << "what is there can be cleared";
    EXPECT_EQ(Title_Of("S21", "7", "1", ""), kShut) << "and is closed then";
    EXPECT_EQ(Answer_To("S21", "10", "1", "N"), kStored);
    EXPECT_EQ(Answer_To("S21", "11", "1", "N"),
              "Locked Cell: Worksheet S21, line 11, column 1 Answer takes no entry: answer line 9 or 10 with Y first.");
    EXPECT_EQ(Answer_To("S21", "11", "1", ""), kStored);
}

TEST(EnterS21, LineThirteenIsDescribedByTheUser) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("S21", "13", "LineLabel", "Late claims"), kShut);
    EXPECT_EQ(Answer_To("S21", "9", "1", "Y"), kStored);
    EXPECT_EQ(Answer_To("S21", "13", "LineLabel", "Late \"claims\""), kStored);
    EXPECT_CELL("S21", 13, "LineLabel", "Late \"claims\"");
    EXPECT_EQ(Title_Of("S21", "12", "LineLabel", "x"), kShut);
}

}  // namespace tallmar
