#include "calc/w_s2.h"

#include "calc/w_s21.h"
#include "calc/w_sp2.h"
#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetS2 : public ReportTest {};

TEST_F(WorksheetS2, TakesItsIdentityFromTheReport) {
    Begin(fy2016, {"S2"});
    EXPECT_CELL("S2", 2, 1, "Prairie Home Health");
    EXPECT_CELL("S2", 2, 2, "14-7100");
    EXPECT_CELL("S2", 7, 1, "10/1/2015");
    EXPECT_CELL("S2", 7, 2, "9/30/2016");
}

TEST_F(WorksheetS2, QuotesInTheNameAreKept) {
    Begin(fy2016);
    openReport.ProviderName = R"("Good" Neighbor's Care)";
    Build_S2();
    EXPECT_CELL("S2", 2, 1, R"("Good" Neighbor's Care)");
}

TEST_F(WorksheetS2, FixedLinesAndTheirDefaults) {
    Begin(fy2016, {"S2"});
    EXPECT_EQ(
        Lines("S2"),
        "1 1.01 2 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 22.01 22.02 23 26 27 27.01 27.02 27.03 28 29 29.01 "
        "29.02 29.03");
    EXPECT_EQ(Lines("S2", "Col_1 = 'No'"), "14 15 16 18 19 20 21 22 22.01 22.02 28 29");
    EXPECT_CELL("S2", 8, 1, "4");
    EXPECT_CELL("S2", 12, "LineLabel", "Sum of the Years' Digits");
    EXPECT_CELL("S2", 29, "LineLabel",
                "If you are part of a chain organization, enter \"Y\" for yes and enter the name and address of the "
                "home office, otherwise, enter \"N\" for no.");
    EXPECT_SHADED("S2", 26, 1);
}

TEST_F(WorksheetS2, SpecialPurposeLinesOfTheChartStandAtTheTop) {
    Begin(fy2016);
    Add_Cost_Center(24_cur, "CORF");
    Add_Cost_Center(24.01_cur, "CORF II");
    Add_Cost_Center(25_cur, "Hospice");
    Add_Cost_Center(25.01_cur, "Hospice II");
    Add_Cost_Center(26_cur, "RHC");
    Add_Cost_Center(27_cur, "FQHC");
    Add_Cost_Center(28_cur, "Other");
    Build_S2();
    EXPECT_EQ(Lines("S2", "LineNum >= 3 And LineNum < 7"), "3 3.01 3.5 3.51 4 5 6");
    EXPECT_CELL("S2", 3.01, "LineLabel", "HHA-based CORF II");
    EXPECT_CELL("S2", 3.51, "LineLabel", "HHA-based Hospice II");
    EXPECT_CELL("S2", 6, "LineLabel", "HHA-based Other");
    EXPECT_EQ(Lines("S2", "LineNum >= 24 And LineNum < 29"), "24 24.01 25 26 27 27.01 27.02 27.03 28");
    EXPECT_CELL("S2", 24, "LineLabel", "CORF");
    EXPECT_CELL("S2", 25, "LineLabel", "RHC");
}

TEST_F(WorksheetS2, DepreciationOfANewReportIsZero) {
    Begin(fy2016, {"S2"});
    Calc_S2();
    EXPECT_CELL("S2", 13, 1, "0");
}

TEST_F(WorksheetS2, DepreciationAddsWholeDollars) {
    Begin(fy2016, {"S2"});
    Cell("S2", 10, 1, "1000.75");
    Cell("S2", 11, 1, "20");
    Calc_S2();
    EXPECT_CELL("S2", 13, 1, "1020");
}

TEST_F(WorksheetS2, DepreciationThatIsNoNumberFails) {
    Begin(fy2016, {"S2"});
    Cell("S2", 13, 1, "7");
    Cell("S2", 10, 1, "none");
    EXPECT_THROW(Calc_S2(), DbError);
    EXPECT_CELL("S2", 13, 1, "7");
}

class WorksheetS21 : public ReportTest {
  protected:
    void SetUp() override { Begin(fy2016, {"S21"}); }
    static void Answer_All_Yes() { db.Execute("UPDATE S21 SET Col_1 = 'Yes';"); }
};

