// Worksheet C: Parts I to V, and what a table that is gone leaves of the rest.
#include "calc/w_c.h"

#include <gtest/gtest.h>

#include "calc/sync_cp2.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

// Ends the day before the limits do, and on the day of.
const FiscalYear kEndsInTheLimits{Date_Of(1999, 10, 1), Date_Of(2000, 9, 30)};
const FiscalYear kShortestSplit{Date_Of(1999, 10, 2), Date_Of(2000, 10, 1)};
const FiscalYear kBeginsAfterTheLimits{Date_Of(2000, 10, 1), Date_Of(2001, 9, 30)};

void List_MSA(Report& r, const char* line, const char* code) {
    r.Execute(Sql("INSERT INTO S3p3 (LineNum, Col_1) VALUES (", line, ",\"", code, "\");"));
    Sync_Cp2();
}

void List_CBSA(Report& r, const char* line, const char* code) {
    r.Execute(Sql("INSERT INTO S3p3 (LineNum, Col_2) VALUES (", line, ",\"", code, "\");"));
    Sync_Cp2();
}

// 1,000 dollars of skilled nursing in 100 visits: 10 dollars a visit.
void Fill_Skilled_Nursing(Report& r) {
    r.Cell("A", 6, 3, 1000);
    r.Cell("S3p1", 1, 5, 100);
}

std::string Forms(const std::vector<Platform::BatchMessage>& messages) {
    std::string forms;
    for (const auto& message : messages) forms += message.level + " " + message.form + "; ";
    return forms;
}

}  // namespace

TEST(WorksheetCPartI, WithoutVisitsThereIsNoCostPerVisit) {
    Report r(fy2016);
    r.Cell("A", 6, 3, 1000);
    r.Calc();
    EXPECT_CELL("Cp1", 1, 2, 1000);
    EXPECT_CELL("Cp1", 1, 4, 0);
}

TEST(WorksheetCPartI, TheCostPerVisitIsRoundedToCents) {
    Report r(fy2016);
    r.Cell("B", 6, "Total", 1001);
    r.Cell("S3p1", 1, 5, 8);
    r.Cell("B", 11, "Total", 1000);
    r.Cell("S3p1", 6, 5, 3);
    r.Calc("Cp1");
    EXPECT_CELL("Cp1", 1, 4, 125.13);  // 125.125
    EXPECT_CELL("Cp1", 6, 4, 333.33);
    EXPECT_CELL("Cp1", 1, 1, 6);  // the line of B
}

TEST(WorksheetCPartI, TheTotalLineHasBothSumsAndNoAverage) {
    Report r(fy2016);
    for (int line = 6; line <= 12; ++line) r.Cell("B", line, "Total", 100);
    for (int line = 1; line <= 7; ++line) r.Cell("S3p1", line, 5, 10);
    r.Calc("Cp1");
    EXPECT_CELL("Cp1", 7, 2, 600);  // lines 6 to 11 of B
    EXPECT_CELL("Cp1", 7, 3, 60);
    EXPECT_CELL("Cp1", 7, 4, Null);
}

TEST(WorksheetCPartII, OnlyASplitPeriodHasLinesOnBothSidesOfTheDate) {
    for (const FiscalYear& year : {kEndsInTheLimits, kShortestSplit, kBeginsAfterTheLimits}) {
        const bool split = year.start == kShortestSplit.start;
        Report r(year);
        List_MSA(r, "29", "1600");
        EXPECT_EQ(r.Read("SELECT Count(*) FROM Cp2m1600;").To_Long(), split ? 20 : 14);
        EXPECT_CELL("Cp2m1600", 1, "Description", split ? "Skilled Nursing - pre 10/1/2000" : "Skilled Nursing");
        if (split) {
            EXPECT_CELL("Cp2m1600", 6.01_cur, "Description", "Home Health Aide Svcs - post 9/30/2000");
            EXPECT_CELL("Cp2m1600", 6.01_cur, 11, Null);
            EXPECT_CELL("Cp2m1600", 6.01_cur, 1101, 0);
            EXPECT_CELL("Cp2m1600", 6, 1101, Null);
        } else {
            EXPECT_THROW(r.Read("SELECT Col_1101 FROM Cp2m1600;"), DbError);
        }
    }
}

