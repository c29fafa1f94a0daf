// What can be said of a file before the database engine may touch it.
#pragma once

#include <sqlite3.h>

#include <string>

namespace tallmar::db_detail {

struct FileCheck {
    std::string path;  // of the file itself: links lead elsewhere, and its side files are beside the file
    bool readOnly = false;
    bool hasOtherNames = false;  // hard links; a journal may be beside one of them
    // A write is under way or was cut off: what the header says holds only once SQLite has rolled the journal back.
    bool hotJournal = false;
};

// Throws DbError CannotOpen with the reason: missing, a folder, no permission, a side file that is none of ours.
FileCheck Check_File(const std::string& path);
// Keeps every program from writing the file during its life, through SQLite's own handle, which has not read it yet: a
// second handle, when it is closed, would end the locks that this process has on the file.
class HeldStill {
  public:
    explicit HeldStill(sqlite3* handle);
    ~HeldStill();
    HeldStill(const HeldStill&) = delete;
    HeldStill& operator=(const HeldStill&) = delete;

    // False where another program is just writing it, and SQLite is to wait.
    explicit operator bool() const { return isHeld_; }
    // Another program is at a job and has not written into the file yet: the journal is its own.
    bool Has_Writer() const { return hasWriter_; }
    sqlite3_file& File() const { return *file_; }

  private:
    sqlite3_file* file_ = nullptr;
    bool isHeld_ = false;
    bool hasWriter_ = false;
};

// Reads the header of the opened file before SQLite does, never writes. Throws DbError: NotADatabase (empty, foreign,
// cut short, of a journal kind that report files never have), NewerLayout.
void Check_Header(sqlite3* handle, const FileCheck& check, const std::string& path);

}  // namespace tallmar::db_detail
