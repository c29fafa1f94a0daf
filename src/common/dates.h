// Dates of the report: serials in days from 12/30/1899.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/date.h"

namespace tallmar {

struct CivilDate {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// A real date between 1/1/100 and 12/31/9999; throws std::invalid_argument for any other.
Date Date_Of(int year, int month, int day);
Date Date_Of(const CivilDate& civil);
// To the nearest second. A serial outside the calendar counts as its nearest bound.
CivilDate To_Civil(Date date);
bool Is_Real_Date(int year, int month, int day);
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

// A date text not earlier than serial 24108 (1/1/1966) and not later than `today`.
bool Is_Valid_Date(std::string_view text, Date today);

// Dates that divide the form.
inline constexpr Date kCostLimitsEnd{36800};    // 10/1/2000, A-8-3 and the cost limits end
inline constexpr Date kVaccineLineFrom{39113};  // 1/31/2007: line 13.2
inline constexpr Date kS21From{42278};          // 10/1/2015: S-2-1

}  // namespace tallmar
