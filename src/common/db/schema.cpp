#include "common/db/schema.h"

#include <algorithm>

namespace tallmar {

namespace {

constexpr struct {
    FieldType type;
    std::string_view name;
} kTypeNames[] = {
    {FieldType::Boolean, "Boolean"}, {FieldType::Byte, "Byte"},         {FieldType::Integer, "Integer"},
    {FieldType::Long, "Long"},       {FieldType::Currency, "Currency"}, {FieldType::Single, "Single"},
    {FieldType::Double, "Double"},   {FieldType::Date, "Date"},         {FieldType::Text, "Text"},
    {FieldType::Memo, "Memo"},       {FieldType::Char, "Char"},
};

bool Holds(const IndexDef& index, std::string_view field) {
    return std::any_of(index.fields.begin(), index.fields.end(),
                       [&](const std::string& name) { return Same_Text(name, field); });
}

}  // namespace

int TableShape::Field_Position(std::string_view field) const {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (Same_Text(fields[i].name, field)) return static_cast<int>(i);
    }
    return -1;
}

const FieldDef* TableShape::Find_Field(std::string_view field) const {
    const int position = Field_Position(field);
    return position < 0 ? nullptr : &fields[static_cast<std::size_t>(position)];
}

const IndexDef* TableShape::Find_Index(std::string_view index) const {
    const auto found =
        std::find_if(indexes.begin(), indexes.end(), [&](const IndexDef& each) { return Same_Text(each.name, index); });
    return found == indexes.end() ? nullptr : &*found;
}

bool TableShape::Is_Key_Field(std::string_view field) const {
    return std::any_of(indexes.begin(), indexes.end(),
                       [&](const IndexDef& index) { return index.unique && Holds(index, field); });
}

bool TableShape::Disallows_Null(std::string_view field) const {
    return std::any_of(indexes.begin(), indexes.end(),
                       [&](const IndexDef& index) { return index.disallowNull && Holds(index, field); });
}

const TableShape* Schema::Find(std::string_view table) const {
    const auto found = tables_.find(table);
    return found == tables_.end() ? nullptr : &found->second;
}

void Schema::Put(TableShape shape) {
    std::string name = shape.name;
    tables_.insert_or_assign(std::move(name), std::move(shape));
}

void Schema::Remove(std::string_view table) {
    const auto found = tables_.find(table);
    if (found != tables_.end()) tables_.erase(found);
}

std::string_view Type_Name(FieldType type) {
    for (const auto& row : kTypeNames) {
        if (row.type == type) return row.name;
    }
    return {};
}

}  // namespace tallmar
