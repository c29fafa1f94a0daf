// Which file it is, whatever name it has: two names of one file have one identity.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

namespace tallmar {

struct FileId {
    dev_t device = 0;
    ino_t inode = 0;
    friend bool operator==(const FileId&, const FileId&) = default;
};

// Of the file that a link at `path` points to. Nothing where there is none.
std::optional<FileId> Id_Of(const std::string& path);
// Of what is at `path` itself, a symbolic link for one.
std::optional<FileId> Id_Of_Entry(const std::string& path);
// Of an open file.
std::optional<FileId> Id_Of(int file);

// The open file is the one at `path`: nobody has renamed, replaced or deleted it.
inline bool Still_Bears(int file, const std::string& path) {
    const auto own = Id_Of(file);
    return own && own == Id_Of_Entry(path);
}

}  // namespace tallmar
