#include "sql/schema.h"

#include <algorithm>

namespace tallmar::sql {

namespace {

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

bool Hides_Row_Key(std::string_view field) {
    constexpr std::string_view kKeyNames[] = {"rowid", "oid", "_rowid_"};
    return std::ranges::any_of(kKeyNames, [&](std::string_view name) { return Same_Text(name, field); });
}

std::string Quoted_Name(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

}  // namespace tallmar::sql
