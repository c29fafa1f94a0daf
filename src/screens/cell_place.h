// How messages name lines, columns and cells: as the form writes them, never by the fields of the table.
#pragma once

#include <string>

#include "screens/cell_entry.h"
#include "screens/cell_text.h"

namespace tallmar {

// "4 Contracted Purchased Services", "CC Group": number and label of the head, on a questionnaire the label of this
// line. The field's name where the form has no head for the column.
std::string Head_Text(const OpenForm& form, const GridColumn& column, Currency line);
// "Worksheet A, line 23.20"; without the line on a table without LineNum.
std::string Line_Place(const OpenForm& form, Currency line);
// "Worksheet A, line 23.20, column 1 Salaries".
std::string Cell_Place(const OpenForm& form, const GridColumn& column, Currency line);

}  // namespace tallmar
