// Numbers as text, and the roundings of the form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallmar {

// The shortest decimal that reads back as the same double; never in exponent form. "1", "0.1", "33.333333".
std::string Number_Text(double value);
// The whole text as a number: sign, digits, point, exponent; blanks around it are passed over.
// Nothing for anything else: "", "1,000", "12a", "nan", "1e999".
std::optional<double> Parse_Number(std::string_view text);
// The number at the start of a text, 0 where there is none: Val("12ab") is 12, Val("1 2") is 12.
double Val(std::string_view text);

// The rounding of the whole system: halves, taken with a tolerance of 0.000001 after scaling, go away from zero;
// all else to the nearest. Dollars use 0 digits, unit cost multipliers 6, per diems 2.
double Round_Half(double value, int digits);
// True when `value` has no more than `digits` decimals, within 0.0001 of the last one.
bool Is_Precise(double value, int digits);
// The run-time's own rounding: halves to even.
double Round_Even(double value, int digits);

}  // namespace tallmar
