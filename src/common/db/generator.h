// Bound statements as plans for the engine.
#pragma once

#include "common/db/binder.h"
#include "common/db/plan.h"

namespace tallmar {

Plan Generate(BoundStatement& statement);
SqliteText Generate_Find(const BoundFind& find);

}  // namespace tallmar
