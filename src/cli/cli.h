// The command line `tallmar`, run inside the process that calls it.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/console_platform.h"

namespace tallmar {

// Exit statuses that scripts rely on: never renumber.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;       // the reason is on `err`, the report as it was before
inline constexpr int kExitUsage = 2;        // the command line is wrong
inline constexpr int kExitCheckErrors = 3;  // the job ran and the edit checks found a "Non-Fatal Error"

// `args` without the program's name. Installs its own console platform while it runs.
int Run_Command_Line(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
                     ConsoleOptions options = {});

}  // namespace tallmar
