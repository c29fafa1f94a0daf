// A report open for the time of one command.
#pragma once

#include <string>

namespace tallmar {

// Opens the report as the menu does; a file that cannot be opened has been told in a message box. Released at the end
// without compaction, whatever happens.
class OpenedReport {
  public:
    explicit OpenedReport(const std::string& file);
    ~OpenedReport();
    OpenedReport(const OpenedReport&) = delete;
    OpenedReport& operator=(const OpenedReport&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

}  // namespace tallmar
