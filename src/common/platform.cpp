#include "common/platform.h"

#include <stdexcept>

namespace tallmar {

namespace {
Platform* current = nullptr;
}

Platform& The_Platform() {
    if (current == nullptr) throw std::logic_error("no platform installed");
    return *current;
}

Platform* Install_Platform(Platform* platform) {
    Platform* before = current;
    current = platform;
    return before;
}

}  // namespace tallmar
