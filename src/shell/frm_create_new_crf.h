// frmCreateNewCRF: the entries of a new report, checked, and the report made from them.
#pragma once

#include "shell/dialog.h"

namespace tallmar {

DialogPtr Make_Create_New_CRF(QWidget* parent);
// Until a new report is made and open, or the user gives up: false then. A report that could not be made leaves the
// entries on the screen. Requires that no report is open.
bool Show_Create_New_CRF(QWidget* parent);

// The job that makes the report hides the form that asked for it, where it is open.
void Hide_Create_New_CRF();

}  // namespace tallmar
