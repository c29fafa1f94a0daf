// Worksheets F, F-1 and F-2: balance sheet, revenues and expenses, fund balances. Dollars.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 59> kLinesF;
extern const std::array<FixedRow, 33> kLinesF1;
extern const std::array<FixedRow, 9> kLinesF2;

void Build_F();
// Totals per fund; line 51 takes the general fund's balance from F-2 line 17.
void Calc_F();

void Build_F1();
// Line 4 takes total expenses from worksheet A line 29 column 6; lines 3, 17, 18, 32, 33.
void Calc_F1();

void Build_F2();
// Line 2 takes the net income of F-1 line 33 into the general fund; the totals of all funds in the even columns.
void Calc_F2();

}  // namespace tallmar
