#include "cli/open_for_command.h"

#include "report/store.h"

namespace tallmar {

OpenedReport::OpenedReport(const std::string& file) : open_(Report_Open(file)) {}

OpenedReport::~OpenedReport() {
    Report_Release();
}

}  // namespace tallmar
