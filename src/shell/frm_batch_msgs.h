// frmBatchMsgs: the messages that a long job collected, in one list at its end.
#pragma once

#include <span>
#include <string_view>

#include "common/platform.h"
#include "shell/dialog.h"

namespace tallmar {

// Level, form and message of each row in the order given, under a title.
DialogPtr Make_Batch_Msgs(QWidget* parent, std::string_view title, std::span<const Platform::BatchMessage> rows);
// Until the user closes it. Nothing is shown where there are no rows.
void Show_Batch_Msgs(QWidget* parent, std::string_view title, std::span<const Platform::BatchMessage> rows);

}  // namespace tallmar
