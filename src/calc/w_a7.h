// Worksheet A-7: analysis of changes in capital asset balances, in dollars. Lines 1 to 6 by kind of asset, 7 the total.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 7> kLinesA7;

void Build_A7();
// Columns 4 and 6 and line 7, which has no total of donations.
void Calc_A7();

}  // namespace tallmar
