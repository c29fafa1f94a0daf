#include "sql/parser.h"

#include <gtest/gtest.h>

#include "common/db_error.h"
#include "sql/keywords.h"
#include "sql/statements.h"
#include "sql/to_sql.h"

namespace tallmar::sql {
namespace {

std::string Read(std::string_view criterion) {
    return To_Sql(*Parse_Criterion(criterion, 0));
}

std::string Message(std::string_view statement) {
    try {
        Parse_Statement(statement);
    } catch (const DbError& error) {
        return error.Description();
    }
    return "no error";
}

TEST(Parser, OperatorsBindAsTheyShould) {
    EXPECT_EQ(Read("a + b * c - d"), "(a + (b * c)) - d");
    EXPECT_EQ(Read("-a ^ 2"), "-(a ^ 2)");
    EXPECT_EQ(Read("-a * b"), "(-a) * b");
    EXPECT_EQ(Read("2 ^ -1 * 3"), "(2 ^ (-1)) * 3");
    EXPECT_EQ(Read("a Mod b \\ c / d"), "a Mod (b \\ (c / d))");
    EXPECT_EQ(Read("\"CC_\" & Val(x) - \"1\""), "\"CC_\" & (Val(x) - \"1\")");
    EXPECT_EQ(Read("a & b = c"), "(a & b) = c");
    EXPECT_EQ(Read("Not a = b And c Or d"), "((NOT (a = b)) AND c) OR d");
    EXPECT_EQ(Read("a = 0 Or b Is Null And c < 3"), "(a = 0) OR ((b IS NULL) AND (c < 3))");
    EXPECT_EQ(Read("a Between 1 And 2 And b"), "(a BETWEEN 1 AND 2) AND b");
    EXPECT_EQ(Read("a - b - c"), "(a - b) - c");
    EXPECT_EQ(Read("a Not In (1, 2) Or b Not Like 'x' Or c Not Between 1 And 2"),
              "((a NOT IN (1, 2)) OR (b NOT LIKE \"x\")) OR (c NOT BETWEEN 1 AND 2)");
    EXPECT_EQ(Read("+a"), "a");
}

TEST(Parser, LiteralsAreNumberedInTheOrderOfTheText) {
    const ExprPtr tree = Parse_Criterion("a = 1 And b In (2, 3)", 5);
    EXPECT_EQ(tree->args[0]->args[1]->index, 5);
    EXPECT_EQ(tree->args[1]->args[1]->index, 6);
    EXPECT_EQ(tree->args[1]->args[2]->index, 7);
}

TEST(Parser, ErrorsNameTheTokenAndItsPlace) {
    EXPECT_EQ(Message("SELECT * FORM A"), "Syntax error near 'FORM' at character 10 of: SELECT * FORM A");
    EXPECT_EQ(Message("SELECT *"), "Syntax error at the end of: SELECT *");
    EXPECT_EQ(Message("SELECT a FROM t WHERE"), "Syntax error at the end of: SELECT a FROM t WHERE");
    EXPECT_EQ(Message("SELECT a FROM t HAVING a > 1"),
              "Syntax error near 'HAVING' at character 17 of: SELECT a FROM t HAVING a > 1");
    EXPECT_EQ(Message("SELECT a FROM t UNION SELECT b FROM u"),
              "Syntax error near 'UNION' at character 17 of: SELECT a FROM t UNION SELECT b FROM u");
    EXPECT_EQ(Message("SELECT a FROM t WHERE a IN (SELECT b FROM u)"),
              "Syntax error near 'SELECT' at character 29 of: SELECT a FROM t WHERE a IN (SELECT b FROM u)");
    EXPECT_EQ(Message("DELETE * FROM a, b"), "Syntax error near ',' at character 16 of: DELETE * FROM a, b");
    EXPECT_EQ(Message("DELETE b.* FROM a"), "Unknown table 'b' at character 8 of: DELETE b.* FROM a");
    EXPECT_EQ(Message("CREATE TABLE t (a Wide)"),
              "Syntax error near 'Wide' at character 19 of: CREATE TABLE t (a Wide)");
    EXPECT_EQ(Message("CREATE TABLE t (a Text(0))"),
              "Syntax error near '0' at character 24 of: CREATE TABLE t (a Text(0))");
    EXPECT_EQ(Message("SELECT TOP 1.5 a FROM t"),
              "Syntax error near '1.5' at character 12 of: SELECT TOP 1.5 a FROM t");
    EXPECT_EQ(Message(""), "Syntax error at the end of: ");
    EXPECT_EQ(Message("SELECT a FROM t; SELECT b FROM t"),
              "Syntax error near 'SELECT' at character 18 of: SELECT a FROM t; SELECT b FROM t");
}

TEST(Parser, HostileNestingIsRefused) {
    for (const std::string_view open : {"(", "-", "not ", "abs(", "(-"}) {
        std::string text = "SELECT a FROM t WHERE ";
        for (int i = 0; i < 100'000; ++i) text += open;
        EXPECT_EQ(Message(text).substr(0, 28), "The statement is too complex") << open;
    }
    std::string chain = "SELECT a FROM t WHERE a";
    for (int i = 0; i < 10'000; ++i) chain += "+a";
    EXPECT_EQ(Message(chain).substr(0, 28), "The statement is too complex");
    std::string joins = "SELECT a FROM ";
    for (int i = 0; i < 10'000; ++i) joins += "(";
    EXPECT_EQ(Message(joins).substr(0, 28), "The statement is too complex");
}

TEST(Parser, ReservedWordsAreNamesOnlyInBrackets) {
    for (const std::string_view word : kReservedWords) {
        const std::string name(word);
        EXPECT_EQ(Message("SELECT [" + name + "] FROM [" + name + "]"), "no error") << name;
        EXPECT_NE(Message("SELECT a FROM " + name), "no error") << name;
    }
}

// Every reserved word has a place in some statement, but for those that name what the dialect has not.
TEST(Parser, EveryReservedWordIsReached) {
    std::string all;
    for (const std::string_view text : test::kStatements) all += To_Upper(text) + "\n";
    for (const std::string_view word : kReservedWords) {
        if (word == "HAVING" || word == "UNION") continue;
        EXPECT_NE(all.find(word), std::string::npos) << word;
    }
}

TEST(Parser, TypesHaveTheirSynonyms) {
    const std::pair<std::string, FieldType> words[] = {
        {"BOOLEAN", FieldType::Boolean}, {"YESNO", FieldType::Boolean},     {"BIT", FieldType::Boolean},
        {"BYTE", FieldType::Byte},       {"INTEGER", FieldType::Integer},   {"SHORT", FieldType::Integer},
        {"LONG", FieldType::Long},       {"CURRENCY", FieldType::Currency}, {"MONEY", FieldType::Currency},
        {"SINGLE", FieldType::Single},   {"DOUBLE", FieldType::Double},     {"DATE", FieldType::Date},
        {"DATETIME", FieldType::Date},   {"TEXT", FieldType::Text},         {"MEMO", FieldType::Memo},
        {"LONGTEXT", FieldType::Memo},   {"CHAR", FieldType::Char},         {"char", FieldType::Char},
    };
    for (const auto& [word, type] : words) {
        const FieldDef field = Parse_Statement("CREATE TABLE t (c " + word + ")").newFields.at(0).field;
        EXPECT_EQ(field.type, type) << word;
        EXPECT_EQ(field.size, Has_Size(type) ? 255 : 0) << word;
    }
    EXPECT_THROW(Parse_Statement("CREATE TABLE t (c [LONG])"), DbError);
}

}  // namespace
}  // namespace tallmar::sql
