// Worksheet A: reclassification and adjustment of the trial balance of expenses. One row a cost center of the chart
// and line 29, "Total". Amounts in dollars; Null is a cell that the form shades, and counts as 0.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 1> kLinesA;

void Build_A();
// Columns 6 to 10 and line 29; before 10/1/2000 columns 1, 2 and 4 from as well. Reads and
// A-6 Part B as they were last calculated.
void Calc_A();

}  // namespace tallmar
