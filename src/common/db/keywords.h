// The words of the dialect.
#pragma once

#include <string_view>

#include "common/value.h"

namespace tallmar {

// Words that are no name of a field or table unless they stand in brackets; in upper case.
inline constexpr std::string_view kReservedWords[] = {
    "AND",   "AS",    "BETWEEN", "BY",   "FALSE", "FROM",  "GROUP",  "HAVING", "IN", "INNER",
    "INTO",  "IS",    "JOIN",    "LEFT", "LIKE",  "MOD",   "NOT",    "NULL",   "ON", "OR",
    "ORDER", "RIGHT", "SELECT",  "SET",  "TRUE",  "UNION", "VALUES", "WHERE",
};

// The types as CREATE TABLE names them.
struct TypeWord {
    std::string_view word;
    FieldType type;
};
inline constexpr TypeWord kTypeWords[] = {
    {"BOOLEAN", FieldType::Boolean}, {"YESNO", FieldType::Boolean},     {"BIT", FieldType::Boolean},
    {"BYTE", FieldType::Byte},       {"INTEGER", FieldType::Integer},   {"SHORT", FieldType::Integer},
    {"LONG", FieldType::Long},       {"CURRENCY", FieldType::Currency}, {"MONEY", FieldType::Currency},
    {"SINGLE", FieldType::Single},   {"DOUBLE", FieldType::Double},     {"DATE", FieldType::Date},
    {"DATETIME", FieldType::Date},   {"TEXT", FieldType::Text},         {"MEMO", FieldType::Memo},
    {"LONGTEXT", FieldType::Memo},   {"CHAR", FieldType::Char},
};
inline constexpr int kDefaultTextSize = 255;

}  // namespace tallmar
