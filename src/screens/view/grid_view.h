// The grid `grd` of every worksheet form: a table whose line numbers and names stay in sight, with wrapped heads, zoom,
// find and copy. Reads only; what an edit form adds is in screens/edit.
#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "common/currency.h"
#include "screens/cell_search.h"
#include "screens/view/column_widths.h"
#include "screens/view/frozen_columns.h"

class QMenu;

namespace tallmar {

class GridHead;
class GridModel;

class GridView : public QTableView {
    Q_OBJECT

  public:
    explicit GridView(QWidget* parent = nullptr);

    // The model must be a GridModel.
    void setModel(QAbstractItemModel* model) override;
    GridModel& Model() const;
    GridHead& Head() const { return *head_; }

    // 50 to 300; 100 is the font of the desktop.
    void Set_Zoom(int percent);
    int Zoom() const { return zoom_; }
    // The size at which every row and column is in sight.
    QSize Whole_Size() const;
    // Tab-separated rows of the selected cells: figures and answers as plain values, labels as they are shown. With
    // `heads` the heads of their columns come first. Empty without a selection.
    QString Selected_Text(bool heads = false) const;
    void Copy(bool heads = false);
    // "Sum 1,234   Count 5": the amounts in the selected cells, and the cells that are not blank. Empty where less than
    // two cells are selected.
    QString Selection_Summary() const;
    // The cells that the search finds, row by row.
    std::vector<QModelIndex> Find_All(const CellSearch& search) const;

    // The columns that stay in sight while the others are scrolled.
    const FrozenColumns& Frozen() const { return frozen_; }
    // Widths that the person chose, by field; the others are the grid's own.
    const ColumnWidths& Chosen_Widths() const { return chosen_; }
    void Choose_Widths(ColumnWidths widths);
    // Whether a column was given another width since Choose_Widths.
    bool Widths_Changed() const { return widthsChanged_; }

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& at) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  signals:
    void Selection_Changed();
    // The menu of the right button opens: owners add to it.
    void Menu_Opens(QMenu& menu);
    void Find_Requested();
    // The font is still the one before.
    void Zoom_Changing();
    void Zoom_Changed(int percent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    // What the menu of the right button offers.
    virtual void Fill_Menu(QMenu& menu);
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    // A cursor that the program puts down selects its cell alone, whichever keys are held.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    // Home and End go to the ends of the row, with Ctrl to those of the form; Ctrl with an arrow goes to the edge.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    // Where such moves end.
    virtual bool Is_Stop(const QModelIndex& index) const { return index.isValid(); }
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

    // The first or the last stop of a row, and of the grid.
    QModelIndex End_Of_Row(int row, bool home) const;
    QModelIndex End_Of_Grid(bool home) const;
    // The last stop on the way from a cell, which does not count itself; invalid where there is none.
    QModelIndex Last_Stop(int row, int column, int rowStep, int columnStep) const;

  private:
    // Where the cursor is and what is in sight.
    struct Place {
        Currency line;
        int row, column, across, down;
    };
    void Keep_Place();
    void Restore_Place();

    // Font, widths and heights for the zoom.
    void Scale();
    void Set_Widths();
    void Set_Heights();
    void Take_Width(int column, int width);
    void Widen_For(const QModelIndex& from, const QModelIndex& to);
    bool Is_Forms_Key(const QKeyEvent& event) const;
    // Enter goes down the column, with Shift up. False for another key.
    bool Enter_Key(const QKeyEvent& event);
    void Paint_Frozen(const QRect& part);
    void Paint_Frozen_Column(int column, const QRect& part);

    FrozenColumns frozen_{*this};
    GridHead* head_;
    int zoom_ = 100;
    int wheel_ = 0;  // eighths of a degree that were turned and not used yet
    bool sizing_ = false;
    ColumnWidths chosen_, own_;
    bool widthsChanged_ = false;
    std::optional<Place> place_;
};

}  // namespace tallmar
