// Worksheet A-8-3, reasonable cost of therapy services by outside suppliers, in use until 10/1/2000: five parts, each
// three times, by discipline: "A83p1P" physical, "A83p1O" occupational, "A83p1S" speech.
// Hours, dollars an hour and dollars, as each line says.
#pragma once

#include <array>

#include "common/item.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 11> kLinesA83p1;
extern const std::array<FixedRow, 9> kLinesA83p2;
extern const std::array<FixedRow, 11> kLinesA83p3;
extern const std::array<FixedRow, 10> kLinesA83p4;
extern const std::array<FixedRow, 8> kLinesA83p5;

// The tables of a part: "A83p1" makes those of the three disciplines, "A83p1P" its own. Registered while the worksheet
// is in use.
void Build_A83(const Item& item);
// One instance, by its part.
void Calc_A83(const Item& item);

}  // namespace tallmar
