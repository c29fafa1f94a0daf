// Statements: tables, names and types resolved against the schema.
#pragma once

#include <string_view>

#include "sql/bound.h"

namespace tallmar::sql {

// Throws DbError with the place in `text`.
BoundStatement Bind_Statement(const StatementTree& statement, std::string_view text, const Schema& schema);
// The rows of `source` that meet `criterion` too; names are looked up among the output names of the source, then
// among its tables. Throws InvalidOperation where the rows of the source are no rows of tables. A source under TOP
// keeps its own condition; the criterion comes back apart.
struct BoundFind {
    BoundSelect select;
    BoundPtr criterion;
};
BoundFind Bind_Find(const SelectTree& source, std::string_view sourceText, const Expr& criterion,
                    std::string_view criterionText, const Schema& schema);

}  // namespace tallmar::sql
