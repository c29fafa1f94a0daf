// The columns that stay in sight. They are the same cells of the same table, painted and found at their places while
// the others are scrolled away beneath them: one cursor, one selection, one editor.
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "screens/view/grid_delegate.h"
#include "screens/view/grid_head.h"
#include "screens/view/grid_model.h"
#include "screens/view/grid_view.h"

namespace tallmar {

namespace {

constexpr int kEdgeShare = 60;
// What lies beneath them is out of sight far to the left, and still found again there.
constexpr int kFarLeft = 10'000'000;

}  // namespace

QRect GridView::visualRect(const QModelIndex& index) const {
    QRect rect = QTableView::visualRect(index);
    if (!index.isValid() || !frozen_.Is_Shifted()) return rect;
    if (frozen_.Has(index.column())) {
        rect.moveLeft(frozen_.Left(index.column()));
        return rect;
    }
    for (const int column : frozen_.Columns()) {
        const int left = frozen_.Left(column);
        // What goes beneath one of them is cut off there.
        if (column < index.column()) rect.setLeft(std::max(rect.left(), left + columnWidth(column)));
        if (column > index.column()) rect.setRight(std::min(rect.right(), left - 1));
    }
    return rect.left() <= rect.right() ? rect : QTableView::visualRect(index).translated(-kFarLeft, 0);
}

QModelIndex GridView::indexAt(const QPoint& at) const {
    if (!frozen_.Is_Shifted()) return QTableView::indexAt(at);
    if (at.x() < -kFarLeft / 2) return QTableView::indexAt(at + QPoint(kFarLeft, 0));
    return QTableView::indexAt(at - QPoint(frozen_.Shift(at.x()), 0));
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    if (frozen_.Has(index.column())) {
        const int across = horizontalScrollBar()->value();
        QTableView::scrollTo(index, hint);
        horizontalScrollBar()->setValue(across);
        return;
    }
    QTableView::scrollTo(index, hint);
    const int hidden = frozen_.Before(index.column()) - columnViewportPosition(index.column());
    if (hidden > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx == 0 || model() == nullptr || Model().Frozen() == 0) return;
    viewport()->update();
    head_->viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    // Whether there is room for them may have changed.
    viewport()->update();
    head_->viewport()->update();
}

QRegion GridView::visualRegionForSelection(const QItemSelection& selection) const {
    return frozen_.Is_Shifted() ? QRegion(viewport()->rect()) : QTableView::visualRegionForSelection(selection);
}

void GridView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() != nullptr && frozen_.Is_Shifted()) Paint_Frozen(event->rect());
}

void GridView::Paint_Frozen(const QRect& part) {
    for (const int column : frozen_.Columns()) Paint_Frozen_Column(column, part);
}

void GridView::Paint_Frozen_Column(int column, const QRect& part) {
    const int left = frozen_.Left(column);
    const QRect clip = QRect(left, 0, columnWidth(column), viewport()->height()) & part;
    if (clip.isEmpty()) return;
    QPainter painter(viewport());
    painter.setClipRect(clip);
    painter.fillRect(clip, palette().color(QPalette::Base));

    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QStyle::State plain = option.state & ~(QStyle::State_HasFocus | QStyle::State_Selected);
    const int first = std::max(rowAt(clip.top()), 0);
    for (int row = first; row < Model().rowCount() && rowViewportPosition(row) <= clip.bottom(); ++row) {
        const QModelIndex index = Model().index(row, column);
        option.rect = visualRect(index);
        option.state = plain;
        if (selectionModel()->isSelected(index)) option.state |= QStyle::State_Selected;
        if (index == currentIndex() && hasFocus()) option.state |= QStyle::State_HasFocus;
        style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
    // Where the others go beneath.
    if (frozen_.Has(column + 1)) return;
    painter.setPen(Mixed(palette().color(QPalette::Base), palette().color(QPalette::Text), kEdgeShare));
    const int edge = left + columnWidth(column) - 1;
    const int end = verticalHeader()->length() - verticalOffset();
    painter.drawLine(edge, clip.top(), edge, std::min(clip.bottom(), end - 1));
}

}  // namespace tallmar
