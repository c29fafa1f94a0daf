// A line that a list of cells makes is the one that Add would make there.
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

std::string Next(const char* line) {
    return std::string("Unknown Line: The next new line is ") + line + ".";
}

}  // namespace

TEST(NewLines, OfA4StandBehindTheLast) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A4", "2", "3", "6"), Next("1"));
    r.Execute("INSERT INTO A4 (LineNum, Col_3, Col_4, Col_7) VALUES (1, 6, 10, 0);");
    EXPECT_EQ(Answer_To("A4", "3", "3", "6"), Next("2"));
    EXPECT_EQ(Answer_To("A4", "2", "3", "6"), kStored);
    for (int line = 3; line <= 29; ++line) EXPECT_EQ(kEditA4.lines.add("A4", {}), Currency(line));
    r.Execute("UPDATE A4 SET Col_3 = 6 WHERE LineNum < 30;");
    EXPECT_EQ(Answer_To("A4", "29.5", "3", "6"), Next("29.01"));
    EXPECT_EQ(Answer_To("A4", "29.01", "3", "6"), kStored);
    EXPECT_EQ(Title_Of("A4", "31", "3", "6"), "Unknown Line");
}

TEST(NewLines, OfA5StandBehindALineOfTheUsers) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A5", "20.99", "2", "1"), Next("13"));
    EXPECT_EQ(Answer_To("A5", "13", "2", "1"), kStored);
    EXPECT_EQ(Answer_To("A5", "14", "2", "1"), Next("13.01"));
    EXPECT_EQ(Answer_To("A5", "13.01", "2", "1"), kStored);
    r.Execute("INSERT INTO A5 (LineNum) VALUES (15);");
    EXPECT_EQ(Answer_To("A5", "14", "2", "1"), Next("13.02"));
    EXPECT_EQ(Answer_To("A5", "15.01", "2", "1"), kStored) << "behind the line that was there";
    r.Execute("DELETE FROM A5 WHERE LineNum < 15 AND LineNum >= 13;");
    EXPECT_EQ(Answer_To("A5", "14", "2", "1"), Next("15.02")) << "nothing to add it behind";
}

TEST(NewLines, OfA6AreCounted) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A6pB", "3", "4", "1"), Next("1"));
    EXPECT_EQ(Answer_To("A6pC", "3", "2", "Parent"), Next("1"));
    EXPECT_EQ(Answer_To("A6pC", "1", "2", "Parent"), kStored);
    EXPECT_EQ(Answer_To("A6pC", "3", "2", "Parent"), Next("2"));
    EXPECT_EQ(Title_Of("A6pC", "1000", "2", "Parent"), "Unknown Line");
}

TEST(NewLines, OfD1BelongToOneOfTwoGroups) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("D1", "3.49", "2", "300"), Next("3.02"));
    EXPECT_EQ(Answer_To("D1", "3.6", "2", "300"), Next("3.51"));
    for (const char* line : {"3.02", "3.03", "3.51"}) EXPECT_EQ(Answer_To("D1", line, "2", "300"), kStored);
    EXPECT_EQ(Answer_To("D1", "3.6", "2", "300"), Next("3.52"));
    kEditD1.lines.remove("D1", 3.02_cur);
    EXPECT_EQ(Answer_To("D1", "3.05", "2", "300"), Next("3.04"));
    EXPECT_EQ(Answer_To("D1", "3.02", "2", "300"), kStored) << "a number that is free again";
}

TEST(NewLines, OfTheStatements) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("F1", "6.5", "1", "70"), Next("6.01"));
    EXPECT_EQ(Answer_To("F1", "6.01", "1", "70"), kStored);
    EXPECT_EQ(Answer_To("F1", "6.5", "1", "70"), Next("6.02"));
    EXPECT_EQ(Answer_To("F2", "8", "1", "70"), Next("5"));
    EXPECT_EQ(Answer_To("F2", "8.01", "1", "70"), Next("5"));
    for (const char* line : {"5", "6", "7", "8"}) EXPECT_EQ(Answer_To("F2", line, "1", "70"), kStored);
    EXPECT_EQ(Answer_To("F2", "8.5", "1", "70"), Next("8.01"));
    EXPECT_EQ(Answer_To("F2", "12", "1", "70"), kStored);
}

TEST(NewLines, OfTheCodes) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p3", "29.05", "1", "1600"), Next("29"));
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29.05", "1", "1700"), Next("29.01"));
    EXPECT_EQ(Answer_To("S3p3", "29.01", "1", "1700"), kStored);
}

TEST(NewLines, OfOneListStandOneBehindTheOther) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"A5", "13.02", "2", "3"}, {"A5", "13", "2", "1"},   {"A5", "13.01", "2", "2"},
                                      {"D1", "3.03", "2", "6"},  {"D1", "3.02", "2", "5"}, {"D1", "3.05", "2", "7"}};
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_FALSE(outcomes[i]) << Text_Of(outcomes[i]);
    EXPECT_EQ(Text_Of(outcomes[5]), "The next new line is 3.04.");
    EXPECT_CELL("A5", 13.02, 2, 3_cur);
}

}  // namespace tallmar
