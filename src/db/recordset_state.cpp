#include "db/recordset_state.h"

#include <algorithm>
#include <numeric>

#include "common/text.h"
#include "db/overflow.h"
#include "db/storage.h"

namespace tallmar::db_detail {

void RowList::Set_Gone(std::int64_t position) {
    gone_.resize(static_cast<std::size_t>(count_));
    gone_[static_cast<std::size_t>(position)] = true;
}

std::int64_t RowList::Rank(std::int64_t position) const {
    const auto end = gone_.begin() + std::min<std::int64_t>(position, static_cast<std::int64_t>(gone_.size()));
    return position - std::count(gone_.begin(), end, true);
}

bool RowList::Less(std::span<const std::int64_t> a, std::span<const std::int64_t> b) const {
    return std::ranges::lexicographical_compare(a, b);
}

std::int64_t RowList::Position_Of(std::span<const std::int64_t> wanted) {
    if (byKey_.size() != static_cast<std::size_t>(count_)) {
        byKey_.resize(static_cast<std::size_t>(count_));
        std::iota(byKey_.begin(), byKey_.end(), 0);
        const auto less = [this](std::int64_t a, std::int64_t b) { return Less(Keys(a), Keys(b)); };
        if (!std::ranges::is_sorted(byKey_, less)) std::ranges::stable_sort(byKey_, less);
    }
    const auto found = std::ranges::lower_bound(
        byKey_, wanted, [this](auto a, auto b) { return Less(a, b); }, [this](std::int64_t p) { return Keys(p); });
    if (found == byKey_.end() || !std::ranges::equal(Keys(*found), wanted)) return -1;
    return *found;
}

Connection& RecordsetState::Open() const {
    if (!connection) throw DbError(DbErrorCode::InvalidOperation, "the recordset is closed");
    connection->Handle();
    return *connection;
}

void RecordsetState::Go(std::int64_t to) {
    position = to < rows->Count() ? to : kBehindLast;
    mode = EditMode::None;
    recordRead = false;
    if (On_Record()) seen = std::max(seen, position + 1);
}

const std::vector<Value>& RecordsetState::Record() {
    Connection& open = Open();
    if (!On_Record() || rows->Is_Gone(position)) throw DbError(DbErrorCode::NoCurrentRecord);
    if (recordRead) return record;
    if (rows->holdsValues) {
        const auto held = rows->Values(position);
        record.assign(held.begin(), held.end());
    } else {
        PreparedStatement& row = open.Ready(plan->row, Select().row.sql);
        const Running running(row);
        row.Bind(Select().row.params, {literals, rows->Keys(position)});
        if (!row.Step()) throw DbError(DbErrorCode::NoCurrentRecord);
        const auto& columns = Select().columns;
        record.resize(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) record[i] = row.Read(static_cast<int>(i), columns[i].type);
    }
    recordRead = true;
    return record;
}

namespace {

// A table's name means all of the table.
std::string Whole_Select(std::string_view source) {
    const std::string_view name = Trim(source);
    if (name.starts_with('[')) return "SELECT * FROM " + std::string(name);
    return "SELECT * FROM [" + std::string(name) + "]";
}

void Read_Values(Connection& connection, RecordsetState& state) {
    const sql::SelectPlan& select = state.Select();
    RowList& rows = *state.rows;
    rows.holdsValues = true;
    rows.valueCount = select.columns.size();
    PreparedStatement& statement = connection.Ready(state.plan->rows, select.rows.sql);
    const Running running(statement);
    statement.Bind(select.rows.params, {state.literals, {}});
    while (statement.Step()) {
        for (std::size_t i = 0; i < rows.valueCount; ++i) {
            rows.values.push_back(statement.Read(static_cast<int>(i), select.columns[i].type));
        }
        if (rows.keyCount == 0) rows.Append();
    }
}

void Read_Keys(Connection& connection, RecordsetState& state) {
    const sql::SelectPlan& select = state.Select();
    RowList& rows = *state.rows;
    rows.keyCount = select.tables.size();
    PreparedStatement& statement = connection.Ready(state.plan->keys, select.keys.sql);
    const Running running(statement);
    statement.Bind(select.keys.params, {state.literals, {}});
    while (statement.Step()) {
        for (std::size_t i = 0; i < rows.keyCount; ++i) {
            const int column = static_cast<int>(i);
            rows.keys.push_back(statement.Is_Null(column) ? kNoKey : statement.Int(column));
        }
        rows.Append();
    }
}

// The fields behind the columns: what is set through the recordset is converted for them.
void Note_Fields(CachedPlan& plan) {
    const auto& columns = plan.plan.select.columns;
    if (plan.fields.size() == columns.size()) return;
    plan.fields.clear();
    for (const sql::OutputColumn& column : columns) plan.fields.push_back({column.field, column.type, column.size});
}

}  // namespace

std::shared_ptr<RecordsetState> Open_Rows(const std::shared_ptr<Connection>& connection, std::string_view source,
                                          RecordsetType type) {
    auto state = std::make_shared<RecordsetState>();
    const bool table = sql::Is_Table_Name(source);
    if (type == RecordsetType::Table && !table) throw DbError(DbErrorCode::InvalidOperation, source);
    state->connection = connection;
    state->source = table ? Whole_Select(source) : std::string(source);
    state->type = type;
    sql::LiftedStatement lifted;
    state->plan = connection->Plan_Of(state->source, lifted);
    if (state->plan->plan.kind != sql::Plan::Kind::Select) throw DbError(DbErrorCode::InvalidOperation, source);
    state->literals = std::move(lifted.literals);
    Note_Fields(*state->plan);

    state->rows = std::make_shared<RowList>();
    const bool haveKeys = !state->Select().keys.sql.empty();
    state->updatable = haveKeys && type != RecordsetType::Snapshot;
    try {
        if (haveKeys) Read_Keys(*connection, *state);
        if (!state->updatable) Read_Values(*connection, *state);
    } catch (const DbError& error) {
        throw Placed(error, *connection, state->source, state->literals);
    }
    state->Go(0);
    return state;
}

Row Visit_Rows(Connection& connection, std::string_view select, const std::function<bool(Row)>& visit) {
    const std::string source = sql::Is_Table_Name(select) ? Whole_Select(select) : std::string(select);
    sql::LiftedStatement lifted;
    const std::shared_ptr<CachedPlan> plan = connection.Plan_Of(source, lifted);
    if (plan->plan.kind != sql::Plan::Kind::Select) throw DbError(DbErrorCode::InvalidOperation, select);
    const sql::SelectPlan& read = plan->plan.select;
    PreparedStatement& statement = connection.Ready(plan->rows, read.rows.sql);
    const Running running(statement);
    statement.Bind(read.rows.params, {lifted.literals, {}});
    std::vector<std::string> columns;
    for (const sql::OutputColumn& column : read.columns) columns.push_back(column.name);
    const auto names = std::make_shared<const std::vector<std::string>>(std::move(columns));
    const auto step = [&] {
        try {
            return statement.Step();
        } catch (const DbError& error) {
            throw Placed(error, connection, source, lifted.literals);
        }
    };
    for (bool goOn = true; goOn && step();) {
        std::vector<Value> values;
        values.reserve(read.columns.size());
        for (std::size_t i = 0; i < read.columns.size(); ++i) {
            values.push_back(statement.Read(static_cast<int>(i), read.columns[i].type));
        }
        goOn = visit(Row(names, std::move(values)));
    }
    return {names, {}};
}

void Read_Keys_In_Index_Order(RecordsetState& state, const TableShape& table, const IndexDef& index) {
    std::string sql = "SELECT rowid FROM " + sql::Quoted_Name(table.name) + " ORDER BY ";
    for (const std::string& field : index.fields) sql += sql::Quoted_Name(field) + ", ";
    PreparedStatement statement = state.Open().Prepare(sql + "rowid");
    const Running running(statement);
    state.rows = std::make_shared<RowList>();
    state.rows->keyCount = 1;
    while (statement.Step()) {
        state.rows->keys.push_back(statement.Int(0));
        state.rows->Append();
    }
}

}  // namespace tallmar::db_detail
