// Worksheet A-8-3, one instance a discipline: P physical, O occupational, S speech.
#include <gtest/gtest.h>

#include "report/registry.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

const FiscalYear kAfterTheLimits{Date_Of(2000, 10, 1), Date_Of(2001, 9, 30)};
const FiscalYear kLastDayOfTheLimits{Date_Of(2000, 9, 30), Date_Of(2001, 9, 29)};

// Hours worked and rates: supervisors 100 x 30, therapists 200 x 25, assistants 300 x 20, aides 50 x 10.
void Fill_Hours_And_Rates(Report& r, const char* part1) {
    const double hours[] = {100, 200, 300, 50};
    const double rates[] = {30, 25, 20, 10};
    for (int column = 1; column <= 4; ++column) {
        r.Cell(part1, 7, column, hours[column - 1]);
        r.Cell(part1, 8, column, rates[column - 1]);
    }
}

// Overtime hours of 100 x therapists, 60 x assistants, 40 x aides, on a workyear of 2000 hours.
void Fill_Overtime(Report& r) {
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Cell("A83p4P", 32, 1, 100);
    r.Cell("A83p4P", 32, 2, 60);
    r.Cell("A83p4P", 32, 3, 40);
    r.Cell("A83p4P", 36, 4, 2000);
}

}  // namespace

TEST(WorksheetA83, TheFormEndsWithTheCostLimits) {
    Report r(kAfterTheLimits);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item Like(\"A83*\");").To_Long(), 0);
    EXPECT_FALSE(TableExists("A83p1P", false));
    r.Cell("A5", 10, 2, 1);
    r.Cell("A5", 10.1_cur, 2, 2);
    r.Cell("A5", 10.2_cur, 2, 3);
    r.Calc();
    EXPECT_CELL("A5", 10, 2, 0);
    EXPECT_CELL("A5", 10.1_cur, 2, 0);
    EXPECT_CELL("A5", 10.2_cur, 2, 0);
}

TEST(WorksheetA83, AReportThatBeginsADayEarlierHasFifteenTables) {
    Report r(kLastDayOfTheLimits);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item Like(\"A83p??\");").To_Long(), 15);
    EXPECT_FALSE(TableExists("A83p1", false));
    EXPECT_EQ(r.Read("SELECT Calc_Lvl FROM Worksheets WHERE Item = \"A83p1O\";").To_Long(), 0);
    EXPECT_EQ(r.Read("SELECT Calc_Lvl FROM Worksheets WHERE Item = \"A83p4O\";").To_Long(), 1);
    EXPECT_EQ(r.Read("SELECT Calc_Lvl FROM Worksheets WHERE Item = \"A83p5O\";").To_Long(), 2);
    EXPECT_CELL("A83p3S", 29, "LineLabel", "*Standard Travel Allowance and Standard Travel Expense");
}

TEST(WorksheetA83, ShadedCellsAreNull) {
    Report r(fy1999);
    EXPECT_CELL("A83p1P", 1, 1, 0);
    EXPECT_CELL("A83p1P", 1, 2, Null);
    EXPECT_CELL("A83p1P", 8, 4, 0);
    EXPECT_CELL("A83p1P", 9, 4, Null);
    EXPECT_CELL("A83p3P", 21, 1, Null);
    EXPECT_CELL("A83p4P", 32, 4, Null);
    EXPECT_CELL("A83p5P", 49, 1, 0);
    EXPECT_THROW(r.Read("SELECT Col_2 FROM A83p2P;"), DbError);
}

TEST(WorksheetA83, OneDisciplineHasNoEffectOnAnother) {
    Report r(fy1999);
    r.Cell("A83p1P", 1, 1, 52);
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Cell("A83p5P", 48, 1, 50000);
    r.Calc();
    EXPECT_CELL("A83p1P", 2, 1, 780);
    EXPECT_CELL("A83p1O", 2, 1, 0);
    EXPECT_CELL("A83p2O", 17, 1, 0);
    EXPECT_CELL("A83p5O", 49, 1, 0);
    EXPECT_CELL("A83p5S", 49, 1, 0);
    EXPECT_CELL("A5", 10.1_cur, 2, 0);
    EXPECT_CELL("A5", 10.2_cur, 2, 0);
}

TEST(WorksheetA83, AWeekIsFifteenHoursAndTheTravelAllowanceHalfTheRate) {
    Report r(fy1999);
    r.Cell("A83p1P", 1, 1, 50.5);
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Calc("A83p1P");
    EXPECT_CELL("A83p1P", 2, 1, 757.5);  // 15 x 50.5
    EXPECT_CELL("A83p1P", 9, 1, 12.5);   // half of 25
    EXPECT_CELL("A83p1P", 9, 2, 12.5);
    EXPECT_CELL("A83p1P", 9, 3, 10);  // half of 20
    EXPECT_CELL("A83p1P", 9, 4, Null);
}

