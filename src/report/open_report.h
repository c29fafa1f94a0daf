// The process-wide values of the open report. They mirror the file and stand here and nowhere else.
#pragma once

#include <string>
#include <vector>

#include "common/value.h"
#include "db/database.h"

namespace tallmar {

extern Database db;           // the one open report; closed while none is
extern std::string CRFPath;   // full path; empty while no report is open
extern std::string CRFDir;    // its folder without a separator at the end; "C:\" where the path has none
extern std::string CRFTitle;  // the file's name
extern std::string FormNum;   // "1728"
extern std::string ProviderNumber;
extern std::string ProviderName;
extern Date FYStart, FYEnd;                                 // bounds of the fiscal year
extern int AGOption;                                        // S-2 line 26: 0, 1 or 2
extern std::vector<std::string> gblMSACodes, gblCBSACodes;  // codes of S-3 Part III, four and five digits
extern std::string MsgLogPrefix;                            // the active message log; empty: messages are boxes
extern std::string LogType;                                 // one upper-case letter
extern std::string ProductTitle;  // the maker's name before the program's in captions and printouts
extern std::string HeaderLine1, HeaderLine2, HeaderLine3;  // custom lines of the page head

}  // namespace tallmar
