// The shapes of the tables of an open report file, read back from the file itself.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "common/value.h"

namespace tallmar {

struct FieldDef {
    std::string name;
    FieldType type = FieldType::Text;
    int size = 0;  // characters; of Text and Char only
    friend bool operator==(const FieldDef&, const FieldDef&) = default;
};

struct IndexDef {
    std::string name;  // unique within its table only
    std::vector<std::string> fields;
    bool unique = false;
    bool disallowNull = false;
    friend bool operator==(const IndexDef&, const IndexDef&) = default;
};

struct TableShape {
    std::string name;  // as it was created; compares without regard to case
    std::vector<FieldDef> fields;
    std::vector<IndexDef> indexes;

    // -1 where there is no such field. Without regard to case.
    int Field_Position(std::string_view field) const;
    const FieldDef* Find_Field(std::string_view field) const;
    const IndexDef* Find_Index(std::string_view index) const;
    // True where a unique index holds this field, so that an update of it must go row by row.
    bool Is_Key_Field(std::string_view field) const;
    bool Disallows_Null(std::string_view field) const;
};

struct LessText {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return Compare_Text(a, b) < 0; }
};

class Schema {
  public:
    const TableShape* Find(std::string_view table) const;
    void Put(TableShape shape);
    void Remove(std::string_view table);
    void Clear() { tables_.clear(); }
    // In name order.
    const std::map<std::string, TableShape, LessText>& Tables() const { return tables_; }

  private:
    std::map<std::string, TableShape, LessText> tables_;
};

// "Currency", "Text": as `dump` and CREATE TABLE write them.
std::string_view Type_Name(FieldType type);
// True for Text and Char.
constexpr bool Has_Size(FieldType type) {
    return type == FieldType::Text || type == FieldType::Char;
}

}  // namespace tallmar
