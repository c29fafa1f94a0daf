// Changes of the design of tables, in the file and in what is known of it.
#pragma once

#include <string_view>

#include "db/connection.h"

namespace tallmar::db_detail {

// Throw DbError: TableExists, UnknownTable, FieldExists, UnknownField, IndexExists, InvalidOperation (no fields; a
// field that an index holds), DuplicateKey and NullNotAllowed (rows that the new index would not have). A failure
// changes nothing.
void Create_Table(Connection& connection, const TableShape& shape);
void Drop_Table(Connection& connection, std::string_view table);
void Rename_Table(Connection& connection, std::string_view table, std::string_view newName);
void Create_Index(Connection& connection, std::string_view table, const IndexDef& index);
void Add_Field(Connection& connection, std::string_view table, const FieldDef& field);
void Drop_Field(Connection& connection, std::string_view table, std::string_view field);
void Rename_Field(Connection& connection, std::string_view table, std::string_view field, std::string_view newName);

// The checks of one more field of a design that is not in the file yet.
void Check_New_Field(const TableShape& shape, const FieldDef& field);

}  // namespace tallmar::db_detail
