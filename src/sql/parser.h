// Statement text to syntax tree.
#pragma once

#include <cstdint>
#include <string_view>

#include "sql/tree.h"

namespace tallmar::sql {

// Throws DbError: SyntaxError with the token and its place, TooComplex.
StatementTree Parse_Statement(std::string_view statement);
// A WHERE text by itself. Its literals count from `firstLiteral` on.
ExprPtr Parse_Criterion(std::string_view criterion, int firstLiteral);

}  // namespace tallmar::sql
