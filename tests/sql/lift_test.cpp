#include <gtest/gtest.h>

#include "common/dates.h"
#include "common/sql_text.h"
#include "sql/plan.h"

namespace tallmar::sql {
namespace {

// What is written is read back as the same value.
TEST(Lift, ReadsLiteralsBackAsTheyWereWritten) {
    for (const Value& value : {Value(5), Value(23.2_cur), Value("a\"b"), Value(Date{36800.25}),
                               Value(Date_Of(100, 1, 1)), Value(Date_Of(9999, 12, 31)), Value(0.000001)}) {
        const LiftedStatement lifted = Lift(Sql(value));
        ASSERT_EQ(lifted.literals.size(), 1U) << Sql(value);
        EXPECT_EQ(lifted.literals[0].value, value) << Sql(value);
    }
}

// What SELECT gives is opened; with INTO it makes a table, and is executed.
TEST(Lift, KnowsASelectThatIsOpened) {
    EXPECT_TRUE(Is_Select("select * from A"));
    EXPECT_TRUE(Is_Select("SELECT [INTO] FROM A WHERE Col_1 = \"into\""));
    EXPECT_FALSE(Is_Select("SELECT * INTO B FROM A"));
    EXPECT_FALSE(Is_Select("SELECTED"));
    EXPECT_FALSE(Is_Select("[SELECT]"));
    EXPECT_FALSE(Is_Select("UPDATE A SET Col_1 = 0"));
    EXPECT_FALSE(Is_Select(""));
}

}  // namespace
}  // namespace tallmar::sql
