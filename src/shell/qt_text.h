// Texts of the window, as its forms take them.
#pragma once

#include "screens/view/qt_text.h"
