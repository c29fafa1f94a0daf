// The pop-up list over a cell. It takes no focus: typing goes on in the cell. Its entries are actions
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

    // A list that is made of the report.
    ChoiceList(const std::vector<CellChoice>& choices, const QString& value, QWidget* window);

    // Below the cell, or above it where there is no room; `cell` in coordinates of the window.
    void Show_At(const QRect& cell);
    // Up and Down within the list. False beyond its ends.
    bool Move(int step);
    // Whether the highlighted entry is one that the person went to.
    bool Is_Moved() const { return moved_; }
    void Choose_Current();
    // Shows only entries whose value begins with the text, or whose name holds it. The one that is the text, or else
    // the first, is highlighted as if the person had gone to it.
    void Narrow(const QString& text);
    // What the highlighted entry writes into the cell.
    QString Current_Value() const;

  signals:
    void Chosen(const QString& value);
    // The mouse was pressed elsewhere.
    void Left();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    explicit ChoiceList(QWidget* window);
    QAction& Add_Entry(const QString& caption, const QString& chosen, const QString& value);

    QListWidget* entries_;
    bool moved_ = false;
};

}  // namespace tallmar
