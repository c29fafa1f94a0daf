#include "db/table_design.h"

#include <algorithm>

#include "db/storage.h"

namespace tallmar::db_detail {

namespace {

// SQLite will not give a table its own name in other letters at once.
constexpr std::string_view kPassingName = "!renamed";

void Check_Name(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos) throw DbError(DbErrorCode::InvalidOperation, name);
}

bool Is_Refused_In_A_Name(char c) {
    return c == '/' || c == '\\' || c == '.' || static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

// Files are named after tables: no name may lead to another folder.
void Check_Table_Name(std::string_view name) {
    if (name.empty() || std::ranges::any_of(name, Is_Refused_In_A_Name)) {
        throw DbError(DbErrorCode::BadTableName, name);
    }
}

const TableShape& Known(Connection& connection, std::string_view table) {
    const TableShape* shape = connection.Shapes().Find(table);
    if (shape == nullptr) throw DbError(DbErrorCode::UnknownTable, table);
    return *shape;
}

const FieldDef& Known_Field(const TableShape& shape, std::string_view field) {
    const FieldDef* found = shape.Find_Field(field);
    if (found == nullptr) throw DbError(DbErrorCode::UnknownField, field);
    return *found;
}

void Refuse_Null_Rows(Connection& connection, const TableShape& shape, const IndexDef& index) {
    if (!index.disallowNull) return;
    for (const std::string& field : index.fields) {
        PreparedStatement nulls = connection.Prepare("SELECT 1 FROM " + sql::Quoted_Name(shape.name) + " WHERE " +
                                                     sql::Quoted_Name(field) + " IS NULL LIMIT 1");
        const Running running(nulls);
        if (nulls.Step()) throw DbError(DbErrorCode::NullNotAllowed, field);
    }
}

}  // namespace

void Check_New_Field(const TableShape& shape, const FieldDef& field) {
    Check_Name(field.name);
    if (sql::Hides_Row_Key(field.name)) throw DbError(DbErrorCode::InvalidOperation, field.name);
    if (shape.Find_Field(field.name) != nullptr) throw DbError(DbErrorCode::FieldExists, field.name);
}

void Create_Table(Connection& connection, const TableShape& shape) {
    connection.Require_Whole_Job();
    Check_Table_Name(shape.name);
    if (connection.Shapes().Find(shape.name) != nullptr) throw DbError(DbErrorCode::TableExists, shape.name);
    if (shape.fields.empty()) throw DbError(DbErrorCode::InvalidOperation, shape.name);
    TableShape checked;
    for (const FieldDef& field : shape.fields) {
        Check_New_Field(checked, field);
        checked.fields.push_back(field);
    }
    AllOrNothing steps(connection);
    connection.Run_Once(Create_Table_Text(shape));
    for (const IndexDef& index : shape.indexes) connection.Run_Once(Create_Index_Text(shape.name, index));
    steps.Keep();
    connection.Table_Changed(shape);
}

void Drop_Table(Connection& connection, std::string_view table) {
    connection.Require_Whole_Job();
    const std::string name = Known(connection, table).name;
    connection.Run_Once("DROP TABLE " + sql::Quoted_Name(name));
    connection.Table_Removed(name);
}

// The indexes have the table's name: they are made again.
void Rename_Table(Connection& connection, std::string_view table, std::string_view newName) {
    connection.Require_Whole_Job();
    Check_Table_Name(newName);
    TableShape shape = Known(connection, table);
    if (shape.name == newName) return;
    const bool sameLetters = Same_Text(shape.name, newName);
    if (!sameLetters && connection.Shapes().Find(newName) != nullptr) throw DbError(DbErrorCode::TableExists, newName);
    const std::string oldName = shape.name;

    AllOrNothing steps(connection);
    for (const IndexDef& index : shape.indexes) {
        connection.Run_Once("DROP INDEX " + sql::Quoted_Name(Stored_Index_Name(oldName, index)));
    }
    std::string from = oldName;
    if (sameLetters) {
        connection.Run_Once("ALTER TABLE " + sql::Quoted_Name(from) + " RENAME TO " + sql::Quoted_Name(kPassingName));
        from = kPassingName;
    }
    connection.Run_Once("ALTER TABLE " + sql::Quoted_Name(from) + " RENAME TO " + sql::Quoted_Name(newName));
    for (const IndexDef& index : shape.indexes) connection.Run_Once(Create_Index_Text(newName, index));
    steps.Keep();

    connection.Table_Removed(oldName);
    shape.name = newName;
    connection.Table_Changed(std::move(shape));
}

void Create_Index(Connection& connection, std::string_view table, const IndexDef& index) {
    connection.Require_Whole_Job();
    Check_Name(index.name);
    TableShape shape = Known(connection, table);
    if (shape.Find_Index(index.name) != nullptr) throw DbError(DbErrorCode::IndexExists, index.name);
    IndexDef made = index;
    for (std::string& field : made.fields) field = Known_Field(shape, field).name;
    Refuse_Null_Rows(connection, shape, made);
    connection.Run_Once(Create_Index_Text(shape.name, made));
    shape.indexes.push_back(std::move(made));
    connection.Table_Changed(std::move(shape));
}

void Add_Field(Connection& connection, std::string_view table, const FieldDef& field) {
    connection.Require_Whole_Job();
    TableShape shape = Known(connection, table);
    Check_New_Field(shape, field);
    connection.Run_Once("ALTER TABLE " + sql::Quoted_Name(shape.name) + " ADD COLUMN " + Column_Text(field));
    shape.fields.push_back(field);
    connection.Table_Changed(std::move(shape));
}

void Drop_Field(Connection& connection, std::string_view table, std::string_view field) {
    connection.Require_Whole_Job();
    TableShape shape = Known(connection, table);
    const std::string name = Known_Field(shape, field).name;
    for (const IndexDef& index : shape.indexes) {
        if (std::ranges::find(index.fields, name) != index.fields.end()) {
            throw DbError(DbErrorCode::InvalidOperation, name);
        }
    }
    if (shape.fields.size() == 1) throw DbError(DbErrorCode::InvalidOperation, name);
    connection.Run_Once("ALTER TABLE " + sql::Quoted_Name(shape.name) + " DROP COLUMN " + sql::Quoted_Name(name));
    std::erase_if(shape.fields, [&](const FieldDef& f) { return f.name == name; });
    connection.Table_Changed(std::move(shape));
}

void Rename_Field(Connection& connection, std::string_view table, std::string_view field, std::string_view newName) {
    connection.Require_Whole_Job();
    TableShape shape = Known(connection, table);
    const std::string name = Known_Field(shape, field).name;
    if (name == newName) return;
    FieldDef renamed = Known_Field(shape, field);
    renamed.name = newName;
    if (!Same_Text(name, newName)) Check_New_Field(shape, renamed);
    connection.Run_Once("ALTER TABLE " + sql::Quoted_Name(shape.name) + " RENAME COLUMN " + sql::Quoted_Name(name) +
                        " TO " + sql::Quoted_Name(newName));
    for (FieldDef& f : shape.fields) {
        if (f.name == name) f.name = newName;
    }
    for (IndexDef& index : shape.indexes) std::ranges::replace(index.fields, name, std::string(newName));
    connection.Table_Changed(std::move(shape));
}

}  // namespace tallmar::db_detail
