// The Administrative & General option, S-2 line 26: the exchange of cost centers 5.00 and 5.01.
#pragma once

#include "common/currency.h"

namespace tallmar {

// AGOption from S-2 line 26; 0 where the answer is empty or S-2 is missing.
void Load_AGOption();
// Line 5 becomes 5.01, and back, on every worksheet that holds it.
void SplitAG();
void UnsplitAG();
// The group code of a subline of line 5.
int CCGroupFor(Currency ccNum);
// After S-2 line 26 was changed: exchanges 5.00 and 5.01 where the chart does not fit, and reloads AGOption.
void Follow_AG_Option();

}  // namespace tallmar
