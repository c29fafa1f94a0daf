// Paste, Delete, undo, and rows that come and go.
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QScopedValueRollback>
#include <map>
#include <utility>

#include "common/platform.h"
#include "common/sql_text.h"
#include "common/wait_pointer.h"
#include "report/open_report.h"
#include "screens/cell_text.h"
#include "screens/edit/edit_grid.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr std::string_view kPasteTitle = "The following messages were generated during the Paste process.";
constexpr std::string_view kUndoTitle = "The following messages were generated during the Undo process.";

}  // namespace

class EditGrid::Busy {
  public:
    explicit Busy(EditGrid& grd) : asking_(grd.asking_, true) { grd.Entries().Clear_Cursor(); }

  private:
    QScopedValueRollback<bool> asking_;
};

void EditGrid::Reload() {
    try {
        Entries().Reload_In_Place();
    } catch (const DbError& error) {
        return emit Told(Qt_Text(error.Description()));
    }
    if (currentIndex().isValid()) Follow_Cursor(currentIndex().row());
}

bool EditGrid::Enter_In_Line(Currency line, std::string_view field, const QString& text) {
    if (!Commit()) return false;
    OpenForm& form = Entries().Form();
    bool stored = false;
    std::optional<Refusal> refusal;
    try {
        const Busy busy(*this);
        const GridColumn* column = form.Find_Column(field);
        if (column != nullptr && form.Place_Cursor(line)) {
            refusal = form.Enter(*column, Plain_Text(text));
            if (!refusal) refusal = form.Store_Row();
            stored = !refusal;
        }
        form.Discard_Row();
    } catch (const DbError& error) {
        Show_Error(error);
    }
    Reload();
    if (refusal) Show_Refusal(*refusal);
    if (!stored) return false;
    emit Entered();
    emit Row_Stored();
    emit Told(Stored_Text(1));
    return true;
}

bool EditGrid::Can_Undo() const {
    if (model() == nullptr) return false;
    return discarded_.has_value() || Entries().History().Can_Undo() || Entries().Form().Has_Entries();
}

void EditGrid::Discard_Row() {
    Close_Choices();
    discarded_ = Entries().Discard_Row();
    if (Entries().Row_Under_Edit() < 0) Reload();
    emit Row_Discarded();
    emit Told(tr("The entries of the row were taken back. Ctrl+Z brings them back."));
}

void EditGrid::Restore_Row() {
    const DiscardedRow discarded = *std::exchange(discarded_, {});
    const int row = Entries().Form().Description().order.empty() ? 0 : Model().Row_Of(discarded.line);
    if (row >= 0) setCurrentIndex(Model().index(row, currentIndex().column()));
    if (row < 0 || currentIndex().row() != row || !Entries().Restore_Row(discarded)) {
        Reload();
        return emit Told(tr("The line is no longer there."));
    }
    emit Entered();
    emit Told(tr("The entries of the row are back."));
}

void EditGrid::Undo() {
    if (asking_) return;
    Close_Choices();
    // What is not stored yet is the last that was done.
    if (Is_Editing()) return Close_Editor();
    if (Entries().Form().Has_Entries()) {
        Discard_Row();
        discarded_.reset();
        return emit Told(tr("The entries of the row were taken back."));
    }
    if (discarded_) return Restore_Row();
    if (!Entries().History().Can_Undo()) return emit Told(tr("There is nothing to take back."));
    Take_Step(&EditHistory::Undo);
}

void EditGrid::Redo() {
    if (!Commit()) return;
    if (!Entries().History().Can_Redo()) return emit Told(tr("There is nothing to do again."));
    Take_Step(&EditHistory::Redo);
}

void EditGrid::Take_Step(UndoOutcome (EditHistory::*take)()) {
    UndoOutcome undone;
    try {
        const Busy busy(*this);
        const WaitPointer wait;
        undone = (Entries().History().*take)();
    } catch (const DbError& error) {
        Show_Error(error);
    }
    Reload();
    if (undone.text.empty()) return;
    Place_Cursor(undone.line);
    emit Entered();
    emit Row_Stored();
    emit Told(Qt_Text(undone.text));
    std::vector<Platform::BatchMessage> kept;
    for (const std::string& text : undone.kept) kept.push_back({"W", Entries().Form().Worksheet().Name(), text});
    if (!kept.empty()) The_Platform().Show_Batch_Messages(kUndoTitle, kept);
}

void EditGrid::Enter_Rows(const std::vector<BlockRow>& rows, const char* what) {
    BlockOutcome outcome;
    OpenForm& form = Entries().Form();
    try {
        const Busy busy(*this);
        const WaitPointer wait;
        const EditHistory::OneStep step(Entries().History(), what);
        outcome = Enter_Block(form, rows);
    } catch (const DbError& error) {
        Show_Error(error);
    }
    Reload();
    if (outcome.rows > 0) {
        emit Entered();
        emit Row_Stored();
    }
    emit Told(Stored_Text(outcome.cells));
    if (outcome.Has_Messages()) The_Platform().Show_Batch_Messages(kPasteTitle, Block_Messages(form, outcome));
}

