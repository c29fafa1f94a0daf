#include <gtest/gtest.h>

#include <charconv>
#include <iostream>
#include <string_view>

#include "options.h"

namespace tallmar::faults {

namespace {
Options options;
}

const Options& The_Options() {
    return options;
}

}  // namespace tallmar::faults

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    constexpr std::string_view kSeconds = "--seconds=";
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        int seconds = 0;
        if (arg == "--all") {
            tallmar::faults::options.all = true;
        } else if (arg.starts_with(kSeconds) &&
                   std::from_chars(arg.data() + kSeconds.size(), arg.data() + arg.size(), seconds).ec == std::errc()) {
            tallmar::faults::options.seconds = seconds;
        } else {
            std::cerr << "There is no option " << arg << ".\n";
            return 2;
        }
    }
    return RUN_ALL_TESTS();
}
