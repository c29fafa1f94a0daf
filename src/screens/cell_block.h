// A block of cells at once: what the clipboard holds goes into a form from a cell on, one text fills a selection,
// Delete clears one. Each cell goes through its check; nothing is shown meanwhile, and what was refused comes back as a
// list.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/platform.h"
#include "screens/clipboard.h"
#include "screens/open_form.h"

namespace tallmar {

struct BlockCell {
    const GridColumn* column;  // null: beyond the last
    std::string text;
};
struct BlockRow {
    std::optional<Currency> line;  // none: beyond the last; the row is added where the form has an Add
    std::vector<BlockCell> cells;
};
// `lines` and `columns` as the form shows them, from the cell on.
std::vector<BlockRow> Block_At(const ClipboardRows& rows, std::span<const Currency> lines,
                               std::span<const GridColumn* const> columns);

struct BlockNote {
    std::optional<Currency> line;
    std::string column, text, reason;
    bool refused = true;  // else taken, as the reason says
};
// Amounts that were stored with fewer decimals than they came with, and their sums.
struct RoundedAmounts {
    std::size_t count = 0;
    double before = 0, after = 0;
};
struct BlockOutcome {
    std::size_t cells = 0, rows = 0;  // that were stored
    std::vector<BlockNote> notes;
    RoundedAmounts rounded = {};

    // There is something that the person must know.
    bool Has_Messages() const { return !notes.empty() || rounded.count > 0; }
};
// One Job. A cell that would hold what it holds is passed over, locked or not. Requires that nothing is entered in the
// form's row. DbError of what follows the rows reaches the caller; the rows are stored then.
BlockOutcome Enter_Block(OpenForm& form, std::span<const BlockRow> rows);

// As the list of messages shows it: the refused cells, a line each, then what was taken with a warning, then one line
// for all that was rounded.
std::vector<Platform::BatchMessage> Block_Messages(const OpenForm& form, const BlockOutcome& outcome);

}  // namespace tallmar
