#include "db/database.h"

// Rows looked for: by a criterion of the dialect, or by the key of an index.
#include <functional>
#include <optional>

#include "common/text.h"
#include "db/convert.h"
#include "db/recordset_state.h"
#include "db/storage.h"

namespace tallmar {

using namespace db_detail;

namespace {

// Compiled searches kept with a SELECT; past this many they start over.
constexpr std::size_t kFindsKept = 64;

FindStatement& Compiled_Find(RecordsetState& state, std::string_view criterion, const std::string& shape) {
    auto& finds = state.plan->finds;
    if (const auto known = finds.find(shape); known != finds.end()) return known->second;
    FindStatement made{sql::Compile_Find(state.source, criterion, state.Open().Shapes()), {}};
    if (finds.size() >= kFindsKept) finds.clear();
    return finds.emplace(shape, std::move(made)).first->second;
}

// Every row of the recordset that meets the criterion, by its position, in no order that matters.
void For_Each_Match(RecordsetState& state, std::string_view criterion, const std::function<void(std::int64_t)>& visit) {
    Connection& connection = state.Open();
    if (state.Select().keys.sql.empty()) throw DbError(DbErrorCode::InvalidOperation, criterion);
    sql::LiftedStatement lifted = sql::Lift(criterion);
    FindStatement& find = Compiled_Find(state, criterion, lifted.shape);
    std::vector<sql::Literal> literals = state.literals;
    literals.insert(literals.end(), lifted.literals.begin(), lifted.literals.end());

    PreparedStatement& statement = connection.Ready(find.statement, find.text.sql);
    const Running running(statement);
    statement.Bind(find.text.params, {literals, {}});
    std::vector<std::int64_t> keys(state.rows->keyCount);
    while (statement.Step()) {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const int column = static_cast<int>(i);
            keys[i] = statement.Is_Null(column) ? kNoKey : statement.Int(column);
        }
        const std::int64_t position = state.rows->Position_Of(keys);
        if (position >= 0 && !state.rows->Is_Gone(position)) visit(position);
    }
}

void Settle(RecordsetState& state, std::optional<std::int64_t> found) {
    state.noMatch = !found;
    if (found) state.Go(*found);
}

// The first match behind `after`.
void Find_Forward(RecordsetState& state, std::string_view criterion, std::int64_t after) {
    std::optional<std::int64_t> best;
    For_Each_Match(state, criterion, [&](std::int64_t position) {
        if (position > after && (!best || position < *best)) best = position;
    });
    Settle(state, best);
}

// The last match before `before`.
void Find_Backward(RecordsetState& state, std::string_view criterion, std::int64_t before) {
    std::optional<std::int64_t> best;
    For_Each_Match(state, criterion, [&](std::int64_t position) {
        if (position < before && (!best || position > *best)) best = position;
    });
    Settle(state, best);
}

// The comparison of the first field of the index with the key, and the order in which the wanted row comes first.
struct Comparison {
    std::string_view name;
    bool descending;
};
constexpr Comparison kComparisons[] = {{"=", false}, {">=", false}, {">", false}, {"<=", true}, {"<", true}};

std::string Seek_Text(const TableShape& table, const IndexDef& index, const Comparison& comparison) {
    const std::string_view direction = comparison.descending ? " DESC" : "";
    std::string sql =
        "SELECT rowid FROM " + sql::Quoted_Name(table.name) + " WHERE " + sql::Quoted_Name(index.fields.at(0)) + " ";
    sql += comparison.name;
    sql += " ?1 ORDER BY ";
    for (const std::string& field : index.fields) {
        sql += sql::Quoted_Name(field);
        sql += direction;
        sql += ", ";
    }
    return sql + "rowid" + std::string(direction) + " LIMIT 1";
}

}  // namespace

void Recordset::FindFirst(std::string_view criterion) {
    state_->Open();
    Find_Forward(*state_, criterion, -1);
}

void Recordset::FindNext(std::string_view criterion) {
    state_->Open();
    Find_Forward(*state_, criterion, state_->position);
}

void Recordset::FindPrevious(std::string_view criterion) {
    state_->Open();
    Find_Backward(*state_, criterion, state_->position);
}

void Recordset::FindLast(std::string_view criterion) {
    state_->Open();
    Find_Backward(*state_, criterion, state_->rows->Count());
}

// A table recordset means the table as it is: a row that has come since it was opened is found as well.
void Recordset::Seek(std::string_view comparison, const Value& key) {
    RecordsetState& state = *state_;
    Connection& connection = state.Open();
    if (state.type != RecordsetType::Table || state.index.empty()) {
        throw DbError(DbErrorCode::InvalidOperation, "Seek without an index");
    }
    const TableShape* table = connection.Shapes().Find(state.Select().tables.at(0));
    const IndexDef* index = table != nullptr ? table->Find_Index(state.index) : nullptr;
    if (index == nullptr) throw DbError(DbErrorCode::UnknownIndex, state.index);
    for (const Comparison& row : kComparisons) {
        if (row.name != comparison) continue;
        const Value wanted = Convert_For_Field(key, *table->Find_Field(index->fields.at(0)));
        std::optional<std::int64_t> found;
        {
            const std::string sql = Seek_Text(*table, *index, row);
            PreparedStatement& statement = connection.Ready(state.plan->others[sql], sql);
            const Running running(statement);
            statement.Bind(1, wanted);
            if (statement.Step()) found = statement.Int(0);
        }
        if (found) {
            const std::int64_t rowKey = *found;
            found = state.rows->Position_Of({&rowKey, 1});
            if (*found < 0) {
                Read_Keys_In_Index_Order(state, *table, *index);
                found = state.rows->Position_Of({&rowKey, 1});
            }
        }
        Settle(state, found);
        return;
    }
    throw DbError(DbErrorCode::InvalidOperation, comparison);
}

}  // namespace tallmar
