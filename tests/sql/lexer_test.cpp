#include "sql/lexer.h"

#include <gtest/gtest.h>

#include "common/db_error.h"

namespace tallmar::sql {
namespace {

std::string Message(std::string_view statement) {
    try {
        Lift(statement);
    } catch (const DbError& error) {
        return error.Description();
    }
    return "no error";
}

TEST(Lift, ShapeIsUpperCaseWithLiteralsMarked) {
    const LiftedStatement lifted = Lift("Select  [My Name], b\n From A Where x = 5 and y='it''s' or z > 23.2 ;");
    EXPECT_EQ(lifted.shape, "SELECT [My Name], B FROM A WHERE X = ?i AND Y=?t OR Z > ?d ;");
    ASSERT_EQ(lifted.literals.size(), 3U);
    EXPECT_EQ(lifted.literals[0].value, Value(5));
    EXPECT_EQ(lifted.literals[1].value, Value("it's"));
    EXPECT_EQ(lifted.literals[2].value, Value(23.2_cur));
}

TEST(Lift, StatementsThatDifferInLiteralsShareAShape) {
    EXPECT_EQ(Lift("SELECT * FROM A WHERE LineNum = 5").shape, Lift("select * from a where linenum = 61").shape);
    EXPECT_NE(Lift("SELECT * FROM A WHERE LineNum = 5").shape, Lift("SELECT * FROM A WHERE LineNum = 5.0").shape);
    EXPECT_NE(Lift("SELECT * FROM A WHERE a < > 5").shape, Lift("SELECT * FROM A WHERE a <> 5").shape);
}

TEST(Lift, WhatShapesThePlanStays) {
    EXPECT_EQ(Lift("SELECT TOP 1 a FROM A").shape, "SELECT TOP 1 A FROM A");
    EXPECT_EQ(Lift("CREATE TABLE t (c Text(36))").shape, "CREATE TABLE T (C TEXT(36))");
    EXPECT_TRUE(Lift("CREATE TABLE t (c Text(36))").literals.empty());
}

struct NumberCase {
    const char* text;
    Literal::Kind kind;
    double number;
};

TEST(Lift, NumbersHaveTheirKind) {
    constexpr NumberCase kCases[] = {
        {"0", Literal::Kind::Integer, 0},
        {"2147483647", Literal::Kind::Integer, 2147483647},
        {"2147483648", Literal::Kind::Double, 2147483648},
        {"0600", Literal::Kind::Integer, 600},
        {".9", Literal::Kind::Decimal, 0.9},
        {"5.", Literal::Kind::Decimal, 5},
        {"10000.00", Literal::Kind::Decimal, 10000},
        {"0.0001", Literal::Kind::Decimal, 0.0001},
        {"0.00001", Literal::Kind::Double, 0.00001},
        {"900000000000000.5", Literal::Kind::Decimal, 900000000000000.5},
        {"9000000000000000.5", Literal::Kind::Double, 9000000000000000.5},
        {"1E3", Literal::Kind::Double, 1000},
        {"2.5e-1", Literal::Kind::Double, 0.25},
        {"123456789012345678901234567890", Literal::Kind::Double, 123456789012345678901234567890.0},
    };
    for (const NumberCase& each : kCases) {
        const auto literals = Lift(each.text).literals;
        ASSERT_EQ(literals.size(), 1U) << each.text;
        EXPECT_EQ(literals[0].kind, each.kind) << each.text;
        EXPECT_EQ(literals[0].number, each.number) << each.text;
    }
}

TEST(Lift, TextsKeepWhatStandsBetweenTheirMarks) {
    const auto literals = Lift("\"say \"\"so\"\"\" 'it''s' \"it's\" '' #10/1/2015 8:05:00 AM#").literals;
    ASSERT_EQ(literals.size(), 5U);
    EXPECT_EQ(literals[0].value, Value("say \"so\""));
    EXPECT_EQ(literals[1].value, Value("it's"));
    EXPECT_EQ(literals[2].value, Value("it's"));
    EXPECT_EQ(literals[3].value, Value(""));
    EXPECT_EQ(literals[4].kind, Literal::Kind::Date);
    EXPECT_EQ(literals[4].value.To_Text(), "10/1/2015 8:05:00 AM");
}

TEST(Lift, WhatTheDialectHasNotNamesItsPlace) {
    EXPECT_EQ(Message("SELECT a ? b"), "Syntax error near '?' at character 10 of: SELECT a ? b");
    EXPECT_EQ(Message("a = 12ab"), "Syntax error near '12ab' at character 5 of: a = 12ab");
    EXPECT_EQ(Message("a = \"open"), "Syntax error near '\"open' at character 5 of: a = \"open");
    EXPECT_EQ(Message("[open"), "Syntax error near '[open' at character 1 of: [open");
    EXPECT_EQ(Message("[]"), "Syntax error near '[' at character 1 of: []");
    EXPECT_NE(Message(std::string_view("[a\0b]", 5)), "no error");
    EXPECT_EQ(Message("a = #never#"), "Syntax error near 'never' at character 5 of: a = #never#");
    EXPECT_EQ(Message("\xC3\x84 = #x#"), "Syntax error near 'x' at character 5 of: \xC3\x84 = #x#");
    EXPECT_EQ(Message("a = 1E999"), "Syntax error near '1E999' at character 5 of: a = 1E999");
}

TEST(Lift, EnormousStatementsAreRefused) {
    EXPECT_EQ(Message(std::string(1'000'001, ' ')), "The statement is too complex");
}

TEST(IsTableName, OnlyASelectIsNone) {
    EXPECT_TRUE(Is_Table_Name("Log"));
    EXPECT_TRUE(Is_Table_Name("SelectedRows"));
    EXPECT_FALSE(Is_Table_Name("  select * FROM Log"));
}

}  // namespace
}  // namespace tallmar::sql
