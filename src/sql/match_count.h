// How often the rows of a join meet one row of its target.
#pragma once

#include "sql/bound.h"

namespace tallmar::sql {

// True where unique indexes promise that a row of table `target` is in at most one row of the join.
bool Meets_Once(const BoundSelect& select, int target);

}  // namespace tallmar::sql
