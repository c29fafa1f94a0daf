// Worksheet D Part II: from reasonable cost to the balance due. Part A in column 1, Part B in column 2. Dollars.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 36> kLinesDp2;

void Build_Dp2();
void Calc_Dp2();

}  // namespace tallmar
