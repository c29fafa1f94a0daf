#include "calc/w_b1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "calc/b1_test.h"
#include "calc/stat_columns.h"
#include "common/platform.h"
#include "db/replay.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/store.h"
#include "support/allocation_report.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

using testing::ElementsAre;

// Line 2 stands below line 1, and its own cell in the source holds the total of the run before.
TEST(CalcB1, LinkToALowerColumnCarriesTheLastTotal) {
    AllocationReport report;
    report.Statistics({6_cur, 7_cur}, "CC_200", 10);
    report.Link(2_cur, 1_cur);
    Calc_B1();
    EXPECT_EQ(report.B1(2_cur, "CC_100"), 0);
    EXPECT_EQ(report.B1(1_cur, "CC_100"), 20);
    Calc_B1();
    EXPECT_EQ(report.B1(2_cur, "CC_100"), 20);
    EXPECT_EQ(report.B1(1_cur, "CC_100"), 40);
}

// 1000 of line 1 over 1 : 3, then 1000 + 250 of line 5 over the accumulated 2750 : 1000.
TEST(CalcB1, SubTotalIsTakenAtTheColumnOfLineFive) {
    AllocationReport report;
    report.Net(1_cur, 1000);
    report.Net(5_cur, 1000);
    report.Net(6_cur, 2000);
    report.Net(7_cur, 1000);
    report.Statistic(5_cur, "CC_100", 1);
    report.Statistic(6_cur, "CC_100", 3);
    Calc_B1();
    EXPECT_EQ(report.B(29_cur, "NetExpenses"), 5000);
    EXPECT_EQ(report.B1(1_cur, "CC_100"), 4);
    EXPECT_EQ(report.B1(30_cur, "CC_100"), 1000);
    EXPECT_EQ(report.B1(31_cur, "CC_100"), 250);
    EXPECT_EQ(report.B(5_cur, "CC_100"), 250);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 750);
    EXPECT_EQ(report.B(6_cur, "SubTotal"), 2750);
    EXPECT_EQ(report.B(29_cur, "SubTotal"), 5000);
    EXPECT_EQ(report.B1(30_cur, "CC_500"), 1250);
    EXPECT_EQ(report.B1(5_cur, "Recon_500"), -1250);
    EXPECT_EQ(report.B1(6_cur, "CC_500"), 2750);
    EXPECT_EQ(report.B1(5_cur, "CC_500"), 3750);
    EXPECT_EQ(report.B1(31_cur, "CC_500"), 0.333333);
    EXPECT_EQ(report.B(6_cur, "CC_500"), 917);
    EXPECT_EQ(report.B(7_cur, "CC_500"), 333);
    EXPECT_EQ(report.B(6_cur, "Total"), 3667);
    EXPECT_EQ(report.B(7_cur, "Total"), 1333);
    EXPECT_EQ(report.B(29_cur, "Total"), 5000);
}

TEST(CalcB1, SubTotalIsWrittenFromLineFourAndTotalFromLineSix) {
    AllocationReport report;
    report.Net(4_cur, 300);
    Calc_B1();
    EXPECT_TRUE(report.Cell("B", 3_cur, "SubTotal").Is_Null());
    EXPECT_EQ(report.B(4_cur, "SubTotal"), 600);  // its net expenses, and the same as the cost that it allocates
    EXPECT_TRUE(report.Cell("B", 5_cur, "Total").Is_Null());
}

TEST(CalcB1, WithoutAnAccumulatedCostColumnSubTotalIsNeverReached) {
    AllocationReport report({General_Service(100, 100), General_Service(500, 50), Other(600, 10), Other(700)});
    report.Statistic(6_cur, "CC_100", 1);
    report.Statistic(6_cur, "CC_500", 1);
    Calc_B1();
    EXPECT_EQ(report.B(6_cur, "CC_500"), 50);
    EXPECT_TRUE(report.Cell("B", 1_cur, "SubTotal").Is_Null());
    EXPECT_EQ(report.B(6_cur, "SubTotal"), 0);
    EXPECT_EQ(report.B(6_cur, "Total"), 0);
    EXPECT_EQ(report.B(29_cur, "Total"), 0);
}

