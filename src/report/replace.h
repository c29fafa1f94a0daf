// What is asked before a report takes the place of a file, or a name.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

// False after a box of the title, where no report may have the name: it is that of the temporary file, or of a side
// file of reports, or leaves no room for the names of the side files.
bool Check_Report_Name(const std::string& path, std::string_view title);
// True where there is no file at `path`, or a folder, which is never replaced, or the open report itself, or where the
// user wants to replace it: the box "Replace File?", default No. For commands: in a window the file dialog has asked.
bool May_Replace_File(const std::string& path);

}  // namespace tallmar
