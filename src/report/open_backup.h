// A backup as the open report: a copy of it, since the backup itself is never changed.
#pragma once

#include <string>

namespace tallmar {

// Copies the backup to `path`, over what is there, of which a backup is kept in turn, and opens the copy as the report;
// the backup stays as it is. A report that is open is closed first. False where the user kept forms open, or after the
// box that says what failed: nothing is replaced then.
bool Open_Copy_Of_Backup(const std::string& backup, const std::string& path);

}  // namespace tallmar
