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

// The share of the window that they may take, in percent.
constexpr int kMostShare = 60;
constexpr int kEdgeShare = 60;
// What lies beneath them is out of sight far to the left, and still found again there.
constexpr int kFarLeft = 10'000'000;

}  // namespace

int GridView::Frozen_Count() const {
    if (model() == nullptr) return 0;
    int room = viewport()->width() * kMostShare / 100;
    int count = 0;
    while (count < Model().Frozen() && columnWidth(count) <= room) room -= columnWidth(count++);
    return count;
}

int GridView::Frozen_Width() const {
    const int count = Frozen_Count();
    int width = 0;
    for (int i = 0; i < count; ++i) width += columnWidth(i);
    return width;
}

bool GridView::Is_Shifted() const {
    return horizontalOffset() > 0 && Frozen_Width() > 0;
}

QRect GridView::visualRect(const QModelIndex& index) const {
    QRect rect = QTableView::visualRect(index);
    if (!index.isValid() || !Is_Shifted()) return rect;
    if (index.column() < Frozen_Count()) return rect.translated(horizontalOffset(), 0);
    const int frozen = Frozen_Width();
    if (rect.right() < frozen) return rect.translated(-kFarLeft, 0);
    rect.setLeft(std::max(rect.left(), frozen));
    return rect;
}

QModelIndex GridView::indexAt(const QPoint& at) const {
    if (!Is_Shifted()) return QTableView::indexAt(at);
    if (at.x() < -kFarLeft / 2) return QTableView::indexAt(at + QPoint(kFarLeft, 0));
    const bool frozen = at.x() >= 0 && at.x() < Frozen_Width();
    return QTableView::indexAt(frozen ? at - QPoint(horizontalOffset(), 0) : at);
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    const int frozen = Frozen_Width();
    if (frozen > 0 && index.column() < Frozen_Count()) {
        const int across = horizontalScrollBar()->value();
        QTableView::scrollTo(index, hint);
        horizontalScrollBar()->setValue(across);
        return;
    }
    QTableView::scrollTo(index, hint);
    const int hidden = frozen - columnViewportPosition(index.column());
    if (frozen > 0 && hidden > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
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
    return Is_Shifted() ? QRegion(viewport()->rect()) : QTableView::visualRegionForSelection(selection);
}

void GridView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() != nullptr && Is_Shifted()) Paint_Frozen(event->rect());
}

void GridView::Paint_Frozen(const QRect& part) {
    const int count = Frozen_Count();
    const int frozen = Frozen_Width();
    const QRect clip = QRect(0, 0, frozen, viewport()->height()) & part;
    if (clip.isEmpty()) return;
    QPainter painter(viewport());
    painter.setClipRect(clip);
    painter.fillRect(clip, palette().color(QPalette::Base));

    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QStyle::State plain = option.state & ~(QStyle::State_HasFocus | QStyle::State_Selected);
    const int first = std::max(rowAt(clip.top()), 0);
    for (int row = first; row < Model().rowCount() && rowViewportPosition(row) <= clip.bottom(); ++row) {
        for (int column = 0; column < count; ++column) {
            const QModelIndex index = Model().index(row, column);
            option.rect = visualRect(index);
            option.state = plain;
            if (selectionModel()->isSelected(index)) option.state |= QStyle::State_Selected;
            if (index == currentIndex() && hasFocus()) option.state |= QStyle::State_HasFocus;
            style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
            itemDelegateForIndex(index)->paint(&painter, option, index);
        }
    }
    // Where the others go beneath.
    painter.setPen(Mixed(palette().color(QPalette::Base), palette().color(QPalette::Text), kEdgeShare));
    const int end = verticalHeader()->length() - verticalOffset();
    painter.drawLine(frozen - 1, clip.top(), frozen - 1, std::min(clip.bottom(), end - 1));
}

}  // namespace tallmar
