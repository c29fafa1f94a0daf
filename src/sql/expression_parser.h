// Expressions: conditions, values, names.
#pragma once

#include <cstdint>

#include "sql/token_reader.h"
#include "sql/tree.h"

namespace tallmar::sql {

// How tightly an operator binds; a higher level binds tighter.
enum class Level : std::uint8_t {
    Or = 1,
    And,
    Not,
    Compare,
    Join,
    Add,
    Mod,
    IntDivide,
    Multiply,
    Negate,
    Power,
    Primary,
};

// The expression that begins at the next token. Throws DbError: SyntaxError with the token and its place, TooComplex.
ExprPtr Parse_Expression(TokenReader& in);

}  // namespace tallmar::sql
