// What a fuzz target is: one procedure that swallows any bytes, and the seeds that the mutations start from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

struct FuzzTarget {
    std::size_t longest;  // bytes; longer inputs are cut
    std::vector<std::string> (*seeds)(const std::string& sourceFolder);
    // Returns what is wrong; "" where all is well. Throws nothing but what is a defect.
    std::string (*run)(std::string_view input);
};

// Each program of tests/fuzz defines its one.
extern const FuzzTarget kFuzzTarget;

}  // namespace tallmar
