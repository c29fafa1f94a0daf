#include "db/overflow.h"

#include <optional>

#include "db/prepared_statement.h"
#include "db/storage.h"
#include "sql/generator.h"
#include "sql/parser.h"

namespace tallmar::db_detail {

namespace {

class Search {
  public:
    Search(Connection& connection, const std::vector<sql::Literal>& literals)
        : connection_(connection), literals_(literals) {}

    std::optional<DbPlace> Find(const sql::Probe& probe) const {
        const std::vector<std::vector<std::int64_t>> rows = Rows_Of(probe);
        for (const sql::ProbedValue& value : probe.values) {
            for (const auto& keys : rows) {
                if (!Overflows(value.sql, keys)) continue;
                return DbPlace{value.table, Line_Of(probe, keys), value.field};
            }
        }
        return std::nullopt;
    }

  private:
    // The keys of the rows; one without keys where the values belong to no single row.
    std::vector<std::vector<std::int64_t>> Rows_Of(const sql::Probe& probe) const {
        if (probe.keys.sql.empty()) return {{}};
        std::vector<std::vector<std::int64_t>> rows;
        PreparedStatement keys = connection_.Prepare(probe.keys.sql);
        const Running running(keys);
        keys.Bind(probe.keys.params, {literals_, {}});
        while (keys.Step()) {
            std::vector<std::int64_t>& row = rows.emplace_back();
            for (int i = 0; i < keys.Columns(); ++i) row.push_back(keys.Is_Null(i) ? kNoKey : keys.Int(i));
        }
        return rows;
    }

    bool Overflows(const sql::SqliteText& text, const std::vector<std::int64_t>& keys) const {
        try {
            PreparedStatement value = connection_.Prepare(text.sql);
            const Running running(value);
            value.Bind(text.params, {literals_, keys});
            value.Step();
            return false;
        } catch (const DbError& error) {
            return error.Code() == DbErrorCode::Overflow;
        }
    }

    std::string Line_Of(const sql::Probe& probe, const std::vector<std::int64_t>& keys) const {
        if (keys.empty() || probe.lineField.empty()) return {};
        PreparedStatement line = connection_.Prepare("SELECT " + sql::Quoted_Name(probe.lineField) + " FROM " +
                                                     sql::Quoted_Name(probe.table) + " WHERE rowid=?1");
        const Running running(line);
        line.Bind(1, keys[static_cast<std::size_t>(probe.target)]);
        return line.Step() ? line.Read(0, FieldType::Currency).To_Text() : std::string();
    }

    Connection& connection_;
    const std::vector<sql::Literal>& literals_;
};

}  // namespace

DbError Placed(const DbError& error, Connection& connection, std::string_view sql,
               const std::vector<sql::Literal>& literals) {
    if (error.Code() != DbErrorCode::Overflow || !error.Where().table.empty()) return error;
    try {
        sql::BoundStatement bound = sql::Bind_Statement(sql::Parse_Statement(sql), sql, connection.Shapes());
        const sql::Probe probe = sql::Generate_Probe(bound);
        const auto place = Search(connection, literals).Find(probe);
        return DbError(error.Code(), place ? *place : DbPlace{probe.table, {}, {}});
    } catch (const DbError&) {
        return error;  // the search has met the same trouble
    }
}

}  // namespace tallmar::db_detail
