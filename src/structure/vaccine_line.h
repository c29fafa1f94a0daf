// Line 13.2 of the chart, the cost of administering vaccines, on the worksheets of a report that was built before its
// fiscal year came to have the line: A and B-1, and line 16.2 of C Part III.
#pragma once

#include "common/item.h"

namespace tallmar {

// Of A, B1 and Cp3. True, too, where the fiscal year or the chart does not have the line.
bool Has_Vaccine_Line(const Item& item);
// Requires that it does not, and that the chart has the line. Throws DbError.
void Add_Vaccine_Line(const Item& item);

}  // namespace tallmar
