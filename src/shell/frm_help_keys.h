// The list of the program's keys.
#pragma once

#include <QString>
#include <span>
#include <string_view>

#include "shell/dialog.h"

namespace tallmar {

struct KeyRow {
    const char* keys;  // "Ctrl+Z", "Enter, Shift+Enter"; a heading has none
    const char* does;
};
std::span<const KeyRow> Key_Rows();

// `note` is shown above the list where it is not empty.
DialogPtr Make_Help_Keys(QWidget* parent, const QString& note = {});
void Show_Help_Keys(QWidget* parent, const QString& note = {});

}  // namespace tallmar
