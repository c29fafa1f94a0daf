// The callbacks for what SQLite lacks: checked arithmetic of amounts, conversions, the functions of the dialect.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/db_error.h"

struct sqlite3;

namespace tallmar::db_detail {

// Registers every callback and aggregate that compiled statements call. False where there is no memory.
bool Register_Functions(sqlite3* handle);

// An error of a callback travels through SQLite as text.
struct CallbackError {
    DbErrorCode code = DbErrorCode::Engine;
    std::string argument;
};
std::string Encode_Error(DbErrorCode code, std::string_view argument);
// Nothing where the text is not a callback's.
std::optional<CallbackError> Decode_Error(std::string_view text);

}  // namespace tallmar::db_detail
