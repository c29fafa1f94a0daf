// How many compiled statements an open report keeps.
#pragma once

#include <cstddef>

namespace tallmar {

class Database;

inline constexpr std::size_t kStatementCacheSize = 1024;

// At least 1. Results never depend on it: tests run with 1 to prove that. Requires an open database.
void Set_Statement_Cache_Size(Database& database, std::size_t size);

}  // namespace tallmar
