// The SQLite handle of an open report file, and what ends with it.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>
#include <unordered_set>

#include "common/db_error.h"
#include "db/statement_log.h"

namespace tallmar::db_detail {

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};
using SqliteHandle = std::unique_ptr<sqlite3, CloseHandle>;

class Session {
  public:
    // The path is for messages.
    Session(SqliteHandle handle, std::string path);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool Is_Open() const { return handle_ != nullptr; }
    // Throws DatabaseClosed.
    sqlite3* Handle() const;
    const std::string& Path() const { return path_; }
    // Statements that recordsets still hold are ended here, and their owners see that the session has closed.
    void Close();

    // Prepared statements that are to end with the session.
    void Note_Statement(sqlite3_stmt* statement) { statements_.insert(statement); }
    void End_Statement(sqlite3_stmt* statement);

    // The error of a failing call.
    DbError Failure(int result);
    // `failed` is called with every such error before it is thrown. It must not throw.
    using Failed = std::function<void(int result, const DbError& error)>;
    void On_Failure(Failed failed) { failed_ = std::move(failed); }

    void Set_Log(StatementLog log) { log_ = std::move(log); }
    const StatementLog& Log() const { return log_; }

  private:
    SqliteHandle handle_;
    std::string path_;
    std::unordered_set<sqlite3_stmt*> statements_;
    Failed failed_;
    StatementLog log_;
};

// Made before it is needed: where there is no memory none may be asked for.
const DbError& Out_Of_Memory();

inline constexpr int kPrimaryCode = 0xff;  // of an extended result code

}  // namespace tallmar::db_detail
