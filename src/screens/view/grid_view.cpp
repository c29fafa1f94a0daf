#include "screens/view/grid_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <vector>

#include "screens/cell_text.h"
#include "screens/view/grid_delegate.h"
#include "screens/view/grid_head.h"
#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

constexpr int kLeastZoom = 50, kMostZoom = 300;
// A questionnaire's longest question, at the width that its column has.
constexpr int kMostLines = 5;

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent), head_(new GridHead(this, frozen_)) {
    setObjectName("grd");
    setHorizontalHeader(head_);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    setItemDelegate(new GridDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setCornerButtonEnabled(false);
    setShowGrid(false);  // the delegate draws the lines
    setWordWrap(true);
    connect(head_, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { Take_Width(column, width); });
}

void GridView::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, &GridView::Keep_Place);
    connect(model, &QAbstractItemModel::modelReset, this, &GridView::Restore_Place);
    connect(model, &QAbstractItemModel::headerDataChanged, head_, &GridHead::Layout_Grid_Head);
    connect(model, &QAbstractItemModel::dataChanged, this, &GridView::Widen_For);
    Scale();
    if (model->rowCount() > 0) setCurrentIndex(model->index(0, std::min(Model().Frozen(), model->columnCount() - 1)));
}

GridModel& GridView::Model() const {
    return *static_cast<GridModel*>(model());
}

void GridView::Keep_Place() {
    const QModelIndex at = currentIndex();
    place_.reset();
    if (!at.isValid()) return;
    place_ = Place{Model().Line(at.row()), at.row(), at.column(), horizontalScrollBar()->value(),
                   verticalScrollBar()->value()};
}

void GridView::Restore_Place() {
    own_.clear();
    Set_Widths();
    const int rows = Model().rowCount();
    if (rows == 0) return;
    const Place place = place_.value_or(Place{{}, 0, Model().Frozen(), 0, 0});
    // On a table without line numbers every line is 0.
    int row = Model().Form().Description().order.empty() ? -1 : Model().Row_Of(place.line);
    if (row < 0) row = std::min(place.row, rows - 1);
    updateGeometries();
    setCurrentIndex(Model().index(row, std::min(place.column, Model().columnCount() - 1)));
    horizontalScrollBar()->setValue(place.across);
    verticalScrollBar()->setValue(place.down);
}

void GridView::Set_Zoom(int percent) {
    percent = std::clamp(percent, kLeastZoom, kMostZoom);
    if (percent == zoom_) return;
    emit Zoom_Changing();
    zoom_ = percent;
    Scale();
    scrollTo(currentIndex());
    emit Zoom_Changed(zoom_);
}

void GridView::Scale() {
    QFont font = QApplication::font(this);
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * zoom_ / 100);
    } else {
        font.setPixelSize(std::max(1, font.pixelSize() * zoom_ / 100));
    }
    setFont(font);
    head_->setFont(font);
    Set_Widths();
}

void GridView::Set_Widths() {
    if (model() == nullptr) return;
    if (own_.empty()) own_ = Fitting_Widths(Model(), *head_, font());
    const double character = QFontMetricsF(font()).averageCharWidth();
    sizing_ = true;
    for (int i = 0; i < Model().columnCount(); ++i) {
        const std::string& field = Model().Column(i).field;
        const auto chosen = chosen_.find(field);
        setColumnWidth(i, int(std::lround((chosen == chosen_.end() ? own_[field] : chosen->second) * character)));
    }
    sizing_ = false;
    head_->Layout_Grid_Head();
    Set_Heights();
}

// Rows are one line high, but where a text is longer than its column is wide.
void GridView::Set_Heights() {
    if (model() == nullptr) return;
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics plainMetrics = fontMetrics();
    const QFontMetrics boldMetrics(bold);
    const int padding = plainMetrics.height() / 2;
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1) + 1;
    std::vector<int> heights(static_cast<std::size_t>(Model().rowCount()), plainMetrics.height() + padding);
    for (int i = 0; i < Model().columnCount(); ++i) {
        if (Is_Figure(Model().Column(i))) continue;
        const QRect room(0, 0, columnWidth(i) - margin, 0);
        for (int row = 0; row < Model().rowCount(); ++row) {
            const QModelIndex index = Model().index(row, i);
            const QString text = index.data().toString();
            const QFontMetrics& metrics = index.data(kTotalRole).toBool() ? boldMetrics : plainMetrics;
            if (metrics.horizontalAdvance(text) <= room.width()) continue;
            const int needed = metrics.boundingRect(room, Qt::TextWordWrap, text).height();
            int& height = heights[static_cast<std::size_t>(row)];
            height = std::max(height, std::min(needed, kMostLines * metrics.lineSpacing()) + padding);
        }
    }
    for (int row = 0; row < Model().rowCount(); ++row) setRowHeight(row, heights[static_cast<std::size_t>(row)]);
}

void GridView::Take_Width(int column, int width) {
    if (sizing_ || width <= 0) return;
    chosen_[Model().Column(column).field] = width / QFontMetricsF(font()).averageCharWidth();
    widthsChanged_ = true;
    head_->Layout_Grid_Head();
    Set_Heights();
}

// A figure is never cut for want of a few pixels.
void GridView::Widen_For(const QModelIndex& from, const QModelIndex& to) {
    const QFontMetrics metrics = fontMetrics();
    const int padding = metrics.averageCharWidth() * 2;
    for (int column = from.column(); column <= to.column(); ++column) {
        const GridColumn& described = Model().Column(column);
        if (!Is_Figure(described) || chosen_.contains(described.field)) continue;
        int needed = columnWidth(column);
        for (int row = from.row(); row <= to.row(); ++row) {
            const QString text = Model().index(row, column).data().toString();
            needed = std::max(needed, metrics.horizontalAdvance(text) + padding);
        }
        if (needed == columnWidth(column)) continue;
        own_[described.field] = needed / QFontMetricsF(font()).averageCharWidth();
        sizing_ = true;
        setColumnWidth(column, needed);
        sizing_ = false;
    }
}

void GridView::Choose_Widths(ColumnWidths widths) {
    chosen_ = std::move(widths);
    widthsChanged_ = false;
    Set_Widths();
}

QSize GridView::Whole_Size() const {
    const int frame = 2 * frameWidth();
    return {
        head_->length() + verticalScrollBar()->sizeHint().width() + frame,
        head_->sizeHint().height() + verticalHeader()->length() + horizontalScrollBar()->sizeHint().height() + frame};
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    head_->viewport()->update();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange) Scale();
}

}  // namespace tallmar
