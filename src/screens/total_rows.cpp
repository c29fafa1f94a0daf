#include "screens/total_rows.h"

#include <algorithm>
#include <memory>

#include "screens/cell_text.h"
#include "screens/dispatch.h"

namespace tallmar {

namespace {

// Where a person keys the worksheet: the form itself, or the edit form behind a view.
class Entries {
  public:
    Entries(const OpenForm& form, const FormRows& rows) : form_(&form), rows_(&rows) {
        if (!form.Description().readOnly) return;
        form_ = nullptr;
        const FormDescription* edit = Form_To_Open(FormMode::Edit, form.Worksheet());
        if (edit == nullptr) return;
        ownForm_ = std::make_unique<OpenForm>(*edit, form.Worksheet());
        ownRows_ = std::make_unique<FormRows>(*edit, form.Worksheet());
        form_ = ownForm_.get();
        rows_ = ownRows_.get();
    }

    bool Take(Currency line) const {
        if (form_ == nullptr) return false;
        const auto at = rows_->Find(line);
        if (!at) return false;
        const RowUnderEdit row(line, rows_->At(*at));
        return std::ranges::any_of(form_->Columns(), [&](const GridColumn& column) {
            return Is_Figure(column) && !form_->Is_Locked(column, row);
        });
    }

  private:
    std::unique_ptr<OpenForm> ownForm_;
    std::unique_ptr<FormRows> ownRows_;
    const OpenForm* form_;
    const FormRows* rows_;
};

}  // namespace

std::vector<bool> Total_Rows(const OpenForm& form, const FormRows& rows) {
    std::vector<bool> totals(rows.Count());
    for (std::size_t i = 0; i < totals.size(); ++i) totals[i] = Is_Named_Total(rows.At(i), form.Columns());
    if (std::ranges::find(totals, true) == totals.end()) return totals;
    const Entries entries(form, rows);
    for (std::size_t i = 0; i < totals.size(); ++i) totals[i] = totals[i] && !entries.Take(rows.Line(i));
    return totals;
}

}  // namespace tallmar
