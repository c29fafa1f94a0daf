#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <iostream>

#include "cli/cli.h"

namespace {

// A standard stream that the caller has closed fails when it is used; no file of ours gets its number.
void Keep_Standard_Numbers() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) != -1) continue;
        // The lowest free number is this one. Opened the wrong way round, neither reading nor writing goes.
        ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

}  // namespace

int main(int argc, char** argv) {
    Keep_Standard_Numbers();
    // Who reads the results may go away: that is a failed write, reported and answered by 1, and no end in mid-job.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        std::ios::sync_with_stdio(false);
        tallmar::ConsoleOptions options;
        options.showProgress = isatty(STDERR_FILENO) != 0;
        options.dataFolder = tallmar::User_Data_Folder();
        options.programFolder = tallmar::Executable_Folder();
        return tallmar::Run_Command_Line({argv + 1, argv + argc}, std::cin, std::cout, std::cerr, options);
    } catch (const std::exception&) {
        std::cerr << "Error: There is not enough memory.\n";
        return tallmar::kExitFailed;
    }
}
