#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "common/atomic_file.h"
#include "common/db/open_file.h"
#include "common/db/sqlite_error.h"

namespace tallmar {

using namespace db_detail;

namespace {

DbError File_Error(const std::system_error& error, const std::string& path) {
    switch (error.code().value()) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return DbError(DbErrorCode::DiskFull, path);
        case EIO:
            return DbError(DbErrorCode::DiskError, path);
        case EACCES:
        case EPERM:
        case EROFS:
            return DbError(DbErrorCode::ReadOnly, path);
        case EBUSY:
            return DbError(DbErrorCode::Locked, path);
        default:
            return DbError(DbErrorCode::CannotOpen, path);
    }
}

struct FreeImage {
    void operator()(unsigned char* image) const { sqlite3_free(image); }
};

// The whole database as the bytes of its file.
void Write_Image(Connection& connection, const std::string& path) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, FreeImage> image(sqlite3_serialize(connection.Handle(), "main", &size, 0));
    if (!image) throw DbError(DbErrorCode::Engine, "out of memory");
    try {
        Write_File_Atomically(path, {reinterpret_cast<const char*>(image.get()), static_cast<std::size_t>(size)});
    } catch (const std::system_error& error) {
        throw File_Error(error, path);
    }
}

// Found out now and not when the report is complete.
void Require_Folder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    struct stat info {};
    const bool isFolder = ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
    if (path.empty() || isFolder || ::access(folder.c_str(), W_OK | X_OK) != 0) {
        throw DbError(DbErrorCode::CannotOpen, path);
    }
}

void Copy_Pages(Connection& from, Connection& to) {
    sqlite3_backup* backup = sqlite3_backup_init(to.Handle(), "main", from.Handle(), "main");
    if (backup == nullptr) throw to.Failure(sqlite3_errcode(to.Handle()));
    sqlite3_backup_step(backup, -1);
    const int result = sqlite3_backup_finish(backup);
    if (result != SQLITE_OK) throw Error_Of(to.Handle(), result, from.Path());
}

bool Is_Sound(Connection& connection) {
    return Single_Text(connection, "PRAGMA integrity_check(1)") == "ok";
}

}  // namespace

// Texts compare by code page 1252 in every report file; other sort orders there are none.
Database DBEngine::CreateDatabase(const std::string& path, std::string_view) {
    Require_Folder(path);
    Database created;
    created.connection_ = Open_In_Memory(path);
    return created;
}

void DBEngine::Finish_Creation(Database& created) {
    Connection& connection = Access::Of(created);
    if (sqlite3_get_autocommit(connection.Handle()) == 0) {
        throw DbError(DbErrorCode::InvalidOperation, "a job is under way");
    }
    const auto replaced = Hold_File(connection.Path(), HoldFor::Replacing);
    Write_Image(connection, connection.Path());
    connection.Close();
}

Database DBEngine::OpenDatabase(const std::string& path) {
    Database opened;
    opened.connection_ = Open_File(path, OpenFor::Work);
    return opened;
}

// An index that does not go with its table is all that can be made good: it is made anew from the table.
void DBEngine::RepairDatabase(const std::string& path) {
    const auto connection = Open_File(path, OpenFor::Repair);
    if (Is_Sound(*connection)) return;
    if (connection->Is_Read_Only()) throw DbError(DbErrorCode::NotADatabase, path);
    AllOrNothing steps(*connection);
    connection->Run_Once("REINDEX");
    if (!Is_Sound(*connection)) throw DbError(DbErrorCode::NotADatabase, path);
    steps.Keep();
}

// The copy is made and packed in memory: a kill leaves nothing behind.
void DBEngine::CompactDatabase(const std::string& from, const std::string& to) {
    const auto source = Open_File(from, OpenFor::Work);
    const auto copy = Open_In_Memory(to);
    const auto replaced = Hold_File(to, HoldFor::Replacing);
    Copy_Pages(*source, *copy);
    source->Close();
    copy->Run_Once("VACUUM");
    Write_Image(*copy, to);
}

void DBEngine::CopyDatabase(const std::string& from, const std::string& to) {
    const auto source = Hold_File(from, HoldFor::Reading);
    std::error_code ignored;
    const bool ontoItself = std::filesystem::equivalent(from, to, ignored);
    const auto replaced = ontoItself ? nullptr : Hold_File(to, HoldFor::Replacing);
    try {
        Copy_File_Atomically(from, to);
    } catch (const std::system_error& error) {
        throw File_Error(error, to);
    }
}

}  // namespace tallmar
