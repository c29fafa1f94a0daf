// The line below a grid that finds texts in it. Hidden until it is asked for; Esc puts it away.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tallmar {

class GridView;

class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(GridView& grd, QWidget* parent = nullptr);

    // Shows the line and puts the focus into it.
    void Open();
    void Close();
    // Finds the text again; opens the line where there is no text yet.
    void Next(bool backwards = false);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    GridView& grd_;
    QLineEdit* txtFind_;
    QLabel* lblFound_;
};

}  // namespace tallmar
