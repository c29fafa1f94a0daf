// What each worksheet is called on the form, for lists that a person searches.
#pragma once

#include <string_view>

namespace tallmar {

// "Reclassifications" of A4. Empty where the form gives no name.
std::string_view Worksheet_Title(std::string_view item);

}  // namespace tallmar
