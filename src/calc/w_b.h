// Worksheet B: net expenses by cost center, and the whole dollars that each general service cost center passes to the
// lines below it. A column is Null above its cost center's own line. Line 29 is the total. Calc_B1 fills it.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 1> kLinesB;

// The table from the chart, filled. A chart without capital cost centers is reported, and the build goes on.
// Throws DbError: TableExists, UnknownField where a general service cost center of line 6 or above has no column.
void Build_B();
// The rows of an empty B from the chart: 0 wherever there can be an amount, Null elsewhere.
void Fill_B();

}  // namespace tallmar
