// How a cell is painted: lines around it, shaded cells grey, labels light grey, rows of totals set apart. The tones
// come from the palette in use.
#pragma once

#include <QStyledItemDelegate>

namespace tallmar {

// `share` percent of `over` on `under`.
QColor Mixed(const QColor& under, const QColor& over, int share);
// The ground of a cell that takes nothing, and that of a row of totals: apart from the plain one in every palette.
QColor Shaded_Tone(const QPalette& palette);
QColor Total_Tone(const QPalette& palette);
// Of line numbers, groups and names: lighter than a shaded cell.
QColor Label_Tone(const QPalette& palette);
// The lines between cells. A style's own may be lost on a dark ground.
QColor Line_Tone(const QPalette& palette);

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // A text that its cell cuts is shown whole.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace tallmar
