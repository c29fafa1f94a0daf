// Worksheet D: Part I takes the lesser of cost and limits, Part II runs down to the balance, D-1 holds the payments.
#include <gtest/gtest.h>

#include "calc/sync_cp2.h"
#include "calc/w_c.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

const FiscalYear kAfterTheLimits{Date_Of(2000, 10, 1), Date_Of(2001, 9, 30)};

void Put_Part_IV(Report& r, int line, int partA, int partB, int total) {
    r.Cell("Cp4", line, 3, partA);
    r.Cell("Cp4", line, 4, partB);
    r.Cell("Cp4", line, 6, total);
}

// Drugs of line 16: cost 70 subject, 30 not subject, 20 in column 10; charges 700, 300 and 200.
void Put_Drugs(Report& r) {
    r.Cell("Cp3", 16, 9, 70);
    r.Cell("Cp3", 16, 901, 30);
    r.Cell("Cp3", 16, 10, 20);
    r.Cell("Cp3", 16, 6, 700);
    r.Cell("Cp3", 16, 601, 300);
    r.Cell("Cp3", 16, 7, 200);
}

// One dollar of every three liable was collected; 900,000 of charges in each column.
void Put_Charges(Report& r) {
    for (int column = 1; column <= 3; ++column) {
        r.Cell("Dp1", 4, column, 900000);
        r.Cell("Dp1", 5, column, 1);
        r.Cell("Dp1", 6, column, 3);
    }
}

// Line 1 of Part I in column 2, of a report with drugs that ends on `end`.
Value Part_B_Cost(const Date& start, const Date& end) {
    Report r({start, end});
    Put_Drugs(r);
    r.Calc("Dp1");
    return r.Cell("Dp1", 1, 2);
}

}  // namespace

TEST(WorksheetD1, LumpSumsOnAddedLinesAreInTheSubtotal) {
    Report r(fy2016);
    r.Cell("D1", 1, 2, 1000);
    r.Cell("D1", 2, 2, 100);
    r.Cell("D1", 3.01_cur, 2, 10);
    r.Execute("INSERT INTO D1 (LineNum, Description, Col_2, Col_4) VALUES (3.02, \"\", 20, 5);");
    r.Execute("INSERT INTO D1 (LineNum, Description, Col_2, Col_4) VALUES (3.49, \"\", 30, 0);");
    r.Cell("D1", 3.5_cur, 2, 3);
    r.Execute("INSERT INTO D1 (LineNum, Description, Col_2, Col_4) VALUES (3.98, \"\", 4, 7);");
    r.Calc();
    EXPECT_CELL("D1", 3.99_cur, 2, 53);  // 10 + 20 + 30 - 3 - 4
    EXPECT_CELL("D1", 3.99_cur, 4, -2);  // 5 - 7
    EXPECT_CELL("D1", 4, 2, 1153);       // 1000 + 100 + 53
    EXPECT_CELL("D1", 4, 4, -2);
}

TEST(WorksheetD1, ALineAbove398IsNotInTheSubtotal) {
    Report r(fy2016);
    r.Cell("D1", 3.01_cur, 2, 10);
    r.Execute("INSERT INTO D1 (LineNum, Description, Col_2, Col_4) VALUES (3.985, \"\", 4, 0);");
    r.Calc();
    EXPECT_CELL("D1", 3.99_cur, 2, 10);
}

TEST(WorksheetD1, ANullPaymentIsZero) {
    Report r(fy2016);
    r.Cell("D1", 1, 4, 50);
    r.Cell("D1", 2, 4, Null);
    r.Calc();
    EXPECT_CELL("D1", 4, 4, 50);
}

TEST(WorksheetDPartI, AfterTheLimitsLine1StartsFromLine24AndTheDrugs) {
    Report r(kAfterTheLimits);
    r.Execute("INSERT INTO S3p3 (LineNum, Col_1) VALUES (29, \"1600\");");
    Sync_Cp2();
    r.Cell("A", 6, 3, 1000);
    r.Cell("S3p1", 1, 5, 100);
    r.Cell("Cp2m1600", 1, 5, 30);
    r.Cell("A", 13, 3, 500);
    r.Cell("Cp3", 16, 3, 1000);
    r.Cell("Cp3", 16, 7, 200);
    r.Calc();
    EXPECT_CELL("Cp4", 19, 6, 300);
    EXPECT_CELL("Dp1", 1, 1, 0);
    EXPECT_CELL("Dp1", 1, 2, 0);
    EXPECT_CELL("Dp1", 1, 3, 100);  // 200 x 0.5
}

