// The one table of every worksheet family. main(), the command line and the tests install it.
#pragma once

#include <span>

#include "common/worksheets.h"

namespace tallmar {

std::span<const WorksheetFamily> All_Families();

}  // namespace tallmar
