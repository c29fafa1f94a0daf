// frmHelpAbout: which program this is.
#pragma once

#include "shell/dialog.h"

namespace tallmar {

DialogPtr Make_Help_About(QWidget* parent);
void Show_Help_About(QWidget* parent);

}  // namespace tallmar
