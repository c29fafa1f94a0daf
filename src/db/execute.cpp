#include "db/execute.h"

#include <optional>
#include <unordered_set>

#include "db/overflow.h"
#include "db/table_design.h"

namespace tallmar::db_detail {

namespace {

std::int64_t Run_Text(Connection& connection, PreparedStatement& statement, const sql::SqliteText& text,
                      const std::vector<sql::Literal>& literals) {
    connection.Ready(statement, text.sql);
    const Running running(statement);
    statement.Bind(text.params, {literals, {}});
    while (statement.Step()) {
    }
    return sqlite3_changes64(connection.Handle());
}

std::int64_t Select_Into(Connection& connection, CachedPlan& plan, const std::vector<sql::Literal>& literals) {
    AllOrNothing steps(connection);
    Create_Table(connection, plan.plan.create);
    const std::int64_t rows = Run_Text(connection, plan.sql, plan.plan.sql, literals);
    steps.Keep();
    return rows;
}

// The matches of an update, read before the first of them is applied: a row each, keys first, then new values.
struct Matches {
    std::size_t keyCount;
    std::size_t valueCount;
    std::vector<std::int64_t> keys;
    std::vector<StoredValue> values;

    std::size_t Count() const { return keyCount == 0 ? 0 : keys.size() / keyCount; }
    std::span<const std::int64_t> Keys(std::size_t i) const { return {keys.data() + i * keyCount, keyCount}; }
    std::span<StoredValue> Values(std::size_t i) { return {values.data() + i * valueCount, valueCount}; }
};

Matches Read_Matches(Connection& connection, CachedPlan& plan, const std::vector<sql::Literal>& literals) {
    const sql::RowUpdatePlan& update = plan.plan.rowUpdate;
    PreparedStatement& match = connection.Ready(plan.match, update.match.sql);
    const Running running(match);
    match.Bind(update.match.params, {literals, {}});
    const int keyCount = update.tableCount;
    const int columns = match.Columns();
    Matches matches{static_cast<std::size_t>(keyCount), static_cast<std::size_t>(columns - keyCount), {}, {}};
    while (match.Step()) {
        // An outer join without a row of the target has nothing to update.
        if (match.Is_Null(update.target)) continue;
        for (int i = 0; i < keyCount; ++i) matches.keys.push_back(match.Is_Null(i) ? kNoKey : match.Int(i));
        for (int i = keyCount; i < columns; ++i) matches.values.push_back(match.Stored(i));
    }
    return matches;
}

// False where the rows of the match are gone.
bool Read_Again(Connection& connection, CachedPlan& plan, const std::vector<sql::Literal>& literals,
                std::span<const std::int64_t> keys, std::span<StoredValue> values) {
    const sql::SqliteText& text = plan.plan.rowUpdate.again;
    PreparedStatement& again = connection.Ready(plan.again, text.sql);
    const Running running(again);
    again.Bind(text.params, {literals, keys});
    if (!again.Step()) return false;
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = again.Stored(static_cast<int>(i));
    return true;
}

std::int64_t Apply_Matches(Connection& connection, CachedPlan& plan, const std::vector<sql::Literal>& literals,
                           Matches& matches) {
    const sql::RowUpdatePlan& update = plan.plan.rowUpdate;
    PreparedStatement& apply = connection.Ready(plan.apply, update.apply.sql);
    const bool several = matches.Count() > 1;
    std::unordered_set<std::int64_t> changed;
    std::int64_t applied = 0;
    for (std::size_t i = 0; i < matches.Count(); ++i) {
        const auto keys = matches.Keys(i);
        const auto values = matches.Values(i);
        if (several) {
            const bool first = changed.insert(keys[static_cast<std::size_t>(update.target)]).second;
            const bool stale = !first || (update.selfReference && i > 0);
            if (stale && !Read_Again(connection, plan, literals, keys, values)) continue;
        }
        const Running running(apply);
        apply.Bind(update.apply.params, {literals, keys, values});
        apply.Step();
        ++applied;
    }
    return applied;
}

// Inside a job one match alone needs no savepoint: it is one statement.
std::int64_t Update_By_Match(Connection& connection, CachedPlan& plan, const std::vector<sql::Literal>& literals) {
    std::optional<AllOrNothing> steps;
    if (sqlite3_get_autocommit(connection.Handle()) != 0) steps.emplace(connection);
    Matches matches = Read_Matches(connection, plan, literals);
    if (!steps && matches.Count() > 1) steps.emplace(connection);
    const std::int64_t applied = Apply_Matches(connection, plan, literals, matches);
    if (steps) steps->Keep();
    return applied;
}

std::int64_t Run_Plan(Connection& connection, const std::shared_ptr<CachedPlan>& plan, std::string_view sql,
                      const sql::LiftedStatement& lifted) {
    switch (plan->plan.kind) {
        case sql::Plan::Kind::Select:
            throw DbError(DbErrorCode::InvalidOperation, sql);
        case sql::Plan::Kind::Insert:
        case sql::Plan::Kind::Update:
        case sql::Plan::Kind::Delete:
            return Run_Text(connection, plan->sql, plan->plan.sql, lifted.literals);
        case sql::Plan::Kind::RowUpdate:
            return Update_By_Match(connection, *plan, lifted.literals);
        case sql::Plan::Kind::SelectInto:
            return Select_Into(connection, *plan, lifted.literals);
        case sql::Plan::Kind::DropTable:
            Drop_Table(connection, plan->plan.create.name);
            return 0;
        case sql::Plan::Kind::CreateTable:
            Create_Table(connection, plan->plan.create);
            return 0;
        case sql::Plan::Kind::CreateIndex:
            Create_Index(connection, plan->plan.create.name, plan->plan.create.indexes.at(0));
            return 0;
    }
    return 0;
}

}  // namespace

std::int64_t Execute_Action(Connection& connection, std::string_view sql) {
    connection.Require_Whole_Job();
    sql::LiftedStatement lifted;
    const std::shared_ptr<CachedPlan> plan = connection.Plan_Of(sql, lifted);
    try {
        return Run_Plan(connection, plan, sql, lifted);
    } catch (const DbError& error) {
        throw Placed(error, connection, sql, lifted.literals);
    }
}

}  // namespace tallmar::db_detail
