// Which worksheets of the open report a few typed characters mean: "s3", "a-4", "settlement".
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

struct MenuState;

struct FoundWorksheet {
    std::string item;
    std::string name;   // "S-3  Part-1"
    std::string title;  // may be empty
    bool hasEdit = false;
};

// What the menus let the person open, in the order of the View menu.
std::vector<FoundWorksheet> Worksheets_To_Open(const MenuState& state);

// The best first: those whose name is the text, then those whose name begins with it, then those with it in the title.
// Blanks, hyphens and case do not count, and "part" may be left out. An empty text finds all.
std::vector<FoundWorksheet> Find_Worksheets(std::span<const FoundWorksheet> among, std::string_view text);

}  // namespace tallmar