TEST_F(WorksheetS21, BeginsUnanswered) {
    EXPECT_EQ(Lines("S21"), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17");
    EXPECT_EQ(Lines("S21", "Col_1 Is Not Null Or Col_2 Is Not Null Or Col_3 Is Not Null"), "");
    EXPECT_CELL("S21", 6, "LineLabel",
                "Is the HHA or HHA-based enties seeking reimbursement for bad depts? If yes, see instructions.");
}

TEST_F(WorksheetS21, YesEverywhereStays) {
    Answer_All_Yes();
    Calc_S21();
    EXPECT_EQ(Lines("S21", "Col_1 Is Null"), "");
}

TEST_F(WorksheetS21, ClearingLineSixClearsSevenAndEight) {
    Answer_All_Yes();
    Cell("S21", 6, 1, Null);
    Calc_S21();
    EXPECT_EQ(Lines("S21", "Col_1 Is Null"), "6 7 8");
}

TEST_F(WorksheetS21, SmallLettersCount) {
    Answer_All_Yes();
    Cell("S21", 6, 1, "y");
    Calc_S21();
    EXPECT_CELL("S21", 7, 1, "Yes");
}

TEST_F(WorksheetS21, OneOfLinesNineAndTenIsEnough) {
    Answer_All_Yes();
    Cell("S21", 9, 1, "No");
    Calc_S21();
    EXPECT_CELL("S21", 12, 1, "Yes");
    Cell("S21", 10, 1, "No");
    Calc_S21();
    EXPECT_EQ(Lines("S21", "Col_1 Is Null"), "11 12 13");
}

TEST_F(WorksheetS21, LabelOfLine13CarriesTheUsersTextWhileItIsYes) {
    Answer_All_Yes();
    Cell("S21", 13, "LineLabel", "Other: late claims");
    Calc_S21();
    EXPECT_CELL("S21", 13, "LineLabel", "Other: late claims");
    Cell("S21", 13, 1, "N");
    Calc_S21();
    EXPECT_CELL("S21", 13, "LineLabel",
                "If line 9 or 10 is yes, were adjustments made to the PS&R Report data for Other? If yes, describe.");
}

TEST_F(WorksheetS21, LabelOfLine13FallsBackWithoutNineAndTen) {
    Cell("S21", 13, 1, "Y");
    Cell("S21", 13, "LineLabel", "Other: late claims");
    Calc_S21();
    EXPECT_CELL("S21", 13, "LineLabel",
                "If line 9 or 10 is yes, were adjustments made to the PS&R Report data for Other? If yes, describe.");
}

class WorksheetSp2 : public ReportTest {
  protected:
    void SetUp() override { Begin(fy2016, {"Sp2"}); }
    static void Add_Settlement(const char* values) {
        TableDef table = db.CreateTableDef("Dp2");
        for (const char* field : {"LineNum", "Col_1", "Col_2"}) {
            table.Fields_Append(table.CreateField(field, FieldType::Currency));
        }
        db.TableDefs().Append(table);
        Add_Row("Dp2", "LineNum, Col_1, Col_2", values);
        Edit_Worksheets("Dp2", "Make", 10);
    }
    static std::string Log_Lines() {
        std::string lines;
        Recordset log = db.OpenRecordset("SELECT * FROM Log WHERE LogType = 'C';");
        for (; !log.Eof(); log.MoveNext()) {
            lines +=
                log["Severity"].To_Text() + '|' + log["Procedure"].To_Text() + '|' + log["Message"].To_Text() + '\n';
        }
        return lines;
    }
};

TEST_F(WorksheetSp2, BothLinesTakeTheSettlement) {
    EXPECT_SHADED("Sp2", 4, 1);
    Add_Settlement("29, 12.5, -7");
    Calc_Sp2();
    EXPECT_EQ(List("Sp2", 1), "12.5 12.5");
    EXPECT_EQ(List("Sp2", 2), "-7 -7");
}

TEST_F(WorksheetSp2, NullSettlementIsZero) {
    Add_Settlement("29, Null, 3");
    Calc_Sp2();
    EXPECT_EQ(List("Sp2", 1), "0 0");
}

TEST_F(WorksheetSp2, LogsItsStartAndEnd) {
    Calc_Sp2();
    EXPECT_EQ(Log_Lines(),
              "F.Y.I.|Calc_Sp2|Worksheet S Part-2 Calculation\n"
              "F.Y.I.|Calc_Sp2|Worksheet S Part-2 calculation completed.\n");
}

}  // namespace
}  // namespace tallmar
