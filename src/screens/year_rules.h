// What the fiscal year of the open report leaves out of the lists of worksheets, though the report has it.
#pragma once

#include "screens/worksheet_forms.h"

namespace tallmar {

enum class WorksheetList : std::uint8_t {
    Walk,   // cmdNext and cmdPrevious
    Menus,  // mnuEditOpen and mnuViewOpen
};

// Worksheets whose years have ended are left out of the walk; the menus still open what is registered.
bool Year_Leaves_Out(WorksheetList list, FormMode mode, const Item& item);

}  // namespace tallmar