TEST(CalcB1, NetExpensesAreColumnTenOfAAndNullCountsAsZero) {
    AllocationReport report;
    report.Net(6_cur, 12.34_cur);
    report.Net(7_cur, Null);
    db.Execute("DELETE * FROM A WHERE LineNum = 8;");
    Calc_B1();
    EXPECT_EQ(report.Cell("B", 6_cur, "NetExpenses"), Value(12.34_cur));
    EXPECT_EQ(report.B(7_cur, "NetExpenses"), 0);
    EXPECT_EQ(report.B(8_cur, "NetExpenses"), 0);
}

TEST(CalcB1, CostIsRoundedToDollarsHalvesAway) {
    AllocationReport report;
    report.Net(1_cur, 100.5_cur);
    report.Statistic(6_cur, "CC_100", 1);
    Calc_B1();
    EXPECT_EQ(report.B(1_cur, "CC_100"), 101);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 101);
}

TEST(CalcB1, NegativeCostIsNotAllocated) {
    AllocationReport report;
    report.Net(1_cur, -500);
    report.Statistic(6_cur, "CC_100", 2);
    Calc_B1();
    EXPECT_EQ(report.B(29_cur, "CC_100"), -500);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 0);
    EXPECT_EQ(report.B1(31_cur, "CC_100"), -250);
}

// 33.333333 each, rounded to 33; the one dollar left goes to the first of the three.
TEST(CalcB1, RemainderOfATieGoesToTheLowestLine) {
    AllocationReport report;
    report.Net(1_cur, 100);
    report.Statistics({8_cur, 13.2_cur, 13_cur}, "CC_100", 1);
    Calc_B1();
    EXPECT_EQ(report.B1(31_cur, "CC_100"), 33.333333);
    EXPECT_EQ(report.B(8_cur, "CC_100"), 34);
    EXPECT_EQ(report.B(13_cur, "CC_100"), 33);
    EXPECT_EQ(report.B(13.2_cur, "CC_100"), 33);
    EXPECT_EQ(report.B(29_cur, "CC_100"), 100);
}

// 10 over 3 : 3 : 5 at 0.909091 gives 3, 3, 5, one more than there is.
TEST(CalcB1, RemainderGoesToTheLineThatReceivedTheMost) {
    AllocationReport report;
    report.Net(1_cur, 10);
    report.Statistics({6_cur, 7_cur}, "CC_100", 3);
    report.Statistic(9_cur, "CC_100", 5);
    Calc_B1();
    EXPECT_EQ(report.B(6_cur, "CC_100"), 3);
    EXPECT_EQ(report.B(9_cur, "CC_100"), 4);
}

TEST(CalcB1, CostWithoutStatisticsGoesToTheFirstLineBelow) {
    AllocationReport report;
    report.Net(3_cur, 100);
    Calc_B1();
    EXPECT_EQ(report.B1(31_cur, "CC_300"), 0);
    EXPECT_EQ(report.B(4_cur, "CC_300"), 100);
    EXPECT_EQ(report.B(6_cur, "CC_300"), 0);
}

TEST(CalcB1, NullStatisticGivesANullShare) {
    AllocationReport report;
    report.Net(1_cur, 100);
    report.Statistic(6_cur, "CC_100", 1);
    report.Statistic(7_cur, "CC_100", Null);
    Calc_B1();
    EXPECT_TRUE(report.Cell("B", 7_cur, "CC_100").Is_Null());
    EXPECT_TRUE(report.Cell("B", 7_cur, "SubTotal").Is_Null());
    EXPECT_EQ(report.B(6_cur, "CC_100"), 100);
}

TEST(CalcB1, TotalLineAmongTheOthersTakesNothing) {
    std::vector<CostCenter> chart{General_Service(100, 100), Accumulated(500), Other(600), Other(700), Other(800)};
    chart[3].lineType = "T";
    AllocationReport report(chart);
    report.Statistics({6_cur, 7_cur, 8_cur}, "CC_100", 1);
    Calc_B1();
    EXPECT_EQ(report.B(7_cur, "CC_100"), 0);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 67);  // 33, and the third that nobody took
    EXPECT_EQ(report.B(8_cur, "CC_100"), 33);
}

