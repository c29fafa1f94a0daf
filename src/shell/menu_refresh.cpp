#include "shell/menu_refresh.h"

#include <algorithm>

#include "common/item.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/year_rules.h"
#include "shell/menu_tree.h"

namespace tallmar {

namespace {

constexpr const char* kWorksheets = "SELECT Item, ItemName FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY ItemName;";

struct Worksheet {
    std::string item, name;
};

bool Is_Open() {
    try {
        db.TableDefs().Refresh();
        return true;
    } catch (const DbError&) {
        return false;
    }
}

std::vector<Worksheet> Registered() {
    std::vector<Worksheet> worksheets;
    try {
        Recordset rows = db.OpenRecordset(kWorksheets, RecordsetType::Snapshot);
        for (; !rows.Eof(); rows.MoveNext()) worksheets.push_back({Nz_Str(rows["Item"]), Nz_Str(rows["ItemName"])});
    } catch (const DbError&) {
        // What has been read so far is on.
    }
    return worksheets;
}

// An entry whose worksheet is registered, but not used in this year.
bool Is_Off_This_Year(const MenuRow& row) {
    if (row.kind != MenuKind::Edit && row.kind != MenuKind::View) return false;
    const FormMode mode = row.kind == MenuKind::Edit ? FormMode::Edit : FormMode::View;
    return Year_Leaves_Out(WorksheetList::Menus, mode, row.item);
}

std::vector<MenuListEntry> List_Entries(const MenuRow& list, const std::vector<Worksheet>& worksheets) {
    const ItemPattern pattern(list.item.c_str());
    std::vector<MenuListEntry> entries;
    for (const Worksheet& worksheet : worksheets) {
        if (!pattern.Matches(worksheet.item) || (list.edit && Has_No_Edit_Form(worksheet.item))) continue;
        entries.push_back({Sql(worksheet.name, " (", worksheet.item, ")"), worksheet.item});
    }
    return entries;
}

void Enable_Registered(MenuState& state, const std::vector<Worksheet>& worksheets) {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.when != MenuWhen::Registry || row.kind == MenuKind::Menu) continue;
        if (row.kind == MenuKind::List) {
            state.lists[row.name] = List_Entries(row, worksheets);
            if (!state.lists[row.name].empty()) state.enabled.insert(row.name);
        } else if (!Is_Off_This_Year(row) &&
                   std::ranges::find(worksheets, row.item, &Worksheet::item) != worksheets.end()) {
            state.enabled.insert(row.name);
        }
    }
}

// None of its entries is built.
bool Is_Empty_Menu(const MenuRow& menu) {
    return menu.kind == MenuKind::Menu && std::ranges::all_of(Menu_Rows(), [&](const MenuRow& row) {
               return row.parent != menu.name || !row.built || row.kind == MenuKind::Separator;
           });
}

// Whether a report that is open turns the entry on. False for those of worksheets and of forms.
bool Report_Lets(const MenuRow& row) {
    if (!row.built) return false;
    return row.when == MenuWhen::Checks ? openReport.ecrMayBeBuilt
                                        : row.when == MenuWhen::Report && !Is_Empty_Menu(row);
}

// A menu of worksheets is on where an entry of it is: from the innermost out, since a menu's row is above its
// entries'.
void Enable_Menus(MenuState& state) {
    const auto& rows = Menu_Rows();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (!state.enabled.contains(row->name)) continue;
        const MenuRow* menu = Find_Menu_Row(row->parent);
        if (menu != nullptr && menu->when == MenuWhen::Registry) state.enabled.insert(menu->name);
    }
}

}  // namespace

bool Is_On(const MenuRow& row) {
    return row.when == MenuWhen::Always ? row.built : Report_Lets(row) && Is_Open();
}

MenuState Menu_State(bool costCentersAreEdited) {
    MenuState state;
    for (const MenuRow& row : Menu_Rows()) {
        if (row.when == MenuWhen::Always && row.built && !row.name.empty()) state.enabled.insert(row.name);
        if (row.kind == MenuKind::List) state.lists[row.name];
    }
    if (costCentersAreEdited || !Is_Open()) return state;
    for (const MenuRow& row : Menu_Rows()) {
        if (Report_Lets(row)) state.enabled.insert(row.name);
    }
    Enable_Registered(state, Registered());
    Enable_Menus(state);
    return state;
}

std::string_view Why_Off(const MenuRow& row) {
    if (!row.built) return "Not available yet";
    if (row.when == MenuWhen::Form) return "No form that this works on is open";
    if (row.when == MenuWhen::Always) return {};
    if (!Is_Open()) return "No report is open";
    if (row.when == MenuWhen::Checks) return "The report has not passed the edit checks";
    if (row.when == MenuWhen::Report) return Is_Empty_Menu(row) ? "Not available yet" : "";
    return Is_Off_This_Year(row) ? "Not used in this fiscal year" : "This report has no such worksheet";
}

std::string Item_In_Caption(const std::string& caption) {
    const std::size_t open = caption.rfind('(');
    const std::size_t close = caption.rfind(')');
    if (open == caption.npos || close == caption.npos || close < open) return {};
    return caption.substr(open + 1, close - open - 1);
}

}  // namespace tallmar