TEST(WorksheetDPartI, AfterTheLimitsACostBelowZeroIsTaken) {
    Report r(kAfterTheLimits);
    r.Execute("INSERT INTO S3p3 (LineNum, Col_1) VALUES (29, \"1600\");");
    Sync_Cp2();
    r.Cell("A", 6, 3, 1000);
    r.Cell("S3p1", 1, 5, 100);
    r.Cell("Cp2m1600", 1, 5, -30);
    r.Calc();
    EXPECT_CELL("Cp4", 19, 6, -300);
    EXPECT_CELL("Dp1", 1, 1, -300);
}

TEST(WorksheetDPartI, TheLeastOfCostAndLimitsIsTaken) {
    Report r(fy1999);
    Put_Drugs(r);
    Put_Part_IV(r, 19, 11, 1, 100);
    Put_Part_IV(r, 22, 22, 2, 200);
    Put_Part_IV(r, 24, 33, 3, 300);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 11);
    EXPECT_CELL("Dp1", 1, 2, 71);  // 1 + 70 of drugs
    Put_Part_IV(r, 19, 11, 1, 250);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 22);
    EXPECT_CELL("Dp1", 1, 2, 72);
    Put_Part_IV(r, 22, 22, 2, 400);
    Put_Part_IV(r, 19, 11, 1, 500);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 33);
    EXPECT_CELL("Dp1", 1, 2, 3);  // the beneficiary limit holds the drugs before 10/1/2000
}

TEST(WorksheetDPartI, EqualAmountsGoToTheLaterLine) {
    Report r(fy1999);
    Put_Part_IV(r, 19, 11, 0, 100);
    Put_Part_IV(r, 22, 22, 0, 100);
    Put_Part_IV(r, 24, 33, 0, 200);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 22);
    Put_Part_IV(r, 24, 33, 0, 100);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 33);
    // Line 19 is the least but line 24 equals it.
    Put_Part_IV(r, 22, 22, 0, 200);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 1, 33);
}

TEST(WorksheetDPartI, BeforeTheLimitsEndColumn3HoldsTherapySuppliesAndDrugs) {
    Report r(fy1999);
    Put_Drugs(r);
    r.Cell("Cp3", 16.01_cur, 10, 4);
    r.Cell("Cp3", 15, 10, 7);
    r.Cell("Cp5", 28, 8, 1000);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 3, 1031);  // 1000 + 7 + 20 + 4
}

TEST(WorksheetDPartI, TheCostOfPartBFollowsTheEndOfTheYear) {
    // Drugs subject to coinsurance to the end of 2002; not subject from 2003; then the drug lines of C Part III.
    EXPECT_EQ(Part_B_Cost(Date_Of(2002, 1, 1), Date_Of(2002, 12, 31)), Value(70_cur));
    EXPECT_EQ(Part_B_Cost(Date_Of(2002, 1, 2), Date_Of(2003, 1, 1)), Value(30_cur));
    EXPECT_EQ(Part_B_Cost(Date_Of(2005, 7, 1), Date_Of(2006, 6, 30)), Value(30_cur));
    EXPECT_EQ(Part_B_Cost(Date_Of(2005, 7, 2), Date_Of(2006, 7, 1)), Value(70_cur));
}

TEST(WorksheetDPartI, FromJuly2006DrugsAndVaccinesAddUpInTheCostOfPartB) {
    Report r(fy2016);
    Put_Drugs(r);
    r.Cell("Cp3", 16.2_cur, 9, 50);
    r.Cell("Cp3", 16.2_cur, 6, 400);
    r.Cell("Cp3", 16.2_cur, 7, 100);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 1, 2, 120);          // 70 + 50
    EXPECT_CELL("Dp1", 4.01_cur, 2, 1100);  // 700 + 400
    EXPECT_CELL("Dp1", 4.01_cur, 3, 300);   // 200 + 100
}

TEST(WorksheetDPartI, ChargesOfDrugsMoveBetweenColumnsInJuly2006) {
    {
        Report r({Date_Of(2005, 7, 1), Date_Of(2006, 6, 30)});
        Put_Drugs(r);
        r.Calc("Dp1");
        EXPECT_CELL("Dp1", 4.01_cur, 2, 1000);  // 700 + 300
        EXPECT_CELL("Dp1", 4.01_cur, 3, 200);
    }
    Report r({Date_Of(2005, 7, 2), Date_Of(2006, 7, 1)});
    Put_Drugs(r);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 4.01_cur, 2, 700);
    EXPECT_CELL("Dp1", 4.01_cur, 3, 200);
}

TEST(WorksheetDPartI, WithoutLine6TheCustomaryChargesAreTheCharges) {
    Report r(fy2016);
    r.Cell("Dp1", 4, 1, 500);
    r.Cell("Dp1", 5, 1, 100);
    r.Calc();
    EXPECT_CELL("Dp1", 7, 1, 0);
    EXPECT_CELL("Dp1", 8, 1, 500);
    EXPECT_CELL("Dp1", 9, 1, 500);
}

