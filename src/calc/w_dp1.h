// Worksheet D Part I: the lesser of reasonable cost and customary charges. Part A in column 1, Part B in 2 and 3.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 12> kLinesDp1;

void Build_Dp1();
// Line 1 takes the least of C Part IV lines 19, 22 and 24; S-2 lines 21 and 23 say whether charges are tested.
void Calc_Dp1();

}  // namespace tallmar
