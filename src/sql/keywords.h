// The words of the dialect.
#pragma once

#include <string_view>

#include "sql/field_types.h"

namespace tallmar::sql {

// Words that are no name of a field or table unless in brackets; in upper case.
inline constexpr std::string_view kReservedWords[] = {
    "AND",   "AS",    "BETWEEN", "BY",   "FALSE", "FROM",  "GROUP",  "HAVING", "IN", "INNER",
    "INTO",  "IS",    "JOIN",    "LEFT", "LIKE",  "MOD",   "NOT",    "NULL",   "ON", "OR",
    "ORDER", "RIGHT", "SELECT",  "SET",  "TRUE",  "UNION", "VALUES", "WHERE",
};

// True for a word that is no name of a field or table unless in brackets.
bool Is_Reserved(std::string_view word);

// The type that CREATE TABLE names by this word, in any case; null for a word that names none.
const FieldTypeRow* Find_Field_Type(std::string_view word);

}  // namespace tallmar::sql
