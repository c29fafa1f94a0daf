// How much the tests of this program try; its own command line sets it.
#pragma once

namespace tallmar::faults {

struct Options {
    bool all = false;  // --all: every fault, and not a sample
    int seconds = 10;  // --seconds=N: how long the crowd works
};
const Options& The_Options();

}  // namespace tallmar::faults
