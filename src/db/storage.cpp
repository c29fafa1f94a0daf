#include "db/storage.h"

#include <charconv>

namespace tallmar::db_detail {

namespace {

constexpr std::string_view kNotNullMark = "!notnull";
constexpr int kLongestText = 1'000'000;

}  // namespace

std::string Declared_Type(const FieldDef& field) {
    std::string text(sql::Row_Of(field.type).declared);
    if (Has_Size(field.type)) text += std::to_string(field.size) + ")";
    return text;
}

std::optional<DeclaredType> Parse_Declared_Type(std::string_view declared) {
    for (const sql::FieldTypeRow& row : sql::kFieldTypes) {
        if (!Has_Size(row.field)) {
            if (declared == row.declared) return DeclaredType{row.field, 0};
            continue;
        }
        if (!declared.starts_with(row.declared) || declared.back() != ')') continue;
        declared.remove_prefix(row.declared.size());
        declared.remove_suffix(1);
        int size = 0;
        const auto [end, error] = std::from_chars(declared.data(), declared.data() + declared.size(), size);
        if (error != std::errc{} || end != declared.data() + declared.size()) return std::nullopt;
        if (size < 1 || size > kLongestText) return std::nullopt;
        return DeclaredType{row.field, size};
    }
    return std::nullopt;
}

std::string Column_Text(const FieldDef& field) {
    std::string text = sql::Quoted_Name(field.name) + " " + Declared_Type(field);
    if (sql::Is_Textual(field.type)) text += " COLLATE TEXT1252";
    return text;
}

std::string Create_Table_Text(const TableShape& table) {
    std::string text = "CREATE TABLE " + sql::Quoted_Name(table.name) + "(";
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
    text += sql::Quoted_Name(Stored_Index_Name(table, index)) + " ON " + sql::Quoted_Name(table) + "(";
    for (std::size_t i = 0; i < index.fields.size(); ++i) {
        if (i > 0) text += ", ";
        text += sql::Quoted_Name(index.fields[i]);
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
