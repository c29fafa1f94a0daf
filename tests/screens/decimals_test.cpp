// How many decimals each column of amounts takes: what is more is rounded, with a box.
#include "screens/entry_test.h"

namespace tallmar {

namespace {

// 1.515 is stored as 2 by a column of whole numbers, as 1.52 by one with cents.
void Expect_Places(Report& r, const char* item, const char* line, std::initializer_list<const char*> columns,
                   int places) {
    for (const char* column : columns) {
        r.platform.Expect_Box("Too Specific Numeric Entry",
                              "You're attempting to enter invalid data ['1.515'].  The cell you're attempting to input "
                              "or modify only accepts " +
                                  std::to_string(places) +
                                  " digits to the right of the decimal point.  Your entry or modification is being "
                                  "rounded.",
                              Answer::Ok, kExclamation);
        EXPECT_EQ(Answer_To(item, line, column, "1.515"), kStored) << item << " " << line << " " << column;
        const Value value = r.Cell(item, Currency::From_Text(line).value(), "Col_" + std::string(column));
        EXPECT_EQ(value.To_Double(), places == 0 ? 2 : 1.52) << item << " " << line << " " << column;
    }
}

}  // namespace

TEST(Decimals, OfTheTrialBalance) {
    Report r(fy2016);
    Expect_Places(r, "A", "6", {"1", "2", "3", "4", "5"}, 0);
}

TEST(Decimals, OfTheAnalyses) {
    Report r(fy1999);
    for (const char* item : {"A1", "A2"}) Expect_Places(r, item, "6", {"1", "2", "4", "5", "6", "7", "8"}, 0);
    Expect_Places(r, "A3", "6", {"1", "2", "3", "4", "5", "6", "7", "8"}, 0);
}

TEST(Decimals, OfTheStatistics) {
    Report r(fy2016);
    Expect_Places(r, "S3p1", "1", {"1", "2", "3", "4", "5", "6"}, 0);
    Expect_Places(r, "S3p1", "9", {"1", "3", "5"}, 0);
    Expect_Places(r, "S3p1", "10", {"2", "4", "6"}, 2);
    for (const char* line : {"13", "26"}) Expect_Places(r, "S3p2", line, {"1", "2"}, 2);
    Expect_Places(r, "S3p4", "30", {"1", "2", "3", "4", "5", "6"}, 0);
}

TEST(Decimals, OfTheLimitsAndTheCensus) {
    Report r(fy1999);
    Expect_Places(r, "S3p1", "10.01", {"2", "4", "6"}, 2);
    Expect_Places(r, "S3p1", "10.02", {"2", "4", "6"}, 2);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    Expect_Places(r, "Cp2m1600", "1", {"5", "6", "7", "10"}, 0);
    for (const char* line : {"8", "13"}) {
        Expect_Places(r, "Cp2m1600", line, {"4"}, 2);
        Expect_Places(r, "Cp2m1600", line, {"7", "10"}, 0);
    }
    Expect_Places(r, "Cp4", "23.01", {"1", "2"}, 2);
    Expect_Places(r, "Cp5", "25", {"3", "5", "501", "502"}, 0);
}

TEST(Decimals, OfTheTherapies) {
    Report r(fy1999);
    for (const char* line : {"1", "3", "4"}) Expect_Places(r, "A83p1P", line, {"1"}, 0);
    for (const char* line : {"5", "6"}) Expect_Places(r, "A83p1P", line, {"1"}, 2);
    for (const char* line : {"7", "8"}) Expect_Places(r, "A83p1P", line, {"1", "2", "3", "4"}, 2);
    for (const char* line : {"10", "11"}) Expect_Places(r, "A83p1P", line, {"1", "2", "3"}, 2);
    Expect_Places(r, "A83p4P", "32", {"1", "2", "3"}, 2);
    Expect_Places(r, "A83p4P", "36", {"4"}, 2);
    Expect_Places(r, "A83p5P", "45", {"1"}, 0);
}

TEST(Decimals, OfCapitalSettlementAndStatements) {
    Report r(fy2016);
    Expect_Places(r, "A7", "1", {"1", "2", "3", "5"}, 0);
    Expect_Places(r, "Cp3", "15", {"3", "5", "6", "601", "7"}, 0);
    Expect_Places(r, "Dp1", "4", {"1", "2", "3"}, 0);
    Expect_Places(r, "Dp2", "12.01", {"1", "2"}, 0);
    Expect_Places(r, "D1", "3.01", {"2", "4"}, 0);
    Expect_Places(r, "F", "1", {"1", "2", "3", "4"}, 0);
    Expect_Places(r, "F1", "1", {"1"}, 0);
    Expect_Places(r, "F2", "4", {"1", "3", "5", "7"}, 0);
}

TEST(Decimals, OfAPercentage) {
    Report r(fy2016);
    for (const char* column : {"4", "5"}) {
        r.platform.Expect_Box_Starting("Too Specific Numeric Entry",
                                       "You're attempting to enter invalid data ['33.333'].");
        EXPECT_EQ(Answer_To("A6pC", "1", column, "33.333"), kStored);
        EXPECT_CELL("A6pC", 1, "Col_" + std::string(column), 33.33);
    }
}

}  // namespace tallmar