TEST(WorksheetA83, WithinTheMinimumHoursTheWeightedAllowanceIsTaken) {
    Report r(fy1999);
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Cell("A83p1P", 2, 1, 600);  // the 600 hours of the first three do not exceed it
    r.Calc("A83p2P");
    EXPECT_CELL("A83p2P", 12, 1, 3000);
    EXPECT_CELL("A83p2P", 13, 1, 5000);
    EXPECT_CELL("A83p2P", 14, 1, 6000);
    EXPECT_CELL("A83p2P", 15, 1, 14000);
    EXPECT_CELL("A83p2P", 16, 1, 500);
    EXPECT_CELL("A83p2P", 17, 1, 14500);
    EXPECT_CELL("A83p2P", 18, 1, 23.33);  // 14000 / 600
    EXPECT_CELL("A83p2P", 19, 1, 13998);  // 600 x 23.33
    EXPECT_CELL("A83p2P", 20, 1, 14498);  // 500 + 13998
}

TEST(WorksheetA83, AboveTheMinimumHoursTheTotalAllowanceIsTaken) {
    Report r(fy1999);
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Cell("A83p1P", 2, 1, 599.99);
    r.Calc("A83p2P");
    EXPECT_CELL("A83p2P", 18, 1, 0);
    EXPECT_CELL("A83p2P", 19, 1, 0);
    EXPECT_CELL("A83p2P", 20, 1, 14500);
}

TEST(WorksheetA83, WithoutHoursThereIsNoWeightedRate) {
    Report r(fy1999);
    r.Cell("A83p1P", 1, 1, 52);
    r.Cell("A83p1P", 8, 1, 30);
    r.Calc();
    EXPECT_CELL("A83p2P", 18, 1, 0);
    EXPECT_CELL("A83p2P", 20, 1, 0);
}

TEST(WorksheetA83, TravelIsStandardAndOptional) {
    Report r(fy1999);
    Fill_Hours_And_Rates(r, "A83p1P");
    r.Cell("A83p1P", 3, 1, 40);    // visits of supervisors or therapists
    r.Cell("A83p1P", 4, 1, 10);    // of assistants alone
    r.Cell("A83p1P", 5, 1, 2.5);   // standard rate
    r.Cell("A83p1P", 6, 1, 0.25);  // a mile
    r.Cell("A83p1P", 10, 1, 4);
    r.Cell("A83p1P", 10, 2, 6);
    r.Cell("A83p1P", 10, 3, 7);
    r.Cell("A83p1P", 11, 1, 100);
    r.Cell("A83p1P", 11, 2, 60);
    r.Cell("A83p1P", 11, 3, 30);
    r.Calc("A83p1P");
    r.Calc("A83p3P");
    EXPECT_CELL("A83p3P", 21, 1, 500);  // 40 x 12.50
    EXPECT_CELL("A83p3P", 22, 1, 100);  // 10 x 10
    EXPECT_CELL("A83p3P", 23, 1, 600);
    EXPECT_CELL("A83p3P", 24, 1, 125);  // 2.50 x (40 + 10)
    EXPECT_CELL("A83p3P", 25, 1, 250);  // 25 x (4 + 6)
    EXPECT_CELL("A83p3P", 26, 1, 140);  // 20 x 7
    EXPECT_CELL("A83p3P", 27, 1, 390);
    EXPECT_CELL("A83p3P", 28, 1, 48);   // 0.25 x 190 = 47.50
    EXPECT_CELL("A83p3P", 29, 1, 725);  // 600 + 125
    EXPECT_CELL("A83p3P", 30, 1, 515);  // 390 + 125
    EXPECT_CELL("A83p3P", 31, 1, 438);  // 390 + 48
    EXPECT_CELL("A83p3P", 21, 2, Null);
}

TEST(WorksheetA83, OvertimeIsLimitedByTheWorkyear) {
    Report r(fy1999);
    Fill_Overtime(r);
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 32, 4, 200);
    EXPECT_CELL("A83p4P", 33, 1, 37.5);   // 1.5 x 25
    EXPECT_CELL("A83p4P", 34, 1, 3750);   // 100 x 37.50
    EXPECT_CELL("A83p4P", 35, 1, 0.5);    // 100 / 200
    EXPECT_CELL("A83p4P", 36, 1, 1000);   // half of 2000
    EXPECT_CELL("A83p4P", 37, 1, 25);     // the rate
    EXPECT_CELL("A83p4P", 38, 1, 25000);  // 1000 x 25
    EXPECT_CELL("A83p4P", 39, 1, 3750);   // the lesser
    EXPECT_CELL("A83p4P", 40, 1, 2500);   // 100 x 25
    EXPECT_CELL("A83p4P", 41, 1, 1250);   // 3750 - 2500
    EXPECT_CELL("A83p4P", 41, 2, 600);    // 60 x 30 less 60 x 20
    EXPECT_CELL("A83p4P", 41, 3, 200);    // 40 x 15 less 40 x 10
    EXPECT_CELL("A83p4P", 41, 4, 2050);
    EXPECT_CELL("A83p4P", 36, 4, 2000);
}

