// An open report file behind its handles: the SQLite connection, the shapes of the tables, the compiled statements,
// the job under way. Closed, it stays as an object whose operations throw DatabaseClosed.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/job_kind.h"
#include "db/plan_cache.h"
#include "db/session.h"
#include "db/shapes.h"
#include "sql/plan.h"

namespace tallmar {

class Database;

namespace db_detail {

class Connection {
  public:
    // The dialect's functions and collation are registered on the handle here.
    Connection(SqliteHandle handle, std::string path, bool readOnly);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool Is_Open() const { return session_.Is_Open(); }
    // Throws DatabaseClosed.
    sqlite3* Handle() const { return session_.Handle(); }
    const std::string& Path() const { return session_.Path(); }
    bool Is_Read_Only() const { return readOnly_; }
    // Of a copy in memory of a file that is read only.
    void Refuse_Changes();
    bool Has_Rebuilt_Index() const { return rebuiltIndex_; }
    void Note_Rebuilt_Index() { rebuiltIndex_ = true; }
    // Takes a job under way back.
    void Close();

    // The shapes of the tables, read from the file when they are first asked for.
    const sql::Schema& Shapes();
    // A table that a statement of ours has just made, changed or removed.
    void Table_Changed(TableShape shape);
    void Table_Removed(std::string_view name);
    // Everything known of the file is read again: after a roll-back.
    void Forget_Shapes();

    // The plan of a statement; `lifted` receives its literals.
    std::shared_ptr<CachedPlan> Plan_Of(std::string_view statement, sql::LiftedStatement& lifted);
    PreparedStatement Prepare(std::string_view sql) { return {session_, sql}; }
    // `statement`, prepared from `sql` when it is first needed.
    PreparedStatement& Ready(PreparedStatement& statement, const std::string& sql);
    // Statements of the engine's own, without parameters and rows: one that comes often, and one that does not.
    void Run(std::string_view sql);
    void Run_Once(std::string_view sql);
    // As Run_Once, for ways out that must not throw: false where it failed.
    bool Run_Quietly(const char* sql) noexcept;
    // The single value of a pragma, or of another statement that gives one.
    std::string Single_Text(std::string_view sql);
    PlanCache& Plans() { return plans_; }

    // The error of a failing call. Inside a job a failure of the disk ends the job.
    DbError Failure(int result) { return session_.Failure(result); }
    // Before anything is written. Throws what ended the transaction of the job under way: what the job still does
    // must not reach the file in pieces.
    void Require_Whole_Job() const;

    // The outermost job is the transaction, a job within it a savepoint.
    void Begin_Job(JobKind kind);
    // Throws what stands in the way. The job is then still under way, and to be taken back.
    void Keep_Job();
    void Roll_Back_Job() noexcept;
    void Write_Job_Ahead();

    // True where another connection has committed to the file since the last call. What is known of the tables is read
    // again then. False while the file is being changed: the next call finds out.
    bool Changed_Elsewhere();

    void Set_Log(StatementLog log) { session_.Set_Log(std::move(log)); }

  private:
    void Begin_Transaction(JobKind kind);
    void Forget_What_Others_Changed();
    void Note_Failure(int result, const DbError& error);
    void Lose_Job(const DbError& reason);

    Session session_;
    bool readOnly_;
    bool rebuiltIndex_ = false;
    std::optional<sql::Schema> shapes_;
    PlanCache plans_;
    std::vector<std::pair<std::string, PreparedStatement>> own_;
    int jobDepth_ = 0;
    std::string dataVersion_;         // of the file, when it was last asked for
    std::string shapesVersion_;       // of the file, before the shapes were read
    std::optional<DbError> jobLost_;  // why the transaction of the job is gone
};

// Several statements that take effect together or not at all.
class AllOrNothing {
  public:
    explicit AllOrNothing(Connection& connection);
    ~AllOrNothing();
    AllOrNothing(const AllOrNothing&) = delete;
    AllOrNothing& operator=(const AllOrNothing&) = delete;
    void Keep();

  private:
    Connection& connection_;
    bool ownTransaction_;
    bool open_ = true;
};

// The connection behind a handle, for the parts of the engine outside the classes.
struct Access {
    static Connection& Of(const Database& database);
};

}  // namespace db_detail
}  // namespace tallmar
