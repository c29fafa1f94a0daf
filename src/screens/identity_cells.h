// Lines 2 and 7 of Worksheet S-2: provider, name and fiscal year, which are the identity of the report. An entry there
// is checked and stored as the identity editor does.
#pragma once

#include <optional>
#include <string_view>

#include "screens/form_description.h"

namespace tallmar {

bool Is_Identity_Cell(Currency line, std::string_view field);
// One cell. The dates against each other only when the row is left: they may change one after the other.
CellResult Check_Identity_Cell(const CellPlace& place, std::string_view text);
// The fiscal year as a whole, with its questions. Closes the other forms where worksheets come or go.
std::optional<Refusal> Leave_Identity_Row(const RowPlace& place);
// Stores a row of which identity cells were entered. False, and nothing stored, for any other. Throws DbError; nothing
// has changed then.
bool Store_Identity_Row(const RowPlace& place);

}  // namespace tallmar
