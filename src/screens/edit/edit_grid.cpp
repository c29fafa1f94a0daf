#include "screens/edit/edit_grid.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTimer>
#include <utility>

#include "common/platform.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/cell_text.h"
#include "screens/edit/cell_editor.h"
#include "screens/edit/entry_guard.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr int kFrame = 1;
constexpr std::chrono::seconds kIdle{5};

constexpr std::string_view kErrorTitle = "Error: Entry Not Stored";
constexpr std::string_view kChangedTitle = "Warning: Entry Changed By Another Program";

// Names that a number fills in beside it are not counted.
std::size_t Entered_Cells(const OpenForm& form) {
    std::size_t cells = 0;
    for (const auto& [field, value] : form.Under_Edit().Entered()) {
        const GridColumn* column = form.Find_Column(field);
        if (column != nullptr && column->kind != CellKind::Shown) ++cells;
    }
    return cells;
}

}  // namespace

QString EditGrid::Stored_Text(std::size_t cells, std::optional<Currency> line) const {
    const OpenForm& form = Entries().Form();
    const QString place = Qt_Text(line ? form.Line_Place(*line) : "Worksheet " + form.Worksheet().Name());
    return cells == 1 ? tr("%1: 1 cell stored.").arg(place) : tr("%1: %2 cells stored.").arg(place).arg(cells);
}

QString EditGrid::Pending_Text() const {
    const OpenForm& form = Entries().Form();
    return form.Has_Entries() ? Stored_Text(Entered_Cells(form), form.Under_Edit().Line()) : QString();
}

EditGrid::EditGrid(QWidget* parent) : GridView(parent), editor_(new CellEditor(this)) {
    setItemDelegate(editor_);
    connect(editor_, &CellEditor::Left_By, this, &EditGrid::Leave_By);
    connect(editor_, &CellEditor::Discarded, this, &EditGrid::Close_Editor);
    editor_->Ask_First([this](QKeyEvent& event) { return Editor_Key(event); });
    idle_.setSingleShot(true);
    idle_.setInterval(kIdle);
    connect(&idle_, &QTimer::timeout, this, &EditGrid::Store_Idle_Row);
    connect(this, &EditGrid::Entered, this, [this] {
        discarded_.reset();
        idle_.start();
    });
}

EditGrid::~EditGrid() {
    // It is over the window, which may go on.
    delete choices_;
}

void EditGrid::setModel(QAbstractItemModel* model) {
    // Before the grid follows the model: where rows are read again the guard forgets its place, then the grid restores
    // it.
    guard_ = new EntryGuard(
        model, [this](const QModelIndex& to) { return May_Leave(to); }, this);
    GridView::setModel(model);
    // The view brought a selection model of its own.
    QItemSelectionModel* plain = selectionModel();
    const QModelIndex at = currentIndex();
    setSelectionModel(guard_);
    delete plain;
    if (at.isValid()) setCurrentIndex(at);
}

void EditGrid::reset() {
    editor_->Forget();
    GridView::reset();
}

EditModel& EditGrid::Entries() const {
    return static_cast<EditModel&>(Model());
}

bool EditGrid::Is_Editing() const {
    return editor_->Open() != nullptr;
}

void EditGrid::Show_Error(const DbError& error) {
    The_Platform().Message_Box(error.Description(), kStop, kErrorTitle);
}

void EditGrid::Close_Editor() {
    QLineEdit* editor = editor_->Open();
    if (editor == nullptr) return;
    editor_->Forget();
    // While a box closes its window is not active yet, and nothing has the keyboard: the window knows nevertheless who
    // will get it. Hiding that one would pass the keyboard on along the tab chain, into another form.
    if (window()->focusWidget() == editor) setFocus();
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    Close_Choices();
    idle_.start();
}

bool EditGrid::Enter_Text(const QModelIndex& at, const QString& text) {
    return Enter_In_Row(at, text) && (!Entries().Stored_At_Once(at) || Store_Row());
}

bool EditGrid::Enter_In_Row(const QModelIndex& at, const QString& text) {
    const QScopedValueRollback asking(asking_, true);
    std::optional<Refusal> refusal;
    try {
        refusal = Entries().Enter(at, text);
    } catch (const DbError& error) {
        Close_Editor();
        Show_Error(error);
        return false;
    }
    // The cell shows what it holds before a box says why it holds that.
    Close_Editor();
    if (refusal) {
        Show_Refusal(*refusal);
        return false;
    }
    emit Entered();
    return true;
}

bool EditGrid::Take_Entry() {
    if (asking_) return false;
    QLineEdit* editor = editor_->Open();
    if (editor == nullptr) return true;
    const QModelIndex at = currentIndex();
    const QString text = editor->text();
    // Looking at a cell changes nothing. A blank is an entry: it is 0 in place of a number.
    if (!editor->isModified() || (!text.isEmpty() && text == at.data(Qt::EditRole).toString())) {
        Close_Editor();
        return true;
    }
    if (Is_Number_For_Name(Model().Column(at.column()), Plain_Text(text))) {
        Close_Editor();
        emit Told(tr("A number is no name: '%1' stays.").arg(at.data().toString()));
        return false;
    }
    return Enter_Text(at, text);
}

