// The keys and the mouse of the edit grid, as spreadsheets have them: typing replaces, F2 and a double click edit,
// Enter and Tab go on to the next entry, Esc takes back.
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>
#include <iterator>
#include <utility>

#include "report/open_report.h"
#include "screens/edit/cell_editor.h"
#include "screens/edit/edit_grid.h"
#include "screens/edit/entry_guard.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

// A character that is no command.
bool Is_Typed(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    // AltGr comes as Ctrl and Alt together.
    const bool isPlain = modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier) ||
                         modifiers == Qt::GroupSwitchModifier;
    return isPlain && !event.text().isEmpty() && event.text().at(0).isPrint();
}

}  // namespace

void EditGrid::Tell_Why_Locked(const QModelIndex& index) {
    if (db.Is_Read_Only())
        return emit Told(tr("The report is read only and takes no entry. Save As makes a copy that does."));
    if (!index.isValid() || index.row() != Entries().Row_Under_Edit()) return;
    const std::optional<Refusal> refusal = Entries().Enter(index, {});
    emit Told(refusal ? Qt_Text(refusal->text) : QString());
}

void EditGrid::Tell_How_Renamed(const QModelIndex& index) {
    const std::string place = Entries().Form().Cell_Place(Model().Column(index.column()), Model().Line(index.row()));
    emit Told(tr("%1 is a name: press F2 to change it.").arg(Qt_Text(place)));
}

void EditGrid::Edit_Cell(const QString& typed) {
    const QModelIndex at = currentIndex();
    Close_Choices();
    if (!at.isValid() || at.row() != Entries().Row_Under_Edit() || asking_) return;
    if (!Entries().Takes_Entry(at)) return Tell_Why_Locked(at);
    if (!typed.isNull() && Entries().Is_Name(at)) return Tell_How_Renamed(at);
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

void EditGrid::Leave_By(int key, Qt::KeyboardModifiers modifiers) {
    if (!Take_Entry()) return;
    const bool shift = (modifiers & Qt::ShiftModifier) != 0;
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Enter(shift);
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

bool EditGrid::Type_Key(QKeyEvent* event) {
    if (!Is_Typed(*event)) return false;
    Edit_Cell(event->text());
    return true;
}

// Without a row there is no cell to type into: what is typed begins the first, where a row can be added.
void EditGrid::Type_First(const QString& typed) {
    if (Entries().Form().Description().lines.add == nullptr || db.Is_Read_Only()) {
        return emit Told(tr("The worksheet has no line."));
    }
    Add_Row();
    if (currentIndex().isValid()) Edit_Cell(typed);
}

// An editor that is open gets its keys first.
bool EditGrid::Editor_Key(QKeyEvent& event) {
    if (choices_ != nullptr && Choice_Key(&event)) return true;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool opens = (event.key() == Qt::Key_F4 && modifiers == Qt::NoModifier) ||
                       (event.key() == Qt::Key_Down && modifiers == Qt::AltModifier);
    if (opens) Open_Choices();
    return opens;
}

// A key on a cell, with all of `with` held and none of `without`.
struct EditGrid::CellKey {
    Qt::Key key;
    Qt::KeyboardModifiers with, without;
    void (*does)(EditGrid& grd, bool shift);
};

const EditGrid::CellKey* EditGrid::Find_Key(const QKeyEvent& event) const {
    constexpr auto kAny = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    static constexpr CellKey kKeys[] = {
        {Qt::Key_F2, {}, {}, [](EditGrid& grd, bool) { grd.Edit_Cell(); }},
        {Qt::Key_Backspace, {}, {}, [](EditGrid& grd, bool) { grd.Edit_Cell(""); }},
        {Qt::Key_Delete, {}, {}, [](EditGrid& grd, bool) { grd.Clear_Cells(); }},
        {Qt::Key_Return, {}, {}, [](EditGrid& grd, bool shift) { grd.Enter(shift); }},
        {Qt::Key_Enter, {}, {}, [](EditGrid& grd, bool shift) { grd.Enter(shift); }},
        {Qt::Key_Tab, {}, Qt::ControlModifier, [](EditGrid& grd, bool shift) { grd.Tab(shift); }},
        {Qt::Key_Backtab, {}, Qt::ControlModifier, [](EditGrid& grd, bool) { grd.Tab(true); }},
        {Qt::Key_Down, Qt::AltModifier, {}, [](EditGrid& grd, bool) { grd.Open_Choices(); }},
        {Qt::Key_F4, {}, kAny, [](EditGrid& grd, bool) { grd.Open_Choices(); }},
        {Qt::Key_Escape, {}, {}, [](EditGrid& grd, bool) { grd.Discard_Row(); }},
    };
    if (event.key() == Qt::Key_Escape && !Entries().Form().Has_Entries()) return nullptr;
    const auto found = std::ranges::find_if(kKeys, [&](const CellKey& row) {
        const Qt::KeyboardModifiers held = event.modifiers();
        return event.key() == row.key && (held & row.with) == row.with && (held & row.without) == Qt::NoModifier;
    });
    return found == std::end(kKeys) ? nullptr : found;
}

void EditGrid::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (model() == nullptr || asking_) return;
    // What the editor has no use for is the form's.
    if (Is_Editing()) return event->ignore();
    idle_.start();
    const bool offered = std::exchange(addOffered_, false);
    if (choices_ != nullptr && Choice_Key(event)) return;
    EntryGuard::Event scope(*guard_);
    if (event->matches(QKeySequence::Paste)) return Paste();
    if (event->matches(QKeySequence::Undo)) return Undo();
    if (event->matches(QKeySequence::Redo)) return Redo();
    if (!currentIndex().isValid()) {
        if (Is_Typed(*event)) return Type_First(event->text());
    } else if (const CellKey* key = Find_Key(*event)) {
        // Any other key takes the offer back.
        addOffered_ = offered && (key->key == Qt::Key_Return || key->key == Qt::Key_Enter);
        return key->does(*this, (event->modifiers() & Qt::ShiftModifier) != 0);
    } else if (Type_Key(event)) {
        return;
    }
    GridView::keyPressEvent(event);
}

void EditGrid::inputMethodEvent(QInputMethodEvent* event) {
    if (Is_Editing() || (event->commitString().isEmpty() && event->preeditString().isEmpty())) {
        return GridView::inputMethodEvent(event);
    }
    if (!currentIndex().isValid()) return GridView::inputMethodEvent(event);
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

}  // namespace tallmar
