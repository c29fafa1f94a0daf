#include "common/db/connection.h"

#include <new>

#include "common/db/busy_timeout.h"
#include "common/db/collation.h"
#include "common/db/functions.h"
#include "common/db/open_file.h"
#include "common/db/schema_reader.h"
#include "common/db/sqlite_error.h"

namespace tallmar::db_detail {

namespace {
constexpr int kPrimaryCode = 0xff;

// What leaves a transaction in doubt, or lets no more of it be written: nothing of it may be kept.
bool Ends_Job(int result) {
    switch (result & kPrimaryCode) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_NOMEM:
        case SQLITE_CANTOPEN:
            return true;
        default:
            return false;
    }
}

// Made before they are needed: where there is no memory none may be asked for.
const DbError& Out_Of_Memory() {
    static const DbError error(DbErrorCode::OutOfMemory);
    return error;
}
const DbError& Given_Up() {
    static const DbError error(DbErrorCode::InvalidOperation, "the job was given up");
    return error;
}

// Answers at once where the file is in use.
class NoWaiting {
  public:
    explicit NoWaiting(sqlite3* handle) : handle_(handle) { sqlite3_busy_timeout(handle_, 0); }
    ~NoWaiting() { sqlite3_busy_timeout(handle_, Busy_Milliseconds()); }
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;

  private:
    sqlite3* handle_;
};
}  // namespace

Connection::Connection(sqlite3* handle, std::string path, bool readOnly)
    : handle_(handle), path_(std::move(path)), readOnly_(readOnly) {
    Out_Of_Memory();
    Given_Up();
    if (!Register_Functions(handle_) || !Register_Collation(handle_)) throw Out_Of_Memory();
}

Connection::~Connection() {
    Close();
}

sqlite3* Connection::Handle() const {
    if (handle_ == nullptr) throw DbError(DbErrorCode::DatabaseClosed);
    return handle_;
}

// Recordsets may still hold statements: these are ended here, and their owners see that the connection has closed.
void Connection::Close() {
    if (handle_ == nullptr) return;
    if (jobDepth_ > 0 && !jobLost_) Run_Quietly("COMMIT");
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    statements_.clear();
    sqlite3_close(handle_);
    handle_ = nullptr;
    jobDepth_ = 0;
    own_.clear();
    plans_.Clear();
    shapes_.reset();
}

void Connection::Refuse_Changes() {
    readOnly_ = true;
    Single_Text(*this, "PRAGMA query_only = ON");
}

const Schema& Connection::Shapes() {
    if (!shapes_) {
        shapesVersion_ = Single_Text(*this, "PRAGMA data_version");
        shapes_ = Read_Schema(Handle(), path_);
    }
    return *shapes_;
}

void Connection::Table_Changed(TableShape shape) {
    plans_.Forget(shape.name);
    if (shapes_) shapes_->Put(std::move(shape));
}

void Connection::Table_Removed(std::string_view name) {
    plans_.Forget(name);
    if (shapes_) shapes_->Remove(name);
}

void Connection::Forget_Shapes() {
    plans_.Clear();
    shapes_.reset();
}

std::shared_ptr<CachedPlan> Connection::Plan_Of(std::string_view statement, LiftedStatement& lifted) {
    Handle();
    lifted = Lift(statement);
    if (auto known = plans_.Find(lifted.shape)) return known;
    auto made = std::make_shared<CachedPlan>();
    made->plan = Compile(statement, Shapes());
    plans_.Put(lifted.shape, made);
    return made;
}

void Connection::End_Statement(sqlite3_stmt* statement) {
    if (statements_.erase(statement) > 0) sqlite3_finalize(statement);
}

Statement& Connection::Ready(Statement& statement, const std::string& sql) {
    if (!statement) statement = Statement(*this, sql);
    return statement;
}

void Connection::Run(std::string_view sql) {
    for (auto& [text, statement] : own_) {
        if (text != sql) continue;
        const Running running(statement);
        statement.Step();
        return;
    }
    own_.emplace_back(sql, Statement(*this, sql));
    Run(sql);
}

void Connection::Run_Once(std::string_view sql) {
    Statement statement(*this, sql);
    const Running running(statement);
    statement.Step();
}

void Connection::Run_Quietly(const char* sql) noexcept {
    if (handle_ == nullptr) return;
    if (log_) log_(sql, {});
    sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr);
}

