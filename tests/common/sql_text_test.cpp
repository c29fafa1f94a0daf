#include "common/sql_text.h"

#include <gtest/gtest.h>

#include "common/dates.h"

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

}  // namespace
}  // namespace tallmar
