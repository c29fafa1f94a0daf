#include "db/file_error.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace tallmar::db_detail {

namespace {

struct Reason {
    int error;
    DbErrorCode code;
    std::string_view text;  // empty where the code's own text says all
};

constexpr Reason kReasons[] = {
    {ENOENT, DbErrorCode::CannotOpen, "there is no such file"},
    {ENOTDIR, DbErrorCode::CannotOpen, "a part of its path is not a folder"},
    {EACCES, DbErrorCode::CannotOpen, "there is no permission to read it"},
    {EPERM, DbErrorCode::CannotOpen, "there is no permission to read it"},
    {EISDIR, DbErrorCode::CannotOpen, "it is a folder"},
    {EINVAL, DbErrorCode::CannotOpen, "it is not a regular file"},
    {ENXIO, DbErrorCode::CannotOpen, "it is not a regular file"},
    {ENAMETOOLONG, DbErrorCode::CannotOpen, "its name is too long"},
    {ELOOP, DbErrorCode::CannotOpen, "its links lead in a circle"},
    {EMFILE, DbErrorCode::CannotOpen, "too many files are open"},
    {ENFILE, DbErrorCode::CannotOpen, "too many files are open"},
    {ENOMEM, DbErrorCode::OutOfMemory, ""},
    {EROFS, DbErrorCode::ReadOnly, ""},
    {EBUSY, DbErrorCode::Locked, ""},
    {EIO, DbErrorCode::DiskError, ""},
    {ENOSPC, DbErrorCode::DiskFull, ""},
    {EDQUOT, DbErrorCode::DiskFull, ""},
    {EFBIG, DbErrorCode::DiskFull, ""},
};

bool Is_Refusal(int error) {
    return error == EACCES || error == EPERM;
}

}  // namespace

DbError Open_Error(int error, const std::string& path) {
    const auto found = std::ranges::find(kReasons, error, &Reason::error);
    if (found == std::end(kReasons)) return DbError(DbErrorCode::CannotOpen, path);
    return found->text.empty() ? DbError(found->code, path) : DbError(found->code, path, found->text);
}

DbError Write_Error(int error, const std::string& path) {
    if (error == ENOENT) return DbError(DbErrorCode::CannotOpen, path, "there is no such folder");
    if (!Is_Refusal(error)) return Open_Error(error, path);
    const bool refusesItself = ::access(path.c_str(), F_OK) == 0 && ::access(path.c_str(), W_OK) != 0;
    return DbError(refusesItself ? DbErrorCode::ReadOnly : DbErrorCode::FolderReadOnly, path);
}

}  // namespace tallmar::db_detail
