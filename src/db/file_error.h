// Failures of the file system as errors of the database layer: each names its reason.
#pragma once

#include <string>

#include "common/db_error.h"

namespace tallmar::db_detail {

// Of opening and reading the file at `path`. `error` is an errno.
DbError Open_Error(int error, const std::string& path);
// Of making, writing or replacing it: tells a file that is read only from a folder that is.
DbError Write_Error(int error, const std::string& path);

}  // namespace tallmar::db_detail
