// Lines of a worksheet: ranges of them, tables by range, and the lines that a form always has.
#pragma once

#include <cstdint>
#include <ranges>
#include <span>

#include "common/currency.h"

namespace tallmar {

// Both ends are included. One line is a range as well.
struct LineRange {
    Currency from, to;

    constexpr LineRange(Currency line) : from(line), to(line) {}
    constexpr LineRange(Currency first, Currency last) : from(first), to(last) {}
    constexpr bool Has(Currency line) const { return line >= from && line <= to; }
};

// The first row of a table whose `lines` have the line and that meets `also`. Null where there is none.
template <std::ranges::contiguous_range Rows, typename Also>
constexpr auto Find_Row(const Rows& rows, Currency line, Also also) -> const std::ranges::range_value_t<Rows>* {
    for (const auto& row : rows) {
        if (row.lines.Has(line) && also(row)) return &row;
    }
    return nullptr;
}
template <std::ranges::contiguous_range Rows>
constexpr auto Find_Row(const Rows& rows, Currency line) {
    return Find_Row(rows, line, [](const auto&) { return true; });
}

enum class LineKind : std::uint8_t {
    Entry,    // an ordinary line, keyed or computed
    Total,    // set apart on screen and in print
    Heading,  // a wording over the lines behind it, without cells
    Shaded,   // its cells are not in use
};

// A line that the form always has.
struct FixedRow {
    Currency line;
    const char* label;   // null: the label is Null
    const char* values;  // the rest of the row as the statement writes it: "0,0,Null"; empty: no further fields
    LineKind kind = LineKind::Entry;
};

// Of a line that is not among them: Entry.
constexpr LineKind Kind_Of(std::span<const FixedRow> lines, Currency line) {
    for (const FixedRow& row : lines) {
        if (row.line == line) return row.kind;
    }
    return LineKind::Entry;
}

}  // namespace tallmar
