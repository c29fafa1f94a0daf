#include "calc/driver.h"
#include "cli/change_report.h"
#include "cli/commands.h"
#include "cli/open_for_command.h"

namespace tallmar {

int Run_Calc(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Changing);
    if (!report) return kExitFailed;
    context.platform.Print_Messages_As_Json(true);
    Change_Report(context, Calc_All);
    return kExitDone;
}

}  // namespace tallmar
