// The Administrative & General option, S-2 line 26: the exchange of cost centers 5.00 and 5.01.
#pragma once

namespace tallmar {

// Line 5 becomes 5.01, and back, in the chart and on every worksheet that names it. What was exchanged before an error
// stays exchanged.
void SplitAG();
void UnsplitAG();
// After S-2 line 26 was changed: exchanges 5.00 and 5.01 where the chart does not fit, and reloads AGOption.
void Follow_AG_Option();

}  // namespace tallmar
