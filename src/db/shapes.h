// The shapes of tables, which the dialect's compiler knows too, under the program's own names.
#pragma once

#include "sql/schema.h"

namespace tallmar {

using sql::FieldDef;
using sql::Has_Size;
using sql::IndexDef;
using sql::TableShape;
using sql::Type_Name;

}  // namespace tallmar
