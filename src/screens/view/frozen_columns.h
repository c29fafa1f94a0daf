// The columns of a table that stay in sight while the others are scrolled away beneath them: where they are now.
#pragma once

#include <QTableView>
#include <vector>

namespace tallmar {

class GridModel;

class FrozenColumns {
  public:
    // The table outlives it, and shows a GridModel or none.
    explicit FrozenColumns(const QTableView& table) : table_(table) {}

    // The model's, as far as they leave room for the others. Line and name are the last to go.
    std::vector<int> Columns() const;
    bool Has(int column) const;
    // Where such a column is: it moves with the others until it would go out of sight.
    int Left(int column) const;
    // How far the column of theirs at this place is from its place among the others; 0 elsewhere.
    int Shift(int x) const;
    // The width of those of them that are before the column.
    int Before(int column) const;
    // Where the others begin.
    int Width() const;
    // Others are beneath them now.
    bool Is_Shifted() const;

  private:
    const GridModel& Model() const;

    const QTableView& table_;
};

}  // namespace tallmar
