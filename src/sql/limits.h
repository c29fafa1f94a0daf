// What a statement may be at most: far above anything that the program writes, and below what would hurt.
#pragma once

#include <cstddef>

namespace tallmar::sql {

inline constexpr std::size_t kLongestStatement = 1'000'000;  // bytes
inline constexpr std::size_t kMostLiterals = 30'000;
inline constexpr int kDeepestTree = 250;  // nodes from the top of an expression or of a join to its leaves
inline constexpr std::size_t kMostTables = 32;

}  // namespace tallmar::sql
