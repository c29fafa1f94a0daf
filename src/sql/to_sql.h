// A syntax tree as statement text again: parsed once more it gives an equal tree.
#pragma once

#include <string>

#include "sql/tree.h"

namespace tallmar::sql {

std::string To_Sql(const StatementTree& statement);
std::string To_Sql(const Expr& expr);

}  // namespace tallmar::sql
