// What the fault library and the tests that load it into a program agree on: a small file that both map. The tests
// write into it which call shall fail; the library counts in it, and what it counted outlives a program that is killed.
#pragma once

#include <atomic>
#include <cstdint>

namespace tallmar::faults {

// The calls to the system that can be made to fail, by kind.
enum class Call : std::int32_t {
    None = -1,
    Write,
    Sync,
    Open,
    Rename,
    Link,
    Unlink,
    Lock,
    Stat,
    Read,
    Memory,
    Truncate,
    Mode,
};
inline constexpr int kCallKinds = 12;

enum class How : std::int32_t {
    Once,   // this call alone
    OnAll,  // this call and all of its kind that follow
    Half,   // half of the bytes are moved; all of its kind that follow fail
};

struct Board {
    Call call;
    How how;
    std::int32_t error;  // errno
    std::int64_t at;     // the call of its kind that fails first, from 1
    std::atomic<std::int64_t> calls[kCallKinds];
    std::atomic<std::int64_t> failed;
};

// Names the file of the board.
inline constexpr const char* kBoardVariable = "TALLMAR_FAULT_BOARD";

}  // namespace tallmar::faults
