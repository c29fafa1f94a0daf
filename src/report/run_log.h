// Log, the durable log of a report.
#pragma once

#include <string_view>

namespace tallmar {

// The table with its first row; registered at level 999.
void Build_Log();
// Deletes the lines of a type, an upper-case letter: 'C' has those of the calculation.
void Clear_Log(char type);
// A line of the calculation for information. Nothing happens in a report without the table.
void Log_Calc(std::string_view module, std::string_view procedure, std::string_view worksheet,
              std::string_view message);

}  // namespace tallmar