// "1 4": the lines of the instance whose cell in the column is 0, not shaded.
std::string Open_Lines(const Report& r, const char* column) {
    std::string lines;
    for (const double line : {1.0, 1.01, 2.0, 2.01, 3.0, 3.01, 4.0,  4.01, 5.0,  5.01,
                              6.0, 6.01, 7.0, 8.0,  9.0, 10.0, 11.0, 12.0, 13.0, 14.0}) {
        if (r.Cell("Cp2m1600", line, column).Is_Null()) continue;
        EXPECT_CELL("Cp2m1600", line, column, 0);
        lines += (lines.empty() ? "" : " ") + Value(line).To_Text();
    }
    return lines;
}

TEST(WorksheetCPartII, ANewInstanceOfASplitPeriodShadesTheOtherSideOfTheDate) {
    Report r(fy2000);
    List_MSA(r, "29", "1600");
    const std::string all = "1 1.01 2 2.01 3 3.01 4 4.01 5 5.01 6 6.01 7 8 9 10 11 12 13 14";
    for (const char* column : {"Col_5", "Col_6", "Col_8", "Col_9"}) EXPECT_EQ(Open_Lines(r, column), all) << column;
    EXPECT_EQ(Open_Lines(r, "Col_4"), "8 9 10 11 12 13");
    for (const char* column : {"Col_7", "Col_10"}) EXPECT_EQ(Open_Lines(r, column), "") << column;
    EXPECT_EQ(Open_Lines(r, "Col_11"), "1 2 3 4 5 6 7 8 9 10 11 12 13 14");
    EXPECT_EQ(Open_Lines(r, "Col_1101"), "1.01 2.01 3.01 4.01 5.01 6.01 7");
}

TEST(WorksheetCPartII, LimitationLinesTakeTheVisitsBeforeTheDateOnly) {
    Report r(fy2000);
    List_MSA(r, "29", "1600");
    r.Cell("Cp1", 1, 4, 5);
    r.Cell("Cp2m1600", 1, 5, 10);
    r.Cell("Cp2m1600", 1, 6, 3);
    r.Cell("Cp2m1600", 1.01_cur, 5, 20);
    r.Cell("Cp2m1600", 8, 4, 4);
    r.Calc("Cp2m1600");
    EXPECT_CELL("Cp2m1600", 8, 5, 10);
    EXPECT_CELL("Cp2m1600", 8, 6, 3);
    EXPECT_CELL("Cp2m1600", 8, 8, 40);  // 10 x the limit of 4
    EXPECT_CELL("Cp2m1600", 8, 11, 52);
    EXPECT_CELL("Cp2m1600", 14, 5, 10);
    EXPECT_CELL("Cp2m1600", 14, 11, 52);
}

TEST(WorksheetCPartII, EachSideOfTheDateHasItsOwnTotal) {
    Report r(fy2000);
    List_MSA(r, "29", "1600");
    r.Cell("Cp1", 1, 4, 5);
    r.Cell("Cp2m1600", 1, 5, 10);
    r.Cell("Cp2m1600", 1.01_cur, 5, 20);
    r.Calc("Cp2m1600");
    EXPECT_CELL("Cp2m1600", 1.01_cur, 4, 5);
    EXPECT_CELL("Cp2m1600", 1, 11, 50);
    EXPECT_CELL("Cp2m1600", 1, 1101, Null);
    EXPECT_CELL("Cp2m1600", 1.01_cur, 11, Null);
    EXPECT_CELL("Cp2m1600", 1.01_cur, 1101, 100);
    EXPECT_CELL("Cp2m1600", 7, 4, Null);
    EXPECT_CELL("Cp2m1600", 7, 5, 30);
    EXPECT_CELL("Cp2m1600", 7, 8, 150);  // both sides
    EXPECT_CELL("Cp2m1600", 7, 11, 50);
    EXPECT_CELL("Cp2m1600", 7, 1101, 100);
}