bool Connection::Changed_Elsewhere() {
    Handle();
    std::string version = dataVersion_;
    try {
        const NoWaiting atOnce(handle_);
        version = Single_Text(*this, "PRAGMA data_version");
    } catch (const DbError&) {  // the next call tells
    }
    const bool first = dataVersion_.empty();
    if (version == std::exchange(dataVersion_, version) || first) return false;
    if (jobDepth_ == 0) Forget_Shapes();
    return true;
}

DbError Connection::Failure(int result) {
    const bool ends = jobDepth_ > 0 && !jobLost_ && (Ends_Job(result) || sqlite3_get_autocommit(handle_) != 0);
    try {
        const DbError error =
            (result & kPrimaryCode) == SQLITE_NOMEM ? Out_Of_Memory() : Error_Of(handle_, result, path_);
        if (ends) Lose_Job(error);
        return error;
    } catch (const std::bad_alloc&) {
        if (ends) Lose_Job(Out_Of_Memory());
        throw;
    }
}

void Connection::Require_Whole_Job() const {
    Handle();
    if (jobLost_) throw *jobLost_;
}

// With the job's lock held: nobody can change the tables from here on, but somebody may have done so before.
void Connection::Forget_What_Others_Changed() {
    if (shapes_ && Single_Text(*this, "PRAGMA data_version") != shapesVersion_) Forget_Shapes();
}

void Connection::Begin_Job(Job::Kind kind) {
    Handle();
    if (jobDepth_ == 0) {
        Run(kind == Job::Kind::Changing ? "BEGIN IMMEDIATE" : "BEGIN");
        try {
            // The state that a job for reading sees is that of its first read.
            if (kind == Job::Kind::Reading) Run("SELECT Count(*) FROM sqlite_schema");
            Forget_What_Others_Changed();
        } catch (...) {
            Run_Quietly("ROLLBACK");
            throw;
        }
    }
    ++jobDepth_;
}

void Connection::End_Job() {
    if (!Is_Open() || jobDepth_ == 0 || --jobDepth_ > 0) return;
    if (jobLost_) {
        const DbError reason = *jobLost_;
        jobLost_.reset();
        throw reason;
    }
    try {
        Run("COMMIT");
    } catch (...) {
        if (sqlite3_get_autocommit(handle_) == 0) Run_Quietly("ROLLBACK");
        Forget_Shapes();
        throw;
    }
}

void Connection::Write_Job_Ahead() {
    Require_Whole_Job();
    const int result = sqlite3_db_cacheflush(Handle());
    if (result == SQLITE_OK || (result & kPrimaryCode) == SQLITE_BUSY) return;
    const DbError error = Failure(result);
    // What went out before the disk was full is taken back with the next reading: now.
    Run_Quietly("SELECT 1 FROM sqlite_schema");
    throw error;
}

void Connection::Roll_Back_Job() {
    if (!Is_Open() || jobDepth_ == 0) return;
    if (!jobLost_) Lose_Job(Given_Up());
    if (--jobDepth_ == 0) jobLost_.reset();
}

void Connection::Lose_Job(const DbError& reason) {
    jobLost_ = reason;
    if (sqlite3_get_autocommit(handle_) == 0) Run_Quietly("ROLLBACK");
    Forget_Shapes();
}

AllOrNothing::AllOrNothing(Connection& connection)
    : connection_(connection), ownTransaction_(sqlite3_get_autocommit(connection.Handle()) != 0) {
    connection_.Run(ownTransaction_ ? "BEGIN IMMEDIATE" : "SAVEPOINT steps");
}

// A failure of the disk has taken the whole transaction back already.
AllOrNothing::~AllOrNothing() {
    if (!open_ || !connection_.Is_Open()) return;
    if (sqlite3_get_autocommit(connection_.Handle()) == 0) {
        connection_.Run_Quietly(ownTransaction_ ? "ROLLBACK" : "ROLLBACK TO steps");
        if (!ownTransaction_) connection_.Run_Quietly("RELEASE steps");
    }
    connection_.Forget_Shapes();
}

void AllOrNothing::Keep() {
    connection_.Run(ownTransaction_ ? "COMMIT" : "RELEASE steps");
    open_ = false;
}

Connection& Access::Of(const Database& database) {
    if (!database.connection_) throw DbError(DbErrorCode::DatabaseClosed);
    return *database.connection_;
}

}  // namespace tallmar::db_detail
