#include "screens/report_jobs.h"

#include "calc/driver.h"
#include "common/db_error.h"
#include "common/platform.h"
#include "common/wait_pointer.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

constexpr std::string_view kReadOnlyTitle = "Read Only Report";
constexpr std::string_view kReadOnlyText =
    "The report is read only and cannot be calculated.  Report File > Save As makes a copy that can.";

}  // namespace

bool Calculate_Report() {
    if (db.Is_Read_Only()) {
        The_Platform().Message_Box(kReadOnlyText, kExclamation, kReadOnlyTitle);
        return false;
    }
    const WaitPointer wait;
    try {
        Calc_All();
        return true;
    } catch (const DbError& error) {
        The_Platform().Message_Box(error.Description(), kStop, "Error: Calculation Failed");
        return false;
    }
}

}  // namespace tallmar
