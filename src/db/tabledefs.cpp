#include "db/connection.h"
#include "db/database.h"
#include "db/table_design.h"

namespace tallmar {

using namespace db_detail;

namespace {}  // namespace

void TableDef::Name(std::string_view name) {
    if (connection_) Rename_Table(*connection_, shape_.name, name);
    shape_.name = name;
}

FieldDef TableDef::CreateField(std::string_view name, FieldType type, int size) const {
    if (!Has_Size(type)) return {std::string(name), type, 0};
    return {std::string(name), type, size > 0 ? size : sql::kDefaultTextSize};
}

void TableDef::Fields_Append(const FieldDef& field) {
    if (connection_) {
        Add_Field(*connection_, shape_.name, field);
    } else {
        Check_New_Field(shape_, field);
    }
    shape_.fields.push_back(field);
}

void TableDef::Fields_Delete(std::string_view name) {
    if (connection_) {
        Drop_Field(*connection_, shape_.name, name);
    } else if (shape_.Find_Field(name) == nullptr) {
        throw DbError(DbErrorCode::UnknownField, name);
    }
    std::erase_if(shape_.fields, [&](const FieldDef& field) { return Same_Text(field.name, name); });
}

void TableDef::Field_Name(std::string_view field, std::string_view newName) {
    if (connection_) {
        Rename_Field(*connection_, shape_.name, field, newName);
        shape_ = *connection_->Shapes().Find(shape_.name);
        return;
    }
    const int position = shape_.Field_Position(field);
    if (position < 0) throw DbError(DbErrorCode::UnknownField, field);
    if (!Same_Text(field, newName) && shape_.Find_Field(newName) != nullptr) {
        throw DbError(DbErrorCode::FieldExists, newName);
    }
    shape_.fields[static_cast<std::size_t>(position)].name = newName;
}

void TableDefs::Append(TableDef& table) {
    if (table.connection_) throw DbError(DbErrorCode::TableExists, table.Name());
    Create_Table(*connection_, table.Shape());
    table.connection_ = connection_;
}

void TableDefs::Delete(std::string_view name) {
    Drop_Table(*connection_, name);
}

// What this program changes in the design is known at once; what is left to learn is whether the file is open.
void TableDefs::Refresh() {
    connection_->Handle();
}

int TableDefs::Count() const {
    return static_cast<int>(connection_->Shapes().Tables().size());
}

TableDef TableDefs::Item(int position) const {
    if (position < 0 || position >= Count()) throw DbError(DbErrorCode::ItemNotFound, std::to_string(position));
    return Item(std::next(connection_->Shapes().Tables().begin(), position)->first);
}

TableDef TableDefs::Item(std::string_view name) const {
    const TableShape* shape = connection_->Shapes().Find(name);
    if (shape == nullptr) throw DbError(DbErrorCode::ItemNotFound, name);
    TableDef table;
    table.connection_ = connection_;
    table.shape_ = *shape;
    return table;
}

bool TableDefs::Has(std::string_view name) const {
    return connection_->Shapes().Find(name) != nullptr;
}

}  // namespace tallmar