TEST(CalcB1, LineThatB1HasNotTakesNothing) {
    AllocationReport report;
    report.Net(1_cur, 100);
    report.Statistics({6_cur, 7_cur}, "CC_100", 1);
    db.Execute("DELETE * FROM B1 WHERE LineNum = 7;");
    Calc_B1();
    EXPECT_EQ(report.B(6_cur, "CC_100"), 100);
    EXPECT_EQ(report.B(7_cur, "CC_100"), 0);
}

TEST(CalcB1, ExcludedLineLeavesTheAccumulatedCost) {
    AllocationReport report;
    report.Net(5_cur, 1000);
    report.Net(6_cur, 600);
    report.Net(7_cur, 400);
    report.Override(7_cur, "CC_500", -1);
    Calc_B1();
    EXPECT_EQ(report.B1(7_cur, "CC_500"), -1);
    EXPECT_EQ(report.B1(7_cur, "Recon_500"), -400);
    EXPECT_EQ(report.B1(5_cur, "CC_500"), 600);
    EXPECT_EQ(report.B1(29_cur, "CC_500"), 600);
    EXPECT_EQ(report.B1(31_cur, "CC_500"), 1.666667);
    EXPECT_EQ(report.B(6_cur, "CC_500"), 1000);
    EXPECT_EQ(report.B(7_cur, "CC_500"), 0);
}

TEST(CalcB1, ExclusionThatWasTakenBackLeavesNoTrace) {
    AllocationReport report;
    report.Net(5_cur, 1000);
    report.Net(6_cur, 600);
    report.Net(7_cur, 400);
    report.Override(7_cur, "CC_500", -1);
    Calc_B1();
    db.Execute("DELETE * FROM B1X;");
    Calc_B1();
    EXPECT_EQ(report.B1(7_cur, "Recon_500"), 0);
    EXPECT_EQ(report.B1(7_cur, "CC_500"), 400);
    EXPECT_EQ(report.B(7_cur, "CC_500"), 400);
}

std::vector<CostCenter> Fragmented_Chart() {
    return {General_Service(100), Accumulated(501, 500), Accumulated(502, 300), Accumulated(503, 150), Other(600, 100),
            Other(1400, 300),     Other(1500, 200),      Other(2300, 400),      Other(2400, 250)};
}

// 5.01 gives 500 at 0.294118: 88, 44, 29, 88, 59, 118, 74.
TEST(CalcB1, OptionOneSpreadsSharedThenReimbursableThenNonreimbursable) {
    AllocationReport report(Fragmented_Chart());
    openReport.AGOption = 1;
    Calc_B1();
    EXPECT_EQ(report.B(5.02_cur, "CC_501"), 88);
    EXPECT_EQ(report.B(24_cur, "CC_501"), 74);
    EXPECT_EQ(report.B1(6_cur, "CC_502"), 129);
    EXPECT_EQ(report.B1(14_cur, "CC_502"), 388);
    EXPECT_EQ(report.B1(15_cur, "CC_502"), 0);
    EXPECT_EQ(report.B1(5.02_cur, "CC_502"), 517);
    EXPECT_EQ(report.B(5.03_cur, "CC_502"), 0);
    EXPECT_EQ(report.B(6_cur, "CC_502"), 97);
    EXPECT_EQ(report.B(14_cur, "CC_502"), 291);
    EXPECT_EQ(report.B1(14_cur, "CC_503"), 0);
    EXPECT_EQ(report.B1(15_cur, "CC_503"), 259);
    EXPECT_EQ(report.B1(23_cur, "CC_503"), 518);
    EXPECT_EQ(report.B1(24_cur, "CC_503"), 0);
    EXPECT_EQ(report.B(15_cur, "CC_503"), 65);
    EXPECT_EQ(report.B(23_cur, "CC_503"), 129);
}

TEST(CalcB1, OptionTwoAddsEveryEarlierSubline) {
    AllocationReport report(Fragmented_Chart());
    openReport.AGOption = 2;
    Calc_B1();
    EXPECT_EQ(report.B1(5.03_cur, "CC_502"), 194);
    EXPECT_EQ(report.B1(6_cur, "CC_502"), 129);
    EXPECT_EQ(report.B1(24_cur, "CC_502"), 324);
    EXPECT_EQ(report.B1(5.02_cur, "CC_502"), 1812);
}

