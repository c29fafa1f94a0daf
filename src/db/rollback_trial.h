// A journal that a killed program left is rolled back into the file as soon as SQLite reads it. One that was made up,
// or that belongs to another file, would destroy the report that way.
#pragma once

#include <functional>
#include <string>

#include "db/file_check.h"

namespace tallmar::db_detail {

// Rolls the journal back in a private copy of the file, which `open` opens and checks. Throws what `open` throws; the
// file and its journal are untouched.
void Try_Rollback(const HeldStill& file, const FileCheck& check, const std::function<void(const std::string&)>& open);

}  // namespace tallmar::db_detail
