// A backup as the open report: a copy of it, since the backup itself is never changed.
#pragma once

#include <string>

namespace tallmar {

// Copies the backup to `path`, over what is there, and opens the copy as the report; the backup stays as it is. A
// report that is open is closed first. False where the user kept forms open, or after the box that says what failed.
bool Open_Copy_Of_Backup(const std::string& backup, const std::string& path);

}  // namespace tallmar
