// The shapes of the tables, read back from the file.
#pragma once

#include <sqlite3.h>

#include "db/shapes.h"

namespace tallmar::db_detail {

// Throws DbError NotADatabase where the file holds anything that this program does not write: a view, a trigger, a
// column of another declaration, a rule on a column.
sql::Schema Read_Schema(sqlite3* handle, std::string_view path);

}  // namespace tallmar::db_detail
