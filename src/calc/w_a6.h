// Worksheet A-6: costs from related organizations. Part A is one question; Part B the costs, in dollars (lines 1 to 3
// the user's, 4 the totals); Part C the relations, percentages in columns 4 and 5.
#pragma once

#include <array>

#include "common/currency.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 1> kLinesA6pB;

void Build_A6pA();
void Build_A6pB();
// Column 6, the adjustment, and the totals.
void Calc_A6pB();
void Build_A6pC();

// A new line of Part C behind `after` (0: the first), which moves those behind it up by 1; its number.
Currency Add_A6pC_Row(Currency after);
// Deletes a line of Part C and moves those behind it down by 1.
void Delete_A6pC_Row(Currency line);

}  // namespace tallmar
