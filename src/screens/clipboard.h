// Cells as the clipboard holds them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

// Rows of cells as spreadsheets put them on the clipboard: tabs between cells, CR LF, LF or CR between rows and at the
// end; a cell in quotes may hold them all, and its quotes doubled.
using ClipboardRows = std::vector<std::vector<std::string>>;
ClipboardRows Parse_Clipboard(std::string_view text);

}  // namespace tallmar
