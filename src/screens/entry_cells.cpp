#include "screens/entry_cells.h"

#include <optional>
#include <set>

#include "common/db/sql_text.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

// `field` is one of the words of `fields`.
bool Is_Named(std::string_view fields, std::string_view field) {
    while (!fields.empty()) {
        const std::size_t end = std::min(fields.find(' '), fields.size());
        if (fields.substr(0, end) == field) return true;
        fields.remove_prefix(std::min(end + 1, fields.size()));
    }
    return false;
}

std::set<Currency> Lines_Of(const Item& item, const UserLines& group) {
    std::set<Currency> lines;
    Recordset rows = db.OpenRecordset(
        Sql("SELECT LineNum FROM ", item.Name(), " WHERE LineNum BETWEEN ", group.from, " AND ", group.to, ";"),
        RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) lines.insert(rows["LineNum"].To_Currency());
    return lines;
}

std::optional<Currency> Free_Line(const std::set<Currency>& taken, const UserLines& group, Currency behind) {
    for (Currency line = group.from; line <= group.to; line += group.step) {
        if (line > behind && !taken.contains(line)) return line;
    }
    return std::nullopt;
}

}  // namespace

bool Is_Entry_Cell(std::span<const EntryCells> cells, Currency line, std::string_view field) {
    return std::ranges::any_of(cells, [&](const EntryCells& entry) {
        return line >= entry.from && line <= entry.to && Is_Named(entry.fields, field);
    });
}

Currency Add_User_Line(const Item& item, const UserLines& group, Currency current, const NewRow& row) {
    const std::set<Currency> taken = Lines_Of(item, group);
    std::optional<Currency> line = Free_Line(taken, group, current);
    if (!line) line = Free_Line(taken, group, {});
    if (!line) line = group.to;
    db.Execute(
        Sql("INSERT INTO ", item.Name(), " (LineNum, ", row.fields, ") VALUES (", *line, ", ", row.values, ");"));
    return *line;
}

void Delete_Line(const Item& item, Currency line) {
    db.Execute(Sql("DELETE FROM ", item.Name(), " WHERE LineNum = ", line, ";"));
}

}  // namespace tallmar
