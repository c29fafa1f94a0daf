#include "sql/coercion.h"

#include <gtest/gtest.h>

namespace tallmar::sql {
namespace {

constexpr Type kAll[] = {Type::None,    Type::Boolean, Type::Whole, Type::Currency,
                         Type::Decimal, Type::Double,  Type::Date,  Type::Text};

// Every cast that a cell asks for can be written; a Decimal is bound and never cast.
TEST(Coercion, WhatACellAsksForCanBeDone) {
    const auto can = [](Type from, Type to) {
        if (to == Type::None || from == Type::Decimal) return true;
        return !Cast_Sql(from, to).empty();
    };
    for (int op = 0; op < kOpCount; ++op) {
        for (const Type left : kAll) {
            for (const Type right : kAll) {
                const Cell& cell = Arithmetic(static_cast<Op>(op), left, right);
                EXPECT_TRUE(can(left, cell.left)) << op << Name_Of(left) << Name_Of(right);
                EXPECT_TRUE(can(right, cell.right)) << op << Name_Of(left) << Name_Of(right);
            }
        }
    }
}

// What stands on which side makes no difference to a sum, a product or a comparison.
TEST(Coercion, SumsProductsAndComparisonsAreSymmetric) {
    for (const Op op : {Op::Add, Op::Multiply, Op::Equal, Op::Less}) {
        for (const Type left : kAll) {
            for (const Type right : kAll) {
                const Cell& one = Arithmetic(op, left, right);
                const Cell& other = Arithmetic(op, right, left);
                EXPECT_EQ(one.result, other.result) << Name_Of(left) << Name_Of(right);
                EXPECT_EQ(one.left, other.right) << Name_Of(left) << Name_Of(right);
                EXPECT_EQ(one.form, other.form) << Name_Of(left) << Name_Of(right);
            }
        }
    }
}

TEST(Coercion, AnIifGivesTheTypeOfBoth) {
    EXPECT_EQ(Unified(Type::Whole, Type::Currency).result, Type::Currency);
    EXPECT_EQ(Unified(Type::None, Type::Date).result, Type::Date);
    EXPECT_EQ(Unified(Type::Decimal, Type::Currency).result, Type::Currency);
    EXPECT_EQ(Unified(Type::Decimal, Type::Whole).result, Type::Double);
    EXPECT_EQ(Unified(Type::Whole, Type::Text).result, Type::Text);
}

struct Row {
    Type left;
    Op op;
    Type right;
    Type result;
    Form form;
};

TEST(Coercion, AmountsStayExactWhereTheyShould) {
    constexpr Row kRows[] = {
        {Type::Currency, Op::Add, Type::Currency, Type::Currency, Form::Amount},
        {Type::Currency, Op::Subtract, Type::Whole, Type::Currency, Form::Amount},
        {Type::Currency, Op::Add, Type::Decimal, Type::Currency, Form::Amount},
        {Type::Currency, Op::Add, Type::Double, Type::Double, Form::Real},
        {Type::Currency, Op::Multiply, Type::Currency, Type::Currency, Form::Product},
        {Type::Currency, Op::Multiply, Type::Whole, Type::Currency, Form::Product},
        {Type::Currency, Op::Multiply, Type::Decimal, Type::Double, Form::Real},
        {Type::Currency, Op::Divide, Type::Currency, Type::Double, Form::Quotient},
        {Type::Whole, Op::Divide, Type::Whole, Type::Double, Form::Quotient},
        {Type::Whole, Op::Add, Type::Whole, Type::Whole, Form::Long},
        {Type::Whole, Op::Add, Type::Decimal, Type::Double, Form::Real},
        {Type::Text, Op::Add, Type::Text, Type::Text, Form::Joined},
        {Type::Text, Op::Subtract, Type::Text, Type::Double, Form::Real},
        {Type::Text, Op::Join, Type::Currency, Type::Text, Form::JoinedAll},
        {Type::Text, Op::Equal, Type::Text, Type::Condition, Form::TextTest},
        {Type::Date, Op::Subtract, Type::Date, Type::Double, Form::Real},
        {Type::Date, Op::Add, Type::Whole, Type::Date, Form::Real},
    };
    for (const Row& row : kRows) {
        const Cell& cell = Arithmetic(row.op, row.left, row.right);
        EXPECT_EQ(cell.result, row.result) << Name_Of(row.left) << Name_Of(row.right);
        EXPECT_EQ(cell.form, row.form) << Name_Of(row.left) << Name_Of(row.right);
    }
}

TEST(Coercion, TheMatrixPrintsItself) {
    const std::string table = Arithmetic_Table();
    EXPECT_EQ(table.substr(0, 20), "Null + Null -> Null\n");
    EXPECT_NE(table.find("Currency * Decimal -> Double\n"), std::string::npos);
}

}  // namespace
}  // namespace tallmar::sql
