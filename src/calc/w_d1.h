// Worksheet D-1: payments to the agency, Part A in columns 1 and 2, Part B in 3 and 4: dates and dollars.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 6> kLinesD1;

void Build_D1();
// Line 3.99, lump sums to the provider (3.01 to 3.49) less those to the program (3.50 to 3.98); line 4, all interim
// payments.
void Calc_D1();

}  // namespace tallmar
