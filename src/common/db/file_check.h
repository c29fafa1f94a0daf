// What can be said of a file before the database engine may touch it.
#pragma once

#include <sqlite3.h>

#include <string>

namespace tallmar::db_detail {

struct FileCheck {
    bool readOnly = false;
    // A write was cut off and left its journal: what the header says holds only after SQLite has rolled it back.
    bool hotJournal = false;
};

// Throws DbError CannotOpen: missing, a folder, no permission.
FileCheck Check_File(const std::string& path);
// Reads the header of the opened file before SQLite does, never writes. Throws DbError: NotADatabase (empty, foreign,
// cut short, of a journal kind that report files never have), NewerLayout.
void Check_Header(sqlite3* handle, const FileCheck& check, const std::string& path);

// The journal that SQLite keeps beside the file while it writes.
std::string Journal_Path(const std::string& path);

}  // namespace tallmar::db_detail
