// The keys and the mouse of the edit grid, as spreadsheets have them: typing replaces, F2 and a double click edit,
// Enter goes down, Tab goes on to the next cell that takes an entry, Esc takes back.
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include "report/open_report.h"
#include "screens/edit/cell_editor.h"
#include "screens/edit/edit_grid.h"
#include "screens/edit/entry_guard.h"
#include "screens/view/qt_text.h"

namespace tallmar {

void EditGrid::Tell_Why_Locked(const QModelIndex& index) {
    if (db.Is_Read_Only())
        return emit Told(tr("The report is read only and takes no entry. Save As makes a copy that does."));
    if (!index.isValid() || index.row() != Entries().Row_Under_Edit()) return;
    emit Told(Qt_Text(Entries().Enter(index, {}).text));
}

void EditGrid::Edit_Cell(const QString& typed) {
    const QModelIndex at = currentIndex();
    Close_Choices();
    if (!at.isValid() || at.row() != Entries().Row_Under_Edit() || asking_) return;
    if (!Entries().Takes_Entry(at)) return Tell_Why_Locked(at);
    if (!Is_Editing()) edit(at);
    QLineEdit* editor = editor_->Open();
    if (editor == nullptr) return;
    editor_->Set_Replacing(!typed.isNull());
    if (!typed.isNull()) {
        editor->setText(typed);
        editor->setModified(true);
    }
    editor->end(false);
    scrollTo(at);
    editor->setFocus();
}

void EditGrid::Step(int rows, int columns) {
    const QModelIndex at = currentIndex();
    const QModelIndex next = at.sibling(at.row() + rows, at.column() + columns);
    if (next.isValid()) {
        setCurrentIndex(next);
    } else {
        Commit();
    }
}

void EditGrid::Tab(bool back) {
    const int columns = Model().columnCount();
    const int cells = Model().rowCount() * columns;
    const int step = back ? -1 : 1;
    for (int cell = currentIndex().row() * columns + currentIndex().column() + step; cell >= 0 && cell < cells;
         cell += step) {
        const QModelIndex next = Model().index(cell / columns, cell % columns);
        if (Entries().Takes_Entry(next)) return setCurrentIndex(next);
    }
    // On to the buttons, with the row stored.
    if (Commit()) QAbstractScrollArea::focusNextPrevChild(!back);
}

void EditGrid::Leave_By(int key, Qt::KeyboardModifiers modifiers) {
    if (!Take_Entry()) return;
    const bool shift = (modifiers & Qt::ShiftModifier) != 0;
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Step(shift ? -1 : 1, 0);
        case Qt::Key_Tab:
            return Tab(shift);
        case Qt::Key_Backtab:
            return Tab(true);
        default: {
            QKeyEvent moving(QEvent::KeyPress, key, Qt::NoModifier);
            keyPressEvent(&moving);
        }
    }
}

// A character that is no command.
bool EditGrid::Type_Key(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    // AltGr comes as Ctrl and Alt together.
    const bool isPlain = modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier) ||
                         modifiers == Qt::GroupSwitchModifier;
    if (!isPlain || event->text().isEmpty() || !event->text().at(0).isPrint()) return false;
    Edit_Cell(event->text());
    return true;
}

void EditGrid::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (model() == nullptr || asking_) return;
    // What the editor has no use for is the form's.
    if (Is_Editing()) return event->ignore();
    if (choices_ != nullptr && Choice_Key(event)) return;
    EntryGuard::Event scope(*guard_);
    if (event->matches(QKeySequence::Paste)) return Paste();
    if (event->matches(QKeySequence::Undo)) return Undo();
    const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
    if (currentIndex().isValid()) {
        switch (event->key()) {
            case Qt::Key_F2:
                return Edit_Cell();
            case Qt::Key_Backspace:
                return Edit_Cell("");
            case Qt::Key_Delete:
                return Clear_Cells();
            case Qt::Key_Return:
            case Qt::Key_Enter:
                return Step(shift ? -1 : 1, 0);
            case Qt::Key_Tab:
                if (control) break;
                return Tab(shift);
            case Qt::Key_Backtab:
                if (control) break;
                return Tab(true);
            case Qt::Key_Down:
                if (!alt) break;
                return Show_Choices();
            case Qt::Key_Escape:
                if (!Entries().Form().Has_Entries()) break;
                return Undo();
            default:
                break;
        }
        if (Type_Key(event)) return;
    }
    GridView::keyPressEvent(event);
}

