// The one way by which a typed value gets into a cell, from the grid and from the command line.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/edit_history.h"
#include "screens/form_description.h"

namespace tallmar {

// What became of a cell. A refusal is not shown: the grid shows it by Show_Refusal, a batch lists it. Warnings and
// questions have been shown by then.
struct CellOutcome {
    bool stored = true;
    std::string title, text;  // of the box that refused it
    bool shown = false;       // the box was a question, and has been answered
    std::string brief = {};   // as Refusal has it; may be empty
};

// Beeps and shows the stop box of a cell that was refused.
void Show_Refusal(const CellOutcome& outcome);

// What an undo did.
struct UndoOutcome {
    Currency line;                  // that the cursor goes to
    std::string text;               // "Worksheet A, line 5: 2 cells taken back."
    std::vector<std::string> kept;  // what had changed since and stays, a sentence each
};

// What was entered in a row and given up, with what the checks wrote for it in other tables.
struct GivenUpRow {
    Currency line;
    std::map<std::string, Value, LessText> entries;
    std::vector<TableChange> sides;
};

// A form over the table of an item. Cells go into the row under edit; the row goes into the table, in one statement,
// when the cursor leaves it.
class OpenForm {
  public:
    // Requires that the table is there.
    OpenForm(const FormDescription& form, Item item);

    const FormDescription& Description() const { return form_; }
    const Item& Worksheet() const { return item_; }
    std::span<const GridColumn> Columns() const { return columns_; }
    // Takes the columns from the table again, which may have been reshaped; those read before are gone.
    void Read_Columns();
    // "Col_3", "ccname", or a bare number for Col_<n>. Null where the table has no such column.
    const GridColumn* Find_Column(std::string_view column) const;

    // Puts the cursor in the row; the row before must have been left. False where the form does not show the line and
    // Add could not make it; Without_Row then says why.
    bool Go_To(Currency line);
    CellOutcome Without_Row(Currency line) const;
    const RowUnderEdit& Under_Edit() const { return row_; }
    // Something was entered in the row and is not stored.
    bool Has_Entries() const { return !row_.Entered().empty(); }
    bool Is_Locked(const GridColumn& column) const { return Is_Locked(column, row_); }
    // Of any row of the form.
    bool Is_Locked(const GridColumn& column, const RowUnderEdit& row) const { return !Why_Locked(column, row).empty(); }
    // Why the cell takes nothing, as screens/lock_reasons.h says it; empty where it takes an entry. Lives as long as
    // the columns.
    std::string_view Why_Locked(const GridColumn& column, const RowUnderEdit& row) const;
    CellOutcome Enter(const GridColumn& column, std::string_view text);
    // Commit_Grid: writes the row under edit. A refusal keeps it under edit, an engine's error too.
    CellOutcome Leave_Row();
    // Reads the row again beneath its entries. The columns that were entered and are not as they were when the cursor
    // came into the row: someone else has stored them.
    std::vector<const GridColumn*> Reread_Row();
    // The same without a change here: whether someone else has stored a cell that was entered, or removed the line.
    bool Is_Changed_Elsewhere() const;
    // Gives up what was entered in the row; the cursor is in none then.
    GivenUpRow Cancel_Row();
    // Enters it once more. False where the line is gone. Requires that nothing was entered or stored since.
    bool Enter_Again(const GivenUpRow& given);
    // Brings other worksheets up to the rows stored since the last time; nothing where none was.
    void Follow_Changes();
    // Follow_Changes and the form's closing step. The last row must have been left. What the closing dropped, a
    // sentence each.
    std::vector<std::string> Close();

    // cmdAdd on the row of line `current`, 0 without one: the line of the new row. cmdDelete. Both in one step of the
    // file; they throw DbError, and nothing has changed then. Require that the description has them and that the row
    // was left. Remove_Row: false where the person was asked and keeps the row.
    Currency Add_Row(Currency current);
    bool Remove_Row(Currency line);

    // Takes the last step back: a row as it was stored, a row that came or went, or a whole OneStep. Former values go
    // in by the way of every entry but its check. Cells that no longer hold what the step stored stay. Requires that
    // nothing is entered in the row. Throws DbError; the step is still there then.
    bool Can_Undo() const { return !steps_.empty(); }
    UndoOutcome Undo();
    // The step that was taken back last, again and by the same way. A step that is stored anew ends it.
    bool Can_Redo() const { return !undone_.empty(); }
    UndoOutcome Redo();

    // Rows that are stored, added and removed while it lives are one step; `what` names it: "paste".
    class OneStep {
      public:
        OneStep(OpenForm& form, std::string what);
        ~OneStep();
        OneStep(const OneStep&) = delete;
        OneStep& operator=(const OneStep&) = delete;

      private:
        OpenForm& form_;
    };

  private:
    // The columns that were entered and that `now` holds otherwise than the row did as the cursor came.
    std::vector<const GridColumn*> Changed_Since(const RowUnderEdit& now) const;
    CellOutcome Store_Row(RowUnderEdit& stored);
    // What goes into the table counts as not calculated: the entries of the row, and rows that came or went.
    void Note_Entries() const;
    void Note_Rows(const TableChange& change) const;
    void Record_Row(const RowUnderEdit& stored);
    void Record(EditPart part, std::string_view what);
    void Settle_Sides();
    UndoOutcome Take_Step(std::vector<EditStep>& from, std::vector<EditStep>& to, std::string_view word);
    std::size_t Undo_Part(const EditPart& part, UndoOutcome& outcome);
    std::size_t Undo_Cells(const EditPart& part, UndoOutcome& outcome);
    bool Still_Stands(const TableChange& change) const;

    const FormDescription& form_;
    Item item_;
    std::string table_;
    std::vector<GridColumn> columns_;  // in the order of the table
    RowUnderEdit row_;
    bool changed_ = false;                                // rows were stored since Follow_Changes
    std::optional<std::vector<TableState>> sidesBefore_;  // as the first entry of the row found them
    std::vector<EditStep> steps_;
    std::vector<EditStep> undone_;  // the other way round
    bool grouped_ = false;          // the last step still grows
};

}  // namespace tallmar
