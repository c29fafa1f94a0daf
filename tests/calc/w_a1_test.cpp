#include "calc/w_a1.h"

#include <array>

#include "support/report_test.h"

namespace tallmar {
namespace {

class Compensation : public ReportTest {
  protected:
    void SetUp() override { Begin(fy1999, {"A1", "A2", "A3"}); }
};

TEST_F(Compensation, EachAnalysisShadesItsOwnCells) {
    EXPECT_EQ(Lines("A1", "Col_1 Is Null"), "1 2 13 14");
    EXPECT_EQ(Lines("A2", "Col_1 Is Null"), "1 2 12 13 14");
    EXPECT_EQ(Lines("A3", "Col_1 Is Null"), "1 2 12 13 14");
    for (const char* item : {"A1", "A2", "A3"}) {
        EXPECT_EQ(Lines(item, "Col_8 Is Null"), "1 2");
        EXPECT_EQ(Lines(item, "Col_9 Is Null"), "1 2");
        EXPECT_CELL(item, 29, "CCName", "Total");
    }
}

TEST_F(Compensation, ConsultantsAreInUseOnA3Only) {
    EXPECT_EQ(Lines("A1", "Col_3 Is Not Null"), "");
    EXPECT_EQ(Lines("A2", "Col_3 Is Not Null"), "");
    EXPECT_CELL("A3", 6, 3, 0);
    for (const char* item : {"A1", "A2", "A3"}) {
        Cell(item, 6, 3, 50);
        Cell(item, 6, 5, 7);
        Calc(item);
    }
    EXPECT_CELL("A1", 6, 9, 7);
    EXPECT_SHADED("A1", 29, 3);
    EXPECT_CELL("A2", 6, 9, 7);
    EXPECT_CELL("A3", 6, 9, 57);
    EXPECT_CELL("A3", 29, 3, 50);
    EXPECT_CELL("A3", 29, 9, 57);
}

// Two lines, so that a total is neither a single line nor the larger of them.
TEST_F(Compensation, EveryOtherClassCountsInTheLineTotalAndHasATotalOfItsOwn) {
    constexpr std::array kClasses{"Col_1", "Col_2", "Col_4", "Col_5", "Col_6", "Col_7", "Col_8"};
    for (const char* item : {"A1", "A2", "A3"}) {
        int amount = 1;
        for (const char* field : kClasses) {
            Cell(item, 5, field, amount);
            Cell(item, 6, field, 2 * amount);
            amount *= 10;
        }
        Calc(item);
        EXPECT_CELL(item, 5, 9, 1111111);
        EXPECT_CELL(item, 6, 9, 2222222);
        EXPECT_CELL(item, 29, 9, 3333333);
        amount = 1;
        for (const char* field : kClasses) {
            EXPECT_CELL(item, 29, field, 3 * amount);
            amount *= 10;
        }
    }
}

TEST_F(Compensation, CapitalLinesAreOutsideTheTotals) {
    Cell("A1", 1, 8, 500);
    Cell("A1", 3, 8, 20);
    Calc_Compensation("A1");
    EXPECT_SHADED("A1", 1, 9);
    EXPECT_CELL("A1", 29, 8, 20);
    EXPECT_CELL("A1", 29, 9, 20);
}

TEST_F(Compensation, NullTotalIsStoredAsZero) {
    db.Execute("UPDATE A2 SET Col_1 = Null;");
    Calc_Compensation("A2");
    EXPECT_CELL("A2", 29, 1, 0);
}

TEST(CompensationAnalyses, OneThatStaysRegisteredIsNotCalculatedFromOctober2000On) {
    Report report(fy1999);
    report.Cell("A1", 6, 5, 7);
    openReport.FYStart = kCostLimitsEnd;
    report.Calc();
    EXPECT_CELL("A1", 6, 9, 0);
    openReport.FYStart = Date{kCostLimitsEnd.serial - 1};
    report.Calc();
    EXPECT_CELL("A1", 6, 9, 7);
}

}  // namespace
}  // namespace tallmar
