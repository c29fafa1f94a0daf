// Failures of the file system as errors of the database layer: each names its reason.
#pragma once

#include <string>

#include "common/db_error.h"

namespace tallmar::db_detail {

// Of opening and reading the file at `path`. `error` is an errno.
DbError Open_Error(int error, const std::string& path);
// Of making, writing or replacing it: distinguishes a read-only file from a read-only folder.
DbError Write_Error(int error, const std::string& path);

}  // namespace tallmar::db_detail
