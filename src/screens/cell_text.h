// How a cell reads: as the grid shows it, and as its editor takes it up.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "screens/form_description.h"

namespace tallmar {

// Formatted: "(1,200)", "5.01", "Yes" for a "Y" of a cell with a pop-up list. Null is "". Without a format of its own
// an amount reads as Line_Text, a date as mm/dd/yyyy.
std::string Cell_Text(const FormDescription& form, const CellPlace& place);
// An amount or a line number without a format of its own: "5", "23.20".
std::string Line_Text(Currency line);
// Plain: "-1200", "Y". Entered again it gives the same value.
std::string Edit_Text(const Value& value);

// A Null cell of a figure is shaded on the form. On an edit form where Null is no shade such a cell takes an entry and
// is not.
bool Is_Shaded(const FormDescription& form, const GridColumn& column, const Value& value);
// The cell's text is that of a figure: in a column of figures, or an answer that is an amount.
bool Reads_As_Figure(const FormDescription& form, const CellPlace& place);
// A numbered column of the form that holds numbers. Figures are aligned to the right.
bool Is_Figure(const GridColumn& column);
// The leading columns without a number, up to the first that holds names: line, group, name. They stay in sight. At
// least one column is left to move.
std::size_t Frozen_Columns(std::span<const GridColumn> shown);

}  // namespace tallmar
