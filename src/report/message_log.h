// The messages of a long job: while a log is active they become rows of <prefix>ErrLog and are listed at the end.
#pragma once

#include <cstddef>
#include <string_view>

#include "common/item.h"
#include "common/platform.h"

namespace tallmar {

// A fresh <prefix>ErrLog. Logs do not nest.
void Start_Msg_Log(std::string_view prefix);
// Lists the rows, where there are any and unless `quiet`; messages are boxes again.
void End_Msg_Log(std::string_view prefix, bool quiet = false);
// The rows of the log so far, or of the last one of the prefix.
std::size_t Msg_Log_Count(std::string_view prefix);
// A message box, or a row of the active log: Answer::None then. The level and the worksheet come from `title`
// ("Error: Worksheet A-4 ..."). A log takes no prompt with a double quote: the statement fails.
Answer Report_Msg(std::string_view prompt, int buttons = kOkOnly, std::string_view title = {});
// The error of a worksheet: a box "Error: Worksheet <item>", or a row of level "E".
void Report_Error(const Item& item, std::string_view prompt, int icon = kStop);

}  // namespace tallmar
