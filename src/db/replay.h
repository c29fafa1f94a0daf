// The least that a piece of work can cost: the SQLite statements that it ran, run again on their own.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "db/stored_value.h"

namespace tallmar {

struct LoggedStatement {
    std::string sql;
    std::vector<StoredValue> parameters;
};

// Everything that `work` has the engine run, in order. Ends a log that was set before.
std::vector<LoggedStatement> Record_Statements(Database& database, const std::function<void()>& work);

// Runs the statements on the connection of `database`, past everything above SQLite. Each distinct text is
// prepared when it is first run and kept, so that the first run is the cold one. Rows are stepped over.
class Replay {
  public:
    Replay(Database& database, std::vector<LoggedStatement> statements);
    ~Replay();
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    // Requires that the tables are as the recorded work found them. Throws DbError where a statement fails.
    void Run();
    std::size_t Statements() const;
    std::size_t Distinct_Statements() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tallmar
