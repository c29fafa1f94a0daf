// The pop-up list over a cell. It takes no focus: whoever types goes on typing into the cell. Its entries are actions
// of the controls' names, as the list itself has its own.
#pragma once

#include <QFrame>
#include <QString>

#include "screens/form_description.h"

class QListWidget;

namespace tallmar {

class ChoiceList : public QFrame {
    Q_OBJECT

  public:
    // Stands over `window`, the window of the grid.
    ChoiceList(const PopupList& list, const QString& value, QWidget* window);

    // Below the cell, or above it where there is no room; `cell` in coordinates of the window.
    void Show_At(const QRect& cell);
    // Up and Down within the list. False beyond its ends.
    bool Move(int step);
    // Whether the highlighted entry is one that the person went to.
    bool Is_Moved() const { return moved_; }
    void Choose_Current();

  signals:
    void Chosen(const QString& value);
    // The mouse was pressed elsewhere.
    void Left();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QListWidget* entries_;
    bool moved_ = false;
};

}  // namespace tallmar
