#include "report/open_report.h"

namespace tallmar {

OpenReport openReport;

}  // namespace tallmar
