// Whether anything was written to an open file since a row of it was read, by this connection or by another: cheaper
// than reading the row again.
#pragma once

#include <cstdint>
#include <string>

#include "db/database.h"

namespace tallmar {

struct ChangeMark {
    std::string file;          // what other connections have committed; of no file: empty
    std::int64_t written = 0;  // rows that this connection has written

    bool operator==(const ChangeMark&) const = default;
};

// While two marks are equal every row is as it was, but one that was read inside a job that was then taken back. Throws
// DbError as reading a row does.
ChangeMark Change_Mark(const Database& database);

}  // namespace tallmar
