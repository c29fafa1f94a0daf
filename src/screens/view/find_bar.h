// The line below a grid that finds texts and amounts in it, or in all worksheets. It goes to the first hit while one
// types, and counts them. Hidden until it is asked for; Esc hides it.
#pragma once

#include <QPersistentModelIndex>
#include <QWidget>
#include <vector>

#include "screens/cell_search.h"

class QCheckBox;
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
    // Goes on with a search of all worksheets that began in a form of `mode` and has found the cell of the cursor.
    void Go_On(const QString& text, FormMode mode);

  signals:
    // The next hit is in another form.
    void Found_Elsewhere(const tallmar::FoundCell& cell, const QString& text, tallmar::FormMode mode);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Hits {
        std::vector<FoundCell> before, behind;  // in worksheets before and behind this one
        std::vector<QModelIndex> here;

        std::size_t Count() const { return before.size() + here.size() + behind.size(); }
    };
    Hits Find_Hits() const;
    // The hits up to the cell, without it.
    std::size_t Hits_Before(const Hits& hits, const QModelIndex& cell) const;
    // To the first hit from the cell on where the search began.
    void Text_Changed();
    // "3 of 7"
    void Show_Place(const Hits& hits, std::size_t place);
    void Show_None();

    GridView& grd_;
    FormMode mode_;  // of the form where the search began
    QPersistentModelIndex origin_;
    QLineEdit* txtFind_;
    QCheckBox* chkEverywhere_;
    QLabel* lblFound_;
};

}  // namespace tallmar
