// Dates of the report: serials in days from 12/30/1899.
#pragma once

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "common/date.h"

namespace tallmar {

struct CivilDate {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// The day of serial 0.
inline constexpr std::chrono::sys_days kDayZero{std::chrono::year(1899) / 12 / 30};

// True from 1/1/100 to 12/31/9999.
constexpr bool Is_Real_Date(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
    return (std::chrono::year(year) / month / day).ok();
}
// Throws std::invalid_argument where it is no real date; a constant that is none does not compile.
constexpr Date Date_Of(int year, int month, int day) {
    if (!Is_Real_Date(year, month, day)) throw std::invalid_argument("not a date");
    const std::chrono::sys_days days{std::chrono::year(year) / month / day};
    return Date{static_cast<double>((days - kDayZero).count())};
}
Date Date_Of(const CivilDate& civil);
// To the nearest second. A serial outside the calendar counts as its nearest bound.
CivilDate To_Civil(Date date);
// The same day of another year; 2/29 becomes 2/28. Throws as Date_Of does.
Date Add_Years(Date date, int years);

// "10/1/2015", "1/2/16", "2015-10-01", "Oct 1, 2015", with or without a time "8:05", "8:05:09 PM", "T08:05:09".
// Month first. Two-digit years: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999. Nothing where it is no date.
std::optional<Date> Parse_Date(std::string_view text);
// "10/1/2015", with " 8:05:09 PM" behind it where the time is not midnight.
std::string General_Date(Date date);
// "2015-10-01T00:00:00"
std::string Iso_Date_Time(Date date);
// "2015-10-01"
std::string Iso_Date(Date date);

// A date text from 1/1/1966 to `today`.
bool Is_Valid_Date(std::string_view text, Date today);

// Dates that divide the form.
inline constexpr Date kCostLimitsEnd = Date_Of(2000, 10, 1);    // A-8-3 and the cost limits end
inline constexpr Date kVaccineLineFrom = Date_Of(2007, 1, 31);  // line 13.2
inline constexpr Date kS21From = Date_Of(2015, 10, 1);          // S-2-1

}  // namespace tallmar
