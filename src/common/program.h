// The program as it calls itself.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

inline constexpr std::string_view kProgramTitle = "Tallmar 1728";

// "1.0", major and minor.
std::string Short_Version();
// The maker's name before the program's in captions and printouts: the first line of PrtTitle.txt in the program's
// folder; "The Brennwick Systems, Inc." where there is none.
std::string Product_Title();

}  // namespace tallmar
