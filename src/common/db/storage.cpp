#include "common/db/storage.h"

#include <charconv>

namespace tallmar::db_detail {

namespace {

// The first word tells the type when the file is read; the second gives SQLite the affinity. What is written into
// files stays as it is.
struct Storage {
    FieldType type;
    std::string_view word;
    std::string_view rest;
};
constexpr Storage kStorage[] = {
    {FieldType::Boolean, "BOOLEAN", " INT"},
    {FieldType::Byte, "BYTE", " INT"},
    {FieldType::Integer, "INTEGER", " INT"},
    {FieldType::Long, "LONG", " INT"},
    {FieldType::Currency, "CURRENCY", " INT"},
    {FieldType::Single, "SINGLE", " REAL"},
    {FieldType::Double, "DOUBLE", " REAL"},
    {FieldType::Date, "DATE", " REAL"},
    {FieldType::Text, "TEXT", "("},
    {FieldType::Memo, "MEMO", " TEXT"},
    {FieldType::Char, "CHAR", "("},
};
constexpr std::string_view kNotNullMark = "!notnull";
constexpr int kLongestText = 1'000'000;

bool Is_Textual(FieldType type) {
    return Has_Size(type) || type == FieldType::Memo;
}

}  // namespace

std::string Quoted_Name(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

std::string Declared_Type(const FieldDef& field) {
    for (const Storage& row : kStorage) {
        if (row.type != field.type) continue;
        std::string text(row.word);
        text += row.rest;
        if (Has_Size(field.type)) text += std::to_string(field.size) + ")";
        return text;
    }
    return {};
}

std::optional<DeclaredType> Parse_Declared_Type(std::string_view declared) {
    for (const Storage& row : kStorage) {
        if (!declared.starts_with(row.word)) continue;
        const std::string_view tail = declared.substr(row.word.size());
        if (!Has_Size(row.type)) {
            if (tail == row.rest) return DeclaredType{row.type, 0};
            continue;
        }
        if (tail.size() < 3 || !tail.starts_with(row.rest) || tail.back() != ')') continue;
        int size = 0;
        const auto [end, error] = std::from_chars(tail.data() + 1, tail.data() + tail.size() - 1, size);
        if (error != std::errc{} || end != tail.data() + tail.size() - 1) return std::nullopt;
        if (size < 1 || size > kLongestText) return std::nullopt;
        return DeclaredType{row.type, size};
    }
    return std::nullopt;
}

std::string Column_Text(const FieldDef& field) {
    std::string text = Quoted_Name(field.name) + " " + Declared_Type(field);
    if (Is_Textual(field.type)) text += " COLLATE TEXT1252";
    return text;
}

std::string Create_Table_Text(const TableShape& table) {
    std::string text = "CREATE TABLE " + Quoted_Name(table.name) + "(";
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
        if (i > 0) text += ", ";
        text += Column_Text(table.fields[i]);
    }
    return text + ")";
}

std::string Stored_Index_Name(std::string_view table, const IndexDef& index) {
    std::string name(table);
    name += '!';
    name += index.name;
    if (index.disallowNull) name += kNotNullMark;
    return name;
}

std::string Create_Index_Text(std::string_view table, const IndexDef& index) {
    std::string text = index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    text += Quoted_Name(Stored_Index_Name(table, index)) + " ON " + Quoted_Name(table) + "(";
    for (std::size_t i = 0; i < index.fields.size(); ++i) {
        if (i > 0) text += ", ";
        text += Quoted_Name(index.fields[i]);
    }
    return text + ")";
}

std::optional<IndexDef> Parse_Index_Name(std::string_view table, std::string_view stored) {
    if (!stored.starts_with(table) || stored.size() <= table.size() || stored[table.size()] != '!') return std::nullopt;
    std::string_view name = stored.substr(table.size() + 1);
    IndexDef index;
    index.disallowNull = name.ends_with(kNotNullMark);
    if (index.disallowNull) name.remove_suffix(kNotNullMark.size());
    if (name.empty()) return std::nullopt;
    index.name = name;
    return index;
}

}  // namespace tallmar::db_detail
