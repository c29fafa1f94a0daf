#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace tallmar {

TempFolder::TempFolder() {
    std::random_device random;
    do {
        path_ = (std::filesystem::path(testing::TempDir()) / ("tallmar-" + std::to_string(random()))).string();
    } while (!std::filesystem::create_directory(path_));
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    if (std::filesystem::exists(path_, ignored)) ADD_FAILURE() << path_ << " could not be removed";
}

}  // namespace tallmar