bool EditGrid::May_Overwrite() {
    OpenForm& form = Entries().Form();
    const std::vector<const GridColumn*> changed = form.Reload_Row();
    if (changed.empty()) return true;
    std::string text = form.Line_Place(form.Under_Edit().Line()) + " was changed by another program meanwhile.  ";
    for (const GridColumn* column : changed) {
        const RowUnderEdit& row = form.Under_Edit();
        text += Sql("Column ", form.Head_Text(*column, form.Under_Edit().Line()), " holds '",
                    Edit_Text(row.Stored(column->field)), "', you entered '", Edit_Text(row[column->field]), "'.  ");
    }
    text += "Select OK to store your entry, or Cancel to keep it in the row without storing it.";
    return The_Platform().Message_Box(text, kOkCancel + kExclamation, kChangedTitle) == Answer::Ok;
}

bool EditGrid::Store_Row() {
    if (asking_) return false;
    OpenForm& form = Entries().Form();
    if (!form.Has_Entries()) return true;
    const QScopedValueRollback asking(asking_, true);
    const RowUnderEdit row = form.Under_Edit();
    const QString stored = Pending_Text();
    try {
        const bool changedElsewhere = openReport.entryAge.Look_Elsewhere(db);
        if (!May_Overwrite()) return false;
        if (const std::optional<Refusal> refusal = Entries().Store_Row()) {
            Show_Refusal(*refusal);
            return false;
        }
        if (changedElsewhere) Entries().Reload_In_Place();
    } catch (const DbError& error) {
        Show_Error(error);
        // The row may be in the table, and only what follows it has failed.
        if (form.Has_Entries()) return false;
    }
    emit Row_Stored();
    Tell_Stored(stored, row);
    return true;
}

void EditGrid::Tell_Stored(const QString& stored, const RowUnderEdit& row) {
    const auto note = Entries().Form().Description().rows.storedNote;
    const std::string text = note == nullptr ? std::string() : note(row);
    emit Told(text.empty() ? stored : stored + ' ' + Qt_Text(text));
}

void EditGrid::Store_Idle_Row() {
    if (model() == nullptr || !Entries().Form().Has_Entries()) return;
    // A text that is half typed is no entry yet, and a box waits for the person.
    if (asking_ || Is_Editing() || QApplication::activeModalWidget() != nullptr) return idle_.start();
    OpenForm& form = Entries().Form();
    const RowUnderEdit row = form.Under_Edit();
    const QString stored = Pending_Text();
    try {
        const QScopedValueRollback asking(asking_, true);
        std::vector<Refusal> warnings;
        if (form.Is_Changed_Elsewhere() || Entries().Store_Row(EntryTalk(warnings))) return;
    } catch (const DbError& error) {
        emit Told(Qt_Text(error.Description()));
        if (form.Has_Entries()) return;
    }
    emit Row_Stored();
    Tell_Stored(stored, row);
}

bool EditGrid::Commit() {
    return Take_Entry() && Store_Row();
}

bool EditGrid::May_Leave(const QModelIndex& to) {
    // Rows that are read again put the cursor back by themselves.
    if (asking_) return Entries().Row_Under_Edit() < 0 || to.row() == Entries().Row_Under_Edit();
    Close_Choices();
    if (!Take_Entry()) return false;
    return to.row() == currentIndex().row() || Store_Row();
}

void EditGrid::Follow_Cursor(int row) {
    if (Entries().Row_Under_Edit() == row || Entries().Place_Cursor(row)) return;
    // Another program took the line away: the rows are read again, once and not in the middle of a move.
    if (std::exchange(stale_, true)) return;
    QTimer::singleShot(0, this, [this] {
        if (Entries().Row_Under_Edit() < 0 && !asking_) Reload();
        stale_ = false;
    });
}

void EditGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    GridView::currentChanged(current, previous);
    run_.reset();
    addOffered_ = false;
    if (current.isValid()) Follow_Cursor(current.row());
    Close_Choices();
    if (hasFocus() && isVisible()) Show_Choices();
}

void EditGrid::Place_Cursor_First() {
    for (int row = 0; row < Model().rowCount(); ++row) {
        for (int column = 0; column < Model().columnCount(); ++column) {
            const QModelIndex at = Model().index(row, column);
            if (Is_Stop(at)) return setCurrentIndex(at);
        }
    }
}

// The editor is inside a frame of the highlight's colour.
void EditGrid::paintEvent(QPaintEvent* event) {
    GridView::paintEvent(event);
    if (!Is_Editing()) return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2 * kFrame));
    painter.drawRect(editor_->Open()->geometry());
}

void EditGrid::Place_Cursor(Currency line) {
    const int row = Model().Row_Of(line);
    if (row < 0) return;
    int column = std::max(currentIndex().column(), 0);
    Follow_Cursor(row);
    for (int i = 0; i < Model().columnCount() && !Is_Stop(Model().index(row, column)); ++i) column = i;
    setCurrentIndex(Model().index(row, column));
}

}  // namespace tallmar
