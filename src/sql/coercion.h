// The types of expressions and how they go together. Everything here is a table: the binder looks up and never asks.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "sql/plan.h"
#include "sql/tree.h"
#include "sql/type.h"

namespace tallmar::sql {

constexpr std::size_t Index(Type type) {
    return static_cast<std::size_t>(type);
}

std::string_view Name_Of(Type type);
Type Type_Of(FieldType type);
// How SQLite holds a value of this type.
Rep Rep_Of(Type type);
// The type of a field that takes such values: expressions of SELECT, columns of SELECT INTO.
FieldType Field_Type_Of(Type type);

// How an operation is written, which is also where its rounding and its checks are.
enum class Form : std::uint8_t {
    None,     // no cell
    Plain,    // SQLite's own operator
    Amount,   // the same over Currency; the end of a chain checks that it did not overflow
    Long,     // the same, checked to stay within 32 bits
    Real,     // the same over Double; the end of a chain checks that it is finite
    Product,  // Currency x Currency, four places, halves to even
    Quotient,
    WholeQuotient,
    Rest,
    Power,
    Joined,     // Null joins to Null
    JoinedAll,  // Null joins as ""
    TextTest,   // a comparison without regard to case
    Refused,    // TypeMismatch
};

// The operands are turned into these types first; None leaves an operand as it is.
struct Cell {
    Type result = Type::None;
    Type left = Type::None;
    Type right = Type::None;
    Form form = Form::None;
};
const Cell& Arithmetic(Op op, Type left, Type right);
// What an IIF over both gives; `left` and `right` as above.
const Cell& Unified(Type left, Type right);
// The minus sign; `left` is the operand.
const Cell& Negated(Type operand);

// Arguments of functions, and values on their way into fields.
enum class ArgRule : std::uint8_t {
    Value,   // any type, unchanged; a Condition as Boolean, a Decimal as Double
    Number,  // Whole, Currency or Double
    Real,    // Double
    Whole,   // rounded to a Long, halves to even
    Text,
    Condition,
};
Type Argument_Type(ArgRule rule, Type given);

// SQL that makes `from` into `to`, "$" standing for the value; "$" alone where nothing is to be done. Empty where the
// types do not convert.
std::string_view Cast_Sql(Type from, Type to);

// For docs and tests: the whole of Arithmetic as a table in text form.
std::string Arithmetic_Table();

}  // namespace tallmar::sql
