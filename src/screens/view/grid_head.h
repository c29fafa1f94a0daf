// The heads of a grid: the column's number on a line of its own, the label wrapped below it over as
// many lines as it needs. A click shows the whole head. The heads of the columns that stay in sight stay with them.
#pragma once

#include <QHeaderView>
#include <QTableView>

namespace tallmar {

class FrozenColumns;

class GridHead : public QHeaderView {
    Q_OBJECT

  public:
    // Of a table that shows a GridModel; `frozen` are its columns, and outlive the heads.
    GridHead(QTableView* table, const FrozenColumns& frozen);

    QSize sizeHint() const override;
    // The least width at which no word of the head is broken and the label takes no more than a few lines.
    int Width_For(int column) const;
    // Shows the whole head beside it.
    void Show_Whole(int column) const;
    // Lays the heads over their lines again: labels, widths or the font changed.
    void Layout_Grid_Head();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    QString Number(int column) const;
    QString Label(int column) const;
    int Margin() const;
    int Shift_At(int x) const;
    int Column_At(int x) const;

    QTableView& table_;
    const FrozenColumns& frozen_;
    mutable int height_ = 0;  // 0: to be worked out
    int shift_ = 0;           // of the mouse while a button is down
    int pressed_ = -1;
    QPoint pressedAt_;
};

}  // namespace tallmar
