// What edit and view forms share: the grid `grd`, the record line `dat`, the button strip `picButtons`, and the caption
// that holds mode and item. The form asks the main window by its signals and knows nothing of it.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "screens/dispatch.h"
#include "screens/view/grid_model.h"
#include "screens/view/grid_view.h"

class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace tallmar {

class FindBar;

class WorksheetForm : public QWidget {
    Q_OBJECT

  public:
    ~WorksheetForm() override;

    // The object name is the form's: "frmEditA".
    const Item& Worksheet() const { return Form().Worksheet(); }
    FormMode Mode() const { return mode_; }
    std::string Caption() const { return Form_Caption(mode_, Worksheet()); }
    GridView& Grid() const { return *grd_; }
    GridModel& Model() const { return *model_; }

    // Commit_Grid: stores the row under edit. False where it stays under edit: the form stays open then. A view form
    // has nothing to store.
    virtual bool Commit_Grid() { return true; }
    // Reads the rows again and keeps the place.
    virtual void Reload();
    // Tool tips of next and previous, enabled or not: the registry may have changed.
    void Refresh_Neighbours();
    // Ctrl+F, F3 and Shift+F3 of the form; the main window's menu may ask for it too.
    void Open_Find();
    // The cursor goes to a cell that a search of all worksheets has found, and the search goes on from here. `mode` is
    // that of the form where it began.
    void Show_Found(const FoundCell& cell, const QString& text, FormMode mode);
    // The size at which the whole grid and the buttons are in sight (Size_Form_To_Grid). The host holds it to its own.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    // cmdOpenView, cmdOpenEdit, cmdNext, cmdPrevious.
    void Open_Requested(tallmar::FormMode mode, const QString& item);
    // cmdRecalculate. An edit form has stored its row; it then asks for its view.
    void Recalculate_Requested();
    // A search of all worksheets has its next hit in another form.
    void Found_Elsewhere(const tallmar::FoundCell& cell, const QString& text, tallmar::FormMode mode);
    // The first change of a cell since the form opened or its rows were stored: an open view is stale.
    void Cell_Changed();
    // What went into the table: "Worksheet A, line 5: 2 cells stored."
    void Stored(const QString& what);

  protected:
    // Takes the model over.
    WorksheetForm(FormMode mode, GridModel* model, QWidget* parent);
    // Called by the constructors of the two kinds, with their grid. Takes it over.
    void Set_Up(GridView* grd);
    // A button of the strip, in the order of the calls; `name` is the control's ("cmdClose"). The caption names the
    // access key, which must be the strip's only one of its letter.
    QPushButton* Add_Button(const char* name, const QString& caption, const QString& tip = {});
    // cmdClose, cmdPrevious and cmdNext, which every form has, behind the others.
    void Add_Walk_Buttons();
    // The entry of the description's text above the grid ("tbCounty"): locked on a view form, and read again by Reload.
    // Storing what is typed is the edit form's. Null where the form has none.
    QLineEdit* Above() const { return above_; }
    // Shows it as the table holds it.
    void Read_Text_Above();
    // Puts a line of controls between the caption and the grid. Takes it over.
    void Add_Above_Grid(QWidget* line);
    void Add_Below_Grid(QWidget* line);
    OpenForm& Form() const { return model_->Form(); }
    // Closing: Commit_Grid first; a refusal keeps the window.
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Places the buttons for the present width: after one was shown or hidden, too.
    void Layout_Buttons();

  private:
    void Show_Record_Status();
    void Show_Row(int row);
    void Add_Text_Above(const TextAbove& text);
    void Load_Widths();
    void Save_Widths();
    void Tell_Dropped(const std::vector<std::string>& dropped);

    FormMode mode_;
    GridModel* model_;
    GridView* grd_ = nullptr;
    QWidget* picButtons_;
    QLabel* dat_;
    QVBoxLayout* lines_;
    FindBar* find_ = nullptr;
    QLineEdit* above_ = nullptr;
    QPushButton* cmdPrevious_ = nullptr;
    QPushButton* cmdNext_ = nullptr;
};

// The form of the item: ViewForm here, EditForm in screens/edit.
class ViewForm : public WorksheetForm {
    Q_OBJECT

  public:
    ViewForm(const FormDescription& description, Item item, QWidget* parent = nullptr);
    void Reload() override;
    // Shows or hides the line above the grid that says that the figures may be older than the entries.
    void Show_Age();

  private:
    // The menu of totals; the sets are the description's and outlive the form.
    void Add_Line_Sets(std::span<const LineSet> sets);
    void Add_Building_Text(std::string_view text);

    QLabel* lblAge_;
    QLabel* txtCalcMsg_ = nullptr;  // of a form that says that its rows are read
};

}  // namespace tallmar
