// Worksheet S-3: statistics. Part I visits and patients, Part II staff in full-time equivalents, Part III the MSA and
// CBSA codes, Part IV the visits, charges and episodes under prospective payment.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 13> kLinesS3p1;
extern const std::array<FixedRow, 18> kLinesS3p2;
extern const std::array<FixedRow, 1> kLinesS3p3;
extern const std::array<FixedRow, 18> kLinesS3p4;

void Build_S3p1();
// Line 8; the census lines of a report that begins on or after 10/1/2000 become 0.
void Calc_S3p1();

void Build_S3p2();
// Column 3.
void Calc_S3p2();

void Build_S3p3();
// The counts of codes on line 28, and column 9 of the drug lines of C Part III.
void Calc_S3p3();

// Line 28: how many MSA codes of four characters and CBSA codes of five are listed, as typed.
void Store_Code_Counts();

void Build_S3p4();
// Lines 42 and 44 and column 7. A Null total stays Null; a row with a Null in column 2, 4, 5 or 6 has none in 7.
void Calc_S3p4();

}  // namespace tallmar
