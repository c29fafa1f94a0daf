// A new report, assembled in one run.
#pragma once

#include <string>

#include "report/entry_checks.h"

namespace tallmar {

// Asks for the file and makes the report from entries that were checked. False when cancelled or failed.
bool Create_CRF(const NewReportEntries& entries, const FiscalYear& year);
// The same at `path`. On failure a box has said why, nothing is left behind, an older file at `path` is as it was, and
// no report is open.
bool Create_CRF(const std::string& path, const NewReportEntries& entries, const FiscalYear& year);
// The checks first, and the question whether to replace a file that is there: for a job without a file dialog.
bool Create_CRF(const std::string& path, NewReportEntries entries);
// The tables of a new report, in the empty `db` that CreateCRF opened. Begins the log "NewCRF" and leaves it running.
void Assemble_CRF(const NewReportEntries& entries, const FiscalYear& year);

}  // namespace tallmar
