#include "screens/form_rows.h"

#include <algorithm>
#include <utility>

#include "common/variant.h"
#include "report/open_report.h"

namespace tallmar {

FormRows::FormRows(const FormDescription& form, Item item) : form_(form), item_(std::move(item)) {
    Reload();
}

void FormRows::Reload() {
    mark_ = Change_Mark(db);
    rows_ = db.Read_Rows(Form_Query(form_, item_));
    lines_.assign(rows_.size(), Currency());
    if (form_.order.empty()) return;
    std::ranges::transform(rows_, lines_.begin(), [](const Row& row) { return Nz_Currency(row["LineNum"]); });
}

void FormRows::Reload_From(FormRows&& other) {
    mark_ = std::move(other.mark_);
    rows_ = std::move(other.rows_);
    lines_ = std::move(other.lines_);
}

std::optional<std::size_t> FormRows::Find(Currency line) const {
    const auto found = std::ranges::find(lines_, line);
    if (found == lines_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - lines_.begin());
}

}  // namespace tallmar
