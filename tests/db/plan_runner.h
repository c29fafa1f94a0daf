// Runs compiled statements on a bare SQLite in memory: what the compiler makes is tested without the engine.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "db/shapes.h"
#include "sql/plan.h"

namespace tallmar::test {

class PlanRunner {
  public:
    PlanRunner();
    ~PlanRunner();
    PlanRunner(const PlanRunner&) = delete;
    PlanRunner& operator=(const PlanRunner&) = delete;

    // Makes tables and indexes by statements of the dialect, and runs any other statement. Rows as texts: Null is
    // "Null", columns are parted by '|'.
    std::vector<std::string> Run(std::string_view statement);
    // The keys that a Find gives.
    std::vector<std::string> Find(std::string_view source, std::string_view criterion);
    // Everything of `text`, with the literals of `statement`.
    std::vector<std::string> Rows(const sql::SqliteText& text, const std::vector<sql::Literal>& literals,
                                  const std::vector<sql::OutputColumn>& columns,
                                  const std::vector<std::string>& keys = {});
    const sql::Schema& Shapes() const { return schema_; }

  private:
    void Create(const TableShape& shape);
    void Row_Update(const sql::RowUpdatePlan& plan, const std::vector<sql::Literal>& literals);
    void Exec(const std::string& sql);
    std::vector<std::vector<std::string>> Raw(const sql::SqliteText& text, const std::vector<sql::Literal>& literals,
                                              const std::vector<std::string>& keys,
                                              const std::vector<std::string>& columns);
    sqlite3* handle_ = nullptr;
    sql::Schema schema_;
};

}  // namespace tallmar::test
