// The grid `grd` of every worksheet form: a table whose line numbers and names stay in sight, with wrapped heads, zoom,
// find and copy. Reads only; what an edit form adds is in screens/edit.
#pragma once

#include <QTableView>

namespace tallmar {

class GridModel;

class GridView : public QTableView {
    Q_OBJECT

  public:
    explicit GridView(QWidget* parent = nullptr);

    // The model must be a GridModel.
    void setModel(QAbstractItemModel* model) override;
    GridModel& Model() const;

    // 50 to 300; 100 is the font of the desktop.
    void Set_Zoom(int percent);
    int Zoom() const { return zoom_; }
    // The size at which every row and column is in sight.
    QSize Whole_Size() const;
    // Tab-separated rows of the selected cells, plain values. Empty without a selection.
    QString Selected_Text() const;
    void Copy();
    // Puts the cursor on the next cell, row by row from the cursor on and around, whose shown text holds `text` without
    // regard to case. False where there is none.
    bool Find(const QString& text, bool backwards = false);

  signals:
    void Zoom_Changed(int percent);

  private:
    int zoom_ = 100;
};

}  // namespace tallmar
