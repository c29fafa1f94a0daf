#include <unistd.h>

#include <exception>
#include <iostream>

#include "cli/cli.h"

int main(int argc, char** argv) try {
    std::ios::sync_with_stdio(false);
    tallmar::ConsoleOptions options;
    options.showProgress = isatty(STDERR_FILENO) != 0;
    options.dataFolder = tallmar::User_Data_Folder();
    options.programFolder = tallmar::Executable_Folder();
    return tallmar::Run_Command_Line({argv + 1, argv + argc}, std::cin, std::cout, std::cerr, options);
} catch (const std::exception& error) {  // before or after the command: no memory
    std::cerr << "Error: " << error.what() << '\n';
    return tallmar::kExitFailed;
}
