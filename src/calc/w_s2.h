// Worksheet S-2: identification. All answers are text; Null is no answer.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 30> kLinesS2;

// Name, number and fiscal year come from the open report, lines 3 to 6, 24 and 25 from the chart.
void Build_S2();
// Line 13 from lines 10 to 12. Throws DbError where one of them is no number.
void Calc_S2();

// The Administrative & General option, line 26, as stored; 0 where the answer is empty or the worksheet is missing.
int Read_AGOption();
// AGOption from it.
void Load_AGOption();

}  // namespace tallmar
