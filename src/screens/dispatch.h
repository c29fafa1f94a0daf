// Which form an item has, what its window is called, and which worksheet comes next. A window's caption holds
// its mode and its item: "Edit Worksheet A6pC", "View Worksheet Cp2m1600".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "screens/form_description.h"
#include "screens/worksheet_forms.h"

namespace tallmar {

enum class Direction : std::uint8_t { Next, Previous };

// The form of the item where the open report has its table; null, too, while no report is open. What opening goes by.
const FormDescription* Form_To_Open(FormMode mode, const Item& item);
// "Unknown worksheet requested (<Item>) for <Mode>": what opening says where there is no form or no table.
std::string Unknown_Worksheet(FormMode mode, std::string_view item);

std::string Form_Caption(FormMode mode, const Item& item);
FormMode Mode_Of_Caption(std::string_view caption);
// From character 16 on.
Item Item_Of_Caption(std::string_view caption);

// The neighbour by display name, read from the registry each time. Empty where none is left, and from a form that
// is no worksheet's.
std::string Next_Worksheet(std::string_view caption, Direction direction);
// "Open A-5 For Edit"; empty where there is no neighbour: the button is disabled then.
std::string Neighbour_Tip(std::string_view caption, Direction direction);

// "Record: 5", with " (First record)" and " (Last record)". `position` from 0; without rows it is "Record: 0".
std::string Record_Status(std::size_t position, std::size_t count);

}  // namespace tallmar
