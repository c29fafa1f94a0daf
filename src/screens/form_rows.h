// The rows of a form as its grid shows them: read in one query, kept until they are read again.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "screens/form_description.h"

namespace tallmar {

class FormRows {
  public:
    // Requires that the table is there.
    FormRows(const FormDescription& form, Item item);

    // Reads all rows again.
    void Requery();
    // Reads one row again, after it was stored. A row that went away or came needs Requery.
    void Reread(std::size_t at);

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
    std::vector<Row> rows_;
    std::vector<Currency> lines_;  // as many as rows
};

}  // namespace tallmar
