#include "db/database.h"

#include "common/text.h"
#include "db/execute.h"
#include "db/recordset_state.h"
#include "db/statement_cache.h"
#include "db/statement_log.h"
#include "db/storage.h"

namespace tallmar {

using namespace db_detail;

namespace {

Connection& Open_Connection(const std::shared_ptr<Connection>& connection) {
    if (!connection || !connection->Is_Open()) throw DbError(DbErrorCode::DatabaseClosed);
    return *connection;
}

}  // namespace

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
    PreparedStatement write = connection.Prepare("UPDATE " + sql::Quoted_Name(table) + " SET " +
                                                 sql::Quoted_Name(field) + "=?1 WHERE LineNum=?2");
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
    return sql::Is_Select(sql);
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

db_detail::Connection& db_detail::Access::Of(const Database& database) {
    if (!database.connection_) throw DbError(DbErrorCode::DatabaseClosed);
    return *database.connection_;
}

}  // namespace tallmar
