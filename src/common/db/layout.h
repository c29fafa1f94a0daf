// The layout that a report file is written in.
#pragma once

#include "common/db/database.h"

namespace tallmar {

// Of the open file; kCrfLayout is the program's own.
std::int32_t Layout_Of(const Database& database);
// Marks the open file as being of the program's own layout.
void Stamp_Layout(Database& database);

}  // namespace tallmar
