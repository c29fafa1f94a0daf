// The rows of an edit form: those of the table, and over them what was entered in the row that the cursor is in.
#pragma once

#include <vector>

#include "screens/edit_history.h"
#include "screens/view/grid_model.h"

namespace tallmar {

class EditModel : public GridModel {
    Q_OBJECT

  public:
    EditModel(const FormDescription& description, Item item, QObject* parent = nullptr);

    EditHistory& History() { return history_; }
    const EditHistory& History() const { return history_; }

    // Puts the form's cursor in the row; the one before must have been stored or discarded. False where the table no
    // longer has the line: the rows must be reloaded.
    bool Place_Cursor(int row);
    // The form works on rows of its own choice: the cursor is in none. Requires that nothing is entered.
    void Clear_Cursor();
    // -1 while the cursor is in none.
    int Row_Under_Edit() const { return row_; }
    // The row is to be stored with this cell.
    bool Stored_At_Once(const QModelIndex& index) const;
    bool Takes_Entry(const QModelIndex& index) const;
    // The form has an entry here, whether the report can be written or not.
    bool Is_Entry(const QModelIndex& index) const;
    // A name: it is opened by F2 or a double click, and typing leaves it alone.
    bool Is_Name(const QModelIndex& index) const;
    // Where the keys stop that go from entry to entry.
    bool Is_Stop(const QModelIndex& index) const { return Takes_Entry(index) && !Is_Name(index); }
    // The list that opens over the cell; null where it has none or takes nothing.
    const PopupList* Popup(const QModelIndex& index) const;
    // The list that the person may ask for; empty where the cell has none or takes nothing.
    std::vector<CellChoice> Choices(const QModelIndex& index) const;

    // One cell of the row under edit through its check. A refusal is not shown.
    std::optional<Refusal> Enter(const QModelIndex& index, const QString& text);
    // The row goes into the table and stays the one under edit. A refusal keeps its entries, and is not shown. DbError
    // of what follows the row reaches the caller; the row is stored then.
    std::optional<Refusal> Store_Row(const EntryTalk& talk = {});
    // Discards what was entered in the row, which stays the one under edit.
    DiscardedRow Discard_Row();
    // Enters that once more in the row under edit, which is its own. False where the table no longer has the line.
    bool Restore_Row(const DiscardedRow& discarded);
    // Reads all rows again. The cursor keeps its cell where the table has the same lines as before.
    void Reload_In_Place();

    void Reload() override;
    // Numbered cells that take no entry are shaded, whatever they hold, the others are labels. In a report that is read
    // only every cell is shaded.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // As a person enters it: a refusal is shown, and so is that of a row before.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

  protected:
    Value Cell(int row, const GridColumn& column) const override;

  private:
    // As it is under edit, or as the table has it: while a row is stored the form has none under edit.
    RowUnderEdit Row_At(int row) const;
    bool Is_Open(const GridColumn& column, const RowUnderEdit& row) const;
    void Show_Row(int row) { emit dataChanged(index(row, 0), index(row, columnCount() - 1)); }

    // What was stored may have changed other rows, or which of their cells are open.
    void Follow_Stored_Row(Currency line);

    EditHistory history_{Form()};
    int row_ = -1;
    // Which cells take an entry, by row; a row is worked out when it is first painted.
    mutable std::vector<std::vector<bool>> open_;
};

}  // namespace tallmar
