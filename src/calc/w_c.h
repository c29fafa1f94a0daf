// Worksheet C: apportionment of patient service costs. Part I cost per visit, Part II Medicare cost and limitation of
// one MSA or CBSA, Part III other patient services, Part IV the comparison with the limits, Part V outpatient therapy.
// Dollars, visits, and ratios of six decimals.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "common/dates.h"
#include "common/item.h"
#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 7> kLinesCp1;
extern const std::array<FixedRow, 14> kLinesCp2;
extern const std::array<FixedRow, 2> kLinesCp3;
extern const std::array<FixedRow, 7> kLinesCp4;
extern const std::array<FixedRow, 4> kLinesCp5;

void Build_Cp1();
// Total cost from B, total visits from S-3 Part I, cost per visit in cents.
void Calc_Cp1();

// One table a code: Cp2m<mmmm> of an MSA, Cp2c<ccccc> of a CBSA.
void Build_Cp2(const Item& item);
void Calc_Cp2(const Item& item);
// A split period has two lines a discipline and a total of its own; the others have neither.
bool Cp2_Fits_Period(const Item& item);
// Builds the table again with what was keyed in it. Visits of a line that is no longer there count in the line before.
void Fit_Cp2(const Item& item);
// "Cp2m0160" for the MSA code "160", "Cp2c16580" for a CBSA code.
std::string Cp2_Item_Of_MSA(std::string_view code);
std::string Cp2_Item_Of_CBSA(std::string_view code);

// From here on D Part I takes the cost of drugs from C Part III.
inline constexpr Date kDrugCostsChange = Date_Of(2006, 7, 1);

void Build_Cp3();
// The rows of the cost centers that meet the WHERE text `where`, three lines further down.
void Insert_Cp3_Rows(std::string_view where);
void Calc_Cp3();

void Build_Cp4();
void Calc_Cp4();
// Lines 23.01 and on: one line a code, in the order given; what was typed in columns 1 and 2 stays with its code.
struct CodeOfArea {
    std::string code;
    bool isCBSA = false;
};
void Sync_Cp4_Codes(const std::vector<CodeOfArea>& codes);

void Build_Cp5();
void Calc_Cp5();

}  // namespace tallmar
