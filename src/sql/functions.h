// The functions of the dialect: one row each.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "sql/coercion.h"

namespace tallmar::sql {

enum class FunctionKind : std::uint8_t { Scalar, Aggregate, Iif };
// Propagates: Null where an argument is Null. Seen: the function looks at the Null itself.
enum class NullRule : std::uint8_t { Propagates, Seen };

// The function over a first argument of one type. In `sql` $1, $2 are the arguments, $* all of them, $T the number of
// the first one's type.
struct FunctionForm {
    Type first = Type::None;  // None: any type
    std::string_view sql;
    Type result = Type::None;  // None: the type of the first argument
    bool finds = false;        // an overflow of the first argument is found by the function itself
};

inline constexpr std::size_t kMostForms = 3;
struct FunctionRow {
    std::string_view name;  // upper case; a $ behind it in a statement is passed over
    FunctionKind kind = FunctionKind::Scalar;
    std::size_t least = 1, most = 1;  // arguments
    std::array<ArgRule, 3> args{};
    NullRule nulls = NullRule::Propagates;
    std::array<FunctionForm, kMostForms> forms{};
    std::string_view example, result;
};

std::span<const FunctionRow> Functions();
// The row for a name (a $ at its end passed over) and a number of arguments; any row of that name where none takes so
// many; null for an unknown name. Count(*) counts as one argument.
const FunctionRow* Find_Function(std::string_view name, std::size_t arguments);
// The form for a first argument of this type.
const FunctionForm& Form_For(const FunctionRow& function, Type first);

}  // namespace tallmar::sql
