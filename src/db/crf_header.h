// What is in the header of every report file.
#pragma once

#include <cstdint>

namespace tallmar {

inline constexpr std::int32_t kCrfApplicationId = 0x54433238;  // "TC28"
inline constexpr std::int32_t kCrfLayout = 1;                  // user_version: the layout that this program writes

}  // namespace tallmar
