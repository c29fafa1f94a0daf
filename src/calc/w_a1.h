// Worksheets: compensation analyses of reports that begin before 10/1/2000 - salaries and wages,
// employee benefits, contracted services. One layout: a row a cost center and line 29, "Total"; amounts in dollars by
// class of employee; Null is a cell that the form shades, and counts as 0.
#pragma once

#include <array>

#include "common/item.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 1> kLinesA1;

// Requires "A1", "A2" or "A3".
void Build_Compensation(const Item& item);
// Column 9 and line 29, over the lines above 2 and below 29.
void Calc_Compensation(const Item& item);

}  // namespace tallmar
