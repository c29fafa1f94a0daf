#include "db/database.h"

// Rows written through a recordset.
#include <algorithm>

#include "db/convert.h"
#include "db/recordset_state.h"
#include "db/storage.h"

namespace tallmar {

using namespace db_detail;

namespace {

// Sets of fields remembered with a SELECT; past this many they start over.
constexpr std::size_t kWritesKept = 32;

void Begin_Changes(RecordsetState& state, EditMode mode) {
    const std::size_t columns = state.Select().columns.size();
    state.mode = mode;
    state.changes.assign(columns, Null);
    state.changed.assign(columns, false);
}

std::string Write_Text(const std::string& table, const sql::SelectPlan& select, const std::vector<int>& columns,
                       bool insert) {
    if (insert && columns.empty()) return "INSERT INTO " + sql::Quoted_Name(table) + " DEFAULT VALUES";
    std::string names, values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string comma = i == 0 ? "" : ", ";
        const std::string name = sql::Quoted_Name(select.columns[static_cast<std::size_t>(columns[i])].field);
        const std::string mark = "?" + std::to_string(i + 1);
        names += comma + name + (insert ? "" : " = " + mark);
        values += comma + mark;
    }
    if (insert) return "INSERT INTO " + sql::Quoted_Name(table) + " (" + names + ") VALUES (" + values + ")";
    return "UPDATE " + sql::Quoted_Name(table) + " SET " + names + " WHERE rowid = ?" +
           std::to_string(columns.size() + 1);
}

PreparedStatement& Ready_Write(RecordsetState& state, const std::string& table, const std::vector<int>& columns,
                               bool insert) {
    auto& writes = state.plan->writes;
    for (WriteStatement& known : writes) {
        if (known.insert == insert && known.columns == columns) return known.statement;
    }
    if (writes.size() >= kWritesKept) writes.clear();
    PreparedStatement made = state.Open().Prepare(Write_Text(table, state.Select(), columns, insert));
    writes.push_back({insert, columns, std::move(made)});
    return writes.back().statement;
}

// The fields set, and the one base table that they belong to. Of nothing set the first table is meant.
int Table_Of_Changes(const RecordsetState& state, std::vector<int>& columns) {
    int table = -1;
    for (std::size_t i = 0; i < state.changed.size(); ++i) {
        if (!state.changed[i]) continue;
        const sql::OutputColumn& column = state.Select().columns[i];
        if (table >= 0 && column.table != table) throw DbError(DbErrorCode::NotUpdatable, column.name);
        table = column.table;
        columns.push_back(static_cast<int>(i));
    }
    return std::max(table, 0);
}

// Null where an index refuses it: in a field set, and for a new row in a field left out.
void Refuse_Null(const RecordsetState& state, const TableShape& shape, const std::vector<int>& columns, bool insert) {
    for (const IndexDef& index : shape.indexes) {
        if (!index.disallowNull) continue;
        for (const std::string& field : index.fields) {
            const auto set = std::ranges::find_if(columns, [&](int column) {
                return Same_Text(state.Select().columns[static_cast<std::size_t>(column)].field, field);
            });
            const bool isNull = set == columns.end() ? insert : state.changes[static_cast<std::size_t>(*set)].Is_Null();
            if (isNull) throw DbError(DbErrorCode::NullNotAllowed, field);
        }
    }
}

void Write_Changes(RecordsetState& state, Connection& connection) {
    const bool insert = state.mode == EditMode::AddNew;
    std::vector<int> columns;
    const auto place = static_cast<std::size_t>(Table_Of_Changes(state, columns));
    if (columns.empty() && !insert) return;
    const std::string& table = state.Select().tables.at(place);
    const TableShape* shape = connection.Shapes().Find(table);
    if (shape == nullptr) throw DbError(DbErrorCode::UnknownTable, table);
    Refuse_Null(state, *shape, columns, insert);

    PreparedStatement& write = Ready_Write(state, shape->name, columns, insert);
    const Running running(write);
    int parameter = 1;
    for (const int column : columns) write.Bind(parameter++, state.changes[static_cast<std::size_t>(column)]);
    if (!insert) {
        const std::int64_t key = state.rows->Keys(state.position)[place];
        if (key == kNoKey) throw DbError(DbErrorCode::NotUpdatable, table);
        write.Bind(parameter, key);
    }
    write.Step();
    if (!insert && sqlite3_changes64(connection.Handle()) == 0) throw DbError(DbErrorCode::NoCurrentRecord);
    // A new row of a join has no partner that is known here: it is not among the rows until they are read again.
    if (insert && state.rows->keyCount == 1) {
        state.rows->keys.push_back(sqlite3_last_insert_rowid(connection.Handle()));
        state.rows->Append();
    }
}

}  // namespace

void Field::Set(const tallmar::Value& value) {
    state_->Open();
    RecordsetState& state = *state_;
    const auto place = static_cast<std::size_t>(position_);
    if (state.mode == EditMode::None) throw DbError(DbErrorCode::NoEdit);
    if (state.Select().columns[place].table < 0) throw DbError(DbErrorCode::NotUpdatable, Name());
    state.changes[place] = Convert_For_Field(value, state.plan->fields[place]);
    state.changed[place] = true;
}

void Recordset::AddNew() {
    Connection& connection = state_->Open();
    if (!state_->updatable) throw DbError(DbErrorCode::NotUpdatable, state_->source);
    if (connection.Is_Read_Only()) throw DbError(DbErrorCode::ReadOnly, connection.Path());
    Begin_Changes(*state_, EditMode::AddNew);
}

// The record is read again: what is edited is what is in the file.
void Recordset::Edit() {
    Connection& connection = state_->Open();
    if (!state_->updatable) throw DbError(DbErrorCode::NotUpdatable, state_->source);
    if (connection.Is_Read_Only()) throw DbError(DbErrorCode::ReadOnly, connection.Path());
    state_->recordRead = false;
    state_->Record();
    Begin_Changes(*state_, EditMode::Edit);
}

void Recordset::Update() {
    Connection& connection = state_->Open();
    if (state_->mode == EditMode::None) throw DbError(DbErrorCode::NoEdit);
    connection.Require_Whole_Job();
    Write_Changes(*state_, connection);
    const bool firstRow = state_->mode == EditMode::AddNew && state_->rows->Count() == 1;
    state_->mode = EditMode::None;
    state_->recordRead = false;
    if (firstRow) state_->Go(0);
}

void Recordset::CancelUpdate() {
    state_->Open();
    if (state_->mode == EditMode::None) throw DbError(DbErrorCode::NoEdit);
    state_->mode = EditMode::None;
}

void Recordset::Delete() {
    RecordsetState& state = *state_;
    Connection& connection = state.Open();
    if (!state.updatable || state.rows->keyCount != 1) throw DbError(DbErrorCode::NotUpdatable, state.source);
    connection.Require_Whole_Job();
    if (!state.On_Record() || state.rows->Is_Gone(state.position)) throw DbError(DbErrorCode::NoCurrentRecord);
    state.mode = EditMode::None;
    const std::int64_t key = state.rows->Keys(state.position)[0];
    const std::string sql = "DELETE FROM " + sql::Quoted_Name(state.Select().tables.at(0)) + " WHERE rowid = ?1";
    PreparedStatement& statement = connection.Ready(state.plan->others[sql], sql);
    const Running running(statement);
    statement.Bind(1, key);
    statement.Step();
    if (sqlite3_changes64(connection.Handle()) == 0) throw DbError(DbErrorCode::NoCurrentRecord);
    state.rows->Set_Gone(state.position);
    state.recordRead = false;
}

}  // namespace tallmar
