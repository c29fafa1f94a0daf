// Building a worksheet by its Item.
#pragma once

#include "common/item.h"

namespace tallmar {

// Deletes the table of that name, with its data, and has its family build it again. False, and nothing built, where no
// family is known for the item. Engine errors of the build reach the caller.
bool Build_Worksheet(const Item& item);
// The same as a step of a long job: an engine error is reported for the worksheet, and the job goes on.
bool Build_Worksheet_Reported(const Item& item);

}  // namespace tallmar
