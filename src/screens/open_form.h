// A worksheet's form over its table: the columns, the row under edit, and the one way by which a typed value gets into
// the table, from the grid and from the command line.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/change_mark.h"
#include "screens/form_columns.h"
#include "screens/form_description.h"
#include "screens/table_change.h"

namespace tallmar {

struct CellChange {
    std::string field;
    Value before, after;
};
// What one storing, one Add or one Remove made of the table.
struct StoredChange {
    Currency line;
    std::vector<CellChange> cells = {};        // of a row that was there
    std::optional<TableChange> rows = {};      // of the form's own table, that came, went or moved
    std::vector<TableState> sidesBefore = {};  // side tables, until what follows from the change has followed
    std::vector<TableChange> sides = {};       // what became of them by then
    std::string what = {};                     // "line 15.01 added"; empty: cells of a row
};
// Who wants to know what a form stores.
struct StoreListener {
    std::function<void(StoredChange change)> stored;
    // What follows from the changes has followed.
    std::function<void()> followed;
};

// What was entered in a row and discarded, with what the checks wrote for it in other tables.
struct DiscardedRow {
    Currency line;
    std::map<std::string, Value, LessText> entries = {};
    std::vector<TableChange> sides = {};
};

// Cells go into the row under edit; the row goes into the table, in one statement, when it is stored.
class OpenForm {
  public:
    // Requires that the table is there.
    OpenForm(const FormDescription& form, Item item);

    const FormDescription& Description() const { return form_; }
    const Item& Worksheet() const { return item_; }
    std::span<const GridColumn> Columns() const { return columns_; }
    // Takes the columns from the table again, which may have been reshaped; those read before are gone.
    void Reload_Columns();
    // "Col_3", "ccname", or a bare number for Col_<n>. Null where the table has no such column.
    const GridColumn* Find_Column(std::string_view column) const;
    // How messages name cells: as the form writes them, never by the fields of the table. "4 Contracted Purchased
    // Services"; "Worksheet A, line 23.20", without the line on a table without LineNum; "Worksheet A, line 23.20,
    // column 1 Salaries".
    std::string Head_Text(const GridColumn& column, Currency line) const {
        return tallmar::Head_Text(form_, columns_, column, line);
    }
    std::string Line_Place(Currency line) const;
    std::string Cell_Place(const GridColumn& column, Currency line) const;
    // One is kept, none to begin with.
    void Set_Listener(StoreListener listener) { listener_ = std::move(listener); }

    // Reads the row and puts the cursor in it; the row before must have been stored or discarded. False where the form
    // does not show the line and Add could not make it; Why_No_Row then says why.
    bool Place_Cursor(Currency line);
    // The same in a row that was read when the file had the mark.
    void Place_Cursor(Currency line, Row row, ChangeMark mark);
    Refusal Why_No_Row(Currency line) const;
    const RowUnderEdit& Under_Edit() const { return row_; }
    // Something was entered in the row and is not stored.
    bool Has_Entries() const { return !row_.Entered().empty(); }
    bool Is_Locked(const GridColumn& column) const { return Is_Locked(column, row_); }
    // Of any row of the form.
    bool Is_Locked(const GridColumn& column, const RowUnderEdit& row) const { return !Why_Locked(column, row).empty(); }
    // Why the cell takes nothing, as screens/lock_reasons.h says it; empty where it takes an entry. Lives as long as
    // the columns.
    std::string_view Why_Locked(const GridColumn& column, const RowUnderEdit& row) const;

    // Checks one cell and enters it in the row. What is refused leaves the row as it was, and is not shown; warnings
    // and questions have been, by way of `talk`.
    std::optional<Refusal> Enter(const GridColumn& column, std::string_view text, const EntryTalk& talk = {});
    // The row goes into the table and stays the one under edit, as the table then has it; nothing is under edit where
    // what follows took the row away. A refusal keeps the entries, an engine's error too. DbError of what follows the
    // row reaches the caller; the row is stored then.
    std::optional<Refusal> Store_Row(const EntryTalk& talk = {});
    // Discards what was entered in the row; the cursor is in none then.
    DiscardedRow Discard_Row();
    // Enters it once more. False where the line is gone. Requires that nothing was entered or stored since.
    bool Restore_Row(const DiscardedRow& discarded);
    // Reads the row again beneath its entries, where the file has changed since it was read. The columns that were
    // entered and are not as they were when the cursor came into the row: someone else has stored them.
    std::vector<const GridColumn*> Reload_Row();
    // The same without a change here: whether someone else has stored a cell that was entered, or removed the line.
    bool Is_Changed_Elsewhere() const;

    // cmdAdd on the row of line `current`, 0 without one: the line of the new row. cmdDelete. Both in one step of the
    // file; the cursor's row must have been stored or discarded. Remove_Row: false where the person was asked and keeps
    // the row.
    Currency Add_Row(Currency current);
    bool Remove_Row(Currency line, const EntryTalk& talk = {});

    // Former values go into the row under edit and into the table by the way of every entry but its check. The
    // listener does not hear of it. A refusal stores nothing.
    using FormerValues = std::vector<std::pair<const GridColumn*, Value>>;
    std::optional<Refusal> Put_Back_Cells(const FormerValues& values);
    // Rows of the form's own table, by the way of Add and Remove.
    void Put_Back_Rows(const TableChange& change);

    // Brings other worksheets up to the rows stored since the last time; nothing where none was.
    void Follow_Changes();
    // Follow_Changes and the form's closing step. The last row must have been stored. What the closing dropped, a
    // sentence each.
    std::vector<std::string> Close();

  private:
    // The columns that were entered and that `now` holds otherwise than the row did as the cursor came.
    std::vector<const GridColumn*> Changed_Since(const RowUnderEdit& now) const;
    RowPlace Place_Of(const RowUnderEdit& row, const EntryTalk& talk) const { return {item_, columns_, row, talk}; }
    // What the cell takes of the text, converted for its field.
    CellResult Check(const CellPlace& place, std::string_view text) const;
    std::optional<Refusal> May_Leave(const EntryTalk& talk) const;
    // One statement, and a row that is new before it. `stored` receives the row; none is under edit then.
    std::optional<Refusal> Write_Row(RowUnderEdit& stored);
    // After a row was written: reads it, and has the listener know.
    void Row_Written(const RowUnderEdit& stored);
    void Tell(StoredChange change) const;
    // What goes into the table counts as not calculated: the entries of the row, and rows that came or went.
    void Note_Entries() const;
    void Note_Rows(const TableChange& change) const;

    const FormDescription& form_;
    Item item_;
    std::string table_;
    std::vector<GridColumn> columns_;  // in the order of the table
    StoreListener listener_;
    RowUnderEdit row_;
    ChangeMark mark_;                                     // of the file, before row_ was read
    std::optional<std::vector<TableState>> sidesBefore_;  // as the first entry of the row found them
    bool changed_ = false;                                // rows were stored since Follow_Changes
};

}  // namespace tallmar
