// Format: values laid out by a format text.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

// Numbers: "0000", "000#", "##0.00", "#,###,##0;(#,###,##0)" (sections for positive, negative, zero, Null).
// Dates: "m/d/yy", "mm/dd/yyyy", "hh:mm", "hh:nn:ss AM/PM", "Short Date".
// Text: "@" places. Null gives "" unless there is a fourth section. Unknown characters mean themselves; "\x" and
// texts in double quotes are literal. A numeric text under a number format is taken as the number.
std::string Format(const Value& value, std::string_view format);

}  // namespace tallmar
