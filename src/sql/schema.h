// The shapes of the tables of an open report file, read back from the file itself.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "common/value.h"
#include "sql/field_types.h"

namespace tallmar::sql {

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

// True for a name by which SQLite reaches the key of a row: a field of that name would hide it.
bool Hides_Row_Key(std::string_view field);
// As SQLite reads names: in double quotes, those in it doubled.
std::string Quoted_Name(std::string_view name);

}  // namespace tallmar::sql
