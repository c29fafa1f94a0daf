#include "cli/change_report.h"

#include "report/backup.h"
#include "report/open_report.h"

namespace tallmar {

void Change_Report(CommandContext& context, const std::function<void()>& change) {
    Keep_Backup();
    Job job(db);
    change();
    job.Write_Ahead();
    context.out.Write_Out();
    job.Keep();
}

}  // namespace tallmar
