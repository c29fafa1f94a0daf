// How the main window names itself and the open report.
#pragma once

#include <string>

namespace tallmar {

// "<product title> Tallmar 1728 (version 1.0)", with " -- <CRFTitle>" behind it while a report is open.
std::string Window_Caption();
// CRFPath, with " (read only)" behind it where the report cannot be written.
std::string Path_Line();

}  // namespace tallmar
