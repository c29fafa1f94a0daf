// The columns of a form over its table.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "screens/form_description.h"

namespace tallmar {

// Every column of the table, in its order, with what the description says of it; one that the description leaves out
// is hidden. Requires that the table is there.
std::vector<GridColumn> Read_Columns(const FormDescription& form, const Item& item);

// "4 Contracted Purchased Services", "CC Group": number and label of the head, on a questionnaire the label of this
// line. The field's name where the form has no head for the column, which is one of `columns`.
std::string Head_Text(const FormDescription& form, std::span<const GridColumn> columns, const GridColumn& column,
                      Currency line);

}  // namespace tallmar
