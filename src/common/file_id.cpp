#include "common/file_id.h"

#include <sys/stat.h>

namespace tallmar {

namespace {

std::optional<FileId> Id_When(int result, const struct stat& info) {
    if (result != 0) return std::nullopt;
    return FileId{info.st_dev, info.st_ino};
}

}  // namespace

std::optional<FileId> Id_Of(const std::string& path) {
    struct stat info {};
    return Id_When(::stat(path.c_str(), &info), info);
}

std::optional<FileId> Id_Of_Entry(const std::string& path) {
    struct stat info {};
    return Id_When(::lstat(path.c_str(), &info), info);
}

std::optional<FileId> Id_Of(int file) {
    struct stat info {};
    return Id_When(::fstat(file, &info), info);
}

}  // namespace tallmar
