// What a form stored since it opened, kept so that it can be taken back: the cells of a row before and after, rows that
// came, went or moved, and what changed with them in other tables.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/form_description.h"

namespace tallmar {

// Rows of a table as they stand, each with the values of `fields`. No fields: the table is not there.
struct TableState {
    std::string table;
    std::vector<std::string> fields;
    std::vector<std::vector<Value>> rows;
};
TableState Read_State(const std::string& table, std::string_view where = {});
// The side tables of a form, as far as they belong to the line.
std::vector<TableState> Read_Sides(std::span<const SideTable> sides, Currency line);

// One row before and after; empty where there was none. On a table without LineNum the line is 0 and one of the two is
// empty: a row that changed went and came.
struct RowChange {
    Currency line;
    std::vector<Value> before, after;
};
struct TableChange {
    std::string table;
    std::vector<std::string> fields;
    std::vector<RowChange> rows;
};
// What became of the rows of one table. The two states are of the same rows.
TableChange Difference(const TableState& before, const TableState& after);
// Of each table of either; those without a difference are left out.
std::vector<TableChange> Differences(std::span<const TableState> before, std::span<const TableState> after);
// The change that takes this one back.
TableChange Reversed(TableChange change);
// Puts the rows back: what came goes, what went comes, and a changed row takes the cells that had changed. A table that
// is no longer there is passed over.
void Put_Back(const TableChange& change);

struct CellChange {
    std::string field;
    Value before, after;
};
// One row that was stored, or one Add or Delete.
struct EditPart {
    Currency line;
    std::vector<CellChange> cells;         // of a row that was there
    std::optional<TableChange> structure;  // rows of the form's own table that came, went or moved
    std::vector<TableState> sidesBefore;   // until what follows has followed
    std::vector<TableChange> sides;
};
struct EditStep {
    std::string what;  // "line 15.01 added"; empty: cells of a row
    std::vector<EditPart> parts;
};
// The step that takes this one back. What follows from it must have followed.
EditStep Reversed(const EditStep& step);

}  // namespace tallmar
