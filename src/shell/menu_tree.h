// The menu tree of the main window as data: one row an entry. The Edit and the View tree come from one list of places;
// the table of forms says which worksheets are in them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

enum class MenuKind : std::uint8_t {
    Menu,
    Separator,
    Command,  // its handler is that of its name
    Edit,     // opens the edit form of `item`
    View,     // opens the view form of `item`
    List,     // one entry for each registered worksheet of the pattern `item`
};

// What turns an entry on.
enum class MenuWhen : std::uint8_t {
    Always,
    Report,    // a report is open
    Registry,  // its worksheet is registered; a menu: an entry of it is on
    Form,      // a worksheet form is active
    Checks,    // the report passed the edit checks and is unchanged since
};

struct MenuRow {
    std::string name;     // "mnuReportOpen"; of a separator empty
    std::string parent;   // empty: it is on the bar
    std::string caption;  // & marks the access key; of a worksheet's entry empty: its display name
    MenuKind kind = MenuKind::Command;
    MenuWhen when = MenuWhen::Always;
    std::string item = {};
    std::string shortcut = {};  // portable key text; several are parted by "; "
    bool checkable = false;
    bool ours = false;  // an addition of the desktop to the form's own menus
    bool edit = false;  // a list: its entries open edit forms
    bool built = true;  // false: its job is not built yet, and it is never on
};

// In their order. A worksheet that has no place below Open gets an entry behind the others.
const std::vector<MenuRow>& Menu_Rows();
// The same, of the table of forms that is installed now; the program's is read once.
std::vector<MenuRow> Make_Menu_Rows();
// Null where there is no such entry.
const MenuRow* Find_Menu_Row(std::string_view name);

}  // namespace tallmar
