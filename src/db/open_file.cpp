#include "db/open_file.h"

#include <unistd.h>

#include <memory>

#include "common/atomic_file.h"
#include "db/busy_timeout.h"
#include "db/crf_header.h"
#include "db/file_check.h"
#include "db/page_seal.h"
#include "db/rollback_trial.h"
#include "db/side_files.h"
#include "db/sqlite_error.h"

namespace tallmar::db_detail {

namespace {

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

// `name` is a whole path: never a URI, nor a name with a meaning of its own.
SqliteHandle Open_Handle(const std::string& name, int flags, const std::string& path) {
    sqlite3* raw = nullptr;
    const char* files = (flags & SQLITE_OPEN_MEMORY) != 0 ? nullptr : Sealing_Files();
    const int result =
        sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE, files);
    SqliteHandle handle(raw);
    if (result != SQLITE_OK) throw Error_Of(raw, result, path);
    sqlite3_extended_result_codes(raw, 1);
    for (const Switch& row : kSwitches) sqlite3_db_config(raw, row.option, row.on, nullptr);
    return handle;
}

SqliteHandle Open_Checked(const std::string& path, const FileCheck& check) {
    SqliteHandle handle = Open_Handle(check.path, check.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, path);
    sqlite3_busy_timeout(handle.get(), Busy_Milliseconds());
    return handle;
}

// Whoever is writing the file has looked at its head.
void Check_Head_Held_Still(sqlite3* handle, const FileCheck& check, const std::string& path) {
    const HeldStill still(handle);
    if (still) Check_Header(handle, check, path);
}

// A new file, and one that is compacted, gets room for the seals of its pages.
void Leave_Room_For_Seals(Connection& connection) {
    int reserved = kSealSize;
    sqlite3_file_control(connection.Handle(), "main", SQLITE_FCNTL_RESERVE_BYTES, &reserved);
}

void Check_Content(Connection& connection) {
    const auto refuse = [&](DbErrorCode code) { throw DbError(code, connection.Path()); };
    if (connection.Single_Text("PRAGMA journal_mode") != "delete") refuse(DbErrorCode::NotADatabase);
    if (connection.Single_Text("PRAGMA encoding") != "UTF-8") refuse(DbErrorCode::NotADatabase);
    if (connection.Single_Text("PRAGMA application_id") != std::to_string(kCrfApplicationId)) {
        refuse(DbErrorCode::NotADatabase);
    }
    const int layout = std::stoi(connection.Single_Text("PRAGMA user_version"));
    if (layout < 1) refuse(DbErrorCode::NotADatabase);
    if (layout > kCrfLayout) refuse(DbErrorCode::NewerLayout);
    connection.Shapes();
}

// Every page, and every index against its table: rows are found by their index. A page that the system does not give
// is no damage of the file.
bool Is_Sound(Connection& connection) {
    if (connection.Single_Text("PRAGMA integrity_check(1)") == "ok") return true;
    if (Troubles_Of(connection.Handle()).read) throw DbError(DbErrorCode::DiskError, connection.Path());
    return false;
}

// What the seals say of the file as it is at one moment.
Seals Seals_Of(Connection& connection) {
    connection.Run_Once("BEGIN");
    connection.Single_Text("SELECT Count(*) FROM sqlite_schema");
    const Seals seals = Check_Seals(connection.Handle());
    connection.Run_Once("COMMIT");
    return seals;
}

// Each index again from its table. Throws NotADatabase where that does not mend the file; nothing has changed then.
void Rebuild_Indexes(Connection& connection) {
    try {
        AllOrNothing steps(connection);
        connection.Run_Once("REINDEX");
        if (!Is_Sound(connection)) throw DbError(DbErrorCode::NotADatabase, connection.Path());
        steps.Keep();
    } catch (const DbError& error) {
        if (error.Ends_Work()) throw;
        throw DbError(DbErrorCode::NotADatabase, connection.Path());
    }
    connection.Note_Rebuilt_Index();
}

std::shared_ptr<Connection> Copy_In_Memory(Connection& connection) {
    auto copy = Open_In_Memory(connection.Path());
    Copy_Pages(connection, *copy);
    connection.Close();
    return copy;
}

// What is to be opened for the purpose, sound throughout.
std::shared_ptr<Connection> Sound_For(std::shared_ptr<Connection> connection, OpenFor purpose) {
    const Seals seals = Seals_Of(*connection);
    if (seals == Seals::NotRead) throw DbError(DbErrorCode::DiskError, connection->Path());
    if (seals == Seals::Broken) throw DbError(DbErrorCode::NotADatabase, connection->Path());
    if (purpose == OpenFor::Copy) connection = Copy_In_Memory(*connection);
    if (seals == Seals::Whole && Is_Sound(*connection)) return connection;
    const bool readOnly = connection->Is_Read_Only();
    if (readOnly) connection = Copy_In_Memory(*connection);
    Rebuild_Indexes(*connection);
    if (readOnly) connection->Refuse_Changes();
    return connection;
}

// While nobody writes the file. A journal beside it is then of a job that has written nothing yet, or was cut off.
void Check_Before_Reading(sqlite3* handle, FileCheck& check, const std::string& path, OpenFor purpose) {
    const HeldStill still(handle);
    if (!still) return;
    check.hotJournal = Check_Side_Files(check.path) == Journal::Hot && !still.Has_Writer();
    Check_Header(handle, check, path);
    if (!check.hotJournal || purpose == OpenFor::Trial) return;
    Try_Rollback(still, check, [](const std::string& copy) { Open_File(copy, OpenFor::Trial); });
}

// A refusal whose reason may be the missing journal of another name.
[[noreturn]] void Refuse_Damaged(const FileCheck& check, const std::string& path) {
    if (!check.hasOtherNames || check.hotJournal) throw DbError(DbErrorCode::NotADatabase, path);
    throw DbError(DbErrorCode::NotADatabase, path,
                  "the file has another name (a hard link), and what takes back a change that was cut off may lie "
                  "beside that name");
}

// A journal that a killed program left behind and that holds nothing to roll back. Nobody else may be at the file.
void Remove_Stale_Journal(Connection& connection, const std::string& journal) {
    if (::access(journal.c_str(), F_OK) != 0) return;
    sqlite3_busy_timeout(connection.Handle(), 0);
    try {
        connection.Run_Once("BEGIN EXCLUSIVE");
        ::unlink(journal.c_str());
        connection.Run_Once("COMMIT");
    } catch (const DbError&) {
        // In use: its user looks after it.
    }
    sqlite3_busy_timeout(connection.Handle(), Busy_Milliseconds());
}

}  // namespace

