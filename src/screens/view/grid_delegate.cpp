#include "screens/view/grid_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

constexpr int kShadedShare = 16;
constexpr int kTotalShare = 6;
constexpr int kLabelShare = 8;
constexpr int kLineShare = 22;

int Mixed(int under, int over, int share) {
    return (under * (100 - share) + over * share) / 100;
}

}  // namespace

QColor Mixed(const QColor& under, const QColor& over, int share) {
    return {Mixed(under.red(), over.red(), share), Mixed(under.green(), over.green(), share),
            Mixed(under.blue(), over.blue(), share)};
}

QColor Shaded_Tone(const QPalette& palette) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), kShadedShare);
}

QColor Total_Tone(const QPalette& palette) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), kTotalShare);
}

QColor Label_Tone(const QPalette& palette) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), kLabelShare);
}

QColor Line_Tone(const QPalette& palette) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), kLineShare);
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(kTotalRole).toBool()) {
        option->font.setBold(true);
        option->fontMetrics = QFontMetrics(option->font);
        option->backgroundBrush = Total_Tone(option->palette);
    }
    if (index.data(kLabelRole).toBool()) option->backgroundBrush = Label_Tone(option->palette);
    if (index.data(kShadedRole).toBool()) option->backgroundBrush = Shaded_Tone(option->palette);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QRect& cell = option.rect;
    painter->save();
    painter->setPen(Line_Tone(option.palette));
    painter->drawLine(cell.topRight(), cell.bottomRight());
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
    if (index.data(kTotalRole).toBool()) {
        // The line above a sum.
        painter->setPen(option.palette.color(QPalette::Text));
        painter->drawLine(cell.topLeft(), cell.topRight());
    }
    painter->restore();
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const int margin = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, view) + 1;
    const QRect room = cell.rect.adjusted(margin, 0, -margin, 0);
    const QRect needed = cell.fontMetrics.boundingRect(QRect(0, 0, room.width(), 0), Qt::TextWordWrap, cell.text);
    const bool cut = needed.width() > room.width() || needed.height() > room.height();
    QToolTip::showText(event->globalPos(), cut ? cell.text : QString(), view->viewport(), option.rect);
    return true;
}

}  // namespace tallmar