void EditGrid::Paste() {
    const QString text = QApplication::clipboard()->text();
    if (text.isEmpty() || !currentIndex().isValid() || !Commit()) return;
    const ClipboardRows clipboard = Parse_Clipboard(Plain_Text(text));
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    const bool isSingle = clipboard.size() == 1 && clipboard.front().size() == 1;
    if (isSingle && selected.size() > 1) return Fill_Selection(clipboard.front().front(), "paste");

    // From the upper left corner of what is selected.
    int top = currentIndex().row(), left = currentIndex().column();
    for (const QModelIndex& index : selected) {
        top = std::min(top, index.row());
        left = std::min(left, index.column());
    }
    std::vector<Currency> lines;
    for (int row = top; row < Model().rowCount(); ++row) lines.push_back(Model().Line(row));
    std::vector<const GridColumn*> columns;
    for (int column = left; column < Model().columnCount(); ++column) columns.push_back(&Model().Column(column));
    Enter_Rows(Block_At(clipboard, lines, columns), "paste");
}

void EditGrid::Fill_Menu(QMenu& menu) {
    GridView::Fill_Menu(menu);
    QAction* const first = menu.actions().front();
    const auto add = [&](const char* name, const QString& caption, bool enabled, auto does) {
        auto* action = new QAction(caption, &menu);
        action->setObjectName(name);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, does);
        menu.insertAction(first, action);
    };
    const bool takes = currentIndex().isValid() && Entries().Takes_Entry(currentIndex());
    if (takes && Entries().Popup(currentIndex()) != nullptr) {
        add("mnuGridList", tr("&List of Answers"), true, &EditGrid::Show_Choices);
    }
    add("mnuGridUndo", tr("&Undo"), Can_Undo(), &EditGrid::Undo);
    menu.insertSeparator(first);
    add("mnuGridPaste", tr("&Paste"), !db.Is_Read_Only() && !QApplication::clipboard()->text().isEmpty(),
        &EditGrid::Paste);
}

void EditGrid::Fill_Selection(const std::string& text, const char* what) {
    std::map<int, std::map<int, const GridColumn*>> cells;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        cells[index.row()][index.column()] = &Model().Column(index.column());
    }
    std::vector<BlockRow> rows;
    for (const auto& [row, columns] : cells) {
        BlockRow& block = rows.emplace_back();
        block.line = Model().Line(row);
        for (const auto& [at, column] : columns) block.cells.push_back({column, text});
    }
    Enter_Rows(rows, what);
}

void EditGrid::Fill_Down() {
    if (!currentIndex().isValid() || !Commit()) return;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    std::map<int, std::map<int, const GridColumn*>> cells;
    for (const QModelIndex& index : selected) cells[index.row()][index.column()] = &Model().Column(index.column());
    if (cells.empty()) return;
    int from = cells.begin()->first;
    if (cells.size() > 1) {
        cells.erase(cells.begin());
    } else if (--from < 0) {
        return;
    }
    std::vector<BlockRow> rows;
    for (const auto& [row, columns] : cells) {
        BlockRow& block = rows.emplace_back();
        block.line = Model().Line(row);
        for (const auto& [at, column] : columns) {
            block.cells.push_back({column, Plain_Text(Model().index(from, at).data(Qt::EditRole).toString())});
        }
    }
    Enter_Rows(rows, "fill down");
}

void EditGrid::Clear_Cells() {
    if (selectionModel()->selectedIndexes().size() > 1) {
        if (Commit()) Fill_Selection("", "cells cleared");
        return;
    }
    // One cell is an entry as any other: its boxes are shown.
    const QModelIndex at = currentIndex();
    if (!at.isValid() || at.row() != Entries().Row_Under_Edit() || !Take_Entry()) return;
    if (!Entries().Takes_Entry(at)) return Tell_Why_Locked(at);
    if (Entries().Is_Name(at)) return Tell_How_Renamed(at);
    Enter_Text(at, "");
}

void EditGrid::Add_Row() {
    if (!Commit()) return;
    OpenForm& form = Entries().Form();
    const Currency current = currentIndex().isValid() ? Model().Line(currentIndex().row()) : Currency();
    std::optional<Currency> line;
    try {
        const Busy busy(*this);
        line = form.Add_Row(current);
    } catch (const DbError& error) {
        Show_Error(error);
    }
    Reload();
    setFocus();
    if (!line) return;
    Place_Cursor(*line);
    // The first that is to be filled, whatever column the row before was left in.
    const QModelIndex first = Last_Stop(currentIndex().row(), Model().columnCount(), 0, -1);
    if (first.isValid()) setCurrentIndex(first);
    emit Entered();
    emit Row_Stored();
    emit Told(tr("Line %1 added.").arg(Qt_Text(Line_Text(*line))));
}

void EditGrid::Remove_Row() {
    if (!currentIndex().isValid() || asking_) return;
    // What was entered goes with the row, and comes back with it unless its own checks refuse it.
    Close_Choices();
    Close_Editor();
    OpenForm& form = Entries().Form();
    try {
        if (Entries().Store_Row()) Entries().Discard_Row();
    } catch (const DbError& error) {
        Show_Error(error);
    }
    const int row = currentIndex().row();
    const Currency line = Model().Line(row);
    const int before = Model().rowCount();
    bool removed = false;
    try {
        const Busy busy(*this);
        removed = form.Remove_Row(line);
    } catch (const DbError& error) {
        Show_Error(error);
    }
    Reload();
    setFocus();
    if (!removed) return;
    const QString number = Qt_Text(Line_Text(line));
    if (Model().rowCount() == before) return emit Told(tr("Line %1 is the form's own and stays.").arg(number));
    emit Entered();
    emit Row_Stored();
    emit Told(tr("Line %1 removed. Ctrl+Z brings it back.").arg(number));
}

}  // namespace tallmar
