// The edit form of every worksheet: a row goes into the table when the cursor leaves it, a check may refuse a cell
// before it is taken, and what a row forbids is locked.
#pragma once

#include "screens/view/worksheet_form.h"

namespace tallmar {

class EditForm : public WorksheetForm {
    Q_OBJECT

  public:
    EditForm(const FormDescription& description, Item item, QWidget* parent = nullptr);

    bool Commit_Grid() override;
    void Requery() override;

    // What the main window's Edit menu calls on the active form.
    bool Can_Undo() const;
    void Undo();
    void Paste();
};

}  // namespace tallmar
