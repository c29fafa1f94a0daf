// The one way by which a command changes the open report.
#pragma once

#include <functional>

#include "cli/commands.h"

namespace tallmar {

// Runs `change` as one job, behind the backup that the first change keeps. The results are out before the job is kept:
// where they cannot be written, or `change` throws, the report is as it was and the error passes on.
void Change_Report(CommandContext& context, const std::function<void()>& change);

}  // namespace tallmar
