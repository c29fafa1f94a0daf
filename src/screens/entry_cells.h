// Forms of which a person keys some cells and the calculation fills the rest: where they may be keyed, and how the
// lines that the person adds get their numbers.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "common/lines.h"
#include "screens/form_description.h"

namespace tallmar {

// The fields that a person keys in these lines: "Col_5 Col_6".
struct EntryCells {
    LineRange lines;
    std::string_view fields;
};

// `field` is one of the words of `fields`.
bool Is_Named(std::string_view fields, std::string_view field);
bool Is_Entry_Cell(std::span<const EntryCells> cells, Currency line, std::string_view field);

// Why a cell that is not named is locked: a wording, or shaded where it is empty, or else computed.
std::string_view Why_No_Entry(const CellPlace& place);

// The `locked` rule of a form whose table names every cell that it takes.
template <const auto& kCells>
std::string_view Locked_Elsewhere(const CellPlace& place) {
    if (Is_Entry_Cell(kCells, place.row.Line(), place.column.field)) return {};
    return Why_No_Entry(place);
}

// Cells that come from elsewhere, and from where.
struct SourcedCells {
    LineRange lines;
    std::string_view fields;
    std::string_view why;
};
// Empty for a cell of no row.
std::string_view Find_Source(std::span<const SourcedCells> cells, Currency line, std::string_view field);

// Lines that a person adds: the first of the range, `step` behind it and on to the last.
struct UserLines {
    LineRange lines;
    Currency step;
};

// The free line of the group behind the last one before `line`, or else its first free one; nothing where it is full.
std::optional<Currency> Next_User_Line(const Item& item, const UserLines& group, Currency line);

// The `nextLine` of a form with groups of lines.
template <const auto& kGroups>
std::optional<Currency> Next_In_Group(const Item& item, Currency line) {
    const UserLines* group = Find_Row(kGroups, line);
    return group == nullptr ? std::nullopt : Next_User_Line(item, *group, line);
}

// Makes the first free line behind `current`, or else the first free one of the group, and returns it. Throws DbError
// (a duplicate key) where the group is full.
Currency Add_User_Line(const Item& item, const UserLines& group, Currency current, const NewRow& row);

void Delete_Line(const Item& item, Currency line);

}  // namespace tallmar
