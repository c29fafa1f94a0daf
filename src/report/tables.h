// New tables from their list of fields.
#pragma once

#include <span>
#include <string_view>

#include "common/db/schema.h"

namespace tallmar {

// A field of a table that the program lays out.
struct FieldRow {
    std::string_view name;
    FieldType type;
    int size = 0;  // of Text and Char only
};

// Appends an empty table to the open report. Throws DbError TableExists.
void Append_Table(std::string_view name, std::span<const FieldRow> fields);

}  // namespace tallmar
