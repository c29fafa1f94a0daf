#include "screens/entry_cells.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

std::set<Currency> Lines_Of(const Item& item, const UserLines& group) {
    std::set<Currency> lines;
    Recordset rows = db.OpenRecordset(Sql("SELECT LineNum FROM ", item.Name(), " WHERE LineNum BETWEEN ",
                                          group.lines.from, " AND ", group.lines.to, ";"),
                                      RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) lines.insert(rows["LineNum"].To_Currency());
    return lines;
}

std::optional<Currency> Free_Line(const std::set<Currency>& taken, const UserLines& group, Currency behind) {
    for (Currency line = group.lines.from; line <= group.lines.to; line += group.step) {
        if (line > behind && !taken.contains(line)) return line;
    }
    return std::nullopt;
}

}  // namespace

bool Is_Named(std::string_view fields, std::string_view field) {
    while (!fields.empty()) {
        const std::size_t end = std::min(fields.find(' '), fields.size());
        if (fields.substr(0, end) == field) return true;
        fields.remove_prefix(std::min(end + 1, fields.size()));
    }
    return false;
}

bool Is_Entry_Cell(std::span<const EntryCells> cells, Currency line, std::string_view field) {
    return Find_Row(cells, line, [&](const EntryCells& entry) { return Is_Named(entry.fields, field); }) != nullptr;
}

std::string_view Why_No_Entry(const CellPlace& place) {
    if (place.column.number.empty()) return why::kWording;
    return place.row.Stored(place.column.field).Is_Null() ? why::kShaded : why::kComputed;
}

std::string_view Find_Source(std::span<const SourcedCells> cells, Currency line, std::string_view field) {
    const SourcedCells* found =
        Find_Row(cells, line, [&](const SourcedCells& sourced) { return Is_Named(sourced.fields, field); });
    return found == nullptr ? std::string_view() : found->why;
}

std::optional<Currency> Next_User_Line(const Item& item, const UserLines& group, Currency line) {
    const std::set<Currency> taken = Lines_Of(item, group);
    const auto at = taken.lower_bound(line);
    const Currency behind = at == taken.begin() ? Currency() : *std::prev(at);
    const std::optional<Currency> next = Free_Line(taken, group, behind);
    return next ? next : Free_Line(taken, group, {});
}

Currency Add_User_Line(const Item& item, const UserLines& group, Currency current, const NewRow& row) {
    const std::set<Currency> taken = Lines_Of(item, group);
    std::optional<Currency> line = Free_Line(taken, group, current);
    if (!line) line = Free_Line(taken, group, {});
    if (!line) line = group.lines.to;
    db.Execute(
        Sql("INSERT INTO ", item.Name(), " (LineNum, ", row.fields, ") VALUES (", *line, ", ", row.values, ");"));
    return *line;
}

void Delete_Line(const Item& item, Currency line) {
    db.Execute(Sql("DELETE FROM ", item.Name(), " WHERE LineNum = ", line, ";"));
}

}  // namespace tallmar
