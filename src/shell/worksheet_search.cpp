#include "shell/worksheet_search.h"

#include <algorithm>
#include <array>

#include "common/text.h"
#include "report/registry.h"
#include "screens/worksheet_forms.h"
#include "shell/menu_refresh.h"
#include "shell/menu_tree.h"

namespace tallmar {

namespace {

// Letters and digits alone.
std::string Folded(std::string_view text) {
    std::string folded;
    for (const char c : To_Lower(text)) {
        const bool isAscii = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (isAscii || static_cast<signed char>(c) < 0) folded += c;
    }
    return folded;
}

// 0 is the best; a worksheet that is not meant has none.
constexpr int kNoRank = 4;
int Rank(const FoundWorksheet& worksheet, const std::string& wanted) {
    const std::string name = Folded(worksheet.name);
    const std::array names{name, Folded(worksheet.item), Replace(name, "part", "")};
    const auto same = std::ranges::find(names, wanted);
    // "d1" is D-1 before it is D Part-1.
    if (same != names.end()) return same == names.end() - 1 ? 1 : 0;
    if (std::ranges::any_of(names, [&](const std::string& text) { return text.starts_with(wanted); })) return 2;
    return Folded(worksheet.title).find(wanted) != std::string::npos ? 3 : kNoRank;
}

void Add(std::vector<FoundWorksheet>& worksheets, const std::string& item, const std::string& name, bool edits) {
    const auto known = std::ranges::find(worksheets, item, &FoundWorksheet::item);
    if (known != worksheets.end()) {
        known->hasEdit |= edits;
    } else if (!edits) {
        worksheets.push_back({item, name, std::string(Worksheet_Title(item)), false});
    }
}

void Add_Row(std::vector<FoundWorksheet>& worksheets, const MenuState& state, const MenuRow& row, bool edits) {
    if (row.kind == MenuKind::List && row.edit == edits) {
        for (const MenuListEntry& entry : state.lists.at(row.name)) {
            Add(worksheets, entry.item, WorksheetName(entry.item), edits);
        }
    } else if (row.kind == (edits ? MenuKind::Edit : MenuKind::View) && state.enabled.contains(row.name)) {
        Add(worksheets, row.item, row.caption.empty() ? WorksheetName(row.item) : row.caption, edits);
    }
}

}  // namespace

std::vector<FoundWorksheet> Worksheets_To_Open(const MenuState& state) {
    std::vector<FoundWorksheet> worksheets;
    for (const bool edits : {false, true}) {
        for (const MenuRow& row : Menu_Rows()) Add_Row(worksheets, state, row, edits);
    }
    return worksheets;
}

std::vector<FoundWorksheet> Find_Worksheets(std::span<const FoundWorksheet> among, std::string_view text) {
    const std::string wanted = Folded(text);
    std::vector<FoundWorksheet> found;
    for (int rank = 0; rank < kNoRank; ++rank) {
        std::ranges::copy_if(among, std::back_inserter(found),
                             [&](const FoundWorksheet& worksheet) { return Rank(worksheet, wanted) == rank; });
    }
    return found;
}

}  // namespace tallmar