TEST(WorksheetCPartII, CostsAreRoundedToDollars) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    r.Cell("Cp1", 2, 4, 10.5);
    r.Cell("Cp2m1600", 2, 5, 3);
    r.Cell("Cp2m1600", 2, 6, 1);
    r.Calc("Cp2m1600");
    EXPECT_CELL("Cp2m1600", 2, 8, 32);   // 31.50
    EXPECT_CELL("Cp2m1600", 2, 9, 11);   // 10.50
    EXPECT_CELL("Cp2m1600", 2, 11, 43);  // of the rounded ones
}

TEST(WorksheetCPartII, AfterTheLimitsTheCostLinesStayAndTheLimitationIsZero) {
    Report r(kBeginsAfterTheLimits);
    List_CBSA(r, "29", "16580");
    Fill_Skilled_Nursing(r);
    r.Cell("Cp2c16580", 1, 5, 30);
    r.Cell("Cp2c16580", 8, 4, 7);
    r.Cell("Cp2c16580", 8, 7, 9);
    r.Cell("Cp4", 23.01_cur, 1, 12);
    r.Calc();
    EXPECT_CELL("Cp2c16580", 1, 8, 300);
    EXPECT_CELL("Cp2c16580", 7, 11, 300);
    for (const int column : {4, 5, 6, 7, 8, 9, 10, 11}) EXPECT_CELL("Cp2c16580", 8, column, 0);
    for (const int column : {5, 6, 8, 9, 11}) EXPECT_CELL("Cp2c16580", 14, column, 0);
    EXPECT_CELL("Cp4", 17, 3, 300);
    for (const int line : {20, 21, 22}) {
        for (const int column : {3, 4, 6}) EXPECT_CELL("Cp4", line, column, 0);
    }
    EXPECT_CELL("Cp4", 23.01_cur, 1, 0);
    EXPECT_CELL("Cp4", 24, 1, 0);
    EXPECT_CELL("Cp4", 24, 6, 0);
}

TEST(WorksheetCPartII, Columns7And10StayAsTyped) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    Fill_Skilled_Nursing(r);
    r.Cell("Cp2m1600", 1, 7, 12);
    r.Cell("Cp2m1600", 1, 10, 34);
    r.Cell("Cp2m1600", 8, 10, 56);
    r.Calc();
    EXPECT_CELL("Cp2m1600", 1, 7, 12);
    EXPECT_CELL("Cp2m1600", 1, 10, 34);
    EXPECT_CELL("Cp2m1600", 8, 10, 56);
    EXPECT_CELL("Cp2m1600", 7, 10, Null);
}

TEST(WorksheetCPartII, RemovingACodeDropsItsInstanceAtTheNextCalculation) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    List_MSA(r, "29.01", "1400");
    r.Cell("Cp2m1600", 1, 5, 30);
    r.Calc();
    r.Execute("DELETE * FROM S3p3 WHERE LineNum = 29;");
    r.Calc();
    EXPECT_FALSE(TableExists("Cp2m1600", false));
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item Like(\"Cp2*\");").To_Long(), 1);
    EXPECT_CELL("Cp4", 17, 3, 0);
    EXPECT_CELL("S3p3", 28, 1, "1");
}

TEST(WorksheetCPartII, AYearThatComesToSpanTheDateGetsBothSidesWithWhatWasKeyed) {
    Report r(kEndsInTheLimits);
    List_MSA(r, "29", "0040");
    r.Cell("Cp2m0040", 1, 5, 60.0);
    r.Cell("Cp2m0040", 1, 7, 3.0);
    r.Cell("Cp2m0040", 8, 4, 95.25);
    EXPECT_TRUE(Cp2_Fits_Period("Cp2m0040"));
    openReport.FYEnd = Date_Of(2000, 10, 1);
    EXPECT_FALSE(Cp2_Fits_Period("Cp2m0040"));
    Fit_Cp2("Cp2m0040");
    EXPECT_TRUE(Cp2_Fits_Period("Cp2m0040"));
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Cp2m0040;"), Value(20));
    EXPECT_CELL("Cp2m0040", 1, "Description", "Skilled Nursing - pre 10/1/2000");
    EXPECT_CELL("Cp2m0040", 1, 5, 60.0);
    EXPECT_CELL("Cp2m0040", 1, 7, 3.0);
    EXPECT_CELL("Cp2m0040", 1, 10, Null);
    EXPECT_CELL("Cp2m0040", 1.01, 5, 0.0);
    EXPECT_CELL("Cp2m0040", 8, 4, 95.25);
}

