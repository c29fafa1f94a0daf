// Compiled statements by shape, the least recently used given up first.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "db/prepared_statement.h"
#include "db/shapes.h"
#include "db/statement_cache.h"
#include "sql/plan.h"

namespace tallmar::db_detail {

// A search by a criterion, compiled over the SELECT that it goes through.
struct FindStatement {
    sql::SqliteText text;
    PreparedStatement statement;
};

// What writes one set of columns of a recordset's row.
struct WriteStatement {
    bool insert = false;
    std::vector<int> columns;
    PreparedStatement statement;
};

// A plan with its SQLite statements, each prepared when it is first needed. A recordset keeps its plan alive.
struct CachedPlan {
    sql::Plan plan;
    PreparedStatement sql, rows, keys, row, match, apply, again;
    std::vector<FieldDef> fields;  // of the columns of a SELECT that are fields, unchanged
    std::unordered_map<std::string, FindStatement> finds;
    std::vector<WriteStatement> writes;
    std::unordered_map<std::string, PreparedStatement> others;  // seeks and deletions, by their text
};

class PlanCache {
  public:
    // Null where the shape is not known.
    std::shared_ptr<CachedPlan> Find(std::string_view shape);
    void Put(std::string_view shape, std::shared_ptr<CachedPlan> plan);
    // Gives up every plan that may speak of the table.
    void Forget(std::string_view table);
    void Clear();
    void Set_Capacity(std::size_t capacity);

  private:
    struct Entry {
        std::string shape;
        std::string folded;  // in one case, to look for names of tables
        std::shared_ptr<CachedPlan> plan;
    };
    void Trim_To_Capacity();

    std::list<Entry> entries_;  // the latest used first
    std::unordered_map<std::string_view, std::list<Entry>::iterator> byShape_;
    std::size_t capacity_ = kStatementCacheSize;
};

}  // namespace tallmar::db_detail
