// A report open for the time of one command. A report that a window has open can be read; a command that would change
// it is refused.
#pragma once

#include <string>

#include "report/store.h"

namespace tallmar {

// Opens the report as the menu does; a file that cannot be opened has had its message box. Released at the end
// without compaction, whatever happens.
class OpenedReport {
  public:
    using Use = OpenFor;

    OpenedReport(const std::string& file, Use use);
    ~OpenedReport();
    OpenedReport(const OpenedReport&) = delete;
    OpenedReport& operator=(const OpenedReport&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

}  // namespace tallmar
