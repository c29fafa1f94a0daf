// The shared helpers over values that may be Null.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

// `value` where it is numeric and not Null, else `otherwise`. The kind of a number is kept; a text becomes a Double.
Value Nz_Num(const Value& value, const Value& otherwise = Null);
// The same where a total goes into a Currency or into statement text: Null is 0.
Currency Nz_Currency(const Value& value);
double Nz_Double(const Value& value);
// `value` as text unless Null; otherwise `otherwise`.
std::string Nz_Str(const Value& value, std::string_view otherwise = "");
// Null, or nothing but blanks.
bool Is_Blank(const Value& value);
// `value` as a date; on any error the date 1/1/100.
Date Safe_Date(const Value& value);
// True for an answer that begins with Y: the form's answers count by their first letter, in either case.
bool Is_Yes(const Value& answer);
// Rounded by Round_Half; Null where `value` is Null or no number.
Value Round_Half(const Value& value, int digits);
// B if A is Null and B is not, or if B is greater (less) than A; else A. Numbers compare as numbers.
// Two texts compare as texts; a text that is no number comes after every number.
Value Max_Var(const Value& a, const Value& b);
Value Min_Var(const Value& a, const Value& b);
// Low <= x <= high.
constexpr bool Is_Between(double x, double low, double high) {
    return x >= low && x <= high;
}
// The digits of a text, all else dropped.
std::string Digits_Only(std::string_view text);
// True for a text of one or more zeros.
bool All_Zeros(std::string_view text);
// 1 to 3999 in Roman numerals; "" outside.
std::string To_Roman(int n);

}  // namespace tallmar
