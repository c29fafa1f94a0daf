// The row of buttons in `picButtons`. Measures are those of the forms, in twips (1440 an inch).
#pragma once

#include <QWidget>

namespace tallmar {

// Place the push buttons of the strip that are shown, in the order in which they were made, and give the strip its
// height. In a window narrower than the strip they go on a second row, and on further ones where they must.
void Layout_Edit_Buttons(QWidget& picButtons, int width);
void Layout_View_Buttons(QWidget& picButtons, int width);
// The least width at which the buttons are in one row.
int Edit_Strip_Width(const QWidget& picButtons);
int View_Strip_Width(const QWidget& picButtons);

}  // namespace tallmar
