// The files that SQLite or this program keeps beside a report file: "<report>-journal", "<report>.tmp" and their kin. A
// report may come with made-up ones, and SQLite believes what it finds.
#pragma once

#include <cstdint>
#include <string>

namespace tallmar::db_detail {

enum class Journal : std::uint8_t {
    None,
    Stale,  // nothing to roll back
    Hot,    // of a job under way, or cut off: then SQLite rolls it back into the file
};

// Looks before SQLite does and changes nothing. Throws DbError CannotOpen where a side file is none of ours: a device,
// a FIFO, a folder or a link, a write-ahead log, a file that is no journal, or a journal that has SQLite delete another
// file. `path` is the report file itself, no link to it.
Journal Check_Side_Files(const std::string& path);

// The journal that SQLite keeps beside the file while it writes.
std::string Journal_Path(const std::string& path);

}  // namespace tallmar::db_detail