TEST(WorksheetCPartII, AYearThatNoLongerSpansTheDateCountsBothSidesAsOne) {
    Report r(kShortestSplit);
    List_CBSA(r, "29", "16580");
    r.Cell("Cp2c16580", 1, 5, 60.0);
    r.Cell("Cp2c16580", 1.01, 5, 40.0);
    r.Cell("Cp2c16580", 6.01, 6, 7.0);
    openReport.FYStart = Date_Of(2000, 10, 1);
    openReport.FYEnd = Date_Of(2001, 9, 30);
    Fit_Cp2("Cp2c16580");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Cp2c16580;"), Value(14));
    EXPECT_CELL("Cp2c16580", 1, "Description", "Skilled Nursing");
    EXPECT_CELL("Cp2c16580", 1, 5, 100.0);
    EXPECT_CELL("Cp2c16580", 6, 6, 7.0);
    EXPECT_CELL("Cp2c16580", 2, 5, 0.0);
}

TEST(WorksheetCPartIII, RowsComeFromTheChart) {
    Report r(fy2016);
    EXPECT_CELL("Cp3", 15, "Description", "Cost of Medical Supplies");
    EXPECT_CELL("Cp3", 15.01_cur, 1, 12);
    EXPECT_CELL("Cp3", 16, "Description", "Cost of Drugs");
    EXPECT_CELL("Cp3", 16.01_cur, 1, 13);
    EXPECT_CELL("Cp3", 16.2_cur, "Description", "Cost of Cost of Administering Vaccines");
    EXPECT_CELL("Cp3", 16.2_cur, 1, 13.2);
}

TEST(WorksheetCPartIII, SublinesOfTheChartGoBeforeTheFixedRows) {
    Report r(fy2016);
    r.Execute(
        "INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) "
        "VALUES (12.01,'S',12.01,1201,'A',0,'Wound Care');");
    r.Build("Cp3");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Cp3 WHERE LineNum = 15.01;").To_Long(), 1);
    EXPECT_CELL("Cp3", 15.01_cur, "Description", "Cost of Wound Care");
    EXPECT_CELL("Cp3", 15.01_cur, 1, 12.01);
    EXPECT_CELL("Cp3", 16.01_cur, "Description", "Cost of Drugs");
}

TEST(WorksheetCPartIII, WithoutChargesThereIsNoRatioAndNoCost) {
    Report r(fy2016);
    r.Cell("A", 12, 3, 1000);
    r.Cell("Cp3", 15, 4, 0.5);
    r.Cell("Cp3", 15, 5, 100);
    r.Calc();
    EXPECT_CELL("Cp3", 15, 2, 1000);
    EXPECT_CELL("Cp3", 15, 4, Null);
    EXPECT_CELL("Cp3", 15, 8, 0);
    EXPECT_CELL("Cp3", 15, 10, 0);
}

TEST(WorksheetCPartIII, WithoutARatioEveryColumnOfCostIsZero) {
    Report r(fy2016);
    r.Cell("B", 12, "Total", 1000);
    for (const int charges : {5, 6, 601, 7}) r.Cell("Cp3", 15, charges, 100);
    r.Calc("Cp3");
    for (const int cost : {8, 9, 901, 10}) EXPECT_CELL("Cp3", 15, cost, 0) << cost;
}

TEST(WorksheetCPartIII, NullChargesCostNothing) {
    Report r(fy2016);
    r.Cell("B", 12, "Total", 1000);
    r.Cell("Cp3", 15, 3, 500);
    for (const int charges : {5, 6, 601, 7}) r.Cell("Cp3", 15, charges, Null);
    r.Calc("Cp3");
    for (const int cost : {8, 9, 901, 10}) EXPECT_CELL("Cp3", 15, cost, 0) << cost;
}

TEST(WorksheetCPartIII, TheVaccineLineHasNoCostWhereBHasNone) {
    Report r(fy2016);
    r.Cell("B", 13.2_cur, "Total", Null);
    r.Cell("B", 13, "Total", Null);
    r.Calc("Cp3");
    EXPECT_CELL("Cp3", 16, 2, 0);
    EXPECT_CELL("Cp3", 16.2_cur, 2, Null);
}

