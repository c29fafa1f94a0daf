// The rows of a form that are set apart as totals.
#pragma once

#include <vector>

#include "common/item.h"
#include "screens/form_rows.h"
#include "screens/open_form.h"

namespace tallmar {

// One flag a row, in their order. The lines of the catalogue say which are totals; a line that a person adds and calls
// "Total" is none, nor is a row of a table that is no worksheet.
std::vector<bool> Total_Rows(const Item& item, const FormRows& rows);

}  // namespace tallmar
