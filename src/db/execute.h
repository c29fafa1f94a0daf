// Action statements: their plans carried out.
#pragma once

#include <cstdint>
#include <string_view>

#include "db/connection.h"

namespace tallmar::db_detail {

// The rows changed; of an update match by match the matches applied. A failure changes nothing.
std::int64_t Execute_Action(Connection& connection, std::string_view sql);

}  // namespace tallmar::db_detail