TEST(WorksheetA83, TheOvertimeAllowanceIsNotBelowZero) {
    Report r(fy1999);
    Fill_Overtime(r);
    r.Cell("A83p4P", 36, 4, 10);  // therapists: 5 hours x 25 = 125, less 2500 already included
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 39, 1, 125);
    EXPECT_CELL("A83p4P", 41, 1, 0);
    EXPECT_CELL("A83p4P", 41, 4, 0);
}

TEST(WorksheetA83, AWorkyearAbove2080HoursZeroesTheOvertime) {
    Report r(fy1999);
    Fill_Overtime(r);
    r.Cell("A83p4P", 36, 4, 2080);
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 41, 4, 2050);
    r.Cell("A83p4P", 36, 4, 2080.01);
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 33, 1, 0);
    EXPECT_CELL("A83p4P", 36, 1, 0);
    EXPECT_CELL("A83p4P", 36, 4, 2080.01);
    EXPECT_CELL("A83p4P", 41, 4, 0);
}

TEST(WorksheetA83, OvertimeHoursFrom2080UpZeroTheOvertime) {
    Report r(fy1999);
    Fill_Overtime(r);
    r.Cell("A83p4P", 32, 1, 1979.99);  // 2079.99 in all
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 33, 1, 37.5);
    r.Cell("A83p4P", 32, 1, 1980);
    r.Calc("A83p4P");
    EXPECT_CELL("A83p4P", 32, 4, 2080);
    EXPECT_CELL("A83p4P", 33, 1, 0);
    EXPECT_CELL("A83p4P", 41, 4, 0);
}

TEST(WorksheetA83, WithoutOvertimeHoursLinesFrom33AreZero) {
    Report r(fy1999);
    r.Calc();
    EXPECT_CELL("A83p4P", 32, 4, 0);
    EXPECT_CELL("A83p4P", 33, 1, 0);
    EXPECT_CELL("A83p4P", 41, 4, 0);
}

TEST(WorksheetA83, TravelTakesTheFirstTotalThatIsNotZero) {
    Report r(fy1999);
    r.Cell("A83p3P", 29, 1, 0);
    r.Cell("A83p3P", 30, 1, 515);
    r.Cell("A83p3P", 31, 1, 438);
    r.Calc("A83p5P");
    EXPECT_CELL("A83p5P", 43, 1, 515);
    r.Cell("A83p3P", 30, 1, Null);
    r.Calc("A83p5P");
    EXPECT_CELL("A83p5P", 43, 1, 438);
    r.Cell("A83p3P", 31, 1, Null);
    r.Calc("A83p5P");
    EXPECT_CELL("A83p5P", 43, 1, 0);
}

TEST(WorksheetA83, TheExcessGoesToA5WithItsSignReversed) {
    Report r(fy1999);
    Fill_Hours_And_Rates(r, "A83p1O");
    r.Cell("A83p5O", 45, 1, 100);
    r.Cell("A83p5O", 46, 1, 50);
    r.Cell("A83p5O", 48, 1, 15000);
    r.Calc();
    EXPECT_CELL("A83p5O", 42, 1, 14500);  // no weeks: the hours exceed the minimum of 0
    EXPECT_CELL("A83p5O", 47, 1, 14650);  // 14500 + 0 + 0 + 100 + 50
    EXPECT_CELL("A83p5O", 49, 1, 350);    // 15000 - 14650
    EXPECT_CELL("A5", 10.1_cur, 2, -350);
}

TEST(WorksheetA83, CostsWithinTheLimitationHaveNoExcess) {
    Report r(fy1999);
    r.Cell("A83p5P", 45, 1, 100);
    r.Cell("A83p5P", 48, 1, 99);
    r.Calc();
    EXPECT_CELL("A83p5P", 49, 1, 0);
}

TEST(WorksheetA83, ADroppedPartIsNamedAndTheOtherDisciplinesAreCalculated) {
    Report r(fy1999);
    r.Execute("DROP TABLE A83p4S;");
    r.Cell("A83p1P", 1, 1, 2);
    const auto messages = r.Calc_With_Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].form, "A83p4S");
    EXPECT_EQ(messages[1].form, "A83p5S");
    EXPECT_CELL("A83p1P", 2, 1, 30);
}

}  // namespace tallmar
