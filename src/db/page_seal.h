// A checksum at the end of each page of a report file. SQLite checks how a file is built and not what is in it: a
// bit that a disk or a copy has flipped in an amount would pass for the amount.
//
// The pages of a report leave their last 8 bytes free, and the seal is there: over the page before it and its number.
// Zeros are no seal. Page 1 shares the place between its own checksum and the change counter of the file as it was
// sealed: where the two counters differ another program has written the file without sealing it, and no seal of it
// counts from then on until the whole file is written again.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>

namespace tallmar::db_detail {

inline constexpr int kSealSize = 8;

// What the head of a file says: the size of its pages where they have room for a seal, else 0.
std::uint32_t Sealed_Page_Size(std::span<const unsigned char> head);
// Seals one page as the file is about to hold it. Pages count from 1.
void Seal_Page(std::span<unsigned char> page, std::uint32_t number);
// Seals every page of a whole file.
void Seal_File(std::span<unsigned char> file);

enum class Seals : std::uint8_t {
    Whole,        // or not there
    IndexBroken,  // on pages of indexes alone
    Broken,
    NotRead,  // the system cannot read the file
};
// Reads the open file page by page. Nobody may write it meanwhile. Pages that are free are passed over.
Seals Check_Seals(sqlite3* handle);

// The name of a file system for sqlite3_open_v2 that seals each page of a report as it is written, and that takes a
// change for done once it is in the file, whatever the system refuses afterwards.
const char* Sealing_Files();
// What the system has refused of the open file, since it was opened.
struct FileTroubles {
    bool read = false;     // some part of it could not be read
    bool shorten = false;  // it is longer than its pages, for its end could not be cut off
};
FileTroubles Troubles_Of(sqlite3* handle);

}  // namespace tallmar::db_detail