TEST(WorksheetDPartI, TheRatioHasSixDecimalsThoughTheCellShowsFour) {
    Report r(fy2016);
    Put_Charges(r);
    r.Calc();
    EXPECT_CELL("Dp1", 7, 1, 0.3333);
    EXPECT_CELL("Dp1", 8, 1, 300000);  // 900000 x 0.333333 = 299999.7
}

TEST(WorksheetDPartI, TheRatioIsNotAboveOne) {
    Report r(fy2016);
    Put_Charges(r);
    r.Cell("Dp1", 5, 1, 4);
    r.Calc();
    EXPECT_CELL("Dp1", 7, 1, 1);
    EXPECT_CELL("Dp1", 8, 1, 900000);
}

TEST(WorksheetDPartI, ARatioBelowZeroLeavesTheCharges) {
    Report r(fy2016);
    Put_Charges(r);
    r.Cell("Dp1", 5, 1, -1);
    r.Calc();
    EXPECT_CELL("Dp1", 7, 1, -0.3333);
    EXPECT_CELL("Dp1", 8, 1, 900000);
}

TEST(WorksheetDPartI, CostAndChargesAreComparedByColumn) {
    Report r(fy1999);
    Put_Part_IV(r, 19, 400, 0, -1);
    r.Cell("Cp5", 28, 8, 50);
    r.Cell("Dp1", 2, 3, 10);
    r.Cell("Dp1", 4, 1, 300);
    r.Cell("Dp1", 4, 3, 75);
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 3, 1, 400);
    EXPECT_CELL("Dp1", 3, 3, 60);
    EXPECT_CELL("Dp1", 9, 1, 0);
    EXPECT_CELL("Dp1", 10, 1, 100);  // 400 - 300
    EXPECT_CELL("Dp1", 9, 3, 15);    // 75 - 60
    EXPECT_CELL("Dp1", 10, 3, 0);
}

TEST(WorksheetDPartI, ANominalChargeProviderSkipsTheRatioAndHasNoExcessCost) {
    Report r(fy1999);
    Put_Drugs(r);
    Put_Charges(r);
    Put_Part_IV(r, 19, 400, 0, -1);
    r.Cell("S2", 21, 1, "yes");
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 4.01_cur, 2, 0);
    EXPECT_CELL("Dp1", 4.01_cur, 3, 0);
    EXPECT_CELL("Dp1", 7, 3, 0.3333);  // stored as computed
    EXPECT_CELL("Dp1", 8, 1, 0);
    EXPECT_CELL("Dp1", 8, 2, 0);
    EXPECT_CELL("Dp1", 8, 3, 900000);
    EXPECT_CELL("Dp1", 10, 1, 0);
}

TEST(WorksheetDPartI, ALine23ProviderKeepsTheRatioInColumn3) {
    Report r(fy1999);
    Put_Drugs(r);
    Put_Charges(r);
    Put_Part_IV(r, 19, 400, 0, -1);
    r.Cell("S2", 23, 2, "Y");
    r.Calc("Dp1");
    EXPECT_CELL("Dp1", 4.01_cur, 2, 0);
    EXPECT_CELL("Dp1", 8, 1, 0);
    EXPECT_CELL("Dp1", 8, 3, 300000);
    EXPECT_CELL("Dp1", 10, 1, 0);
}

TEST(WorksheetDPartII, TheBalanceRunsDownPartA) {
    Report r(fy2016);
    r.Cell("Dp1", 3, 1, 1000);
    r.Cell("Dp1", 11, 1, 50);
    r.Cell("Dp1", 10, 1, 100);
    r.Cell("D1", 4, 2, 800);
    r.Cell("Dp2", 12.01_cur, 1, 10);
    r.Cell("Dp2", 12.14_cur, 1, 5);
    r.Cell("Dp2", 19, 1, 20);
    r.Cell("Dp2", 22, 1, 1);
    r.Cell("Dp2", 23, 1, 2);
    r.Cell("Dp2", 24, 1, 3);
    r.Cell("Dp2", 25.5_cur, 1, 4);
    r.Cell("Dp2", 26, 1, 17);
    r.Cell("Dp2", 30, 1, 8);
    r.Calc("Dp2");
    EXPECT_CELL("Dp2", 12, 1, 950);  // 1000 less primary payers
    EXPECT_CELL("Dp2", 14, 1, 965);  // the PPS payments
    EXPECT_CELL("Dp2", 15, 1, 100);
    EXPECT_CELL("Dp2", 16, 1, 865);
    EXPECT_CELL("Dp2", 18, 1, 865);
    EXPECT_CELL("Dp2", 21, 1, 885);  // bad debts
    EXPECT_CELL("Dp2", 25, 1, 881);  // + 1 - 2 - 3
    EXPECT_CELL("Dp2", 27, 1, 868);  // + 4 - 17
    EXPECT_CELL("Dp2", 28, 1, 800);
    EXPECT_CELL("Dp2", 29, 1, 68);
    EXPECT_CELL("Dp2", 31, 1, 60);
    EXPECT_CELL("Dp2", 28.5_cur, 1, Null);
}

