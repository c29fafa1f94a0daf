// A bound statement as text: one node a line with its type, casts where they were put in.
#pragma once

#include <string>

#include "sql/bound.h"

namespace tallmar::sql {

std::string Dump(const BoundStatement& statement);

}  // namespace tallmar::sql