TEST(WorksheetCPartIII, TheRatioHasSixDecimalsAndCostsAreWholeDollars) {
    Report r(fy2016);
    r.Cell("B", 12, "Total", 1000);
    r.Cell("Cp3", 15, 3, 3000);
    r.Cell("Cp3", 15, 5, 100);
    r.Cell("Cp3", 15, 6, 50);
    r.Cell("Cp3", 15, 601, 10);
    r.Cell("Cp3", 15, 7, 1.5);
    r.Calc("Cp3");
    EXPECT_CELL("Cp3", 15, 4, 0.333333);
    EXPECT_CELL("Cp3", 15, 8, 33);   // 33.3333
    EXPECT_CELL("Cp3", 15, 9, 17);   // 16.66665
    EXPECT_CELL("Cp3", 15, 901, 3);  // 3.33333
    EXPECT_CELL("Cp3", 15, 10, 0);   // 0.4999995: not a half of a third
    EXPECT_CELL("Cp3", 15.01_cur, 2, 1000);
}

TEST(WorksheetCPartIII, TheVaccineLineRestsOnTheCostOfTheSameRun) {
    Report r(fy2016);
    r.Cell("A", 13.2_cur, 3, 100);
    r.Cell("Cp3", 16.2_cur, 3, 400);
    r.Cell("Cp3", 16.2_cur, 6, 60);
    r.Calc();
    EXPECT_CELL("Cp3", 16.2_cur, 4, 0.25);
    EXPECT_CELL("Cp3", 16.2_cur, 9, 15);
}

TEST(WorksheetCPartIV, AnMSAAndACBSAAddUp) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    List_CBSA(r, "29.01", "16580");
    Fill_Skilled_Nursing(r);
    r.Cell("Cp2m1600", 1, 5, 3);
    r.Cell("Cp2m1600", 1, 6, 2);
    r.Cell("Cp2c16580", 1, 5, 4);
    r.Cell("Cp2m1600", 8, 4, 8);
    r.Cell("Cp2c16580", 8, 4, 9);
    r.Calc();
    EXPECT_CELL("Cp4", 17, 3, 70);  // 10 x (3 + 4)
    EXPECT_CELL("Cp4", 17, 4, 20);  // 10 x 2
    EXPECT_CELL("Cp4", 17, 6, 90);
    EXPECT_CELL("Cp4", 20, 3, 60);  // 8 x 3 + 9 x 4
    EXPECT_CELL("Cp4", 20, 4, 16);  // 8 x 2
    EXPECT_CELL("Cp4", 20, 6, 76);
}

TEST(WorksheetCPartIV, VisitsAfterTheDateAreOutsideLine17) {
    Report r(fy2000);
    List_MSA(r, "29", "1600");
    Fill_Skilled_Nursing(r);
    r.Cell("Cp2m1600", 1, 5, 3);
    r.Cell("Cp2m1600", 1.01_cur, 5, 50);
    r.Calc();
    EXPECT_CELL("Cp4", 17, 3, 30);
    EXPECT_CELL("Cp4", 17, 6, 30);
}

TEST(WorksheetCPartIV, SuppliesStandBesideServicesAndLimitation) {
    Report r(fy1999);
    r.Cell("Cp3", 15, 8, 11);
    r.Cell("Cp3", 15, 9, 7);
    r.Calc("Cp4");
    for (const int line : {18, 21, 19, 22}) {  // no visits: the totals are the supplies
        EXPECT_CELL("Cp4", line, 3, 11);
        EXPECT_CELL("Cp4", line, 4, 7);
        EXPECT_CELL("Cp4", line, 6, 18);
    }
}

TEST(WorksheetCPartIV, LimitsPerBeneficiaryAreCensusTimesLimit) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    List_MSA(r, "29.01", "1400");
    r.Cell("Cp4", 23.01_cur, 1, 10);
    r.Cell("Cp4", 23.01_cur, 2, 2.45);
    r.Cell("Cp4", 23.02_cur, 1, 7);
    r.Cell("Cp4", 23.02_cur, 2, 100);
    r.Calc();
    EXPECT_CELL("Cp4", 23.01_cur, 6, 25);  // 24.50
    EXPECT_CELL("Cp4", 23.02_cur, 6, 700);
    EXPECT_CELL("Cp4", 24, 1, 17);
    EXPECT_CELL("Cp4", 24, 6, 725);
    EXPECT_CELL("Cp4", 24, 2, Null);
}

