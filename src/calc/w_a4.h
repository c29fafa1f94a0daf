// Worksheet A-4: reclassifications. A row moves an amount in dollars to one cost center (columns 2 to 4) and from
// another (columns 5 to 7) under a letter (column 1); a side that is not in use is Null. Entries are lines 1 to 29 and
// then 29.01, 29.02 and on; line 30 is the total.
#pragma once

#include <array>

#include "common/currency.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 1> kLinesA4;

void Build_A4();
void Calc_A4();

// Clears the sides without a cost center number and takes the names from the chart again.
void Sync_A4();

// The line of the next new row.
Currency Next_A4_Line();
// A new last row with amounts of 0; its line. Throws DuplicateKey after line 29.99.
Currency Add_A4_Row();
// Deletes the entry and closes the gap.
void Delete_A4_Row(Currency line);
// What the form does as it closes: rows without a cost center go, the others are renumbered in the order of their
// codes, within a code in their former order.
void Renumber_A4();

}  // namespace tallmar
