#include "sql/functions.h"

#include <gtest/gtest.h>

#include "db/callbacks.h"
#include "db/plan_runner.h"

namespace tallmar {
namespace {

using test::PlanRunner;

TEST(Functions, EveryExampleGivesItsResult) {
    PlanRunner runner;
    runner.Run("CREATE TABLE One (Id Long)");
    runner.Run("INSERT INTO One VALUES (1)");
    for (const sql::FunctionRow& row : sql::Functions()) {
        const auto rows = runner.Run("SELECT " + std::string(row.example) + " FROM One");
        ASSERT_EQ(rows.size(), 1U) << row.example;
        EXPECT_EQ(rows[0], row.result) << row.example;
    }
}

// Each argument in turn is Null, the others are 1.
TEST(Functions, NullIsGivenAsTheirRowsSay) {
    PlanRunner runner;
    runner.Run("CREATE TABLE One (N Double)");
    runner.Run("INSERT INTO One VALUES (Null)");
    for (const sql::FunctionRow& row : sql::Functions()) {
        if (row.nulls != sql::NullRule::Propagates) continue;
        for (std::size_t null = 0; null < row.most; ++null) {
            std::string call = std::string(row.name) + "(";
            for (std::size_t i = 0; i < row.most; ++i) call += (i > 0 ? "," : "") + std::string(i == null ? "N" : "1");
            EXPECT_EQ(runner.Run("SELECT " + call + ") FROM One"), std::vector<std::string>{"Null"}) << call;
        }
    }
}

TEST(Functions, ADollarBehindTheNameIsPassedOver) {
    EXPECT_EQ(sql::Find_Function("mid$", 2), sql::Find_Function("MID", 2));
    EXPECT_EQ(sql::Find_Function("Nz", 1), nullptr);
}

TEST(Functions, ErrorsOfCallbacksTravelAsText) {
    const auto error = db_detail::Decode_Error(db_detail::Encode_Error(DbErrorCode::TextTooLong, "CCName"));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->code, DbErrorCode::TextTooLong);
    EXPECT_EQ(error->argument, "CCName");
    EXPECT_FALSE(db_detail::Decode_Error("no such table: A").has_value());
}

}  // namespace
}  // namespace tallmar
