// The types of fields, one row each: how a statement and `dump` name them, how the file declares them, what an
// expression makes of them, and what a value must pass on its way in.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

#include "common/value.h"
#include "sql/type.h"

namespace tallmar::sql {

struct FieldTypeRow {
    FieldType field;
    std::string_view name;                            // "Currency": of `dump`, and in any case of CREATE TABLE
    std::string_view declared;                        // of the column in the file; a size and ")" follow the "("
    Type type;                                        // of the field in an expression
    std::array<std::string_view, 2> otherWords = {};  // that CREATE TABLE takes as well
    // What SQLite computes to check a value of `type`: "$" is the value, "%" the field's name, "#" its size. Empty
    // where the type alone keeps within the field.
    std::string_view check = {};
    // Of whole numbers.
    std::int32_t least = std::numeric_limits<std::int32_t>::min();
    std::int32_t most = std::numeric_limits<std::int32_t>::max();
};

// In the order of FieldType. The first word of `declared` gives the type when a file is read; the second gives SQLite
// the affinity. Files hold these words: they never change.
inline constexpr std::array<FieldTypeRow, 11> kFieldTypes = {{
    {FieldType::Boolean, "Boolean", "BOOLEAN INT", Type::Boolean, {"YESNO", "BIT"}},
    {FieldType::Byte, "Byte", "BYTE INT", Type::Whole, {}, "t_range($,0,255)", 0, 255},
    {FieldType::Integer, "Integer", "INTEGER INT", Type::Whole, {"SHORT"}, "t_range($,-32768,32767)", -32768, 32767},
    {FieldType::Long, "Long", "LONG INT", Type::Whole},
    {FieldType::Currency, "Currency", "CURRENCY INT", Type::Currency, {"MONEY"}},
    {FieldType::Single, "Single", "SINGLE REAL", Type::Double, {}, "t_single($)"},
    {FieldType::Double, "Double", "DOUBLE REAL", Type::Double},
    {FieldType::Date, "Date", "DATE REAL", Type::Date, {"DATETIME"}},
    {FieldType::Text, "Text", "TEXT(", Type::Text, {}, "t_sized($,#,%)"},
    {FieldType::Memo, "Memo", "MEMO TEXT", Type::Text, {"LONGTEXT"}},
    {FieldType::Char, "Char", "CHAR(", Type::Text, {}, "t_sized($,#,%)"},
}};

constexpr const FieldTypeRow& Row_Of(FieldType type) {
    for (const FieldTypeRow& row : kFieldTypes) {
        if (row.field == type) return row;
    }
    return kFieldTypes.front();
}

// The first word of its declaration, in upper case.
constexpr std::string_view Word_Of(const FieldTypeRow& row) {
    return row.declared.substr(0, row.declared.find_first_of(" ("));
}

constexpr std::string_view Type_Name(FieldType type) {
    return Row_Of(type).name;
}
// True for Text and Char.
constexpr bool Has_Size(FieldType type) {
    return Row_Of(type).declared.back() == '(';
}
// True for Text, Memo and Char.
constexpr bool Is_Textual(FieldType type) {
    return Row_Of(type).type == Type::Text;
}

inline constexpr int kDefaultTextSize = 255;

}  // namespace tallmar::sql
