// Runs the program `tallmar` as a process of its own.
#pragma once

#include <string>
#include <vector>

namespace tallmar::faults {

struct Ended {
    int status = -1;  // of the exit; -1 where a signal ended the program
    int signal = 0;
    std::string out, err;
};

// `scratch` is a folder that no other run uses at the same time. The program has only `environment` ("NAME=value"), and
// is killed where it does not end within a minute. May be called from several threads.
Ended Run_Program(const std::vector<std::string>& args, const std::string& input, const std::string& scratch,
                  const std::vector<std::string>& environment = {});

}  // namespace tallmar::faults
