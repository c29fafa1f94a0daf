// How often the rows of a join meet one row of its target.
#pragma once

#include "sql/bound.h"

namespace tallmar::sql {

// True where unique indexes promise that a row of table `target` stands in one row of the join at most.
bool Meets_Once(const BoundSelect& select, int target);

}  // namespace tallmar::sql
