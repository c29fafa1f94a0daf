// One report, one window. A desktop that has a report open holds a lock on "<report>.lock" beside it, so that a second
// one and the command line learn of it. Where the program was killed the small file stays without a lock, and the next
// desktop takes it over. The lock guards no data, the report file does that itself: it keeps two people from working on
// forms that no longer show what is in the file.
#pragma once

#include <string>

#include "report/file_lock.h"

namespace tallmar {

// A report taken for this program. Released at the end of the value, unless it was kept for the open report.
class ReportLock {
  public:
    // False after the box "Report In Use", where another program has the report at `path` open. The report need not
    // exist yet. True also where no lock can be had: in a folder that cannot be written, on a disk without locks. A
    // platform that keeps no reports open takes nothing, and only looks.
    bool Take(const std::string& path);
    // Held from now on as the lock of the open report; the one of the report before is released.
    void Keep();

  private:
    FileLock lock_;
};

// False after the box, where another program has the report at `path` open: ask before changing it.
bool Report_Is_Free(const std::string& path);

}  // namespace tallmar
