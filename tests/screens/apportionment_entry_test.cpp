// Cells of worksheet C, entered as a person types them.
#include "screens/entry_test.h"

namespace tallmar {

namespace {

constexpr const char* kTooSpecificTitle = "Too Specific Numeric Entry";

// A report with one MSA.
struct ReportOfArea : Report {
    explicit ReportOfArea(const FiscalYear& year) : Report(year) {
        EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    }
};

}  // namespace

TEST(EnterCp2, VisitsAreWholeNumbers) {
    ReportOfArea r(fy1999);
    EXPECT_EQ(Answer_To("Cp2m1600", "1", "5", "1,250"), kStored);
    EXPECT_EQ(Answer_To("Cp2m1600", "6", "6", ""), kStored);
    EXPECT_CELL("Cp2m1600", 1, 5, 1250.0);
    r.platform.Expect_Box_Starting(kTooSpecificTitle, "You're attempting to enter invalid data ['7.5'].");
    EXPECT_EQ(Answer_To("Cp2m1600", "1", "6", "7.5"), kStored);
    EXPECT_CELL("Cp2m1600", 1, 6, 8.0);
    EXPECT_EQ(Answer_To("Cp2m1600", "1", "5", "many"),
              "Invalid Non-Numeric Entry: You're attempting to enter invalid data ['many'].  The cell you're "
              "attempting to input or modify only accepts numeric data.  Your entry or modification is being "
              "discarded.  Select OK to continue.");
    EXPECT_CELL("Cp2m1600", 1, 5, 1250.0);
}

TEST(EnterCp2, ColumnsThatNothingComputesAreTypedThoughEmpty) {
    ReportOfArea r(fy1999);
    EXPECT_CELL("Cp2m1600", 2, 7, Null);
    EXPECT_EQ(Answer_To("Cp2m1600", "2", "7", "14"), kStored);
    EXPECT_EQ(Answer_To("Cp2m1600", "2", "10", "900"), kStored);
    r.Calc("Cp2m1600");
    EXPECT_CELL("Cp2m1600", 2, 7, 14.0);
    EXPECT_CELL("Cp2m1600", 2, 10, 900.0);
}

TEST(EnterCp2, LimitsHaveCentsAndTakeTheirVisitsFromAbove) {
    ReportOfArea r(fy1999);
    EXPECT_EQ(Answer_To("Cp2m1600", "8", "4", "98.45"), kStored);
    EXPECT_CELL("Cp2m1600", 8, 4, 98.45);
    EXPECT_EQ(Title_Of("Cp2m1600", "8", "5", "1"), kShut);
    EXPECT_EQ(Title_Of("Cp2m1600", "8", "6", "1"), kShut);
    r.platform.Expect_Box_Starting(kTooSpecificTitle, "You're attempting to enter invalid data ['98.455'].");
    EXPECT_EQ(Answer_To("Cp2m1600", "8", "4", "98.455"), kStored);
    EXPECT_CELL("Cp2m1600", 8, 4, 98.46);
}

TEST(EnterCp2, LimitsAreShutWhereTheCalculationClearsThem) {
    for (const FiscalYear& year : {fy1999, fy2000, fy2016}) {
        ReportOfArea r(year);
        for (const char* line : {"8", "9", "10", "11", "12", "13"}) {
            for (const char* column : {"4", "7", "10"}) {
                EXPECT_EQ(!Enter("Cp2m1600", line, column, "95"), year.start < kCostLimitsEnd) << line << " " << column;
            }
        }
    }
}

TEST(EnterCp2, CostsRatesAndTotalsAreShut) {
    ReportOfArea r(fy1999);
    for (const char* column : {"4", "8", "9", "11", "Description", "LineNum"}) {
        EXPECT_EQ(Title_Of("Cp2m1600", "1", column, "1"), kShut) << column;
    }
    EXPECT_EQ(Title_Of("Cp2m1600", "7", "5", "1"), kShut);
    EXPECT_EQ(Title_Of("Cp2m1600", "14", "5", "1"), kShut);
    EXPECT_EQ(Title_Of("Cp2m1600", "1.01", "5", "1"), "Unknown Line");
    EXPECT_EQ(Title_Of("Cp2m1700", "1", "5", "1"), "Unknown Worksheet");
    EXPECT_EQ(Title_Of("Cp1", "1", "4", "1"), "No Edit Form");
}

TEST(EnterCp2, ASplitPeriodHasLinesAfterTheDate) {
    ReportOfArea r(fy2000);
    EXPECT_EQ(Answer_To("Cp2m1600", "6.01", "5", "33"), kStored);
    EXPECT_CELL("Cp2m1600", 6.01, 5, 33.0);
    EXPECT_EQ(Title_Of("Cp2m1600", "6.01", "1101", "1"), kShut);
    EXPECT_EQ(Title_Of("Cp2m1600", "6.01", "4", "1"), kShut);
}

TEST(EnterCp3, ChargesAreTypedAndCostsAreShut) {
    Report r(fy2016);
    for (const char* column : {"3", "5", "6", "601", "7"}) {
        EXPECT_EQ(Answer_To("Cp3", "15", column, "400"), kStored) << column;
        EXPECT_CELL("Cp3", 15, "Col_" + std::string(column), 400_cur);
    }
    for (const char* column : {"1", "2", "4", "8", "9", "901", "10", "Description"}) {
        EXPECT_EQ(Title_Of("Cp3", "15", column, "4"), kShut) << column;
    }
}

TEST(EnterCp3, TheFixedSublinesAreInUseInASplitPeriodOnly) {
    for (const FiscalYear& year : {fy1999, fy2016}) {
        Report r(year);
        EXPECT_EQ(Title_Of("Cp3", "15.01", "3", "4"), kShut);
        EXPECT_EQ(Title_Of("Cp3", "16.01", "3", "4"), kShut);
        r.Cell("Cp3", 16.01, 1, 13.01_cur);
        EXPECT_EQ(Answer_To("Cp3", "16.01", "3", "4"), kStored) << "a cost center of the chart";
    }
    Report r(fy2000);
    EXPECT_EQ(Answer_To("Cp3", "15.01", "3", "4"), kStored);
    EXPECT_EQ(Answer_To("Cp3", "16.01", "3", "4"), kStored);
}

TEST(EnterCp4, CensusAndLimitOfEachCodeAreTyped) {
    ReportOfArea r(fy1999);
    EXPECT_EQ(Answer_To("Cp4", "23.01", "1", "410.5"), kStored);
    EXPECT_EQ(Answer_To("Cp4", "23.01", "2", "$3,215.18"), kStored);
    EXPECT_CELL("Cp4", 23.01, 1, 410.5_cur);
    EXPECT_CELL("Cp4", 23.01, 2, 3215.18_cur);
    for (const char* column : {"3", "4", "5", "6", "MSA_Code", "Description"}) {
        EXPECT_EQ(Title_Of("Cp4", "23.01", column, "1"), kShut) << column;
    }
    for (const char* line : {"17", "18", "19", "20", "22", "24"}) EXPECT_EQ(Title_Of("Cp4", line, "1", "1"), kShut);
    EXPECT_EQ(Title_Of("Cp4", "23.02", "1", "1"), "Unknown Line") << "no second code";
}

TEST(EnterCp4, IsNotEnteredFromOctober2000) {
    ReportOfArea r(fy2016);
    EXPECT_EQ(Title_Of("Cp4", "23.01", "1", "410"), kShut);
    EXPECT_EQ(Title_Of("Cp4", "23.01", "2", "410"), kShut);
}

TEST(EnterCp5, VisitsOfThePeriodsAreTyped) {
    Report r(fy1999);
    for (const char* line : {"25", "26", "27"}) {
        for (const char* column : {"3", "5", "501", "502"}) {
            EXPECT_EQ(Answer_To("Cp5", line, column, "60"), kStored) << line << " " << column;
        }
        for (const char* column : {"1", "2", "4", "6", "7", "8", "Description"}) {
            EXPECT_EQ(Title_Of("Cp5", line, column, "60"), kShut) << line << " " << column;
        }
    }
    EXPECT_CELL("Cp5", 27, 502, 60_cur);
    EXPECT_EQ(Title_Of("Cp5", "28", "3", "60"), kShut);
}

}  // namespace tallmar
