// The rows of a form as its grid shows them: read in one query, kept until they are read again.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "db/change_mark.h"
#include "screens/form_description.h"

namespace tallmar {

class FormRows {
  public:
    // Requires that the table is there.
    FormRows(const FormDescription& form, Item item);

    // Reads all rows again.
    void Reload();
    // Takes the rows that `other` has read of the same form.
    void Reload_From(FormRows&& other);
    // Puts a row that was read again, after it was stored, in its place.
    void Reload_Row(std::size_t at, Row row) { rows_[at] = std::move(row); }

    // Of the file, before the rows were read.
    const ChangeMark& Mark() const { return mark_; }
    // The same lines in the same order.
    bool Has_Lines_Of(const FormRows& other) const { return lines_ == other.lines_; }
    std::size_t Count() const { return rows_.size(); }
    // A copy of a row is cheap in names, not in values.
    const Row& At(std::size_t at) const { return rows_[at]; }
    // 0 on a table without LineNum.
    Currency Line(std::size_t at) const { return lines_[at]; }
    // The first row of the line.
    std::optional<std::size_t> Find(Currency line) const;

  private:
    const FormDescription& form_;
    Item item_;
    ChangeMark mark_;
    std::vector<Row> rows_;
    std::vector<Currency> lines_;  // as many as rows
};

}  // namespace tallmar