TEST(WorksheetDPartII, TheBalanceRunsDownPartB) {
    Report r(fy2016);
    r.Cell("Dp1", 3, 2, 200);
    r.Cell("Dp1", 3, 3, 300);
    r.Cell("Dp1", 11, 2, 20);
    r.Cell("Dp1", 11, 3, 30);
    r.Cell("Dp1", 10, 2, 1);
    r.Cell("Dp1", 10, 3, 2);
    r.Cell("D1", 4, 4, 400);
    r.Cell("Dp2", 13, 2, 7);
    r.Cell("Dp2", 17, 2, 10);
    r.Cell("Dp2", 19, 2, 5);
    r.Cell("Dp2", 20, 2, 6);
    r.Cell("Dp2", 30, 2, 4);
    r.Calc("Dp2");
    EXPECT_CELL("Dp2", 12, 2, 450);  // 500 - 50
    EXPECT_CELL("Dp2", 14, 2, 443);
    EXPECT_CELL("Dp2", 15, 2, 3);
    EXPECT_CELL("Dp2", 16, 2, 440);
    EXPECT_CELL("Dp2", 18, 2, 430);
    EXPECT_CELL("Dp2", 21, 2, 441);  // + 5 + 6
    EXPECT_CELL("Dp2", 29, 2, 41);
    EXPECT_CELL("Dp2", 31, 2, 37);
    EXPECT_CELL("Dp2", 12.01_cur, 2, Null);
}

TEST(WorksheetDPartII, SequestrationBeginsWithReportsThatEndInApril2013) {
    for (const bool cleared : {true, false}) {
        const Date end = cleared ? Date_Of(2013, 3, 31) : Date_Of(2013, 4, 1);
        Report r({Date_Of(2012, 4, 2), end});
        r.Cell("Dp2", 12.11_cur, 1, 100);
        r.Cell("Dp2", 26, 1, 17);
        r.Cell("Dp2", 26, 2, 3);
        r.Calc();
        EXPECT_CELL("Dp2", 26, 1, cleared ? 0 : 17);
        EXPECT_CELL("Dp2", 26, 2, cleared ? 0 : 3);
        EXPECT_CELL("Dp2", 27, 1, cleared ? 100 : 83);
    }
}

TEST(WorksheetDPartII, FurtherAdjustmentsBelowLine26AreAdded) {
    Report r(fy2016);
    r.Cell("Dp2", 25.5_cur, 1, 1);
    r.Execute("INSERT INTO Dp2 (LineNum, Description, Col_1, Col_2) VALUES (25.51, \"\", 20, 2);");
    r.Execute("INSERT INTO Dp2 (LineNum, Description, Col_1, Col_2) VALUES (25.99, \"\", 300, Null);");
    r.Calc();
    EXPECT_CELL("Dp2", 25, 1, 0);
    EXPECT_CELL("Dp2", 27, 1, 321);
    EXPECT_CELL("Dp2", 27, 2, 2);
}

TEST(WorksheetDPartII, TheSettlementReachesWorksheetS) {
    Report r(fy2016);
    r.Cell("Dp2", 12.03_cur, 1, 500.25);
    r.Cell("D1", 1, 2, 100);
    r.Cell("D1", 1, 4, 40);
    r.Calc();
    EXPECT_CELL("Dp2", 29, 1, 400.25);
    EXPECT_CELL("Sp2", 1, 1, 400.25);
    EXPECT_CELL("Sp2", 4, 1, 400.25);
    EXPECT_CELL("Sp2", 4, 2, -40);
}

TEST(WorksheetD, ADroppedD1IsNamedAndTheStepsOfPartIIBeforeItAreKept) {
    Report r(fy2016);
    r.Execute("DROP TABLE D1;");
    r.Cell("Dp2", 12.03_cur, 1, 500);
    r.Cell("Dp2", 31, 1, 9);
    const auto messages = r.Calc_With_Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].form, "D1");
    EXPECT_EQ(messages[1].form, "Dp2");
    EXPECT_CELL("Dp2", 27, 1, 500);
    EXPECT_CELL("Dp2", 31, 1, 9);
    r.Build("D1");
    r.Calc();
    EXPECT_CELL("Dp2", 31, 1, 500);
}

}  // namespace tallmar
