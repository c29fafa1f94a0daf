#include "calc/driver.h"
#include "cli/commands.h"
#include "cli/open_for_command.h"

namespace tallmar {

int Run_Calc(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Changing);
    if (!report) return 1;
    context.platform.Print_Messages_As_Json(true);
    Calc_All();
    return 0;
}

}  // namespace tallmar
