#include "report/entry_checks.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/dates.h"
#include "common/format.h"
#include "common/platform.h"
#include "common/text.h"
#include "report/window.h"

namespace tallmar {

namespace {

struct Box {
    bool beep;
    int buttons;
    std::string_view title, text;
};

constexpr Box kSixDigits = {true, kOkOnly, kProgramTitle,
                            "You have entered an invalid Provider Number!\rProvider number must be 6 numeric digits."};
constexpr Box kSixDigitsInEditor = {
    true, kOkOnly, kProgramTitle,
    "You have entered an invalid Provider Number!\rProvider number must be 6 digits and non-alpha numeric!"};
constexpr Box kProviderNumber = {true, kExclamation, "Error: Invalid Provider Number",
                                 "Provider Number is not valid.  Please (re-)enter one."};
constexpr Box kStartDate = {true, kExclamation, "Error: Invalid Fiscal Year Start Date",
                            "Fiscal Year Start date is not a valid date.  Please (re-)enter one."};
constexpr Box kEndDate = {true, kExclamation, "Error: Invalid Fiscal Year End Date",
                          "Fiscal Year End date is not a valid date.  Please (re-)enter one."};
constexpr Box kLeaveStartDate = {true, kExclamation, "Error: Invalid Fiscal Year Start Date",
                                 "Fiscal Year Start date is not a valid date."};
constexpr Box kLeaveEndDate = {true, kExclamation, "Error: Invalid Fiscal Year End Date",
                               "Fiscal Year End date is not a valid date."};
constexpr Box kSequence = {false, kExclamation, "Error: Invalid Dates",
                           "Invalid sequence of dates -- FY End preceeds FY Start."};
constexpr Box kLongYear = {
    true, kYesNo | kExclamation, "Warning: Dates Span More Than One Fiscal Year",
    "The F/Y Start and F/Y End dates entered span more than one fiscal year.  Click on the 'Yes' button to verify that "
    "this is what you intended.  Or, click on the 'No' button to return to the form to alter one or both of the "
    "dates."};
constexpr Box kFacilityName = {true, kExclamation, "Error: Invalid Facility Name",
                               "Facility Name must be at least 8 characters.  Please (re-)enter."};
constexpr Box kLongFacilityName = {true, kExclamation, "Error: Invalid Facility Name",
                                   "Facility Name must be at most 36 characters.  Please (re-)enter."};

constexpr std::size_t kShortestName = 8, kLongestName = 36;
constexpr int kLongestYear = 365;

Answer Show(const Box& box) {
    if (box.beep) The_Platform().Beep();
    return The_Platform().Message_Box(box.text, box.buttons, box.title);
}

bool Is_Digits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool Has_Six_Digits(std::string_view providerNumber) {
    const std::string rest = Replace(providerNumber, "-", "");
    return rest.size() == 6 && Is_Digits(rest);
}

bool Check_Provider_Number(std::string& providerNumber) {
    if (!Has_Six_Digits(providerNumber)) {
        Show(kSixDigits);
        return false;
    }
    const std::string rest = Replace(providerNumber, "-", "");
    providerNumber = rest.substr(0, 2) + "-" + rest.substr(2);
    const std::string state = providerNumber.substr(0, 2);
    if (providerNumber.size() == 7 && providerNumber[2] == '-' && Is_Digits(providerNumber.substr(3)) &&
        (Is_Digits(state) || state == "HO")) {
        return true;
    }
    Show(kProviderNumber);
    return false;
}

std::string Shown(Date date, const char* dateFormat) {
    return Format(Value(date), dateFormat);
}

Date Year_End(Date start) {
    return Date{Add_Years(start, 1).serial - 1};
}

std::optional<Date> Day_Of(std::string_view text) {
    std::optional<Date> date = Parse_Date(text);
    if (date) date->serial = std::floor(date->serial);
    return date;
}

EntryField Check_Dates(NewReportEntries& entries, const char* dateFormat, FiscalYear& year) {
    const std::optional<Date> start = Day_Of(entries.fyStart);
    if (!start) {
        Show(kStartDate);
        return EntryField::Start;
    }
    entries.fyStart = Shown(*start, dateFormat);
    std::optional<Date> end = Day_Of(entries.fyEnd);
    if (!end && !entries.fyEnd.empty()) {
        Show(kEndDate);
        return EntryField::End;
    }
    if (!end) end = Year_End(*start);
    entries.fyEnd = Shown(*end, dateFormat);

    const double days = end->serial - start->serial;
    if (days <= 0) {
        Show(kSequence);
        return EntryField::End;
    }
    if (days > kLongestYear && Show(kLongYear) != Answer::Yes) return EntryField::End;
    year = {*start, *end};
    return EntryField::None;
}

}  // namespace

EntryField Check_Entries(NewReportEntries& entries, const char* dateFormat, FiscalYear& year) {
    if (!Check_Provider_Number(entries.providerNumber)) return EntryField::Provider;
    if (const EntryField field = Check_Dates(entries, dateFormat, year); field != EntryField::None) return field;
    const std::size_t length = Length(entries.facilityName);
    if (length >= kShortestName && length <= kLongestName) return EntryField::None;
    Show(length < kShortestName ? kFacilityName : kLongFacilityName);
    return EntryField::Name;
}

bool Leave_FYStart(NewReportEntries& entries, const char* dateFormat) {
    const std::optional<Date> start = Day_Of(entries.fyStart);
    if (!start) {
        Show(kLeaveStartDate);
        return false;
    }
    if (entries.fyEnd.empty()) entries.fyEnd = Shown(Year_End(*start), dateFormat);
    return true;
}

bool Leave_FYEnd(NewReportEntries& entries, const char* dateFormat) {
    const std::optional<Date> end = Day_Of(entries.fyEnd);
    if (end) {
        entries.fyEnd = Shown(*end, dateFormat);
    } else if (!entries.fyEnd.empty()) {
        Show(kLeaveEndDate);
        return false;
    }
    return true;
}

bool Leave_ProviderNumber(NewReportEntries& entries, const char*) {
    if (Has_Six_Digits(entries.providerNumber)) return true;
    Show(kSixDigitsInEditor);
    return false;
}

}  // namespace tallmar
