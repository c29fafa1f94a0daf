// Statement text to syntax tree.
#pragma once

#include <string_view>

#include "sql/tree.h"

namespace tallmar::sql {

// Throws DbError: SyntaxError with the token and its place, TooComplex.
StatementTree Parse_Statement(std::string_view statement);
// A WHERE text by itself. Its literals count from `firstLiteral` on.
ExprPtr Parse_Criterion(std::string_view criterion, int firstLiteral);

// True for a word that is no name of a field or table unless it stands in brackets.
bool Is_Reserved(std::string_view word);

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

}  // namespace tallmar::sql
