// frmCRFEditKey: the identity of the open report changed, in place or in a copy under another name.
#pragma once

#include <functional>

#include "shell/dialog.h"

namespace tallmar {

// What the main window does after the identity went into the report: frmEditS2 and frmViewS2 read their rows again, and
// every other worksheet form closes, frmEditCCs excepted. The menus are refreshed by then.
using IdentityChanged = std::function<void()>;

// Requires an open report.
DialogPtr Make_CRF_Edit_Key(QWidget* parent, IdentityChanged identityChanged);
// Rows that are under edit in other forms must have been stored. True when the identity was saved.
bool Show_CRF_Edit_Key(QWidget* parent, IdentityChanged identityChanged);

}  // namespace tallmar