void EditGrid::inputMethodEvent(QInputMethodEvent* event) {
    if (Is_Editing() || (event->commitString().isEmpty() && event->preeditString().isEmpty())) {
        return GridView::inputMethodEvent(event);
    }
    Edit_Cell("");
    if (Is_Editing()) QApplication::sendEvent(editor_->Open(), event);
}

void EditGrid::mousePressEvent(QMouseEvent* event) {
    if (asking_) return;
    const QModelIndex to = indexAt(event->position().toPoint());
    // A click into the empty space beyond the cells takes the entry as well.
    if (!to.isValid() && !Take_Entry()) return;
    if (to.isValid() && to != currentIndex() && !May_Leave(to)) return;
    if (to.isValid() && to == currentIndex() && !Take_Entry()) return;
    EntryGuard::Event scope(*guard_);
    GridView::mousePressEvent(event);
    if (to.isValid() && to == currentIndex() && choices_ == nullptr) Show_Choices();
}

void EditGrid::mouseMoveEvent(QMouseEvent* event) {
    if (asking_) return;
    // The view selects before it moves the cursor.
    const QModelIndex to = indexAt(event->position().toPoint());
    const bool drags = (event->buttons() & Qt::LeftButton) != 0 && to.isValid() && to != currentIndex();
    if (drags && !May_Leave(to)) return setState(NoState);
    GridView::mouseMoveEvent(event);
}

void EditGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex at = indexAt(event->position().toPoint());
    if (asking_ || !at.isValid() || at != currentIndex()) return mousePressEvent(event);
    if (event->button() == Qt::LeftButton) Edit_Cell();
}

void EditGrid::focusInEvent(QFocusEvent* event) {
    GridView::focusInEvent(event);
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey && choices_ == nullptr) Show_Choices();
}

void EditGrid::focusOutEvent(QFocusEvent* event) {
    GridView::focusOutEvent(event);
    Close_Choices();
}

void EditGrid::hideEvent(QHideEvent* event) {
    GridView::hideEvent(event);
    Close_Choices();
}

void EditGrid::resizeEvent(QResizeEvent* event) {
    GridView::resizeEvent(event);
    Close_Choices();
    if (Is_Editing()) scrollTo(currentIndex());
}

void EditGrid::scrollContentsBy(int dx, int dy) {
    GridView::scrollContentsBy(dx, dy);
    Close_Choices();
}

void EditGrid::Show_Choices() {
    const PopupList* list = currentIndex().isValid() ? Entries().Popup(currentIndex()) : nullptr;
    if (list == nullptr || Is_Editing() || asking_) return;
    Close_Choices();
    scrollTo(currentIndex());
    choices_ = new ChoiceList(*list, currentIndex().data(Qt::EditRole).toString(), window());
    connect(choices_, &ChoiceList::Chosen, this, &EditGrid::Choose);
    connect(choices_, &ChoiceList::Left, this, &EditGrid::Close_Choices);
    const QRect cell = visualRect(currentIndex());
    choices_->Show_At(QRect(viewport()->mapTo(window(), cell.topLeft()), cell.size()));
}

void EditGrid::Close_Choices() {
    if (choices_ == nullptr) return;
    choices_->hide();
    choices_->deleteLater();
    choices_ = nullptr;
}

// Up and Down go through the list and, beyond its ends, on to the next rows. Enter takes the entry that was gone to.
bool EditGrid::Choice_Key(QKeyEvent* event) {
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    switch (event->key()) {
        case Qt::Key_Up:
            return choices_->Move(-1);
        case Qt::Key_Down:
            return choices_->Move(1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!choices_->Is_Moved()) return false;
            choices_->Choose_Current();
            return true;
        case Qt::Key_Escape:
            Close_Choices();
            return true;
        default:
            return false;
    }
}

void EditGrid::Choose(const QString& value) {
    Close_Choices();
    setFocus();
    if (asking_ || !Entries().Takes_Entry(currentIndex())) return;
    Enter_Text(currentIndex(), value);
}

}  // namespace tallmar
