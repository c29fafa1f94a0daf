// Worksheet B-1: for each general service cost center a column of allocation statistics by line, in Double; Null above
// the cost center's own line, which holds the column's total. Line 29 is the total of the positive statistics, 30 the
// cost to be allocated (dollars), 31 the unit cost multiplier (six decimals).
// B1X holds overrides of linked statistics and, as -1, exclusions from accumulated cost; StatLinks has columns copy
// the statistics of others.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 3> kLinesB1;

// Deletes and rebuilds B, B1X and StatLinks, then makes B1 from the chart. All throw TableExists of their own table.
void Build_B1();
void Build_B1X();
void Build_StatLinks();

// Copies each linked column from the line after the recipient's own down to 28.99, then replays the overrides.
void Apply_StatLinks();
// Writes the overrides into B1; those of a column that B1 does not have are deleted.
void Apply_B1X();

// The whole step-down: fills B and the totals of B1. Requires AGOption. A fixed line that is missing is reported, and
// the store into it throws DbError (NoCurrentRecord).
void Calc_B1();

}  // namespace tallmar