TEST(CalcB1, OptionTwoPassesOverSublinesThatTheChartHasNot) {
    AllocationReport report({General_Service(100), Accumulated(503, 100), Other(600, 40), Other(700, 60)});
    openReport.AGOption = 2;
    Calc_B1();
    EXPECT_EQ(report.B(6_cur, "CC_503"), 40);
    EXPECT_EQ(report.B(7_cur, "CC_503"), 60);
}

TEST(CalcB1, OptionTwoLeavesAnAccumulatedCapitalColumnAsTyped) {
    AllocationReport report({Accumulated(100, 100), Accumulated(501), Other(600, 500), Other(700, 500)});
    report.Statistic(7_cur, "CC_100", 4);
    openReport.AGOption = 2;
    Calc_B1();
    EXPECT_EQ(report.B1(6_cur, "CC_100"), 0);
    EXPECT_EQ(report.B1(7_cur, "CC_100"), 4);
    EXPECT_EQ(report.B(7_cur, "CC_100"), 100);
}

TEST(CalcB1, WithoutAnOptionTheBaseIsTheSubTotalAlone) {
    AllocationReport report(Fragmented_Chart());
    Calc_B1();
    EXPECT_EQ(report.B1(6_cur, "CC_502"), 100);
    EXPECT_EQ(report.B1(15_cur, "CC_502"), 200);
    EXPECT_EQ(report.B1(6_cur, "CC_503"), 100);
}

TEST(CalcB1, MissingLine30IsReportedAndEndsTheCalculation) {
    AllocationReport report;
    report.Net(1_cur, 100);
    db.Execute("DELETE * FROM B1 WHERE LineNum = 30;");
    report.platform.Expect_Box("Error: Worksheet B1", "CALC_B1: No record found with LineNum = 30.");
    EXPECT_THROW(Calc_B1(), DbError);
    EXPECT_EQ(report.B(1_cur, "CC_100"), 100);
    EXPECT_EQ(report.B(29_cur, "CC_100"), 0);
}

TEST(CalcB1, MissingLine31IsReportedAndEndsTheCalculation) {
    AllocationReport report;
    report.Net(1_cur, 100);
    db.Execute("DELETE * FROM B1 WHERE LineNum = 31;");
    report.platform.Expect_Box("Error: Worksheet B1", "CALC_B1: No record found with LineNum = 31.");
    EXPECT_THROW(Calc_B1(), DbError);
    EXPECT_EQ(report.B1(30_cur, "CC_100"), 100);
    EXPECT_EQ(report.B(29_cur, "CC_100"), 0);
}

TEST(CalcB1, AccumulatedCostColumnWithoutItsLineInB1IsReported) {
    AllocationReport report;
    report.Net(5_cur, 100);
    report.Net(7_cur, 50);
    db.Execute("DELETE * FROM B1 WHERE LineNum = 5;");
    report.platform.Expect_Box("Error: Worksheet B1", "CALC_B1: No record found with LineNum = 5.");
    Calc_B1();
    EXPECT_EQ(report.B1(31_cur, "CC_500"), 0);
    EXPECT_EQ(report.B(6_cur, "CC_500"), 100);  // no unit cost: all of it is remainder
}

// The failed search leaves the pass on line 29, whose expenses become the cost; below it there is no record.
TEST(CalcB1, ColumnWhoseLineIsGoneEndsTheCalculation) {
    AllocationReport report;
    report.Net(1_cur, 40);
    report.Net(6_cur, 60);
    report.Statistic(6_cur, "CC_100", 1);
    db.Execute("DELETE * FROM CostCenters WHERE LineNum = 2;");
    EXPECT_THROW(Calc_B1(), DbError);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 40);
    EXPECT_EQ(report.B(29_cur, "CC_200"), 140);
    EXPECT_EQ(report.B1(30_cur, "CC_200"), 140);
}

TEST(CalcB1, ChartThatLeftBBehindIsAnEngineError) {
    const AllocationReport report;
    db.Execute("UPDATE CostCenters SET CCType='G' WHERE LineNum = 6;");
    EXPECT_THROW(Calc_B1(), DbError);
}

