#include "common/db/execute.h"
#include "common/db/recordset_state.h"
#include "common/db/statement.h"
#include "common/db/storage.h"
#include "common/text.h"

namespace tallmar {

using namespace db_detail;

namespace {

Connection& Open_Connection(const std::shared_ptr<Connection>& connection) {
    if (!connection || !connection->Is_Open()) throw DbError(DbErrorCode::DatabaseClosed);
    return *connection;
}

bool Is_Word_Character(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

// The word stands in the shape, outside brackets, by itself.
bool Has_Word(std::string_view shape, std::string_view word) {
    bool bracketed = false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == '[') bracketed = true;
        if (shape[i] == ']') bracketed = false;
        if (bracketed || !shape.substr(i).starts_with(word)) continue;
        const bool begins = i == 0 || !Is_Word_Character(shape[i - 1]);
        const bool ends = i + word.size() >= shape.size() || !Is_Word_Character(shape[i + word.size()]);
        if (begins && ends) return true;
    }
    return false;
}

}  // namespace

const Value& Row::operator[](std::string_view name) const {
    static const Value kNothing;
    for (std::size_t i = 0; names_ != nullptr && i < names_->size(); ++i) {
        if (Same_Text((*names_)[i], name)) return values_.empty() ? kNothing : values_[i];
    }
    throw DbError(DbErrorCode::ItemNotFound, name);
}

const Value& Row::operator[](int position) const {
    static const Value kNothing;
    if (names_ == nullptr || position < 0 || static_cast<std::size_t>(position) >= names_->size()) {
        throw DbError(DbErrorCode::ItemNotFound, std::to_string(position));
    }
    return values_.empty() ? kNothing : values_[static_cast<std::size_t>(position)];
}

bool Database::Is_Open() const {
    return connection_ && connection_->Is_Open();
}

const std::string& Database::Path() const {
    static const std::string kNone;
    return connection_ ? connection_->Path() : kNone;
}

bool Database::Is_Read_Only() const {
    return Open_Connection(connection_).Is_Read_Only();
}

bool Database::Has_Rebuilt_Index() const {
    return Open_Connection(connection_).Has_Rebuilt_Index();
}

bool Database::Changed_Elsewhere() {
    return Open_Connection(connection_).Changed_Elsewhere();
}

void Database::Close() {
    Open_Connection(connection_).Close();
}

std::int64_t Database::Execute(std::string_view sql) {
    return Execute_Action(Open_Connection(connection_), sql);
}

Recordset Database::OpenRecordset(std::string_view source, RecordsetType type) {
    Open_Connection(connection_);
    return Recordset(Open_Rows(connection_, source, type));
}

Row Database::Read_Row(std::string_view select) {
    Row first;
    Row names = Visit_Rows(Open_Connection(connection_), select, [&](Row row) {
        first = std::move(row);
        return false;
    });
    return first ? first : names;
}

std::vector<Row> Database::Read_Rows(std::string_view select) {
    std::vector<Row> rows;
    Visit_Rows(Open_Connection(connection_), select, [&](Row row) {
        rows.push_back(std::move(row));
        return true;
    });
    return rows;
}

void Database::For_Each_Row(std::string_view select, const std::function<void(const Row&)>& visit) {
    Visit_Rows(Open_Connection(connection_), select, [&](const Row& row) {
        visit(row);
        return true;
    });
}

void Database::Write_Label(std::string_view table, std::string_view field, Currency line, std::string_view label) {
    Connection& connection = Open_Connection(connection_);
    connection.Require_Whole_Job();
    Statement write(connection, "UPDATE " + Quoted_Name(table) + " SET " + Quoted_Name(field) + "=?1 WHERE LineNum=?2");
    write.Bind(1, label);
    write.Bind(2, line.Scaled());
    write.Step();
}

TableDef Database::CreateTableDef(std::string_view name) const {
    Open_Connection(connection_);
    TableDef table;
    table.shape_.name = name;
    return table;
}

tallmar::TableDefs Database::TableDefs() const {
    Open_Connection(connection_);
    return tallmar::TableDefs(connection_);
}

bool Database::Is_Select(std::string_view sql) {
    const std::string shape = Lift(sql).shape;
    return shape.starts_with("SELECT") && Has_Word(shape, "SELECT") && !Has_Word(shape, "INTO");
}

void Set_Statement_Log(Database& database, StatementLog log) {
    Connection& connection = Access::Of(database);
    connection.Handle();
    connection.Set_Log(std::move(log));
}

void Set_Statement_Cache_Size(Database& database, std::size_t size) {
    Connection& connection = Access::Of(database);
    connection.Handle();
    connection.Plans().Set_Capacity(size);
}

}  // namespace tallmar
