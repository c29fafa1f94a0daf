// How often the rows of a join meet one row of its target.
#pragma once

#include "common/db/bound.h"

namespace tallmar {

// True where unique indexes promise that a row of table `target` stands in one row of the join at most.
bool Meets_Once(const BoundSelect& select, int target);

}  // namespace tallmar
