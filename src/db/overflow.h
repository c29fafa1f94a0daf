// Where in the report a statement overflowed.
#pragma once

#include <string_view>
#include <vector>

#include "db/connection.h"

namespace tallmar::db_detail {

// For a statement that has failed with `error` and changed nothing. An overflow comes back with its place: the table,
// and as far as they can be found out the line and the field; every other error as it is.
DbError Placed(const DbError& error, Connection& connection, std::string_view sql,
               const std::vector<sql::Literal>& literals);

}  // namespace tallmar::db_detail
