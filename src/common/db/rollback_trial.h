// A journal that a killed program left is rolled back into the file as soon as SQLite reads it. One that was made up,
// or that belongs to another file, would destroy the report that way.
#pragma once

#include "common/db/file_check.h"

namespace tallmar::db_detail {

// Rolls the journal back in a private copy of the file and checks what comes out. Throws what opening that copy throws;
// the file and its journal are untouched.
void Try_Rollback(const HeldStill& file, const FileCheck& check);

}  // namespace tallmar::db_detail
