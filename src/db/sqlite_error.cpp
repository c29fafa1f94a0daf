#include "db/sqlite_error.h"

#include <string>

#include "db/callbacks.h"
#include "db/file_error.h"

namespace tallmar::db_detail {

namespace {

struct Translation {
    int result;
    DbErrorCode code;
};
// By the primary result code; every other failure is the engine's own.
constexpr Translation kTranslations[] = {
    {SQLITE_BUSY, DbErrorCode::Locked},         {SQLITE_LOCKED, DbErrorCode::Locked},
    {SQLITE_FULL, DbErrorCode::DiskFull},       {SQLITE_READONLY, DbErrorCode::ReadOnly},
    {SQLITE_IOERR, DbErrorCode::DiskError},     {SQLITE_CORRUPT, DbErrorCode::NotADatabase},
    {SQLITE_NOTADB, DbErrorCode::NotADatabase}, {SQLITE_CANTOPEN, DbErrorCode::CannotOpen},
    {SQLITE_PERM, DbErrorCode::CannotOpen},     {SQLITE_AUTH, DbErrorCode::InvalidOperation},
    {SQLITE_NOMEM, DbErrorCode::OutOfMemory},
};
constexpr int kPrimaryCode = 0xff;
// SQLite's words for an expression that is nested beyond the room of its parser.
constexpr std::string_view kTooDeep = "parser stack overflow";

// "UNIQUE constraint failed: A.LineNum, A.Item" names the table A.
std::string Table_Of_Constraint(std::string_view message) {
    const std::size_t colon = message.find(": ");
    if (colon == std::string_view::npos) return std::string(message);
    message.remove_prefix(colon + 2);
    return std::string(message.substr(0, message.find('.')));
}

// What the system said behind it, where SQLite has kept that.
DbError File_Trouble(sqlite3* handle, DbErrorCode code, std::string_view path) {
    const int error = handle != nullptr ? sqlite3_system_errno(handle) : 0;
    if (code == DbErrorCode::CannotOpen && error != 0) return Open_Error(error, std::string(path));
    return DbError(code, path);
}

}  // namespace

DbError Error_Of(sqlite3* handle, int result, std::string_view path) {
    const std::string_view message = handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(result);
    if (const auto callback = Decode_Error(message)) return DbError(callback->code, callback->argument);
    if (message == kTooDeep) return DbError(DbErrorCode::TooComplex);
    const int primary = result & kPrimaryCode;
    // The journal cannot be made.
    if (result == SQLITE_READONLY_DIRECTORY) return DbError(DbErrorCode::FolderReadOnly, path);
    if (result == SQLITE_READONLY_ROLLBACK) {
        return DbError(DbErrorCode::ReadOnly, path, "a change that was cut off cannot be taken back");
    }
    // Another program has put a new file in the place of the open one.
    if (result == SQLITE_READONLY_DBMOVED) return DbError(DbErrorCode::Locked, path);
    if (primary == SQLITE_CONSTRAINT) return DbError(DbErrorCode::DuplicateKey, Table_Of_Constraint(message));
    for (const Translation& row : kTranslations) {
        if (row.result == primary) return File_Trouble(handle, row.code, path);
    }
    return DbError(DbErrorCode::Engine, message);
}

}  // namespace tallmar::db_detail
