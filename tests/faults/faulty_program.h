// Runs the program `tallmar` with one call to the system failing.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fault_board.h"
#include "program.h"
#include "support/temp_folder.h"

namespace tallmar::faults {

struct Fault {
    Call call = Call::None;
    int error = 0;  // errno
    How how = How::Once;
    std::int64_t at = 1;
};
// "write 17 fails once (No space left on device)"
std::string Text_Of(const Fault& fault);

struct Outcome : Ended {
    std::array<std::int64_t, kCallKinds> calls{};  // of each kind
    bool faultMet = false;
};

class FaultyProgram {
  public:
    FaultyProgram();
    // Backups go below `dataFolder`.
    Outcome Run(const std::vector<std::string>& args, const std::string& input, const std::string& dataFolder,
                const Fault& fault = {});

  private:
    TempFolder folder_;
    Board* board_;
};

}  // namespace tallmar::faults
