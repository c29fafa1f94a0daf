// Opening of report files, which are untrusted input.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "common/db/connection.h"

namespace tallmar::db_detail {

enum class OpenFor : std::uint8_t {
    Work,   // leftovers of a killed program are removed; a damaged index is rebuilt in the file
    Copy,   // the file stays as it is; what is opened is a copy in memory, with a damaged index rebuilt there
    Trial,  // a copy of a file with its journal, to see whether that can be rolled back
};

// The whole file is checked. Throws what DBEngine::OpenDatabase throws.
std::shared_ptr<Connection> Open_File(const std::string& path, OpenFor purpose);

enum class HoldFor : std::uint8_t { Reading, Replacing };

// Keeps every other program from changing the report file at `path` for as long as the answer lives; those who read it
// go on. What a killed program left unfinished is taken back first, so that no journal stays beside a new file.
// Nothing where no report file stands at `path`. Throws Locked where another program is changing it.
std::shared_ptr<Connection> Hold_File(const std::string& path, HoldFor purpose);

// A new database in memory that bears `path` as its name.
std::shared_ptr<Connection> Open_In_Memory(const std::string& path);

// All pages of `from` as they are, over whatever `to` holds.
void Copy_Pages(Connection& from, Connection& to);

// The single value of a pragma, or of another statement that gives one.
std::string Single_Text(Connection& connection, std::string_view sql);

}  // namespace tallmar::db_detail
