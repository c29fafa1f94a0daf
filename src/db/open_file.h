// Opening of report files, which are untrusted input.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "db/connection.h"

namespace tallmar::db_detail {

enum class OpenFor : std::uint8_t {
    Work,   // leftovers of a killed program are removed; a damaged index is rebuilt in the file
    Copy,   // the file stays as it is; what is opened is a copy in memory, with a damaged index rebuilt there
    Trial,  // a copy of a file with its journal, to see whether that can be rolled back
};

// The whole file is checked. Throws what DBEngine::OpenDatabase throws.
std::shared_ptr<Connection> Open_File(const std::string& path, OpenFor purpose);

// Keeps every other program from committing a change to the report at `path` during the life of the answer; those who
// read it go on. Throws what DBEngine::OpenDatabase throws; the content is not checked.
std::shared_ptr<Connection> Hold_For_Reading(const std::string& path);

// The report at `path`, open to take other content as one change; its own is not checked. Nothing where the file is no
// report, by its head. Throws what DBEngine::OpenDatabase throws for what is no file, or not to be read.
std::shared_ptr<Connection> Open_For_Replacing(const std::string& path);

// A new database in memory with `path` as its name.
std::shared_ptr<Connection> Open_In_Memory(const std::string& path);

// All pages of `from` as they are, over whatever `to` holds.
void Copy_Pages(Connection& from, Connection& to);

}  // namespace tallmar::db_detail
