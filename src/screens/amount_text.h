// An amount as a person types it, or as a spreadsheet copies it.
#pragma once

#include <optional>
#include <string_view>

namespace tallmar {

// Digits in one run, with thousands separators in groups of three and a decimal point or without, and around them, in
// any order, blanks, one $, and what makes it negative: a minus on either side or parentheses. A lone minus is 0, as
// the accounting format writes it. A minus is also U+2212 or an en dash; no-break spaces are blanks. Nothing for
// anything else: "", "12a", "1e3", "1 000", "1,23,4", "5%", "(-5)".
std::optional<double> Parse_Amount(std::string_view text);

// Without any character but blanks and line breaks, no-break spaces among them.
bool Is_Blank_Text(std::string_view text);

}  // namespace tallmar
