// Keys, wheel, menu, copy and find of the grid.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <map>

#include "common/format.h"
#include "common/numbers.h"
#include "common/variant.h"
#include "screens/cell_text.h"
#include "screens/view/grid_head.h"
#include "screens/view/grid_model.h"
#include "screens/view/grid_view.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr int kZoomStep = 10;
constexpr int kWheelNotch = 120;

// Of a selection.
constexpr std::string_view kWholeSum = "#,##0;(#,##0)", kSum = "#,##0.00;(#,##0.00)";

// A key that does the same wherever the cursor is.
struct GridKey {
    QKeySequence::StandardKey standard;  // UnknownKey: `key` with `modifiers`, whatever else is held
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    void (*does)(GridView& grd);
};
void Zoom_In(GridView& grd) {
    grd.Set_Zoom(grd.Zoom() + kZoomStep);
}
constexpr std::array kGridKeys{
    GridKey{QKeySequence::Copy, {}, {}, [](GridView& grd) { grd.Copy(); }},
    GridKey{QKeySequence::ZoomIn, {}, {}, Zoom_In},
    GridKey{QKeySequence::UnknownKey, Qt::Key_Equal, Qt::ControlModifier, Zoom_In},
    GridKey{QKeySequence::ZoomOut, {}, {}, [](GridView& grd) { grd.Set_Zoom(grd.Zoom() - kZoomStep); }},
    GridKey{QKeySequence::UnknownKey, Qt::Key_0, Qt::ControlModifier, [](GridView& grd) { grd.Set_Zoom(100); }},
};

const GridKey* Find_Key(const QKeyEvent& event) {
    const auto found = std::ranges::find_if(kGridKeys, [&](const GridKey& row) {
        if (row.standard != QKeySequence::UnknownKey) return event.matches(row.standard);
        return event.key() == row.key && (event.modifiers() & row.modifiers) == row.modifiers;
    });
    return found == kGridKeys.end() ? nullptr : &*found;
}

// A cell that holds what parts cells is in quotes, as spreadsheets write it.
QString Copied(QString text) {
    if (!text.contains('\t') && !text.contains('\n') && !text.contains('\r') && !text.contains('"')) return text;
    return '"' + text.replace('"', "\"\"") + '"';
}

}  // namespace

QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    if (event == nullptr) return QItemSelectionModel::ClearAndSelect;
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        const bool moves = key->key() >= Qt::Key_Home && key->key() <= Qt::Key_PageDown;
        // A table would move the cursor alone, and leave the selection where it was.
        if (moves && (key->modifiers() & Qt::ControlModifier) != 0) {
            const bool extends = (key->modifiers() & Qt::ShiftModifier) != 0;
            return extends ? QItemSelectionModel::SelectCurrent : QItemSelectionModel::ClearAndSelect;
        }
    }
    return QTableView::selectionCommand(index, event);
}

QModelIndex GridView::Last_Stop(int row, int column, int rowStep, int columnStep) const {
    QModelIndex last;
    const GridModel& cells = Model();
    for (row += rowStep, column += columnStep;
         row >= 0 && row < cells.rowCount() && column >= 0 && column < cells.columnCount();
         row += rowStep, column += columnStep) {
        const QModelIndex index = cells.index(row, column);
        if (Is_Stop(index)) last = index;
    }
    return last;
}

QModelIndex GridView::End_Of_Row(int row, bool home) const {
    return home ? Last_Stop(row, Model().columnCount(), 0, -1) : Last_Stop(row, -1, 0, 1);
}

QModelIndex GridView::End_Of_Grid(bool home) const {
    const int rows = Model().rowCount();
    QModelIndex found;
    for (int i = 0; i < rows && !found.isValid(); ++i) found = End_Of_Row(home ? i : rows - 1 - i, home);
    return found;
}

QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    struct Step {
        CursorAction action;
        int row, column;
    };
    static constexpr std::array kSteps{Step{MoveUp, -1, 0}, Step{MoveDown, 1, 0}, Step{MoveLeft, 0, -1},
                                       Step{MoveRight, 0, 1}};
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const QModelIndex at = currentIndex();
    if (at.isValid() && (action == MoveHome || action == MoveEnd)) {
        return control ? End_Of_Grid(action == MoveHome) : End_Of_Row(at.row(), action == MoveHome);
    }
    const auto step = std::ranges::find(kSteps, action, &Step::action);
    if (!at.isValid() || !control || step == kSteps.end()) return QTableView::moveCursor(action, modifiers);
    return Last_Stop(at.row(), at.column(), step->row, step->column);
}