TEST(WorksheetCPartV, TheReductionIsATenthOfTheLaterCost) {
    Report r(fy1999);
    r.Cell("Cp1", 2, 4, 50.25);
    r.Cell("Cp1", 4, 4, 10);
    r.Cell("Cp5", 25, 3, 2);
    r.Cell("Cp5", 25, 5, 3);
    r.Cell("Cp5", 25, 501, 1);
    r.Cell("Cp5", 27, 5, 5);
    r.Cell("Cp5", 27, 502, 4);
    r.Calc("Cp5");
    EXPECT_CELL("Cp5", 25, 2, 50.25);
    EXPECT_CELL("Cp5", 25, 4, 101);  // 100.50
    EXPECT_CELL("Cp5", 25, 6, 151);  // 150.75
    EXPECT_CELL("Cp5", 25, 7, 136);  // 135.9
    EXPECT_CELL("Cp5", 25, 8, 237);  // 101 + 136
    EXPECT_CELL("Cp5", 27, 8, 45);   // 50 less 5
    EXPECT_CELL("Cp5", 28, 3, 2);
    EXPECT_CELL("Cp5", 28, 5, 8);
    EXPECT_CELL("Cp5", 28, 501, 1);
    EXPECT_CELL("Cp5", 28, 502, 4);
    EXPECT_CELL("Cp5", 28, 8, 282);
    EXPECT_CELL("Cp5", 28, 1, Null);
    EXPECT_CELL("Cp5", 28, 2, Null);
}

TEST(WorksheetC, AnInstanceWithoutATableFailsWithItsName) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    r.Execute("DROP TABLE Cp2m1600;");
    try {
        r.Calc("Cp2m1600");
        FAIL() << "calculated a table that is not there";
    } catch (const DbError& error) {
        EXPECT_NE(std::string(error.what()).find("Cp2m1600"), std::string::npos) << error.what();
    }
}

TEST(WorksheetC, ADroppedPartIIsNamedAndWhatWasCalculatedBeforeIsKept) {
    Report r(fy1999);
    List_MSA(r, "29", "1600");
    Fill_Skilled_Nursing(r);
    r.Cell("Cp2m1600", 1, 5, 30);
    r.Calc();
    EXPECT_CELL("Cp2m1600", 1, 8, 300);

    r.Execute("DROP TABLE Cp1;");
    r.Cell("A", 6, 3, 2000);
    r.Cell("F", 1, 1, 5);
    const auto messages = r.Calc_With_Messages();
    EXPECT_EQ(Forms(messages), "E Cp1; E Cp2m1600; E Cp5; ");
    EXPECT_NE(messages.at(0).message.find("Cp1"), std::string::npos) << messages[0].message;
    EXPECT_CELL("Cp2m1600", 1, 8, 300);  // as calculated before
    EXPECT_CELL("Cp4", 17, 3, 300);
    EXPECT_CELL("B", 6, "Total", 2000);  // of this run
    EXPECT_CELL("F", 33, 1, 5);

    r.Build("Cp1");
    r.Calc();
    EXPECT_CELL("Cp2m1600", 1, 8, 600);  // 30 visits of 20 dollars
}

TEST(WorksheetC, ATextOnS2Line10IsNamedAndTheRestIsCalculated) {
    Report r(fy1999);
    r.Cell("S2", 10, 1, "Straight");
    r.Cell("S2", 13, 1, "7");
    Fill_Skilled_Nursing(r);
    const auto messages = r.Calc_With_Messages();
    EXPECT_EQ(Forms(messages), "E S2; ");
    EXPECT_NE(messages.at(0).message.find("Straight"), std::string::npos) << messages[0].message;
    EXPECT_CELL("S2", 13, 1, "7");
    EXPECT_CELL("Cp1", 1, 4, 10);
    r.Cell("S2", 10, 1, "500");
    r.Calc();
    EXPECT_CELL("S2", 13, 1, "500");
}

}  // namespace tallmar
