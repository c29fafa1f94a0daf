// The foot of an edit grid: the sums of its columns as one keys, each below its column.
#pragma once

#include <QWidget>
#include <vector>

namespace tallmar {

class EditGrid;

class GridFoot : public QWidget {
    Q_OBJECT

  public:
    // The form of the grid has sums. The grid has its model.
    GridFoot(EditGrid& grd, QWidget* parent = nullptr);

    // As it is shown; empty below a column that has no sum.
    QString Sum_Text(int sum, int column) const;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Add_Up();
    int Line_Height() const;

    EditGrid& grd_;
    std::vector<std::vector<QString>> sums_;  // by sum, by column
};

}  // namespace tallmar
