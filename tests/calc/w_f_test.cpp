// Worksheets F, F-1 and F-2.
#include <gtest/gtest.h>

#include "support/report_fixture.h"

namespace tallmar {

TEST(WorksheetF, PositiveDepreciationReducesFixedAssetsAndNegativeAddsToThem) {
    Report r(fy2016);
    r.Cell("F", 15, 1, 1000);
    r.Cell("F", 16, 1, 300);
    r.Calc();
    EXPECT_CELL("F", 27, 1, 700);
    r.Cell("F", 16, 1, -300);
    r.Calc();
    EXPECT_CELL("F", 27, 1, 1300);
}

TEST(WorksheetF, FixedAssetsAddAndSubtractByLine) {
    Report r(fy2016);
    // Lines 12 to 26 hold 1, 2, 4, 8, ...: what adds is 12, 13, 15, 17, 19, 21, 23, 25, 26.
    int amount = 1;
    for (int line = 12; line <= 26; ++line, amount *= 2) r.Cell("F", line, 2, amount);
    r.Calc("F");
    // 1 + 2 + 8 + 32 + 128 + 512 + 2048 + 8192 + 16384 = 27307, less 4 + 16 + 64 + 256 + 1024 + 4096 = 5460
    EXPECT_CELL("F", 27, 2, 21847);
}

TEST(WorksheetF, TheAllowanceIsSubtractedFromCurrentAssets) {
    Report r(fy2016);
    r.Cell("F", 4, 1, 500);
    r.Cell("F", 5, 1, 100);
    r.Cell("F", 6, 1, 40);
    r.Cell("F", 10, 1, 7);
    r.Calc();
    EXPECT_CELL("F", 11, 1, 567);  // 500 + 100 + 7 - 40
}

TEST(WorksheetF, TotalsWithShadedCellsAreFilledAtTheFirstCalculation) {
    Report r(fy2016);
    for (const int line : {11, 27, 32, 33, 42, 49, 50, 58, 59}) {
        for (int column = 1; column <= 4; ++column) EXPECT_CELL("F", line, column, Null);
    }
    r.Calc();
    for (const int line : {11, 27, 32, 33, 42, 49, 50, 58, 59}) {
        for (int column = 1; column <= 4; ++column) EXPECT_CELL("F", line, column, 0);
    }
}

TEST(WorksheetF, EachFundBalanceStandsInItsOwnColumn) {
    Report r(fy2016);
    EXPECT_CELL("F", 51, 1, 0);
    EXPECT_CELL("F", 51, 2, Null);
    EXPECT_CELL("F", 52, 2, 0);
    EXPECT_CELL("F", 54, 3, 0);
    EXPECT_CELL("F", 57, 4, 0);
    EXPECT_CELL("F", 57, 3, Null);
    EXPECT_CELL("F", 57, "Description",
                "Plant fund balance - reserve for plant improvement, replacement and expansion");
}

TEST(WorksheetF, AssetsLiabilitiesAndFundsAddUp) {
    Report r(fy2016);
    r.Cell("F", 1, 4, 10);
    r.Cell("F", 12, 4, 20.25);
    r.Cell("F", 31, 4, 30);
    r.Cell("F", 41, 4, 5);
    r.Cell("F", 43, 4, 7);
    r.Cell("F", 48, 4, 8);
    r.Cell("F", 56, 4, 40);
    r.Cell("F", 57, 4, 0.25);
    r.Calc();
    EXPECT_CELL("F", 33, 4, 60.25);  // 10 + 20.25 + 30
    EXPECT_CELL("F", 42, 4, 5);
    EXPECT_CELL("F", 49, 4, 15);  // 7 + 8
    EXPECT_CELL("F", 50, 4, 20);
    EXPECT_CELL("F", 58, 4, 40.25);
    EXPECT_CELL("F", 59, 4, 60.25);
}

TEST(WorksheetF, TheGeneralFundBalanceIsOfTheSameRun) {
    Report r(fy2016);
    r.Cell("F2", 1, 2, 1000);
    r.Cell("F1", 1, 1, 250);
    r.Cell("F", 51, 2, 9);
    r.Cell("F2", 1, 4, 77);
    r.Calc();
    EXPECT_CELL("F2", 17, 2, 1250);
    EXPECT_CELL("F", 51, 1, 1250);
    EXPECT_CELL("F", 58, 1, 1250);
    EXPECT_CELL("F", 59, 1, 1250);
    EXPECT_CELL("F", 51, 2, 9);  // the other funds are typed
}

TEST(WorksheetF1, IncomeIsWorkedOutFromRevenuesAndExpenses) {
    Report r(fy2016);
    r.Cell("F1", 1, 1, 1000);
    r.Cell("F1", 2, 1, 100);
    r.Cell("F1", 5, 1, 50);
    r.Cell("F1", 11, 1, 20);
    r.Cell("F1", 19, 1, 5);
    r.Cell("F1", 31, 1, 6);
    r.Cell("A", 6, 3, 400);
    r.Calc();
    EXPECT_CELL("F1", 3, 2, 900);   // 1000 - 100
    EXPECT_CELL("F1", 4, 1, 400);   // the total of A column 6
    EXPECT_CELL("F1", 17, 2, 430);  // 400 + 50 - 20
    EXPECT_CELL("F1", 18, 2, 470);  // 900 - 430
    EXPECT_CELL("F1", 32, 2, 11);   // 5 + 6
    EXPECT_CELL("F1", 33, 2, 481);
}

TEST(WorksheetF1, UserLinesBetweenTheFixedOnesAreCounted) {
    Report r(fy2016);
    r.Execute("INSERT INTO F1 (LineNum, Description, Col_1) VALUES (6.5, \"own\", 30);");
    r.Execute("INSERT INTO F1 (LineNum, Description, Col_1) VALUES (10.99, \"own\", 3);");
    r.Execute("INSERT INTO F1 (LineNum, Description, Col_1) VALUES (16.99, \"own\", 8);");
    r.Execute("INSERT INTO F1 (LineNum, Description, Col_1) VALUES (31.99, \"own\", 11);");
    r.Calc();
    EXPECT_CELL("F1", 17, 2, 25);  // 30 + 3 - 8
    EXPECT_CELL("F1", 32, 2, 11);
    EXPECT_CELL("F1", 33, 2, -14);
}

TEST(WorksheetF1, OperatingExpensesFollowWorksheetAAndOverrideWhatWasTyped) {
    Report r(fy2016);
    r.Cell("A", 6, 3, 400);
    r.Calc();
    EXPECT_CELL("F1", 4, 1, 400);
    r.Cell("F1", 4, 1, 999);
    r.Cell("A", 7, 3, 25);
    r.Calc();
    EXPECT_CELL("F1", 4, 1, 425);
}

TEST(WorksheetF2, NetIncomeGoesToTheFirstFundOnly) {
    Report r(fy2016);
    r.Cell("F1", 1, 1, 250);
    r.Calc();
    EXPECT_CELL("F2", 2, 2, 250);
    EXPECT_CELL("F2", 2, 4, Null);
    EXPECT_CELL("F2", 3, 2, 250);
    EXPECT_CELL("F2", 3, 4, 0);
}

TEST(WorksheetF2, AdditionsAndDeductionsAreTypedInOddColumnsAndTotalledInEvenOnes) {
    Report r(fy2016);
    r.Cell("F2", 1, 6, 100);
    r.Cell("F2", 4, 5, 10);
    r.Cell("F2", 11, 5, 4);
    r.Execute("INSERT INTO F2 (LineNum, Description, Col_5) VALUES (5, \"own\", 20);");
    r.Execute("INSERT INTO F2 (LineNum, Description, Col_5) VALUES (8.99, \"own\", 30);");
    r.Execute("INSERT INTO F2 (LineNum, Description, Col_5) VALUES (15.99, \"own\", 5);");
    r.Calc();
    EXPECT_CELL("F2", 3, 6, 100);
    EXPECT_CELL("F2", 9, 6, 60);    // 10 + 20 + 30
    EXPECT_CELL("F2", 10, 6, 160);  // 100 + 60
    EXPECT_CELL("F2", 16, 6, 9);    // 4 + 5
    EXPECT_CELL("F2", 17, 6, 151);
    EXPECT_CELL("F2", 9, 5, Null);
    EXPECT_CELL("F2", 17, 8, 0);
}

TEST(WorksheetF2, ADroppedF2IsNamedAndFKeepsItsAssets) {
    Report r(fy2016);
    r.Cell("F", 1, 1, 10);
    r.Cell("F1", 1, 1, 250);
    r.Execute("DROP TABLE F2;");
    const auto messages = r.Calc_With_Messages();
    ASSERT_FALSE(messages.empty());
    for (const auto& message : messages) {
        EXPECT_EQ(message.level, "E");
        EXPECT_TRUE(message.form == "F" || message.form == "F2") << message.form;
    }
    EXPECT_CELL("F", 33, 1, 10);
    EXPECT_CELL("F1", 33, 2, 250);
    r.Build("F2");
    r.Calc();
    EXPECT_CELL("F", 51, 1, 250);
}

}  // namespace tallmar
