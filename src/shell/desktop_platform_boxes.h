// The desktop platform's message boxes and file dialogs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/platform.h"

class QWidget;

namespace tallmar {

// Stays until it is answered. Escape and the close button answer Cancel, where there is none No, else Ok. The text is
// plain and can be marked and copied.
Answer Show_Message_Box(QWidget* parent, std::string_view prompt, int buttons, std::string_view title);

enum class FileDialogKind { Open, Save };
// The dialog `cdlMain`. A name without an extension gets the default one; saving over a file is asked about.
std::optional<std::string> Show_File_Dialog(QWidget* parent, FileDialogKind kind, const FileDialog& dialog);

// "Cost Report Files (*.CRF)|*.CRF" as this desktop's dialogs take it: "Cost Report Files (*.CRF *.crf)".
std::string Desktop_Filter(std::string_view filter);

}  // namespace tallmar
