// Keys, wheel, copy and find of the grid.
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QWheelEvent>
#include <map>

#include "screens/view/grid_head.h"
#include "screens/view/grid_model.h"
#include "screens/view/grid_view.h"

namespace tallmar {

namespace {

constexpr int kZoomStep = 10;
constexpr int kWheelNotch = 120;

// A cell that holds what parts cells stands in quotes, as spreadsheets write it.
QString Copied(QString text) {
    if (!text.contains('\t') && !text.contains('\n') && !text.contains('\r') && !text.contains('"')) return text;
    return '"' + text.replace('"', "\"\"") + '"';
}

}  // namespace

QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    return event == nullptr ? QItemSelectionModel::ClearAndSelect : QTableView::selectionCommand(index, event);
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

QString GridView::Selected_Text() const {
    if (selectionModel() == nullptr) return {};
    // By row, then by column: a selection may come in several parts.
    std::map<int, std::map<int, QString>> rows;
    int left = Model().columnCount();
    int right = -1;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        rows[index.row()][index.column()] = Copied(index.data(Qt::EditRole).toString());
        left = std::min(left, index.column());
        right = std::max(right, index.column());
    }
    QString text;
    for (const auto& [row, cells] : rows) {
        if (row != rows.begin()->first) text += '\n';
        for (int column = left; column <= right; ++column) {
            if (column > left) text += '\t';
            if (const auto cell = cells.find(column); cell != cells.end()) text += cell->second;
        }
    }
    return text;
}

void GridView::Copy() {
    const QString text = Selected_Text();
    if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

bool GridView::Find(const QString& text, bool backwards) {
    const int columns = Model().columnCount();
    const int cells = Model().rowCount() * columns;
    if (text.isEmpty() || cells == 0) return false;
    const int from = currentIndex().isValid() ? currentIndex().row() * columns + currentIndex().column()
                     : backwards              ? cells
                                              : -1;
    for (int i = 1; i <= cells; ++i) {
        const int cell = ((backwards ? from - i : from + i) % cells + cells) % cells;
        const QModelIndex index = Model().index(cell / columns, cell % columns);
        if (!index.data().toString().contains(text, Qt::CaseInsensitive)) continue;
        setCurrentIndex(index);
        return true;
    }
    return false;
}

}  // namespace tallmar
