// The identity of an open report changed: provider number, fiscal year and name, in Master and on S-2.
#pragma once

#include <string>

#include "report/new_report.h"

namespace tallmar {

// The present identity, as the editor shows it.
NewReportEntries Load_Edit_Key();
// Check and store. The field that failed, or None when it is done.
EntryField Save_Edit_Key(NewReportEntries& entries);
// Check, copy the report to `path` and store in the copy, which is open afterwards. False where a check or the copy
// failed; the report is then as it was.
bool Save_Edit_Key_As(NewReportEntries& entries, const std::string& path);
// The same with the file dialog, which comes after the check. `failed` is the field of a check that failed; None where
// the dialog was cancelled or the copy failed.
bool Save_Edit_Key_As_Dialog(NewReportEntries& entries, EntryField& failed);

}  // namespace tallmar
