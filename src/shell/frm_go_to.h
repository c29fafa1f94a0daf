// The box that opens a worksheet by a few typed characters.
#pragma once

#include <optional>
#include <vector>

#include "screens/dispatch.h"
#include "shell/dialog.h"
#include "shell/worksheet_search.h"

namespace tallmar {

struct WorksheetChoice {
    FormMode mode;
    std::string item;
};

// `choice` is filled when the dialog is accepted, and must outlive it.
DialogPtr Make_Go_To(QWidget* parent, std::vector<FoundWorksheet> worksheets, WorksheetChoice& choice);
// Nothing where it was cancelled.
std::optional<WorksheetChoice> Show_Go_To(QWidget* parent, std::vector<FoundWorksheet> worksheets);

}  // namespace tallmar
