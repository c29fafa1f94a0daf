// Which entries of the menus are on, worked out from the open report's registry. No window is needed for it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

struct MenuRow;

struct MenuListEntry {
    std::string caption;  // "C  Part-2  MSA-1600 (Cp2m1600)"
    std::string item;
    friend bool operator==(const MenuListEntry&, const MenuListEntry&) = default;
};

struct MenuState {
    // Names of the entries and menus that are on, of those that the refresh decides on.
    std::set<std::string, std::less<>> enabled;
    // The entries of each list, by the list's name; no list is left out.
    std::map<std::string, std::vector<MenuListEntry>, std::less<>> lists;
};

// Errors of the database are passed over: what was not found stays off. While the cost centers are edited nothing of
// the report is on.
MenuState Menu_State(bool costCentersAreEdited);

// Whether an entry is on by the open report as a whole. False for those of worksheets and of forms.
bool Is_On(const MenuRow& row);

// For the person: why the entry is off. Empty where nothing can be said.
std::string_view Why_Off(const MenuRow& row);

// The Item between the last parentheses of a list entry's caption.
std::string Item_In_Caption(const std::string& caption);

}  // namespace tallmar
