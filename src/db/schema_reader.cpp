#include "db/schema_reader.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "common/db_error.h"
#include "db/sqlite_error.h"
#include "db/storage.h"

namespace tallmar::db_detail {

namespace {

// What is in the schema beside plain tables and their indexes. It is asked for first: to look at the columns of a
// virtual table would start whatever module it names.
constexpr std::string_view kForeignSql =
    "SELECT 1 FROM sqlite_schema WHERE type NOT IN ('table', 'index') OR rootpage IS NULL OR rootpage < 2"
    " OR name LIKE 'sqlite!_%' ESCAPE '!' OR sql IS NULL LIMIT 1";
// One row a column of a table, or of an index, in their order; the first column says which.
constexpr std::string_view kShapesSql =
    "SELECT 1, m.name, m.sql, c.name, c.type, 0, m.rowid AS place, c.cid AS column"
    " FROM sqlite_schema AS m JOIN pragma_table_info(m.name) AS c WHERE m.type = 'table'"
    " UNION ALL "
    "SELECT 2, m.tbl_name, m.sql, c.name, m.name, l.\"unique\", m.rowid, c.seqno"
    " FROM sqlite_schema AS m JOIN pragma_index_list(m.tbl_name) AS l ON l.name = m.name"
    " JOIN pragma_index_info(m.name) AS c WHERE m.type = 'index'"
    " ORDER BY 1, place, column";
constexpr int kColumnOfTable = 1;

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Query = std::unique_ptr<sqlite3_stmt, Finalize>;

Query Prepare(sqlite3* handle, std::string_view sql, std::string_view path) {
    sqlite3_stmt* raw = nullptr;
    const int result = sqlite3_prepare_v2(handle, sql.data(), static_cast<int>(sql.size()), &raw, nullptr);
    if (result != SQLITE_OK) throw Error_Of(handle, result, path);
    return Query(raw);
}

bool Next(sqlite3* handle, const Query& query, std::string_view path) {
    const int result = sqlite3_step(query.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw Error_Of(handle, result, path);
    return result == SQLITE_ROW;
}

std::string_view Text(sqlite3_stmt* row, int column) {
    if (sqlite3_column_type(row, column) == SQLITE_NULL) return {};
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    if (text == nullptr) throw std::bad_alloc();
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

std::string Without_Blanks(std::string_view text) {
    std::string bare(text);
    std::erase_if(bare, [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
    return bare;
}

class Reader {
  public:
    explicit Reader(std::string_view path) : path_(path) {}

    void Add_Column(const Query& row) {
        const std::string_view table = Text(row.get(), 1);
        if (shape_.name != table) {
            Finish_Table();
            shape_.name = table;
            text_ = Text(row.get(), 2);
        }
        const auto declared = Parse_Declared_Type(Text(row.get(), 4));
        if (!declared || sql::Hides_Row_Key(Text(row.get(), 3))) Refuse();
        shape_.fields.push_back({std::string(Text(row.get(), 3)), declared->type, declared->size});
    }

    // The text is compared too: it would show defaults, checks, keys and other collations.
    void Finish_Table() {
        if (shape_.name.empty()) return;
        if (Without_Blanks(text_) != Without_Blanks(Create_Table_Text(shape_))) Refuse();
        schema.Put(std::move(shape_));
        shape_ = {};
    }

    void Add_Index_Column(const Query& row) {
        Finish_Table();
        if (indexName_ != Text(row.get(), 4)) {
            Finish_Index();
            indexName_ = Text(row.get(), 4);
            indexTable_ = Text(row.get(), 1);
            text_ = Text(row.get(), 2);
            const auto named = Parse_Index_Name(indexTable_, indexName_);
            if (!named) Refuse();
            index_ = *named;
            index_.unique = sqlite3_column_int(row.get(), 5) != 0;
        }
        index_.fields.emplace_back(Text(row.get(), 3));
    }

    void Finish_Index() {
        if (indexName_.empty()) return;
        const TableShape* table = schema.Find(indexTable_);
        if (table == nullptr || Without_Blanks(text_) != Without_Blanks(Create_Index_Text(indexTable_, index_))) {
            Refuse();
        }
        TableShape changed = *table;
        changed.indexes.push_back(std::move(index_));
        schema.Put(std::move(changed));
        index_ = {};
        indexName_.clear();
    }

    [[noreturn]] void Refuse() const { throw DbError(DbErrorCode::NotADatabase, path_); }

    sql::Schema schema;

  private:
    std::string_view path_;
    TableShape shape_;
    std::string text_;
    IndexDef index_;
    std::string indexName_, indexTable_;
};

}  // namespace

sql::Schema Read_Schema(sqlite3* handle, std::string_view path) {
    Reader reader(path);
    if (Next(handle, Prepare(handle, kForeignSql, path), path)) reader.Refuse();
    const Query rows = Prepare(handle, kShapesSql, path);
    while (Next(handle, rows, path)) {
        if (sqlite3_column_int(rows.get(), 0) == kColumnOfTable) {
            reader.Add_Column(rows);
        } else {
            reader.Add_Index_Column(rows);
        }
    }
    reader.Finish_Table();
    reader.Finish_Index();
    return std::move(reader.schema);
}

}  // namespace tallmar::db_detail
