// An overflow names the cell that it is in, whatever way the statement goes.
#include <gtest/gtest.h>

#include "common/sql_text.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

constexpr const char* kMost = "922337203685477.5807";

class OverflowTest : public DbTest {
  protected:
    void SetUp() override {
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency}, {"Col_1", FieldType::Currency}, {"Col_2", FieldType::Currency}});
        Make_Table(db, "A4", {{"LineNum", FieldType::Currency}, {"Amount", FieldType::Currency}});
        Make_Table(db, "B1", {{"LineNum", FieldType::Currency}, {"CC_100", FieldType::Double}});
        for (const char* line : {"1", "5.01", "29"}) {
            Run(Sql("INSERT INTO A (LineNum, Col_1, Col_2) VALUES (", line, ", 1, 2)"));
            Run(Sql("INSERT INTO A4 (LineNum, Amount) VALUES (", line, ", 1)"));
            Run(Sql("INSERT INTO B1 (LineNum, CC_100) VALUES (", line, ", 1)"));
        }
        Run(Sql("UPDATE A SET Col_1 = ", kMost, " WHERE LineNum = 5.01"));
    }
    std::string Told(const std::string& statement) {
        const std::string before = Dump(db);
        const std::string told = Error_Of([&] { Run(statement); });
        EXPECT_EQ(Dump(db), before) << "a statement that fails changes nothing";
        return told;
    }
};

TEST_F(OverflowTest, AnUpdateNamesLineAndField) {
    EXPECT_EQ(Told("UPDATE A SET Col_2 = Col_2 + 1, Col_1 = Col_1 + Col_2"), "Overflow in A, line 5.01, column Col_1");
    EXPECT_EQ(Told("UPDATE A SET Col_2 = Col_1 * 2 WHERE LineNum > 1"), "Overflow in A, line 5.01, column Col_2");
}

TEST_F(OverflowTest, AnUpdateThroughAJoinNamesTheTarget) {
    EXPECT_EQ(Told("UPDATE A INNER JOIN A4 ON A.LineNum = A4.LineNum SET A.Col_2 = A.Col_1 + A4.Amount"),
              "Overflow in A, line 5.01, column Col_2");
    EXPECT_EQ(Told("UPDATE A RIGHT JOIN A4 ON A.LineNum = A4.LineNum SET A4.Amount = A.Col_1 + A4.Amount"),
              "Overflow in A4, line 5.01, column Amount");
}

// The first match fits and the second does not: once it is all taken back no single match shows it.
TEST_F(OverflowTest, WhatOverflowsOnlyMatchByMatchNamesTheTable) {
    Run(Sql("UPDATE A SET Col_1 = 900000000000000 WHERE LineNum = 5.01"));
    Run("UPDATE A4 SET LineNum = 5.01, Amount = 20000000000000");
    EXPECT_EQ(Told("UPDATE A INNER JOIN A4 ON A.LineNum = A4.LineNum SET A.Col_1 = A.Col_1 + A4.Amount"),
              "Overflow in A");
}

TEST_F(OverflowTest, ASelectNamesLineAndField) {
    EXPECT_EQ(Error_Of([&] { Rows(db, "SELECT LineNum, Col_1 + 1 AS X FROM A"); }),
              "Overflow in A, line 5.01, column Col_1");
    EXPECT_EQ(Error_Of([&] { db.Read_Rows("SELECT LineNum, Col_1 + 1 AS X FROM A"); }),
              "Overflow in A, line 5.01, column Col_1");
}

TEST_F(OverflowTest, ATotalNamesTheFieldThatItIsOf) {
    EXPECT_EQ(Error_Of([&] { db.Read_Row("SELECT Sum(Col_2) AS T, Sum(Col_1) AS U FROM A WHERE LineNum < 29"); }),
              "Overflow in A, column Col_1");
}

TEST_F(OverflowTest, ATotalOfNumbersMustBeFinite) {
    Run("UPDATE B1 SET CC_100 = 1E308");
    EXPECT_EQ(Error_Of([&] { db.Read_Row("SELECT SUM(CC_100) AS T FROM B1"); }), "Overflow in B1, column CC_100");
    EXPECT_EQ(Told("UPDATE B1 SET CC_100 = CC_100 * 10 WHERE LineNum = 1"), "Overflow in B1, line 1, column CC_100");
}

TEST_F(OverflowTest, AnInsertNamesTheTableAndTheField) {
    EXPECT_EQ(Told("INSERT INTO A4 (LineNum, Amount) SELECT LineNum, Col_1 + 1 FROM A"),
              "Overflow in A, line 5.01, column Col_1");
}

TEST_F(OverflowTest, NoStatementHasAWordForInfinity) {
    EXPECT_EQ(Error_Of([] { Sql("UPDATE B1 SET CC_100 = ", 1e308 * 10); }), "Overflow");
    EXPECT_EQ(Error_Of([] { Sql(Value(0.0 / 0.0)); }), "Overflow");
}

}  // namespace
}  // namespace tallmar
