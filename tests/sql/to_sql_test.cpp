#include "sql/to_sql.h"

#include <gtest/gtest.h>

#include "sql/parser.h"
#include "sql/statements.h"

namespace tallmar::sql {
namespace {

TEST(ToSql, WrittenAndParsedAgainEveryStatementIsEqual) {
    for (const std::string_view text : test::kStatements) {
        const StatementTree statement = Parse_Statement(text);
        const std::string written = To_Sql(statement);
        EXPECT_TRUE(Same_Statement(Parse_Statement(written), statement)) << text << "\n" << written;
    }
}

TEST(ToSql, StatementsThatDifferAreNotEqual) {
    for (std::size_t i = 1; i < std::size(test::kStatements); ++i) {
        EXPECT_FALSE(Same_Statement(Parse_Statement(test::kStatements[i]), Parse_Statement(test::kStatements[i - 1])));
    }
    EXPECT_FALSE(Same_Statement(Parse_Statement("DELETE * FROM A WHERE a=1"), Parse_Statement("DELETE * FROM A")));
    EXPECT_FALSE(
        Same_Statement(Parse_Statement("DELETE * FROM A WHERE a=1"), Parse_Statement("DELETE * FROM A WHERE a=2")));
}

TEST(ToSql, NamesAndLiteralsAreWrittenSoThatTheyReadTheSame) {
    EXPECT_EQ(To_Sql(*Parse_Criterion("[Order]=1 and [a b] = 5.0 or c=1E2", 0)),
              "(([Order] = 1) AND ([a b] = 5.0)) OR (c = 100E0)");
    EXPECT_EQ(To_Sql(*Parse_Criterion("a like 'it''s \"so\"' ", 0)), "a LIKE \"it's \"\"so\"\"\"");
}

}  // namespace
}  // namespace tallmar::sql
