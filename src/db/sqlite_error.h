// Failures of SQLite as errors of the database layer.
#pragma once

#include <sqlite3.h>

#include <string_view>

#include "common/db_error.h"

namespace tallmar::db_detail {

// The error of the connection's last failing call. `path` names the report file.
DbError Error_Of(sqlite3* handle, int result, std::string_view path);

}  // namespace tallmar::db_detail
