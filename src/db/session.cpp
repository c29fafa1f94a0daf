#include "db/session.h"

#include <new>

#include "db/sqlite_error.h"

namespace tallmar::db_detail {

Session::Session(SqliteHandle handle, std::string path) : handle_(std::move(handle)), path_(std::move(path)) {
    Out_Of_Memory();
}

Session::~Session() {
    Close();
}

sqlite3* Session::Handle() const {
    if (handle_ == nullptr) throw DbError(DbErrorCode::DatabaseClosed);
    return handle_.get();
}

void Session::Close() {
    if (handle_ == nullptr) return;
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    statements_.clear();
    handle_.reset();
}

void Session::End_Statement(sqlite3_stmt* statement) {
    if (statements_.erase(statement) > 0) sqlite3_finalize(statement);
}

DbError Session::Failure(int result) {
    const auto tell = [&](const DbError& error) {
        if (failed_) failed_(result, error);
    };
    try {
        const DbError error =
            (result & kPrimaryCode) == SQLITE_NOMEM ? Out_Of_Memory() : Error_Of(handle_.get(), result, path_);
        tell(error);
        return error;
    } catch (const std::bad_alloc&) {
        tell(Out_Of_Memory());
        throw;
    }
}

const DbError& Out_Of_Memory() {
    static const DbError error(DbErrorCode::OutOfMemory);
    return error;
}

}  // namespace tallmar::db_detail
