// A syntax tree as statement text again: parsed once more it gives an equal tree.
#pragma once

#include <string>

#include "common/db/tree.h"

namespace tallmar {

std::string To_Sql(const Statement& statement);
std::string To_Sql(const Expr& expr);

}  // namespace tallmar
