// What can be said of a file before the database engine may touch it.
#pragma once

#include <string>

namespace tallmar::db_detail {

struct FileCheck {
    bool readOnly = false;
    // A write was cut off and left its journal: what the header says holds only after SQLite has rolled it back.
    bool hotJournal = false;
};

// Reads the header of the file, never writes. Throws DbError: CannotOpen (missing, a folder, no permission),
// NotADatabase (empty, foreign, cut short, of a journal kind that report files never have), NewerLayout.
FileCheck Check_File(const std::string& path);

// The journal that SQLite keeps beside the file while it writes.
std::string Journal_Path(const std::string& path);

}  // namespace tallmar::db_detail
