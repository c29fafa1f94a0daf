#include <unistd.h>

#include <iostream>

#include "cli/cli.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    tallmar::ConsoleOptions options;
    options.showProgress = isatty(STDERR_FILENO) != 0;
    options.dataFolder = tallmar::User_Data_Folder();
    options.programFolder = tallmar::Executable_Folder();
    return tallmar::Run_Command_Line({argv + 1, argv + argc}, std::cin, std::cout, std::cerr, options);
}
