// The last good states: copies of reports as they were opened, and of what was replaced, in the user's data folder.
//
// Each report has a folder of its own below `backups/`, with the path of the report in "report.txt" and its copies,
// "<number> <date and time>.CRF". The numbers count over all reports, so that their order does not hang on the clock.
// The newest five of a report stay; beyond 200 folders or 500 MB whole folders go, those of reports that are gone
// first, the oldest first, but never the one just written to. Only the user may look into them.
#pragma once

#include <string>

namespace tallmar {

// In the folder of each report's backups: the path of the report.
inline constexpr const char* kBackupReportFile = "report.txt";
// "000012 2016-11-15 103000.CRF" is 12; 0 for a name from before they were numbered.
long Backup_Number(const std::string& name);

// Called by every job before it changes the report, outside a Job: the first call since opening keeps a copy of the
// file, where openReport.backupIsDue. Troubles are passed over: a report is never held up for its backup.
void Keep_Backup();
// The same for the file at `path`, which is about to be replaced: whatever it is. The backup `spared`, which is to take
// its place, stays however old it is.
void Keep_Backup_Of(const std::string& path, const std::string& spared = {});

}  // namespace tallmar
