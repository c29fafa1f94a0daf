// A bound statement as text: one node a line with its type, casts where they were put in.
#pragma once

#include <string>

#include "common/db/bound.h"

namespace tallmar {

std::string Dump(const BoundStatement& statement);

}  // namespace tallmar
