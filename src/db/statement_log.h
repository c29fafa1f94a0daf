// What the engine really runs: every SQLite statement with its parameters, in order. A bench replays them alone to
// learn the least that the work can cost; a test counts them. Nothing is recorded, or paid for, while no log is set.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "db/stored_value.h"

namespace tallmar {

class Database;

using StatementLog = std::function<void(std::string_view sql, const std::vector<StoredValue>& parameters)>;

// An empty function ends the log. Requires an open database.
void Set_Statement_Log(Database& database, StatementLog log);

}  // namespace tallmar
