#include "db/connection.h"

#include "db/busy_timeout.h"
#include "db/callbacks.h"
#include "db/collation.h"
#include "db/schema_reader.h"

namespace tallmar::db_detail {

namespace {
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

// Made before it is needed, as Out_Of_Memory.
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

Connection::Connection(SqliteHandle handle, std::string path, bool readOnly)
    : session_(std::move(handle), std::move(path)), readOnly_(readOnly) {
    Given_Up();
    if (!Register_Functions(Handle()) || !Register_Collation(Handle())) throw Out_Of_Memory();
    session_.On_Failure([this](int result, const DbError& error) { Note_Failure(result, error); });
}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    if (!Is_Open()) return;
    session_.Close();
    jobDepth_ = 0;
    own_.clear();
    plans_.Clear();
    shapes_.reset();
}

void Connection::Refuse_Changes() {
    readOnly_ = true;
    Single_Text("PRAGMA query_only = ON");
}

const sql::Schema& Connection::Shapes() {
    if (!shapes_) {
        shapesVersion_ = Single_Text("PRAGMA data_version");
        shapes_ = Read_Schema(Handle(), Path());
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

std::shared_ptr<CachedPlan> Connection::Plan_Of(std::string_view statement, sql::LiftedStatement& lifted) {
    Handle();
    lifted = sql::Lift(statement);
    if (auto known = plans_.Find(lifted.shape)) return known;
    auto made = std::make_shared<CachedPlan>();
    made->plan = sql::Compile(statement, Shapes());
    plans_.Put(lifted.shape, made);
    return made;
}

PreparedStatement& Connection::Ready(PreparedStatement& statement, const std::string& sql) {
    if (!statement) statement = Prepare(sql);
    return statement;
}

void Connection::Run(std::string_view sql) {
    for (auto& [text, statement] : own_) {
        if (text != sql) continue;
        const Running running(statement);
        statement.Step();
        return;
    }
    own_.emplace_back(sql, Prepare(sql));
    Run(sql);
}

void Connection::Run_Once(std::string_view sql) {
    PreparedStatement statement = Prepare(sql);
    const Running running(statement);
    statement.Step();
}

bool Connection::Run_Quietly(const char* sql) noexcept {
    if (!Is_Open()) return false;
    if (session_.Log()) session_.Log()(sql, {});
    return sqlite3_exec(Handle(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::string Connection::Single_Text(std::string_view sql) {
    PreparedStatement statement = Prepare(sql);
    const Running running(statement);
    return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

bool Connection::Changed_Elsewhere() {
    Handle();
    std::string version = dataVersion_;
    try {
        const NoWaiting atOnce(Handle());
        version = Single_Text("PRAGMA data_version");
    } catch (const DbError&) {  // the next call finds out
    }
    const bool first = dataVersion_.empty();
    if (version == std::exchange(dataVersion_, version) || first) return false;
    if (jobDepth_ == 0) Forget_Shapes();
    return true;
}

void Connection::Note_Failure(int result, const DbError& error) {
    if (jobDepth_ == 0 || jobLost_) return;
    if (Ends_Job(result) || sqlite3_get_autocommit(Handle()) != 0) Lose_Job(error);
}

void Connection::Require_Whole_Job() const {
    Handle();
    if (jobLost_) throw *jobLost_;
}

// With the job's lock held: nobody can change the tables from here on, but somebody may have done so before.
void Connection::Forget_What_Others_Changed() {
    if (shapes_ && Single_Text("PRAGMA data_version") != shapesVersion_) Forget_Shapes();
}

void Connection::Begin_Transaction(JobKind kind) {
    Run(kind == JobKind::Changing ? "BEGIN IMMEDIATE" : "BEGIN");
    try {
        // The state that a job for reading sees is that of its first read.
        if (kind == JobKind::Reading) Run("SELECT Count(*) FROM sqlite_schema");
        Forget_What_Others_Changed();
    } catch (...) {
        Run_Quietly("ROLLBACK");
        throw;
    }
}

void Connection::Begin_Job(JobKind kind) {
    Require_Whole_Job();
    if (jobDepth_ == 0) {
        Begin_Transaction(kind);
    } else {
        Run("SAVEPOINT job");
    }
    ++jobDepth_;
}

void Connection::Keep_Job() {
    Require_Whole_Job();
    Run(jobDepth_ == 1 ? "COMMIT" : "RELEASE job");
    --jobDepth_;
}

void Connection::Roll_Back_Job() noexcept {
    if (!Is_Open() || jobDepth_ == 0) return;
    const bool isOutermost = --jobDepth_ == 0;
    if (!jobLost_) {
        if (isOutermost) {
            Run_Quietly("ROLLBACK");
        } else if (!Run_Quietly("ROLLBACK TO job") || !Run_Quietly("RELEASE job")) {
            Lose_Job(Given_Up());  // the outer job must not keep a part of this one
        }
    }
    if (isOutermost) jobLost_.reset();
    Forget_Shapes();
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

void Connection::Lose_Job(const DbError& reason) {
    jobLost_ = reason;
    if (sqlite3_get_autocommit(Handle()) == 0) Run_Quietly("ROLLBACK");
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

}  // namespace tallmar::db_detail
