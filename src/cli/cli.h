// The command line `tallmar`, run inside the process that calls it.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/console_platform.h"
#include "cli/exit_status.h"

namespace tallmar {

// `args` without the program's name. Installs its own console platform while it runs.
int Run_Command_Line(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
                     ConsoleOptions options = {});

}  // namespace tallmar
