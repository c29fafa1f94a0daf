#include "report/entry_checks.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/dates.h"
#include "common/format.h"
#include "common/platform.h"
#include "common/program.h"
#include "common/text.h"

namespace tallmar {

namespace {

constexpr EntryBox kSixDigits = {
    true, kOkOnly, kProgramTitle,
    "You have entered an invalid Provider Number!\rProvider number must be 6 numeric digits."};
constexpr EntryBox kSixDigitsInEditor = {
    true, kOkOnly, kProgramTitle,
    "You have entered an invalid Provider Number!\rProvider number must be 6 digits and non-alpha numeric!"};
constexpr EntryBox kProviderNumber = {true, kExclamation, "Error: Invalid Provider Number",
                                      "Provider Number is not valid.  Please (re-)enter one."};
constexpr EntryBox kStartDate = {true, kExclamation, "Error: Invalid Fiscal Year Start Date",
                                 "Fiscal Year Start date is not a valid date.  Please (re-)enter one."};
constexpr EntryBox kEndDate = {true, kExclamation, "Error: Invalid Fiscal Year End Date",
                               "Fiscal Year End date is not a valid date.  Please (re-)enter one."};
constexpr EntryBox kLeaveStartDate = {true, kExclamation, "Error: Invalid Fiscal Year Start Date",
                                      "Fiscal Year Start date is not a valid date."};
constexpr EntryBox kLeaveEndDate = {true, kExclamation, "Error: Invalid Fiscal Year End Date",
                                    "Fiscal Year End date is not a valid date."};
constexpr EntryBox kSequence = {false, kExclamation, "Error: Invalid Dates",
                                "Invalid sequence of dates -- FY End preceeds FY Start."};
constexpr EntryBox kLongYear = {
    true, kYesNo | kExclamation, "Warning: Dates Span More Than One Fiscal Year",
    "The F/Y Start and F/Y End dates entered span more than one fiscal year.  Click on the 'Yes' button to verify that "
    "this is what you intended.  Or, click on the 'No' button to return to the form to alter one or both of the "
    "dates."};
constexpr EntryBox kFacilityName = {true, kExclamation, "Error: Invalid Facility Name",
                                    "Facility Name must be at least 8 characters.  Please (re-)enter."};
constexpr EntryBox kLongFacilityName = {true, kExclamation, "Error: Invalid Facility Name",
                                        "Facility Name must be at most 36 characters.  Please (re-)enter."};

constexpr EntryBox kUnprintableFacilityName = {
    true, kExclamation, "Error: Invalid Facility Name",
    "Facility Name holds a line break or another character that cannot be printed.  Please (re-)enter."};

constexpr std::size_t kShortestName = 8, kLongestName = 36;
constexpr int kLongestYear = 365;

Answer Show(const EntryBox& box) {
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

bool Refused(const EntryBox* box) {
    if (box == nullptr) return false;
    Show(*box);
    return true;
}

EntryField Check_Dates(NewReportEntries& entries, const char* dateFormat, FiscalYear& year) {
    FiscalYear typed;
    if (Refused(Check_FYStart(entries.fyStart, dateFormat, typed.start))) return EntryField::Start;
    if (Refused(Check_FYEnd(entries.fyEnd, dateFormat, typed.start, typed.end))) return EntryField::End;
    if (Refused(Check_Sequence(typed))) return EntryField::End;
    const EntryBox* question = Long_Year_Question(typed);
    if (question != nullptr && Show(*question) != Answer::Yes) return EntryField::End;
    year = typed;
    return EntryField::None;
}

// U+0000 to U+001F and U+007F to U+009F.
bool Has_Control_Character(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 || byte == 0x7F) return true;
        if (byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0) return true;
    }
    return false;
}

}  // namespace

const EntryBox* Check_Provider_Number(std::string& providerNumber) {
    if (!Has_Six_Digits(providerNumber)) return &kSixDigits;
    const std::string rest = Replace(providerNumber, "-", "");
    providerNumber = rest.substr(0, 2) + "-" + rest.substr(2);
    const std::string state = providerNumber.substr(0, 2);
    const bool isValid = providerNumber.size() == 7 && providerNumber[2] == '-' &&
                         Is_Digits(providerNumber.substr(3)) && (Is_Digits(state) || state == "HO");
    return isValid ? nullptr : &kProviderNumber;
}

const EntryBox* Check_FYStart(std::string& fyStart, const char* dateFormat, Date& start) {
    const std::optional<Date> day = Day_Of(fyStart);
    if (!day) return &kStartDate;
    start = *day;
    fyStart = Shown(start, dateFormat);
    return nullptr;
}

const EntryBox* Check_FYEnd(std::string& fyEnd, const char* dateFormat, Date start, Date& end) {
    const std::optional<Date> day = Day_Of(fyEnd);
    if (!day && !fyEnd.empty()) return &kEndDate;
    end = day ? *day : Year_End(start);
    fyEnd = Shown(end, dateFormat);
    return nullptr;
}

const EntryBox* Check_Sequence(const FiscalYear& year) {
    return year.end.serial - year.start.serial <= 0 ? &kSequence : nullptr;
}

const EntryBox* Long_Year_Question(const FiscalYear& year) {
    return year.end.serial - year.start.serial > kLongestYear ? &kLongYear : nullptr;
}

const EntryBox* Check_Facility_Name(std::string_view name) {
    if (Has_Control_Character(name)) return &kUnprintableFacilityName;
    const std::size_t length = Length(name);
    if (length < kShortestName) return &kFacilityName;
    return length > kLongestName ? &kLongFacilityName : nullptr;
}

EntryField Check_Entries(NewReportEntries& entries, const char* dateFormat, FiscalYear& year) {
    if (Refused(Check_Provider_Number(entries.providerNumber))) return EntryField::Provider;
    if (const EntryField field = Check_Dates(entries, dateFormat, year); field != EntryField::None) return field;
    return Refused(Check_Facility_Name(entries.facilityName)) ? EntryField::Name : EntryField::None;
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
