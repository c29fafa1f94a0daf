// Bound statements as plans for the engine.
#pragma once

#include "sql/binder.h"
#include "sql/plan.h"

namespace tallmar::sql {

Plan Generate(BoundStatement& statement);
SqliteText Generate_Find(const BoundFind& find);

// The values of a SELECT or an UPDATE apart from one another, to find out which of them fails on which row.
struct ProbedValue {
    std::string table, field;  // that is written; of a SELECT the first field that the value is made of
    SqliteText sql;
};
struct Probe {
    std::string table;
    std::string lineField;  // of `table`; empty where it has no lines
    int target = 0;         // the place of `table` among the keys
    SqliteText keys;        // of the rows; empty sql where the values are those of no single row
    std::vector<ProbedValue> values;
};
Probe Generate_Probe(const BoundStatement& statement);

}  // namespace tallmar::sql
