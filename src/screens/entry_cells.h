// Forms of which a person keys some cells and the calculation fills the rest: where they may be keyed, and how the
// lines that the person adds get their numbers.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "screens/form_description.h"

namespace tallmar {

// Lines `from` to `to`, both included: the fields that a person keys there, "Col_5 Col_6".
struct EntryCells {
    Currency from, to;
    std::string_view fields;
};

bool Is_Entry_Cell(std::span<const EntryCells> cells, Currency line, std::string_view field);

// The `locked` rule of a form whose table names every cell that it takes.
template <const auto& kCells>
bool Locked_Elsewhere(const CellPlace& place) {
    return !Is_Entry_Cell(kCells, place.row.Line(), place.column.field);
}

// Lines that a person adds: `from`, `from` + `step` and on to `to`.
struct UserLines {
    Currency from, to, step;

    bool Has(Currency line) const { return line >= from && line <= to; }
};

// A line of up to two decimals in one of the groups.
template <const auto& kGroups>
bool Can_Make_User_Line(Currency line) {
    return Currency::From_Scaled(line.Scaled() * 100).Is_Whole() &&
           std::ranges::any_of(kGroups, [&](const UserLines& group) { return group.Has(line); });
}

// Makes the first free line behind `current`, or else the first free one of the group, and returns it. Throws DbError
// (a duplicate key) where the group is full.
Currency Add_User_Line(const Item& item, const UserLines& group, Currency current, const NewRow& row);

void Delete_Line(const Item& item, Currency line);

}  // namespace tallmar
