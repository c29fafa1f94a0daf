#include "cli/open_for_command.h"

#include <exception>

#include "report/report_lock.h"

namespace tallmar {

OpenedReport::OpenedReport(const std::string& file, Use use)
    : open_((use == Use::Reading || Report_Is_Free(file)) && Report_Open(file, use)) {}

OpenedReport::~OpenedReport() {
    try {
        Report_Release();
    } catch (const std::exception&) {  // no memory to tidy up with: what the command stored is in the file
    }
}

}  // namespace tallmar
