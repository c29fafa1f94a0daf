// A report file opened as what it may be: written by somebody else.
#pragma once

#include <memory>
#include <string>

#include "common/db/connection.h"

namespace tallmar::db_detail {

enum class OpenFor : std::uint8_t {
    Work,    // the whole file is checked, and leftovers of a killed program are removed
    Repair,  // the pages are not checked
};

// Throws what DBEngine::OpenDatabase throws.
std::shared_ptr<Connection> Open_File(const std::string& path, OpenFor purpose);

enum class HoldFor : std::uint8_t { Reading, Replacing };

// Keeps every other program from changing the report file at `path` for as long as the answer lives; those who read it
// go on. What a killed program left unfinished is taken back first, so that no journal stays beside a new file.
// Nothing where no report file stands at `path`. Throws Locked where another program is changing it.
std::shared_ptr<Connection> Hold_File(const std::string& path, HoldFor purpose);

// A new database in memory that bears `path` as its name.
std::shared_ptr<Connection> Open_In_Memory(const std::string& path);

// The single value of a pragma, or of another statement that gives one.
std::string Single_Text(Connection& connection, std::string_view sql);

}  // namespace tallmar::db_detail
