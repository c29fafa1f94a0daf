// Worksheet A-5: adjustments to expenses, in dollars. Lines 1 to 12 are the form's, 13 to below 21 the user's, 21 is
// the total. Lines 10, 10.1 and 10.2 carry the therapy limitation.
#pragma once

#include <array>

#include "common/currency.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 15> kLinesA5;

void Build_A5();
// Line 5 from A-6 Part B, the therapy lines from A-8-3 (0 from 10/1/2000 on), the total.
void Calc_A5();

// A user's line .01 behind `after`; lines in its way move up by .01. Where `after` is none of the user's
// lines the new one goes behind the last of them, the first becoming 13. Returns the line; throws DuplicateKey where
// it would reach the total.
Currency Add_A5_Row(Currency after);
// Deletes one of the user's lines and moves those behind it down by .01. The form's own lines stay: nothing happens.
void Delete_A5_Row(Currency line);

}  // namespace tallmar
