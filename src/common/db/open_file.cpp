#include "common/db/open_file.h"

#include <unistd.h>

#include <memory>

#include "common/atomic_file.h"
#include "common/db/file_check.h"
#include "common/db/limits.h"
#include "common/db/sqlite_error.h"

namespace tallmar::db_detail {

namespace {

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};
using HandleOwner = std::unique_ptr<sqlite3, CloseHandle>;

constexpr int kPageSize = 4096;

// What SQLite does for files that it cannot trust.
struct Switch {
    int option;
    int on;
};
constexpr Switch kSwitches[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_DQS_DDL, 0},        {SQLITE_DBCONFIG_DQS_DML, 0},
    {SQLITE_DBCONFIG_ENABLE_FKEY, 0},    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
};
// What no report needs and a made-up file could ask for.
struct Limit {
    int what;
    int most;
};
constexpr Limit kLimits[] = {
    {SQLITE_LIMIT_LENGTH, 64'000'000},
    {SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
};
constexpr std::string_view kFileSettings[] = {
    "PRAGMA cell_size_check = ON", "PRAGMA mmap_size = 0",       "PRAGMA synchronous = FULL",
    "PRAGMA temp_store = MEMORY",  "PRAGMA cache_size = -16000",
};

// A plain path, never a URI or a name with a meaning of its own.
std::string Plain_Path(const std::string& path) {
    return path.starts_with('/') ? path : "./" + path;
}

HandleOwner Open_Handle(const std::string& name, int flags, const std::string& path) {
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE, nullptr);
    HandleOwner handle(raw);
    if (result != SQLITE_OK) throw Error_Of(raw, result, path);
    sqlite3_extended_result_codes(raw, 1);
    for (const Switch& row : kSwitches) sqlite3_db_config(raw, row.option, row.on, nullptr);
    return handle;
}

void Check_Content(Connection& connection, OpenFor purpose) {
    const auto refuse = [&](DbErrorCode code) { throw DbError(code, connection.Path()); };
    if (Single_Text(connection, "PRAGMA journal_mode") != "delete") refuse(DbErrorCode::NotADatabase);
    if (Single_Text(connection, "PRAGMA encoding") != "UTF-8") refuse(DbErrorCode::NotADatabase);
    if (Single_Text(connection, "PRAGMA application_id") != std::to_string(kCrfApplicationId)) {
        refuse(DbErrorCode::NotADatabase);
    }
    const int layout = std::stoi(Single_Text(connection, "PRAGMA user_version"));
    if (layout < 1) refuse(DbErrorCode::NotADatabase);
    if (layout > kCrfLayout) refuse(DbErrorCode::NewerLayout);
    connection.Shapes();
    if (purpose == OpenFor::Repair) return;
    if (Single_Text(connection, "PRAGMA quick_check(1)") != "ok") refuse(DbErrorCode::NotADatabase);
}

// A journal that a killed program left behind and that holds nothing to roll back. Nobody else may be at the file.
void Remove_Stale_Journal(Connection& connection) {
    const std::string journal = Journal_Path(connection.Path());
    if (::access(journal.c_str(), F_OK) != 0) return;
    sqlite3_busy_timeout(connection.Handle(), 0);
    try {
        connection.Run_Once("BEGIN EXCLUSIVE");
        ::unlink(journal.c_str());
        connection.Run_Once("COMMIT");
    } catch (const DbError&) {
        // In use: whoever uses it looks after it.
    }
    sqlite3_busy_timeout(connection.Handle(), kBusyMilliseconds);
}

}  // namespace

std::string Single_Text(Connection& connection, std::string_view sql) {
    Statement statement(connection, sql);
    const Running running(statement);
    return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

std::shared_ptr<Connection> Open_File(const std::string& path, OpenFor purpose) {
    const FileCheck check = Check_File(path);
    HandleOwner handle =
        Open_Handle(Plain_Path(path), check.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, path);
    Check_Header(handle.get(), check, path);
    for (const Limit& row : kLimits) sqlite3_limit(handle.get(), row.what, row.most);
    sqlite3_busy_timeout(handle.get(), kBusyMilliseconds);
    const bool readOnly = check.readOnly || sqlite3_db_readonly(handle.get(), "main") == 1;
    auto connection = std::make_shared<Connection>(handle.release(), path, readOnly);
    try {
        for (const std::string_view setting : kFileSettings) Single_Text(*connection, setting);
        Check_Content(*connection, purpose);
    } catch (const DbError& error) {
        connection->Close();
        if (error.Code() == DbErrorCode::Engine) throw DbError(DbErrorCode::NotADatabase, path);
        throw;
    }
    if (!readOnly && purpose == OpenFor::Work) {
        Remove_Stale_Journal(*connection);
        Remove_Stale_Temporary(path);
    }
    connection->Changed_Elsewhere();
    return connection;
}

std::shared_ptr<Connection> Hold_File(const std::string& path, HoldFor purpose) {
    try {
        const FileCheck check = Check_File(path);
        const int flags = check.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
        HandleOwner handle = Open_Handle(Plain_Path(path), flags, path);
        Check_Header(handle.get(), check, path);
        sqlite3_busy_timeout(handle.get(), kBusyMilliseconds);
        auto held = std::make_shared<Connection>(handle.release(), path, check.readOnly);
        const bool reads = purpose == HoldFor::Reading || check.readOnly;
        held->Run_Once(reads ? "BEGIN" : "BEGIN IMMEDIATE");
        Single_Text(*held, "SELECT Count(*) FROM sqlite_schema");
        return held;
    } catch (const DbError& error) {
        if (error.Code() == DbErrorCode::Locked) throw;
        return nullptr;
    }
}

std::shared_ptr<Connection> Open_In_Memory(const std::string& path) {
    HandleOwner handle = Open_Handle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY, path);
    auto connection = std::make_shared<Connection>(handle.release(), path, false);
    Single_Text(*connection, "PRAGMA page_size = " + std::to_string(kPageSize));
    Single_Text(*connection, "PRAGMA application_id = " + std::to_string(kCrfApplicationId));
    Single_Text(*connection, "PRAGMA user_version = " + std::to_string(kCrfLayout));
    Single_Text(*connection, "PRAGMA temp_store = MEMORY");
    return connection;
}

}  // namespace tallmar::db_detail
