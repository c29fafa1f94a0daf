#include "screens/table_change.h"

#include <algorithm>
#include <map>
#include <utility>

#include "common/sql_text.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

constexpr std::string_view kLine = "LineNum";

std::optional<std::size_t> Line_Field(std::span<const std::string> fields) {
    const auto found = std::ranges::find_if(fields, [](const std::string& field) { return Same_Text(field, kLine); });
    if (found == fields.end()) return std::nullopt;
    return static_cast<std::size_t>(found - fields.begin());
}

void Insert_Row(const TableChange& change, std::span<const Value> values) {
    std::string fields, list;
    for (std::size_t i = 0; i < values.size(); ++i) {
        fields += Sql(i == 0 ? "" : ", ", change.fields[i]);
        list += Sql(i == 0 ? "" : ", ", values[i]);
    }
    db.Execute(Sql("INSERT INTO ", change.table, " (", fields, ") VALUES (", list, ");"));
}

std::string Where_Equal(const TableChange& change, std::span<const Value> values) {
    std::string where;
    for (std::size_t i = 0; i < values.size(); ++i) {
        where += Sql(i == 0 ? "" : " AND ", change.fields[i]);
        where += values[i].Is_Null() ? std::string(" Is Null") : Sql(" = ", values[i]);
    }
    return where;
}

void Put_Back_Line(const TableChange& change, const RowChange& row) {
    const std::string where = Sql(" WHERE LineNum = ", row.line, ";");
    if (row.before.empty()) {
        db.Execute(Sql("DELETE FROM ", change.table, where));
        return;
    }
    if (!db.Read_Row(Sql("SELECT LineNum FROM ", change.table, where))) return Insert_Row(change, row.before);
    std::string update;
    for (std::size_t i = 0; i < row.before.size(); ++i) {
        if (!row.after.empty() && row.after[i] == row.before[i]) continue;
        update += Sql(update.empty() ? " SET " : ", ", change.fields[i], "=", row.before[i]);
    }
    db.Execute(Sql("UPDATE ", change.table, update, where));
}

}  // namespace

TableState Read_State(const std::string& table, std::string_view where) {
    TableState state{.table = table, .fields = {}, .rows = {}};
    if (!db.TableDefs().Has(table)) return state;
    const TableDef def = db.TableDefs().Item(table);
    for (const FieldDef& field : def.Shape().fields) state.fields.push_back(field.name);
    Recordset rows = db.OpenRecordset(Sql("SELECT * FROM ", table, where.empty() ? "" : " WHERE ", where, ";"),
                                      RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        std::vector<Value>& values = state.rows.emplace_back();
        for (const std::string& field : state.fields) values.push_back(rows[field]);
    }
    return state;
}

std::vector<TableState> Read_Sides(std::span<const SideTable> sides, Currency line) {
    std::vector<TableState> states;
    if (sides.empty()) return states;
    const TableDefs tables = db.TableDefs();
    for (const SideTable& side : sides) {
        if (side.ofLine != Currency() && side.ofLine != line) continue;
        const std::string where = side.rowField.empty() ? "" : Sql(side.rowField, " = ", line);
        const std::string name(side.tables.Text());
        if (name.find_first_of("*?#") == std::string::npos) {
            states.push_back(Read_State(name, where));
            continue;
        }
        for (int i = 0; i < tables.Count(); ++i) {
            const std::string table = tables.Item(i).Name();
            if (side.tables.Matches(table)) states.push_back(Read_State(table, where));
        }
    }
    return states;
}

TableChange Row_That_Came(const std::string& table, Currency line, const Row& row) {
    TableChange change{table, *row.Field_Names(), {}};
    RowChange& came = change.rows.emplace_back(RowChange{line, {}, {}});
    for (const std::string& field : change.fields) came.after.push_back(row[field]);
    return change;
}

TableChange Difference(const TableState& before, const TableState& after) {
    TableChange change{before.table, before.fields.empty() ? after.fields : before.fields, {}};
    const bool isSameShape = before.fields == after.fields || before.fields.empty() || after.fields.empty();
    if (!isSameShape) return change;
    if (const std::optional<std::size_t> at = Line_Field(change.fields)) {
        std::map<Currency, RowChange> lines;
        for (const auto& row : before.rows) lines[row[*at].To_Currency()].before = row;
        for (const auto& row : after.rows) lines[row[*at].To_Currency()].after = row;
        for (auto& [line, row] : lines) {
            if (row.before == row.after) continue;
            row.line = line;
            change.rows.push_back(std::move(row));
        }
        return change;
    }
    for (const auto& row : before.rows) {
        if (std::ranges::find(after.rows, row) == after.rows.end()) change.rows.push_back({{}, row, {}});
    }
    for (const auto& row : after.rows) {
        if (std::ranges::find(before.rows, row) == before.rows.end()) change.rows.push_back({{}, {}, row});
    }
    return change;
}

std::vector<TableChange> Differences(std::span<const TableState> before, std::span<const TableState> after) {
    std::vector<TableChange> changes;
    const auto add = [&](const TableState& from, const TableState& to) {
        TableChange change = Difference(from, to);
        if (!change.rows.empty()) changes.push_back(std::move(change));
    };
    for (const TableState& state : before) {
        const auto found = std::ranges::find(after, state.table, &TableState::table);
        add(state, found != after.end() ? *found : TableState{state.table, {}, {}});
    }
    for (const TableState& state : after) {
        if (std::ranges::find(before, state.table, &TableState::table) == before.end()) {
            add({state.table, {}, {}}, state);
        }
    }
    return changes;
}

TableChange Reversed(TableChange change) {
    for (RowChange& row : change.rows) std::swap(row.before, row.after);
    return change;
}

void Put_Back(const TableChange& change) {
    if (!db.TableDefs().Has(change.table)) return;
    const bool hasLines = Line_Field(change.fields).has_value();
    // What came goes first: no two rows of a line at any time.
    for (const RowChange& row : change.rows) {
        if (!row.before.empty()) continue;
        if (hasLines) {
            Put_Back_Line(change, row);
        } else {
            db.Execute(Sql("DELETE FROM ", change.table, " WHERE ", Where_Equal(change, row.after), ";"));
        }
    }
    for (const RowChange& row : change.rows) {
        if (row.before.empty()) continue;
        if (hasLines) {
            Put_Back_Line(change, row);
        } else {
            Insert_Row(change, row.before);
        }
    }
}

}  // namespace tallmar
