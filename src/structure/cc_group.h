// The group code of a line of the chart.
#pragma once

#include "common/currency.h"

namespace tallmar {

// The number times 100; under option 1 of S-2 line 26, as stored, sublines of line 5 have codes of their own.
int CCGroupFor(Currency ccNum);

}  // namespace tallmar