// The keys of the form and of the main window, and Tab from the last cell on to the next control.
bool GridView::Is_Forms_Key(const QKeyEvent& event) const {
    const QModelIndex at = currentIndex();
    switch (event.key()) {
        case Qt::Key_Tab:
            return !at.isValid() || at == Model().index(Model().rowCount() - 1, Model().columnCount() - 1);
        case Qt::Key_Backtab:
            return !at.isValid() || at == Model().index(0, 0);
        case Qt::Key_Escape:
        case Qt::Key_F3:
            return state() != EditingState;
        default:
            return event.key() == Qt::Key_F && (event.modifiers() & Qt::ControlModifier) != 0;
    }
}

bool GridView::Enter_Key(const QKeyEvent& event) {
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isEnter || (event.modifiers() & Qt::ControlModifier) != 0 || state() == EditingState) return false;
    const bool up = (event.modifiers() & Qt::ShiftModifier) != 0;
    const QModelIndex at = currentIndex();
    const QModelIndex next = at.isValid() ? at.siblingAtRow(at.row() + (up ? -1 : 1)) : QModelIndex();
    if (next.isValid()) setCurrentIndex(next);
    return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (const GridKey* key = Find_Key(*event)) return key->does(*this);
    if (model() == nullptr) return QTableView::keyPressEvent(event);
    const bool isHelp = event->key() == Qt::Key_F1 && (event->modifiers() & Qt::ShiftModifier) != 0;
    if (isHelp && currentIndex().isValid()) return head_->Show_Whole(currentIndex().column());
    if (Is_Forms_Key(*event)) return event->ignore();
    if (!Enter_Key(*event)) QTableView::keyPressEvent(event);
}

void GridView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) return QTableView::wheelEvent(event);
    wheel_ += event->angleDelta().y();
    Set_Zoom(zoom_ + wheel_ / kWheelNotch * kZoomStep);
    wheel_ %= kWheelNotch;
    event->accept();
}

QString GridView::Selected_Text(bool heads) const {
    if (selectionModel() == nullptr) return {};
    // By row, then by column: a selection may come in several parts.
    std::map<int, std::map<int, QString>> rows;
    int left = Model().columnCount();
    int right = -1;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        const bool isLabel = Model().Column(index.column()).number.empty();
        rows[index.row()][index.column()] = Copied(index.data(isLabel ? Qt::DisplayRole : Qt::EditRole).toString());
        left = std::min(left, index.column());
        right = std::max(right, index.column());
    }
    QStringList lines;
    if (heads && !rows.empty()) {
        QStringList line;
        for (int column = left; column <= right; ++column) line << Copied(Model().Whole_Head(column));
        lines << line.join('\t');
    }
    for (const auto& [row, cells] : rows) {
        QStringList line;
        for (int column = left; column <= right; ++column) {
            const auto cell = cells.find(column);
            line << (cell == cells.end() ? QString() : cell->second);
        }
        lines << line.join('\t');
    }
    return lines.join('\n');
}

void GridView::Copy(bool heads) {
    const QString text = Selected_Text(heads);
    if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

QString GridView::Selection_Summary() const {
    if (selectionModel() == nullptr) return {};
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.size() < 2) return {};
    double sum = 0;
    int count = 0;
    for (const QModelIndex& index : selected) {
        const Value value = Model().Value_At(index);
        if (Is_Blank(value)) continue;
        ++count;
        if (Is_Figure(Model().Column(index.column())) && value.Is_Numeric()) sum += value.To_Double();
    }
    const std::string_view format = Is_Precise(sum, 0) ? kWholeSum : kSum;
    return tr("Sum %1   Count %2").arg(Qt_Text(Format(sum, format))).arg(count);
}

std::vector<QModelIndex> GridView::Find_All(const CellSearch& search) const {
    std::vector<QModelIndex> hits;
    for (int row = 0; row < Model().rowCount(); ++row) {
        for (int column = 0; column < Model().columnCount(); ++column) {
            const QModelIndex index = Model().index(row, column);
            const std::string shown = Plain_Text(index.data().toString());
            if (search.Matches(shown, Model().Value_At(index))) hits.push_back(index);
        }
    }
    return hits;
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    emit Selection_Changed();
}

void GridView::Fill_Menu(QMenu& menu) {
    menu.addAction(tr("&Copy"), this, [this] { Copy(); })->setObjectName("mnuGridCopy");
    menu.addAction(tr("Copy With &Heads"), this, [this] { Copy(true); })->setObjectName("mnuGridCopyHeads");
    menu.addSeparator();
    menu.addAction(tr("&Find ..."), this, &GridView::Find_Requested)->setObjectName("mnuGridFind");
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    if (model() == nullptr) return;
    auto* menu = new QMenu(this);
    menu->setObjectName("mnuGrid");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Fill_Menu(*menu);
    emit Menu_Opens(*menu);
    // The menu key gives no place of the mouse: the menu opens at the cursor.
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()) : event->globalPos());
}

}  // namespace tallmar
