// Worksheet D-1: payments to the agency, Part A in columns 1 and 2, Part B in 3 and 4: dates and dollars.
#pragma once

#include "common/currency.h"

namespace tallmar {

void Build_D1();
// Line 3.99, lump sums to the provider less those to the program; line 4, all interim payments.
void Calc_D1();
// Lump sums: 3.01 to 3.49 to the provider, 3.50 to 3.98 to the program.
bool Is_D1_Lump_Sum(Currency line);

}  // namespace tallmar
