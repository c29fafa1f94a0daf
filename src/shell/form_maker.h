// The forms of both modes, as the main window makes and commands them.
#pragma once

#include "screens/view/worksheet_form.h"

namespace tallmar {

WorksheetForm* Make_Form(FormMode mode, const FormDescription& form, const Item& item);

// What the Edit menu does to a form. Nothing happens on a view form.
void Undo_In(WorksheetForm& form);
void Redo_In(WorksheetForm& form);
void Fill_Down_In(WorksheetForm& form);
void Paste_Into(WorksheetForm& form);

}  // namespace tallmar
