// One worksheet's step of a long job.
#pragma once

#include <functional>

#include "common/item.h"

namespace tallmar {

// Runs `step`. An error inside it is reported for the worksheet, level "E", and False is returned: the job goes on
// with the next. Where the file itself is in trouble (full, locked, read only, gone) the error passes on to the job.
bool Run_Step(const Item& item, const std::function<void()>& step);

}  // namespace tallmar
