#include "shell/form_maker.h"

#include "screens/edit/edit_form.h"

namespace tallmar {

WorksheetForm* Make_Form(FormMode mode, const FormDescription& form, const Item& item) {
    if (mode == FormMode::Edit) return new EditForm(form, item);
    return new ViewForm(form, item);
}

void Undo_In(WorksheetForm& form) {
    // It says so where there is nothing to take back.
    if (auto* edit = qobject_cast<EditForm*>(&form)) edit->Undo();
}

void Redo_In(WorksheetForm& form) {
    if (auto* edit = qobject_cast<EditForm*>(&form)) edit->Redo();
}

void Fill_Down_In(WorksheetForm& form) {
    if (auto* edit = qobject_cast<EditForm*>(&form)) edit->Fill_Down();
}

void Paste_Into(WorksheetForm& form) {
    if (auto* edit = qobject_cast<EditForm*>(&form)) edit->Paste();
}

}  // namespace tallmar
