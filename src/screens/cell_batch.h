// Lists of cells, each checked and stored as a person keys it in the form of its worksheet.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/open_form.h"

namespace tallmar {

// One cell as text: the line is left empty on a table without LineNum.
struct CellText {
    std::string item, line, column, value;
};

// What a caller wants to hear of a list while it is entered; either may be left out.
struct BatchListener {
    // Before the check of cells[at]: the boxes that follow are its own.
    std::function<void(std::size_t at)> cell;
    // What the closing of a form dropped, a sentence.
    std::function<void(std::string_view text)> dropped;
};

// Checks and stores a list of cells, row by row in an order of its own, so that the order of the list changes nothing
// but which of two entries of one cell wins: the later. Answers in the order of the list; nothing for a cell
// that was stored. A row that its form would
// not let go refuses all its cells.
std::vector<std::optional<Refusal>> Enter_Cells(std::span<const CellText> cells, const BatchListener& listener = {});
// One cell, with its row's and its form's closing rules.
std::optional<Refusal> Enter_Cell(const CellText& cell);

}  // namespace tallmar
