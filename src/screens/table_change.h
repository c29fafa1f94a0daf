// Rows of tables before and after a change, and the way back.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/form_description.h"

namespace tallmar {

// The rows of a table as it holds them, each with the values of `fields`. No fields: the table is not there.
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
// One row that was not there before, as a SELECT of all fields gave it.
TableChange Row_That_Came(const std::string& table, Currency line, const Row& row);
// What became of the rows of one table. The two states are of the same rows.
TableChange Difference(const TableState& before, const TableState& after);
// Of each table of either; those without a difference are left out.
std::vector<TableChange> Differences(std::span<const TableState> before, std::span<const TableState> after);
// The change that takes this one back.
TableChange Reversed(TableChange change);
// Puts the rows back: what came goes, what went comes, and a changed row takes the cells that had changed. A table that
// is no longer there is passed over.
void Put_Back(const TableChange& change);

}  // namespace tallmar
