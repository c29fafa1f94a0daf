// The identity of an open report changed: provider number, fiscal year and name, in Master and on S-2.
#pragma once

#include <functional>
#include <string>

#include "common/platform.h"
#include "report/entry_checks.h"

namespace tallmar {

// How the dates are stored on S-2.
inline constexpr const char* kStoredDates = "mm/dd/yyyy";

// What Master and lines 2 and 7 of S-2 hold.
struct Identity {
    std::string providerNumber, facilityName;
    FiscalYear year;
    friend bool operator==(const Identity&, const Identity&) = default;
};
Identity Present_Identity();
// Writes Master and S-2, and brings the worksheets to the fiscal year, in one step of the file and after a backup.
// `first` is part of that step. Requires that the identity was checked. Throws DbError; nothing has changed then.
void Store_Identity(const Identity& identity, const std::function<void()>& first = {});

// What is asked before the start of the fiscal year moves: which worksheets come and which go with their data. Empty:
// none does.
std::string Change_Of_Year_Question(Date start);
inline constexpr std::string_view kChangeOfYearTitle = "Change of Fiscal Year";
inline constexpr int kChangeOfYearButtons = kYesNo + kQuestion + kDefaultButton2;

// The present identity, as the editor shows it.
NewReportEntries Load_Edit_Key();
// Check and store. The field that failed, or None when it is done. A change of year that was not confirmed fails at the
// start.
EntryField Save_Edit_Key(NewReportEntries& entries);
// Check, copy the report to `path` and store in the copy, which is open afterwards. False where a check or the copy
// failed; the report is then as it was.
bool Save_Edit_Key_As(NewReportEntries& entries, const std::string& path);
// The same with the file dialog, which comes after the check. `failed` is the field of a check that failed; None where
// the dialog was cancelled or the copy failed.
bool Save_Edit_Key_As_Dialog(NewReportEntries& entries, EntryField& failed);

}  // namespace tallmar
