// A new report: the checks of its entries, and the run that assembles it.
#pragma once

#include <string>

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
enum class EntryField { None, ProviderNumber, FYStart, FYEnd, FacilityName };
// The dates behind the entries, which show two digits of the year only.
struct FiscalYear {
    Date start, end;
};

inline constexpr const char* kNewReportDates = "m/d/yy";
inline constexpr const char* kEditKeyDates = "Short Date";

// Tests the entries in order and stops at the first that fails, with its box. None: all is well, and `year` is set.
EntryField Check_Entries(NewReportEntries& entries, const char* dateFormat, FiscalYear& year);
// What an entry tells when the focus leaves it.
void Leave_FYStart(NewReportEntries& entries, const char* dateFormat);
void Leave_FYEnd(NewReportEntries& entries, const char* dateFormat);
// `identityEditor`: the words of frmCRFEditKey.
void Leave_ProviderNumber(NewReportEntries& entries, bool identityEditor);

// Asks for the file and makes the report from entries that were checked. False when cancelled or failed.
bool Create_CRF(const NewReportEntries& entries, const FiscalYear& year);
// The same at `path`. On failure a box has told why, nothing is left behind, an older file at `path` is as it was, and
// no report is open.
bool Create_CRF(const std::string& path, const NewReportEntries& entries, const FiscalYear& year);
// The checks first. Date entries may be of any form.
bool Create_CRF(const std::string& path, NewReportEntries entries);

}  // namespace tallmar
