// The open report: its database and what the program keeps of it while it is open.
#pragma once

#include <string>

#include "common/value.h"
#include "db/database.h"
#include "report/entry_age.h"
#include "report/file_lock.h"

namespace tallmar {

// Closing is `openReport = {}`: nothing of one report is left for the next.
struct OpenReport {
    Database db;           // closed while no report is open
    std::string CRFPath;   // full path; empty while no report is open
    std::string CRFDir;    // its folder without a separator at the end; "C:\" where the path has none
    std::string CRFTitle;  // the file's name

    // What Master holds.
    std::string FormNum;  // "1728"
    std::string ProviderNumber, ProviderName;
    Date FYStart, FYEnd;  // bounds of the fiscal year

    int AGOption = 0;                                   // S-2 line 26: 0, 1 or 2
    std::string HeaderLine1, HeaderLine2, HeaderLine3;  // custom lines of the page head

    std::string MsgLogPrefix;    // the active message log; empty: messages are boxes
    EntryAge entryAge;           // what was entered since the last calculation
    bool ecrMayBeBuilt = false;  // it was calculated, passed the edit checks and is unchanged since
    bool backupIsDue = false;    // it was opened and not changed yet: the first change keeps a copy
    FileLock lock;               // where the program keeps reports open
};

// The one report that is open.
extern OpenReport openReport;

// Every statement uses it.
inline Database& db = openReport.db;

}  // namespace tallmar
