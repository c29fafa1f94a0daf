// The rows of a form that are set apart as totals.
#pragma once

#include <vector>

#include "screens/form_rows.h"
#include "screens/open_form.h"

namespace tallmar {

// One flag a row, in their order: named as a total, and the worksheet's edit form takes none of its figures. "Total
// hours worked" is keyed and no total.
std::vector<bool> Total_Rows(const OpenForm& form, const FormRows& rows);

}  // namespace tallmar
