#include "cli/open_for_command.h"

#include "report/report_lock.h"

namespace tallmar {

OpenedReport::OpenedReport(const std::string& file, Use use)
    : open_((use == Use::Reading || Report_Is_Free(file)) && Report_Open(file, use)) {}

OpenedReport::~OpenedReport() {
    Report_Release();
}

}  // namespace tallmar
