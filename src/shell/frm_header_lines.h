// frmHeaderLines: the custom lines at the head of every printed page.
#pragma once

#include "shell/dialog.h"

namespace tallmar {

// Requires an open report; one from before the table existed gets it.
DialogPtr Make_Header_Lines(QWidget* parent);
// Until it is closed, which stores the lines.
void Show_Header_Lines(QWidget* parent);

}  // namespace tallmar
