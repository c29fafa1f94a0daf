// The formats of figures that the forms share: negative amounts in parentheses.
#pragma once

#include <string_view>

namespace tallmar {

inline constexpr std::string_view kAmount = "###,###,##0;(###,###,##0)";  // in whole dollars
inline constexpr std::string_view kCount = kAmount;                       // visits, patients, episodes
inline constexpr std::string_view kCents = "###,###,##0.00;(###,###,##0.00)";
inline constexpr std::string_view kStatistic = "#,###,###,##0;(#,###,###,##0)";
inline constexpr std::string_view kDateFormat = "mm/dd/yyyy";

}  // namespace tallmar
