// How a report file holds tables: the declarations of the columns, and the statements that make them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "db/shapes.h"

namespace tallmar::db_detail {

// "TEXT(40)" or "CURRENCY INT" of a column, and back; nothing for a type that no report file has.
std::string Declared_Type(const FieldDef& field);
struct DeclaredType {
    FieldType type;
    int size;
};
std::optional<DeclaredType> Parse_Declared_Type(std::string_view declared);

std::string Column_Text(const FieldDef& field);
std::string Create_Table_Text(const TableShape& table);

// Index names are a table's own; in the file they have the table's name, and a mark where Null is refused.
std::string Stored_Index_Name(std::string_view table, const IndexDef& index);
std::string Create_Index_Text(std::string_view table, const IndexDef& index);
// Name and disallowNull of an index of `table`; nothing where it is not named as ours are.
std::optional<IndexDef> Parse_Index_Name(std::string_view table, std::string_view stored);

}  // namespace tallmar::db_detail
