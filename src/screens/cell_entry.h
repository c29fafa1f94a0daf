// The one way by which a typed value gets into a cell, from the grid and from the command line.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/form_description.h"

namespace tallmar {

// What became of a cell. A refusal is not shown: the grid shows it by Show_Refusal, a batch lists it. Warnings and
// questions have been shown by then.
struct CellOutcome {
    bool stored = true;
    std::string title, text;  // of the box that refused it
    bool shown = false;       // the box was a question, and has been answered
};

// Beeps and shows the stop box of a cell that was refused.
void Show_Refusal(const CellOutcome& outcome);

// A form over the table of an item. Cells go into the row under edit; the row goes into the table, in one statement,
// when the cursor leaves it.
class OpenForm {
  public:
    // Requires that the table is there.
    OpenForm(const FormDescription& form, Item item);

    const FormDescription& Description() const { return form_; }
    const Item& Worksheet() const { return item_; }
    std::span<const GridColumn> Columns() const { return columns_; }
    // "Col_3", "ccname", or a bare number for Col_<n>. Null where the table has no such column.
    const GridColumn* Find_Column(std::string_view column) const;

    // Puts the cursor in the row; the row before must have been left. False where the form does not show the line and
    // could not make it.
    bool Go_To(Currency line);
    bool Is_Locked(const GridColumn& column) const;
    CellOutcome Enter(const GridColumn& column, std::string_view text);
    // Commit_Grid: writes the row under edit. A refusal keeps it under edit, an engine's error too.
    CellOutcome Leave_Row();
    // Gives up what was entered in the row.
    void Cancel_Row();
    // Brings other worksheets up to the rows stored since the last time; nothing where none was.
    void Follow_Changes();
    // Follow_Changes and the form's closing step. The last row must have been left.
    void Close();

  private:
    const FormDescription& form_;
    Item item_;
    std::vector<GridColumn> columns_;  // in the order of the table
    RowUnderEdit row_;
    bool changed_ = false;  // rows were stored since Follow_Changes
};

// One cell as text: the line is left empty on a table without LineNum.
struct CellText {
    std::string item, line, column, value;
};

// Checks and stores a list of cells, row by row in an order of its own, so that the order of the list changes nothing
// but which of two entries of one cell wins: the later. Answers in the order of the list. A row that its form would
// not let go refuses all its cells.
std::vector<CellOutcome> Enter_Cells(std::span<const CellText> cells);
// One cell, with its row's and its form's closing rules.
CellOutcome Enter_Cell(const CellText& cell);

}  // namespace tallmar
