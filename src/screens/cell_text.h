// How a cell reads: as the grid shows it, and as its editor takes it up.
#pragma once

#include <span>
#include <string>

#include "screens/form_description.h"

namespace tallmar {

// Formatted: "(1,200)", "5.01", "Yes" for a "Y" of a cell with a pop-up list. Null is "".
std::string Cell_Text(const FormDescription& form, const CellPlace& place);
// Plain: "-1200", "Y". What a copy puts on the clipboard, too.
std::string Edit_Text(const Value& value);

// A Null cell of a figure is shaded on the form.
bool Is_Shaded(const FormDescription& form, const GridColumn& column, const Value& value);
// Figures stand to the right.
bool Is_Figure(const GridColumn& column);
// The leading columns without a number: line, group, name. They stay in sight.
std::size_t Frozen_Columns(std::span<const GridColumn> shown);
// A row whose name says that it is a total or subtotal.
bool Is_Total_Row(const Row& row, std::span<const GridColumn> columns);

}  // namespace tallmar
