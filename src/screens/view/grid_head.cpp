#include "screens/view/grid_head.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <algorithm>

#include "screens/view/frozen_columns.h"
#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

// A label may take this many lines before the column is made wider.
constexpr int kWantedLines = 4;
// One as short as this stays on one line: "Line #".
constexpr int kShortLabel = 8;
constexpr int kLabelFlags = int(Qt::AlignHCenter) | int(Qt::TextWordWrap);

}  // namespace

GridHead::GridHead(QTableView* table, const FrozenColumns& frozen)
    : QHeaderView(Qt::Horizontal, table), table_(*table), frozen_(frozen) {
    setSectionsClickable(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setMinimumSectionSize(fontMetrics().averageCharWidth() * 2);
}

QString GridHead::Number(int column) const {
    return model()->headerData(column, Qt::Horizontal, kNumberRole).toString();
}

QString GridHead::Label(int column) const {
    return model()->headerData(column, Qt::Horizontal).toString();
}

int GridHead::Margin() const {
    return style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this) + fontMetrics().averageCharWidth() / 4;
}

void GridHead::Layout_Grid_Head() {
    height_ = 0;
    emit geometriesChanged();
    viewport()->update();
}

QSize GridHead::sizeHint() const {
    if (height_ == 0) {
        const QFontMetrics metrics = fontMetrics();
        const int columns = model() == nullptr ? 0 : count();
        int numbers = 0;
        int labels = metrics.height();
        for (int i = 0; i < columns; ++i) {
            if (!Number(i).isEmpty()) numbers = metrics.height();
            const QRect room(0, 0, sectionSize(i) - 2 * Margin(), 0);
            labels = std::max(labels, metrics.boundingRect(room, kLabelFlags, Label(i)).height());
        }
        height_ = numbers + labels + 2 * Margin();
    }
    return {QHeaderView::sizeHint().width(), height_};
}

int GridHead::Width_For(int column) const {
    const QFontMetrics metrics = fontMetrics();
    const QString label = Label(column);
    int width = metrics.horizontalAdvance(Number(column));
    const QStringList words = label.size() <= kShortLabel ? QStringList(label) : label.split(' ');
    for (const QString& word : words) width = std::max(width, metrics.horizontalAdvance(word));
    // Words do not fill their lines, so the label is tried at the width and given more until it is low enough.
    const int step = metrics.averageCharWidth();
    const int most = metrics.lineSpacing() * kWantedLines;
    while (metrics.boundingRect(QRect(0, 0, width, 0), kLabelFlags, label).height() > most) width += step;
    return width + 2 * Margin() + step / 2;
}

void GridHead::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    if (!rect.isValid()) return;
    painter->save();
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = logicalIndex;
    option.position = logicalIndex == 0            ? QStyleOptionHeader::Beginning
                      : logicalIndex < count() - 1 ? QStyleOptionHeader::Middle
                                                   : QStyleOptionHeader::End;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const QFontMetrics metrics = fontMetrics();
    QRect room = rect.adjusted(Margin(), Margin(), -Margin(), -Margin());
    painter->setClipRect(rect, Qt::IntersectClip);
    painter->setPen(option.palette.color(QPalette::ButtonText));
    const QString number = Number(logicalIndex);
    if (!number.isEmpty()) {
        painter->drawText(room, int(Qt::AlignHCenter | Qt::AlignTop), number);
        room.setTop(room.top() + metrics.height());
    }
    const int flags = kLabelFlags | int(number.isEmpty() ? Qt::AlignBottom : Qt::AlignTop);
    painter->drawText(room, flags, Label(logicalIndex));
    if (table_.currentIndex().isValid() && table_.currentIndex().column() == logicalIndex) {
        const int thick = std::max(2, metrics.height() / 8);
        painter->fillRect(QRect(rect.left(), rect.bottom() + 1 - thick, rect.width(), thick),
                          option.palette.color(QPalette::Highlight));
    }
    painter->restore();
}

void GridHead::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    if (offset() == 0) return;
    QPainter painter(viewport());
    painter.setFont(font());
    for (const int column : frozen_.Columns()) {
        paintSection(&painter, QRect(frozen_.Left(column), 0, sectionSize(column), viewport()->height()), column);
    }
}

// Over the columns that stay in sight the mouse means these, however far the others have been scrolled.
int GridHead::Shift_At(int x) const {
    return offset() == 0 ? 0 : frozen_.Shift(x);
}

int GridHead::Column_At(int x) const {
    return logicalIndexAt(x - Shift_At(x));
}

namespace {

QMouseEvent Shifted(const QMouseEvent& event, int shift) {
    return QMouseEvent(event.type(), event.position() - QPointF(shift, 0), event.globalPosition(), event.button(),
                       event.buttons(), event.modifiers());
}

}  // namespace

void GridHead::mousePressEvent(QMouseEvent* event) {
    pressedAt_ = event->position().toPoint();
    shift_ = Shift_At(pressedAt_.x());
    pressed_ = event->button() == Qt::LeftButton ? Column_At(pressedAt_.x()) : -1;
    QMouseEvent shifted = Shifted(*event, shift_);
    QHeaderView::mousePressEvent(&shifted);
    // At the edge of a column the press is the start of a change of width.
    if (cursor().shape() == Qt::SplitHCursor) pressed_ = -1;
}

void GridHead::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) shift_ = Shift_At(event->position().toPoint().x());
    QMouseEvent shifted = Shifted(*event, shift_);
    QHeaderView::mouseMoveEvent(&shifted);
}

void GridHead::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent shifted = Shifted(*event, shift_);
    QHeaderView::mouseReleaseEvent(&shifted);
    const QPoint at = event->position().toPoint();
    if (pressed_ >= 0 && (at - pressedAt_).manhattanLength() < QApplication::startDragDistance()) Show_Whole(pressed_);
    pressed_ = -1;
}

void GridHead::mouseDoubleClickEvent(QMouseEvent* event) {
    QMouseEvent shifted = Shifted(*event, Shift_At(event->position().toPoint().x()));
    QHeaderView::mouseDoubleClickEvent(&shifted);
}

bool GridHead::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QHelpEvent* help = static_cast<QHelpEvent*>(event);
        const int column = Column_At(help->pos().x());
        if (column >= 0) Show_Whole(column);
        return true;
    }
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) height_ = 0;
    return QHeaderView::viewportEvent(event);
}

void GridHead::Show_Whole(int column) const {
    const QString number = Number(column);
    const QString head = number.isEmpty() ? Label(column) : number + '\n' + Label(column);
    const int left = std::max(sectionViewportPosition(column), 0);
    QToolTip::showText(viewport()->mapToGlobal(QPoint(left, viewport()->height())), head, viewport());
}

}  // namespace tallmar
