#include "faulty_program.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <new>
#include <stdexcept>

namespace tallmar::faults {

namespace {

constexpr const char* kNames[kCallKinds] = {"write", "sync", "open", "rename", "link",     "unlink",
                                            "lock",  "stat", "read", "memory", "truncate", "mode"};

}  // namespace

std::string Text_Of(const Fault& fault) {
    if (fault.call == Call::None) return "no fault";
    const char* how = fault.how == How::Once    ? " fails once ("
                      : fault.how == How::OnAll ? " and all later fail ("
                                                : " is half done (";
    return std::string(kNames[static_cast<int>(fault.call)]) + " " + std::to_string(fault.at) + how +
           std::strerror(fault.error) + ")";
}

FaultyProgram::FaultyProgram() {
    const std::string path = folder_.File("board");
    std::ofstream(path, std::ios::binary) << std::string(sizeof(Board), '\0');
    const int file = ::open(path.c_str(), O_RDWR);
    void* map = ::mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    if (map == MAP_FAILED) throw std::runtime_error("no board");
    board_ = static_cast<Board*>(map);
}

Outcome FaultyProgram::Run(const std::vector<std::string>& args, const std::string& input,
                           const std::string& dataFolder, const Fault& fault) {
    new (board_)
        Board{.call = fault.call, .how = fault.how, .error = fault.error, .at = fault.at, .calls = {}, .failed = 0};
    Outcome outcome{
        Run_Program(args, input, folder_.Path(),
                    {"LD_PRELOAD=" TALLMAR_FAULT_LIBRARY, std::string(kBoardVariable) + "=" + folder_.File("board"),
                     "XDG_DATA_HOME=" + dataFolder, "ASAN_OPTIONS=verify_asan_link_order=0"}),
        {},
        false};
    for (int i = 0; i < kCallKinds; ++i) outcome.calls[static_cast<std::size_t>(i)] = board_->calls[i];
    outcome.faultMet = board_->failed > 0;
    return outcome;
}

}  // namespace tallmar::faults
