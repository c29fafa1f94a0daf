// Worksheet S Part II: settlement summary, in dollars. Line 1 the agency, 4 the total.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 2> kLinesSp2;

void Build_Sp2();
// Both lines from line 29 of D Part II.
void Calc_Sp2();

}  // namespace tallmar
