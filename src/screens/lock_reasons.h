// Why a cell takes no entry, as the person reads it behind "Worksheet A, line 1, column 1 Salaries takes no entry: ".
#pragma once

#include <string_view>

namespace tallmar::why {

inline constexpr std::string_view kView = "a view form takes none";
inline constexpr std::string_view kComputed = "it is computed";
inline constexpr std::string_view kShaded = "it is shaded on the form";
inline constexpr std::string_view kWording = "it is the form's own wording";
inline constexpr std::string_view kLineNumber = "the form numbers its lines";
inline constexpr std::string_view kNotOnForm = "the form does not show it";

inline constexpr std::string_view kNoAnswer = "the line has no answer there";
inline constexpr std::string_view kFromChart = "it comes from the chart of cost centers";
inline constexpr std::string_view kNamedByNumber = "it is the name of the cost center whose number stands beside it";
inline constexpr std::string_view kLimitYears = "it belongs to fiscal years that begin before 10/1/2000";
inline constexpr std::string_view kSplitYears =
    "the line belongs to fiscal years that begin before 10/1/2000 and end after 9/30/2000";

}  // namespace tallmar::why
