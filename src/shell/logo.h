// The mark of the program: a ledger page with the T of its name, in the colours of the desktop.
#pragma once

#include <QPalette>
#include <QPixmap>
#include <QSize>

namespace tallmar {

// `size` in the units of widgets; sharp on every screen.
QPixmap Logo(QSize size, const QPalette& palette);

}  // namespace tallmar
