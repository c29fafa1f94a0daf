// The identity of a report as a person keys it, and its checks.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

// What the person keys. The checks rewrite the provider number and the dates in place.
struct NewReportEntries {
    std::string formNum = "1728";
    std::string providerNumber;
    std::string fyStart, fyEnd;  // dates as text; an empty end is a year after the start less a day
    std::string facilityName;
};
// The entry that the focus returns to.
enum class EntryField { None, Provider, Start, End, Name };
// The dates behind the entries, which may show two digits of the year only.
struct FiscalYear {
    Date start, end;
    friend bool operator==(const FiscalYear&, const FiscalYear&) = default;
};
// A message of the checks.
struct EntryBox {
    bool beep;
    int buttons;
    std::string_view title, text;
};

// How the dates are rewritten: for a new report, and in the identity editor.
inline constexpr const char* kNewReportDates = "m/d/yy";
inline constexpr const char* kEditKeyDates = "Short Date";

// One entry by itself, rewritten in place. The box that refuses it; null: all is well. An empty end is a year after the
// start less a day.
const EntryBox* Check_Provider_Number(std::string& providerNumber);
const EntryBox* Check_FYStart(std::string& fyStart, const char* dateFormat, Date& start);
const EntryBox* Check_FYEnd(std::string& fyEnd, const char* dateFormat, Date start, Date& end);
const EntryBox* Check_Sequence(const FiscalYear& year);
const EntryBox* Check_Facility_Name(std::string_view name);
// What is asked of a year that spans more than one; null: nothing.
const EntryBox* Long_Year_Question(const FiscalYear& year);

// Tests the entries in order and stops at the first that fails, with its box. None: all is well, and `year` is set.
EntryField Check_Entries(NewReportEntries& entries, const char* dateFormat, FiscalYear& year);
// The check of an entry when the focus leaves it; false after its box. A valid start date fills an empty end date.
bool Leave_FYStart(NewReportEntries& entries, const char* dateFormat);
bool Leave_FYEnd(NewReportEntries& entries, const char* dateFormat);
// Of the identity editor.
bool Leave_ProviderNumber(NewReportEntries& entries, const char* dateFormat = nullptr);

}  // namespace tallmar
