// New tables from their list of columns.
#pragma once

#include <span>
#include <string_view>

#include "db/shapes.h"

namespace tallmar {

// A column of a table that the program lays out. Most cells of the form are amounts.
struct Column {
    std::string_view name;
    FieldType type = FieldType::Currency;
    int size = 0;  // of Text and Char only
};

// An empty table in the open report, its columns in order. Throws DbError TableExists: a rebuild drops the old one
// first.
void Create_Table(std::string_view name, std::span<const Column> fields);

}  // namespace tallmar
