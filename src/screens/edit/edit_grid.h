// The grid of an edit form. The cursor leaves a cell when its entry was taken, and a row when the row was stored; what
// is refused shows one box and holds the cursor.
#pragma once

#include <QPointer>
#include <QTimer>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "screens/cell_block.h"
#include "screens/edit/choice_list.h"
#include "screens/edit/edit_model.h"
#include "screens/view/grid_view.h"

class QLineEdit;

namespace tallmar {

class CellEditor;
class EntryGuard;

class EditGrid : public GridView {
    Q_OBJECT

  public:
    explicit EditGrid(QWidget* parent = nullptr);
    ~EditGrid() override;
    // Requires an EditModel.
    void setModel(QAbstractItemModel* model) override;
    // The editor goes with the rows that were read before.
    void reset() override;
    EditModel& Entries() const;

    // Takes the entry under the editor and stores the row; the cursor stays. False where either is refused.
    bool Commit();
    // Takes the entry under the editor into the row.
    bool Take_Entry();
    // One cell of the cursor's row, without an editor.
    bool Enter_Text(const QModelIndex& at, const QString& text);
    // One cell of a line, which the grid need not show, and stores it. The row of the cursor is stored first.
    bool Enter_In_Line(Currency line, std::string_view field, const QString& text);
    bool Is_Editing() const;
    // Opens the editor on the cursor's cell; `typed` replaces what the cell holds. Where the cell takes nothing, or
    // holds a name and something is typed, the status line says so.
    void Edit_Cell(const QString& typed = {});

    bool Can_Undo() const;
    void Undo();
    void Redo();
    void Paste();
    void Clear_Cells();
    // What the first row of the selection holds goes into the others; one cell takes that of the cell above.
    void Fill_Down();
    // cmdAdd and cmdDelete on the row of the cursor.
    void Add_Row();
    void Remove_Row();
    // The cursor goes to the line, in the column where it is or, where that is no entry, in the first. The row must
    // have been stored.
    void Place_Cursor(Currency line);
    // The first entry of the form.
    void Place_Cursor_First();
    // A row under edit whose checks let it go without a box is stored when no key came for so long.
    void Set_Idle_Time(std::chrono::milliseconds time) { idle_.setInterval(time); }

    // The list over the cursor's cell; null while there is none.
    ChoiceList* Choices() const { return choices_; }

  signals:
    // An entry was taken or rows came and went.
    void Entered();
    // Rows went into the table.
    void Row_Stored();
    void Row_Discarded();
    // For the status line.
    void Told(const QString& text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void Fill_Menu(QMenu& menu) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool Is_Stop(const QModelIndex& index) const override { return Entries().Is_Stop(index); }

  private:
    bool May_Leave(const QModelIndex& to);
    bool Enter_In_Row(const QModelIndex& at, const QString& text);
    bool Store_Row();
    // Shows nothing: a row that is refused, or was changed elsewhere, waits under edit.
    void Store_Idle_Row();
    void Tell_Stored(const QString& stored, const RowUnderEdit& row);
    // Esc without an editor, and what Undo does after it.
    void Discard_Row();
    void Restore_Row();
    // Someone else stored a cell of the row meanwhile: the person's word decides.
    bool May_Overwrite();
    // The form's cursor follows that of the grid.
    void Follow_Cursor(int row);
    void Show_Error(const DbError& error);
    // What storing the row under edit will say; empty where nothing was entered.
    QString Pending_Text() const;
    QString Stored_Text(std::size_t cells, std::optional<Currency> line = {}) const;

    void Close_Editor();
    void Leave_By(int key, Qt::KeyboardModifiers modifiers);
    struct CellKey;
    const CellKey* Find_Key(const QKeyEvent& event) const;
    bool Type_Key(QKeyEvent* event);
    bool Editor_Key(QKeyEvent& event);
    // From entry to entry: down or up the column, or along the row and on to the next.
    void Enter(bool up);
    void Tab(bool back);
    QModelIndex Next_Entry(int row, int column, int step) const;
    // Invalid where there is none.
    QModelIndex Next_In_Row(const QModelIndex& at, int step) const;
    QModelIndex Next_Beyond_Row(const QModelIndex& at, int step) const;
    void Tell_Why_Locked(const QModelIndex& index);
    void Tell_How_Renamed(const QModelIndex& index);
    void Type_First(const QString& typed);

    // Many cells, rows that come and go, undo: the form is at work on its own.
    class Busy;
    void Take_Step(UndoOutcome (EditHistory::*take)());
    void Enter_Rows(const std::vector<BlockRow>& rows, const char* what);
    void Fill_Selection(const std::string& text, const char* what);
    // The rows are read again, and the form's cursor follows that of the grid.
    void Reload();

    void Show_Choices();
    // Alt+Down and F4: the list of the cell, or the one that narrows to what is typed.
    void Open_Choices();
    void Place_Choices();
    void Close_Choices();
    bool Choice_Key(QKeyEvent* event);
    // The entry of the list goes into the cursor's cell. False where it was refused.
    bool Choose(const QString& value);

    CellEditor* editor_;
    EntryGuard* guard_ = nullptr;
    QPointer<ChoiceList> choices_;
    bool stale_ = false;   // the rows are about to be read again
    bool asking_ = false;  // a check, a box or a store is under way: nothing else may begin
    QTimer idle_;
    std::optional<DiscardedRow> discarded_;  // by Esc, as long as nothing else was done
    std::optional<int> run_;                 // the column in which a run of Tabs began
    bool addOffered_ = false;                // the next Enter adds a line
};

}  // namespace tallmar
