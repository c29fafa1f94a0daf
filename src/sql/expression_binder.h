// Expressions: names resolved, types given, casts put in.
#pragma once

#include <span>
#include <string_view>

#include "sql/bound.h"

namespace tallmar::sql {

// Where names are looked up, and the text that errors quote.
struct Scope {
    std::string_view text;
    std::span<const BoundTable> tables;
    std::size_t firstTable = 0;  // where `tables` begin among those of the statement
    // Aliases of expressions: of ORDER BY and of Find criteria.
    std::span<const SelectItem> aliases;
    std::string_view aliasText;  // the text that has the aliases
    bool mayAggregate = false;
    bool* aggregated = nullptr;  // set where an aggregate was met
};

// The value of an expression, settled: never a Condition (a Boolean instead), never a Decimal (a Double).
BoundPtr Bind_Value(const Expr& expr, const Scope& scope);
BoundPtr Bind_Condition(const Expr& expr, const Scope& scope);
// On its way into `field`: converted, range, length and Null checked as far as its type leaves them open.
BoundPtr Bind_For_Field(const Expr& expr, const FieldDef& field, const TableShape& table, const Scope& scope);
BoundPtr For_Field(BoundPtr value, const FieldDef& field, const TableShape& table, const Scope& scope);
// Null on its way into a field that is not written.
BoundPtr Null_For_Field(const FieldDef& field, const TableShape& table);

// A field of table `table` of the statement.
BoundPtr Bound_Column(int table, const FieldDef& field, Place place);

struct FieldPlace {
    int table = -1;  // counted within the scope
    int field = -1;
};
// Throws UnknownField, AmbiguousField with the place.
FieldPlace Resolve(std::string_view table, std::string_view field, Place place, const Scope& scope);

// Same expression but for the values of its literals.
bool Same_Bound(const Bound& a, const Bound& b);

// In SQL text: 'it''s'.
std::string Sql_Text_Literal(std::string_view text);

}  // namespace tallmar::sql
