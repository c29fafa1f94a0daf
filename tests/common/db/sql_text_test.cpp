#include "common/db/sql_text.h"

#include <gtest/gtest.h>

#include "common/dates.h"
#include "common/db/plan.h"

namespace tallmar {
namespace {

TEST(SqlText, JoinsWithEveryDigit) {
    EXPECT_EQ(Sql("UPDATE A5 SET Col_2=", 1234.5_cur, " WHERE LineNum = ", 5.01_cur, " And x=", 1e-7, " And n=", 3),
              "UPDATE A5 SET Col_2=1234.5 WHERE LineNum = 5.01 And x=0.0000001 And n=3");
}

TEST(SqlText, ValuesAreWrittenAsLiterals) {
    EXPECT_EQ(Sql(Value(Null), ",", Value("it's \"so\""), ",", Value(Date{36800}), ",", Value(0.1)),
              "Null,\"it's \"\"so\"\"\",#10/1/2000 00:00:00#,0.1");
}

// What is written is read back as the same value.
TEST(SqlText, LiteralsReadBack) {
    for (const Value& value : {Value(5), Value(23.2_cur), Value("a\"b"), Value(Date{36800.25}),
                               Value(Date_Of(100, 1, 1)), Value(Date_Of(9999, 12, 31)), Value(0.000001)}) {
        const LiftedStatement lifted = Lift(Sql(value));
        ASSERT_EQ(lifted.literals.size(), 1U) << Sql(value);
        EXPECT_EQ(lifted.literals[0].value, value) << Sql(value);
    }
}

}  // namespace
}  // namespace tallmar
