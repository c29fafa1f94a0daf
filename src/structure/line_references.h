// Where the worksheets name the cost centers of the chart by number: one row a field, and one row a table that has
// columns for general service cost centers. What changes the chart walks these rows; a worksheet that names cost
// centers is added to them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/currency.h"
#include "common/item.h"
#include "common/lines.h"

namespace tallmar {

enum class LineUse : std::uint8_t {
    Row,         // the table has a row for the cost center
    Number,      // a cell names it by number
    ColumnName,  // a cell names it by its column: "CC_501"
};

inline constexpr LineRange kWholeChart{0_cur, 99.99_cur};

// Numbers of a table are those of the chart plus an offset: line 12 of the chart is line 15 of C Part III.
struct LineReference {
    ItemPattern tables;
    LineUse use;
    std::string_view key;  // the field that holds the number
    Currency offset = {};
    std::string_view repeat = {};   // a second field, with the number of the chart; empty: none
    std::string_view name = {};     // the field with the cost center's name; empty: none
    std::string_view group = {};    // the field with its group code; empty: none
    std::string_view guard = {};    // a WHERE text that limits the rows; empty: all
    LineRange lines = kWholeChart;  // lines of the chart that the table can name
};

struct LineColumns {
    ItemPattern tables;
    std::span<const std::string_view> prefixes;  // "CC_", "Recon_"
};

std::span<const LineReference> Line_References();
std::span<const LineColumns> Line_Columns();

// The reference by which a table has rows for cost centers; null where it has none.
const LineReference* Row_Reference(std::string_view table);
// "CCNum=5", "LineNum=15", "Col_3=5 and LineNum<30", "ColCCNum=\"CC_500\"": the rows that name the chart's `line`.
std::string Where_Names(const LineReference& reference, Currency line);
// The tables of the report that may name cost centers: the live worksheets by Item, then the internal tables.
std::vector<std::string> Tables_Of_Lines();

// The cost center `from` of the chart becomes `to` wherever the table names it, its columns and its group code too. No
// other line moves, and `to` must be free. The chart itself stays. Throws DbError.
void Renumber_Line(const std::string& table, Currency from, Currency to);

}  // namespace tallmar