std::shared_ptr<Connection> Open_File(const std::string& path, OpenFor purpose) {
    FileCheck check = Check_File(path);
    SqliteHandle handle = Open_Handle(check.path, check.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, path);
    std::shared_ptr<Connection> connection;
    try {
        Check_Before_Reading(handle.get(), check, path, purpose);
        for (const Limit& row : kLimits) sqlite3_limit(handle.get(), row.what, row.most);
        sqlite3_busy_timeout(handle.get(), Busy_Milliseconds());
        const bool readOnly = check.readOnly || sqlite3_db_readonly(handle.get(), "main") == 1;
        connection = std::make_shared<Connection>(std::move(handle), path, readOnly);
        for (const std::string_view setting : kFileSettings) connection->Single_Text(setting);
        Check_Content(*connection);
        Leave_Room_For_Seals(*connection);
        connection = Sound_For(std::move(connection), purpose);
    } catch (const DbError& error) {
        if (error.Code() == DbErrorCode::NewerLayout) throw DbError(error.Code(), path);
        if (error.Code() != DbErrorCode::NotADatabase && error.Code() != DbErrorCode::Engine) throw;
        Refuse_Damaged(check, path);
    }
    if (!connection->Is_Read_Only() && purpose == OpenFor::Work) {
        Remove_Stale_Journal(*connection, Journal_Path(check.path));
        Remove_Stale_Temporary(check.path);
    }
    connection->Changed_Elsewhere();
    return connection;
}

std::shared_ptr<Connection> Hold_For_Reading(const std::string& path) {
    const FileCheck check = Check_File(path);
    SqliteHandle handle = Open_Checked(path, check);
    Check_Head_Held_Still(handle.get(), check, path);
    auto held = std::make_shared<Connection>(std::move(handle), path, check.readOnly);
    held->Run_Once("BEGIN");
    // The state to be held is that of the first read.
    held->Single_Text("SELECT Count(*) FROM sqlite_schema");
    return held;
}

std::shared_ptr<Connection> Open_For_Replacing(const std::string& path) {
    const FileCheck check = Check_File(path);
    SqliteHandle handle = Open_Checked(path, check);
    try {
        Check_Head_Held_Still(handle.get(), check, path);
    } catch (const DbError& error) {
        if (error.Code() == DbErrorCode::NotADatabase) return nullptr;
        if (error.Code() != DbErrorCode::NewerLayout) throw;
    }
    return std::make_shared<Connection>(std::move(handle), path, check.readOnly);
}

void Copy_Pages(Connection& from, Connection& to) {
    sqlite3_backup* backup = sqlite3_backup_init(to.Handle(), "main", from.Handle(), "main");
    if (backup == nullptr) throw to.Failure(sqlite3_errcode(to.Handle()));
    // No page yet, but the lock of a change: the file must still be the one of that name.
    int moved = 0;
    if (sqlite3_backup_step(backup, 0) == SQLITE_OK) {
        sqlite3_file_control(to.Handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
        if (moved == 0) sqlite3_backup_step(backup, -1);
    }
    const int result = sqlite3_backup_finish(backup);
    if (result != SQLITE_OK) throw Error_Of(to.Handle(), result, to.Path());
    if (moved != 0) throw DbError(DbErrorCode::Locked, to.Path());
    to.Forget_Shapes();
    Leave_Room_For_Seals(to);  // the pages have brought their own
}

std::shared_ptr<Connection> Open_In_Memory(const std::string& path) {
    SqliteHandle handle =
        Open_Handle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY, path);
    auto connection = std::make_shared<Connection>(std::move(handle), path, false);
    connection->Single_Text("PRAGMA page_size = " + std::to_string(kPageSize));
    Leave_Room_For_Seals(*connection);
    connection->Single_Text("PRAGMA application_id = " + std::to_string(kCrfApplicationId));
    connection->Single_Text("PRAGMA user_version = " + std::to_string(kCrfLayout));
    connection->Single_Text("PRAGMA temp_store = MEMORY");
    return connection;
}

}  // namespace tallmar::db_detail
