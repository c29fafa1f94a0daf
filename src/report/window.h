// The main window as the store of reports leaves it: caption, labels, timer, welcome frame.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

inline constexpr std::string_view kProgramTitle = "Tallmar 1728";

// The maker's name from the first line of PrtTitle.txt in the program's folder, where there is one.
void Load_ProductTitle();
// "1.0", major and minor.
std::string Short_Version();
// "<product title> Tallmar 1728 (version 1.0)", with " -- <CRFTitle>" behind it while a report is open.
std::string Window_Caption();
// CRFPath, with " (read only)" behind it where the report cannot be written.
std::string Path_Line();
void Show_Caption();
void Show_No_Report();
void Show_Report();

}  // namespace tallmar