TEST(CalcB1, FieldCol400ClearsTransportationOfDrugs) {
    AllocationReport report;
    report.Statistics({12_cur, 13_cur, 13.2_cur, 14_cur}, "CC_400", 6);
    TableDef b1 = db.TableDefs().Item("B1");
    b1.Fields_Append(b1.CreateField("Col_400", FieldType::Double));
    EXPECT_THROW(Calc_B1(), DbError);  // B has no such column
    EXPECT_EQ(report.B1(12_cur, "CC_400"), 6);
    EXPECT_EQ(report.B1(13_cur, "CC_400"), 0);
    EXPECT_EQ(report.B1(13.2_cur, "CC_400"), 0);
    EXPECT_EQ(report.B1(14_cur, "CC_400"), 6);
}

// The message of the missing line, then the store that failed on it; worksheets behind B-1 are calculated all the same.
TEST(CalcB1, TroubleIsListedAndTheChainGoesOn) {
    Report report(fy2016);
    report.Execute("DELETE * FROM B1 WHERE LineNum = 30;");
    const auto messages = report.Calc_With_Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].level, "E");
    EXPECT_EQ(messages[0].form, "B1");
    EXPECT_EQ(messages[0].message, "CALC_B1: No record found with LineNum = 30.");
    EXPECT_EQ(messages[1].level, "E");
    EXPECT_EQ(messages[1].form, "B1");
    EXPECT_EQ(messages[1].message, DbError(DbErrorCode::NoCurrentRecord).Description());
}

std::size_t Statements_Of_Step_Down(int columns, int lines) {
    std::vector<CostCenter> chart;
    for (int i = 0; i < columns; ++i) chart.push_back(General_Service(100 + i, 100));
    chart.push_back(Accumulated(500, 100));
    for (int i = 0; i < lines; ++i) chart.push_back(Other(600 + i, 100));
    AllocationReport report(chart);
    for (int i = 0; i < columns; ++i) {
        db.Execute("UPDATE B1 SET CC_" + std::to_string(100 + i) + " = 1 WHERE LineNum > 5 AND LineNum < 29;");
    }
    return Record_Statements(db, Calc_B1).size();
}

TEST(CalcB1, TwiceTheLinesAreAtMostTwiceTheWork) {
    const std::size_t small = Statements_Of_Step_Down(10, 20);
    EXPECT_LE(Statements_Of_Step_Down(10, 40), 2 * small);
    EXPECT_LE(Statements_Of_Step_Down(20, 20), 5 * small / 2);  // the columns allocate to each other as well
}

TEST(CalcB1, TellsTheColumnItIsAt) {
    AllocationReport report;
    Calc_B1();
    EXPECT_THAT(report.platform.progress,
                ElementsAre("Calculating B1: ", "Calculating B1: CC_100", "Calculating B1: CC_200",
                            "Calculating B1: CC_300", "Calculating B1: CC_400", "Calculating B1: CC_500"));
}

TEST(CalcB1, TwiceChangesNothing) {
    AllocationReport report;
    report.Net(1_cur, 1234);
    report.Net(5_cur, 777);
    report.Net(6_cur, 999);
    report.Net(9_cur, 1001);
    report.Statistics({2_cur, 5_cur, 6_cur, 9_cur}, "CC_100", 7);
    report.Override(9_cur, "CC_500", -1);
    Calc_B1();
    const Row b = db.Read_Row("SELECT * FROM B WHERE LineNum = 6;");
    const Row b1 = db.Read_Row("SELECT * FROM B1 WHERE LineNum = 5;");
    Calc_B1();
    const Row bAgain = db.Read_Row("SELECT * FROM B WHERE LineNum = 6;");
    const Row b1Again = db.Read_Row("SELECT * FROM B1 WHERE LineNum = 5;");
    for (int i = 0; i < 13; ++i) EXPECT_EQ(b[i], bAgain[i]);
    for (int i = 0; i < 11; ++i) EXPECT_EQ(b1[i], b1Again[i]);
}

}  // namespace
}  // namespace tallmar
