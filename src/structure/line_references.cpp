#include "structure/line_references.h"

#include <algorithm>
#include <array>

#include "calc/stat_columns.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "structure/cc_group.h"

namespace tallmar {

namespace {

constexpr std::array kReferences{
    LineReference{
        .tables = "A", .use = LineUse::Row, .key = "CCNum", .repeat = "LineNum", .name = "CCName", .group = "CCGroup"},
    LineReference{.tables = "A1", .use = LineUse::Row, .key = "LineNum", .name = "CCName"},
    LineReference{.tables = "A2", .use = LineUse::Row, .key = "LineNum", .name = "CCName"},
    LineReference{.tables = "A3", .use = LineUse::Row, .key = "LineNum", .name = "CCName"},
    LineReference{.tables = "A4", .use = LineUse::Number, .key = "Col_3", .name = "Col_2", .guard = "LineNum<30"},
    LineReference{.tables = "A4", .use = LineUse::Number, .key = "Col_6", .name = "Col_5", .guard = "LineNum<30"},
    LineReference{.tables = "A5", .use = LineUse::Number, .key = "Col_4", .name = "Col_3"},
    LineReference{.tables = "B", .use = LineUse::Row, .key = "CCNum", .repeat = "LineNum", .name = "CCName"},
    LineReference{.tables = "B1", .use = LineUse::Row, .key = "CCNum", .repeat = "LineNum", .name = "CCName"},
    LineReference{.tables = "B1X", .use = LineUse::Number, .key = "RowCCNum"},
    LineReference{.tables = "B1X", .use = LineUse::ColumnName, .key = "ColCCNum"},
    // Supplies and drugs, three lines further down; column 1 has the number of the chart.
    LineReference{.tables = "Cp3",
                  .use = LineUse::Row,
                  .key = "LineNum",
                  .offset = 3_cur,
                  .repeat = "Col_1",
                  .name = "Description",
                  .lines = {12_cur, 13.99_cur}},
    // Other than B1X, a number.
    LineReference{.tables = "K5p2h#X", .use = LineUse::Number, .key = "ColCCNum"},
    LineReference{.tables = "StatLinks", .use = LineUse::Number, .key = "FromCCNum"},
    LineReference{.tables = "StatLinks", .use = LineUse::Number, .key = "ToCCNum"},
};

constexpr std::string_view kAmounts[] = {kCCPrefix};
constexpr std::string_view kStatistics[] = {kCCPrefix, kReconPrefix};
constexpr std::array kColumns{
    LineColumns{"B", kAmounts},
    LineColumns{"B1", kStatistics},
    LineColumns{"K5p2h#", kStatistics},
};

constexpr std::string_view kLiveWorksheets =
    "SELECT Item From Worksheets Where (KillDate <= MakeDate Or KillDate Is Null) And Calc_Lvl < 999 ORDER BY Item;";
constexpr std::string_view kInternalTables = "SELECT Item From Worksheets Where Calc_Lvl >= 999 ORDER BY Item;";

std::string Key_Value(const LineReference& reference, Currency line) {
    if (reference.use == LineUse::ColumnName) return Quoted(CC_Column(line));
    return (line + reference.offset).To_Text();
}

void Rename_Columns(const std::string& table, std::span<const std::string_view> prefixes, Currency from, Currency to) {
    TableDef def = db.TableDefs().Item(table);
    for (const std::string_view prefix : prefixes) {
        const std::string column = Line_Column(prefix, from);
        if (def.Shape().Find_Field(column) != nullptr) def.Field_Name(column, Line_Column(prefix, to));
    }
}

}  // namespace

std::span<const LineReference> Line_References() {
    return kReferences;
}

std::span<const LineColumns> Line_Columns() {
    return kColumns;
}

const LineReference* Row_Reference(std::string_view table) {
    const auto found = std::ranges::find_if(kReferences, [&](const LineReference& reference) {
        return reference.use == LineUse::Row && reference.tables.Matches(table);
    });
    return found == kReferences.end() ? nullptr : &*found;
}

std::string Where_Names(const LineReference& reference, Currency line) {
    return Sql(reference.key, "=", Key_Value(reference, line), reference.guard.empty() ? "" : " and ", reference.guard);
}

std::vector<std::string> Tables_Of_Lines() {
    std::vector<std::string> tables = Read_Items(kLiveWorksheets);
    const TableDefs there = db.TableDefs();
    for (const std::string& table : Read_Items(kInternalTables)) {
        if (there.Has(table)) tables.push_back(table);
    }
    return tables;
}

void Renumber_Line(const std::string& table, Currency from, Currency to) {
    for (const LineColumns& columns : kColumns) {
        if (columns.tables.Matches(table)) Rename_Columns(table, columns.prefixes, from, to);
    }
    for (const LineReference& reference : kReferences) {
        if (!reference.tables.Matches(table) || !reference.lines.Has(from)) continue;
        std::string update = Sql("UPDATE ", table, " SET ", reference.key, " = ", Key_Value(reference, to));
        if (!reference.repeat.empty()) update += Sql(", ", reference.repeat, " = ", to);
        if (!reference.group.empty()) update += Sql(", ", reference.group, " = ", CCGroupFor(to));
        db.Execute(Sql(update, " WHERE ", Where_Names(reference, from), ";"));
    }
}

}  // namespace tallmar
