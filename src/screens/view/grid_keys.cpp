// Keys, wheel, menu, copy and find of the grid.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>
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

// A cell that holds what parts cells stands in quotes, as spreadsheets write it.
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

QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const QModelIndex at = currentIndex();
    const bool toEnd = action == MoveHome || action == MoveEnd;
    if (!at.isValid() || (!toEnd && !control)) return QTableView::moveCursor(action, modifiers);
    const int rows = Model().rowCount();
    const int columns = Model().columnCount();
    QModelIndex found;
    switch (action) {
        case MoveHome:
            if (!control) return Last_Stop(at.row(), columns, 0, -1);
            for (int row = 0; row < rows && !found.isValid(); ++row) found = Last_Stop(row, columns, 0, -1);
            return found;
        case MoveEnd:
            if (!control) return Last_Stop(at.row(), -1, 0, 1);
            for (int row = rows - 1; row >= 0 && !found.isValid(); --row) found = Last_Stop(row, -1, 0, 1);
            return found;
        case MoveUp:
            return Last_Stop(at.row(), at.column(), -1, 0);
        case MoveDown:
            return Last_Stop(at.row(), at.column(), 1, 0);
        case MoveLeft:
            return Last_Stop(at.row(), at.column(), 0, -1);
        case MoveRight:
            return Last_Stop(at.row(), at.column(), 0, 1);
        default:
            return QTableView::moveCursor(action, modifiers);
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    if (event->matches(QKeySequence::Copy)) return Copy();
    if (event->matches(QKeySequence::ZoomIn) || (control && event->key() == Qt::Key_Equal)) {
        return Set_Zoom(zoom_ + kZoomStep);
    }
    if (event->matches(QKeySequence::ZoomOut)) return Set_Zoom(zoom_ - kZoomStep);
    if (control && event->key() == Qt::Key_0) return Set_Zoom(100);
    if (model() == nullptr) return QTableView::keyPressEvent(event);
    if (event->key() == Qt::Key_F1 && (event->modifiers() & Qt::ShiftModifier) != 0 && currentIndex().isValid()) {
        return head_->Show_Whole(currentIndex().column());
    }

    const QModelIndex at = currentIndex();
    const bool first = !at.isValid() || (at.row() == 0 && at.column() == 0);
    const bool last = !at.isValid() || (at.row() + 1 == Model().rowCount() && at.column() + 1 == Model().columnCount());
    switch (event->key()) {
        case Qt::Key_Tab:
            // From the last cell on to the next control.
            return last ? event->ignore() : QTableView::keyPressEvent(event);
        case Qt::Key_Backtab:
            return first ? event->ignore() : QTableView::keyPressEvent(event);
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            if (control || state() == EditingState) return QTableView::keyPressEvent(event);
            const bool up = (event->modifiers() & Qt::ShiftModifier) != 0;
            const QModelIndex next = at.isValid() ? at.siblingAtRow(at.row() + (up ? -1 : 1)) : QModelIndex();
            if (next.isValid()) setCurrentIndex(next);
            return;
        }
        case Qt::Key_Escape:
        case Qt::Key_F3:
            if (state() != EditingState) return event->ignore();
            break;
        default:
            // The keys of the form and of the main window.
            if (control && event->key() == Qt::Key_F) return event->ignore();
            break;
    }
    QTableView::keyPressEvent(event);
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
