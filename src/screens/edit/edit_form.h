// The edit form of every worksheet: a row goes into the table when the cursor leaves it, a check may refuse a cell
// before it is taken, and what a row forbids is locked.
#pragma once

#include "screens/edit/edit_grid.h"
#include "screens/view/worksheet_form.h"

namespace tallmar {

class EditForm : public WorksheetForm {
    Q_OBJECT

  public:
    EditForm(const FormDescription& description, Item item, QWidget* parent = nullptr);
    ~EditForm() override;

    EditGrid& Entry_Grid() const { return *grd_; }
    bool Commit_Grid() override;
    // Stores the row first; where that is refused the rows are not read.
    void Reload() override;

    // What the main window's Edit menu calls on the active form.
    bool Can_Undo() const { return grd_->Can_Undo(); }
    void Undo() { grd_->Undo(); }
    void Redo() { grd_->Redo(); }
    void Paste() { grd_->Paste(); }
    void Fill_Down() { grd_->Fill_Down(); }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void Add_Row_Buttons();
    // The text above the grid (tbCounty) is stored as the entry is left.
    void Edit_Above();
    void Show_Above();
    // False where it is refused.
    bool Store_Above();

    EditGrid* grd_;
    bool changed_ = false;  // since the row was stored or discarded: the host knows
};

}  // namespace tallmar
