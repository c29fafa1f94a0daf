#include "shell/menu_tree.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "common/item.h"
#include "common/worksheets.h"
#include "screens/worksheet_forms.h"

namespace tallmar {

namespace {

constexpr MenuKind kMenu = MenuKind::Menu;
constexpr MenuKind kSeparator = MenuKind::Separator;
constexpr MenuKind kCommand = MenuKind::Command;
constexpr MenuWhen kAlways = MenuWhen::Always;
constexpr MenuWhen kReport = MenuWhen::Report;
constexpr MenuWhen kForm = MenuWhen::Form;
constexpr MenuWhen kChecks = MenuWhen::Checks;
constexpr bool kOurs = true;

struct Entry {
    const char* name;
    const char* parent;
    const char* caption;
    MenuKind kind = kCommand;
    MenuWhen when = kAlways;
    const char* shortcut = "";
    bool ours = false;
    bool checkable = false;
};

constexpr Entry kReportMenu[] = {
    {"mnuReport", "", "&Report File", kMenu},
    {"mnuReportNew", "mnuReport", "&New ...", kCommand, kAlways, "Ctrl+N"},
    {"mnuReportOpen", "mnuReport", "&Open ...", kCommand, kAlways, "Ctrl+O"},
    {"mnuReportRecent", "mnuReport", "Recent &Files", kMenu, kAlways, "", kOurs},
    {"mnuReportBackup", "mnuReport", "Open a Bac&kup ...", kCommand, kAlways, "", kOurs},
    {"mnuReportClose", "mnuReport", "&Close", kCommand, kReport},
    {"mnuReportStore", "mnuReport", "Sto&re the Row", kCommand, kReport, "Ctrl+S", kOurs},
    {"mnuReportSaveAs", "mnuReport", "Save &As ...", kCommand, kReport, "Ctrl+Shift+S"},
    {"mnuReportKey", "mnuReport", "Report I&dentity ...", kCommand, kReport, "", kOurs},
    {"mnuReportEditCheck", "mnuReport", "Just run the edit checks", kCommand, kReport},
    {"mnuReportCalculate", "mnuReport", "Ca&lculate CRF", kCommand, kReport, "F9"},
    {"", "mnuReport", "", kSeparator},
    {"mnuReportPrinterSetup", "mnuReport", "Prin&ter Setup ...", kCommand, kReport},
    {"mnuReportPrintSelect", "mnuReport", "Print &Selected Worksheets ...", kCommand, kReport},
    {"mnuReportPrint", "mnuReport", "&Print Entire CRF", kCommand, kReport},
    {"", "mnuReport", "", kSeparator},
    {"mnuReportImport", "mnuReport", "&Import ....", kMenu, kReport},
    {"mnuReportImportASCII", "mnuReportImport", "&ASCII file", kCommand, kReport},
    {"mnuReportImportCRF", "mnuReportImport", "&CRF file", kCommand, kReport},
    {"mnuReportImportECR", "mnuReportImport", "&ECR file", kCommand, kReport},
    {"mnuReportImportPSRCSV", "mnuReportImport", "&PSR CSV file", kCommand, kReport},
    {"mnuReportSubmit", "mnuReport", "&Build an ECR file ...", kCommand, kChecks},
    {"", "mnuReport", "", kSeparator},
    {"mnuReportUtilities", "mnuReport", "Tallmar &Utilities ...", kMenu, kReport},
    {"mnuReportUtilitiesReBuild", "mnuReportUtilities", "&ReBuild A Worksheet", kCommand, kReport},
    {"mnuReportUtilitiesHQ", "mnuReportUtilities", "Turn High Quality Printing Off", kCommand, kReport},
    {"mnuReportUtilitiesHeader", "mnuReportUtilities", "Set/Change Custom &Header Lines", kCommand, kReport},
    {"mnuReportUtilitiesLog", "mnuReportUtilities", "View Last &Edit Check Entries", kCommand, kReport},
    {"", "mnuReport", "", kSeparator},
    {"mnuReportExit", "mnuReport", "E&xit", kCommand, kAlways, "Ctrl+Q"},
};

constexpr Entry kEditMenu[] = {
    {"mnuEdit", "", "Edit", kMenu},
    {"mnuEditOpen", "mnuEdit", "Open ...", kMenu, kReport},
    {"mnuEditClose", "mnuEdit", "Close All Edits", kCommand, kReport},
    {"", "mnuEdit", "", kSeparator, kAlways, "", kOurs},
    {"mnuEditUndo", "mnuEdit", "&Undo", kCommand, kForm, "Ctrl+Z", kOurs},
    {"mnuEditRedo", "mnuEdit", "&Redo", kCommand, kForm, "Ctrl+Y; Ctrl+Shift+Z", kOurs},
    {"mnuEditCopy", "mnuEdit", "&Copy", kCommand, kForm, "Ctrl+C", kOurs},
    {"mnuEditCopyHeads", "mnuEdit", "Copy With &Heads", kCommand, kForm, "Ctrl+Shift+C", kOurs},
    {"mnuEditPaste", "mnuEdit", "&Paste", kCommand, kForm, "Ctrl+V", kOurs},
    {"mnuEditFillDown", "mnuEdit", "Fill &Down", kCommand, kForm, "Ctrl+D", kOurs},
    {"", "mnuEdit", "", kSeparator, kAlways, "", kOurs},
    {"mnuEditFind", "mnuEdit", "&Find ...", kCommand, kForm, "Ctrl+F", kOurs},
    {"mnuEditGoTo", "mnuEdit", "&Go To Worksheet ...", kCommand, kReport, "Ctrl+G", kOurs},
};

constexpr Entry kViewMenu[] = {
    {"mnuView", "", "View", kMenu},
    {"mnuViewOpen", "mnuView", "Open ...", kMenu, kReport},
    {"mnuViewCloseAll", "mnuView", "Close &All Views", kCommand, kReport},
};

constexpr Entry kWindowMenu[] = {
    {"mnuWindow", "", "&Window", kMenu, kAlways, "", kOurs},
    {"mnuWindowTabbed", "mnuWindow", "Ta&bbed", kCommand, kAlways, "", kOurs, true},
    {"mnuWindowCascade", "mnuWindow", "&Cascade", kCommand, kForm, "", kOurs},
    {"mnuWindowTile", "mnuWindow", "&Tile", kCommand, kForm, "", kOurs},
    {"", "mnuWindow", "", kSeparator, kAlways, "", kOurs},
    {"mnuWindowNext", "mnuWindow", "&Next Window", kCommand, kForm, "Ctrl+F6", kOurs},
    {"mnuWindowPrevious", "mnuWindow", "&Previous Window", kCommand, kForm, "Ctrl+Shift+F6", kOurs},
    {"mnuWindowClose", "mnuWindow", "C&lose Window", kCommand, kForm, "Ctrl+W", kOurs},
    {"", "mnuWindow", "", kSeparator, kAlways, "", kOurs},
    {"mnuWindowZoomIn", "mnuWindow", "Zoom &In", kCommand, kAlways, "Ctrl++", kOurs},
    {"mnuWindowZoomOut", "mnuWindow", "Zoom &Out", kCommand, kAlways, "Ctrl+-", kOurs},
    {"mnuWindowZoomNormal", "mnuWindow", "Normal &Size", kCommand, kAlways, "Ctrl+0", kOurs},
    {"mnuWindowList", "mnuWindow", "Open &Windows", kMenu, kForm, "", kOurs},
};

constexpr Entry kLastMenus[] = {
    {"mnu339", "", "&Tallmar 339", kMenu},
    {"mnu1", "mnu339", "Part &1 339", kCommand, kReport},
    {"mnu2", "mnu339", "&Bad Debt Log", kCommand, kReport},
    {"mnuHelp", "", "&Help", kMenu},
    {"mnuHelpInstructions", "mnuHelp", "&Instructions", kCommand, kAlways, "F1"},
    {"mnuHelpKeys", "mnuHelp", "&Keys", kCommand, kAlways, "", kOurs},
    {"", "mnuHelp", "", kSeparator},
    {"mnuHelpAbout", "mnuHelp", "&About Tallmar 1728"},
};

// Entries whose job is not built yet.
constexpr std::string_view kNotBuilt[] = {
    "mnuReportEditCheck",   "mnuReportPrinterSetup",     "mnuReportPrintSelect",  "mnuReportPrint",
    "mnuReportImportASCII", "mnuReportImportCRF",        "mnuReportImportECR",    "mnuReportImportPSRCSV",
    "mnuReportSubmit",      "mnuReportUtilitiesReBuild", "mnuReportUtilitiesLog", "mnuEditOpenCCs"};

// The place of a worksheet's entry, or of a menu of some, below Open of both trees. A worksheet without a place is
// behind the others.
enum class OpenKind : std::uint8_t { Worksheet, Menu, List };
struct OpenRow {
    const char* stem;         // behind "mnuEditOpen", "mnuViewOpen"
    const char* parent = "";  // stem of its menu
    OpenKind kind = OpenKind::Worksheet;
    const char* caption = "";  // of a menu, and of a worksheet that is not called by its display name
    const char* pattern = "";  // of a list
};
constexpr OpenRow kOpenRows[] = {
    {"A"},
    {"A1"},
    {"A2"},
    {"A3"},
    {"A4"},
    {"A5"},
    {"A6pA"},
    {"A6pB"},
    {"A6pC"},
    {"A7"},
    {"A83", "", OpenKind::Menu, "A-8-3 ..."},
    {"A83p1", "A83"},
    {"A83p2", "A83"},
    {"A83p3", "A83"},
    {"A83p4", "A83"},
    {"A83p5", "A83"},
    {"A83p1O", "A83"},
    {"A83p2O", "A83"},
    {"A83p3O", "A83"},
    {"A83p4O", "A83"},
    {"A83p5O", "A83"},
    {"A83p1P", "A83"},
    {"A83p2P", "A83"},
    {"A83p3P", "A83"},
    {"A83p4P", "A83"},
    {"A83p5P", "A83"},
    {"A83p1S", "A83"},
    {"A83p2S", "A83"},
    {"A83p3S", "A83"},
    {"A83p4S", "A83"},
    {"A83p5S", "A83"},
    {"B"},
    {"B1"},
    {"C", "", OpenKind::Menu, "C ..."},
    {"Cp1", "C"},
    {"Cp2", "C", OpenKind::Menu, "C Part 2 ..."},
    {"Cp2x", "Cp2", OpenKind::List, "", "Cp2*"},
    {"Cp3", "C"},
    {"Cp4", "C"},
    {"Cp5", "C"},
    {"CCs", "", OpenKind::Worksheet, "Cost Centers Structure"},
    {"Dp1"},
    {"Dp2"},
    {"D1"},
    {"F"},
    {"F1"},
    {"F2"},
    {"K", "", OpenKind::Menu, "K ..."},
    {"Khx", "K", OpenKind::List, "", "K*"},
    {"O", "", OpenKind::Menu, "O ..."},
    {"Ohx", "O", OpenKind::List, "", "O*"},
    {"S2"},
    {"S21"},
    {"S3p1"},
    {"S3p2"},
    {"S3p3"},
    {"S3p4"},
    {"S5", "", OpenKind::Menu, "S-5 ..."},
    {"S5pxhx", "S5", OpenKind::List, "", "S5*"},
    {"Sp2"},
};

// The hospice lists are called without "Open".
constexpr std::string_view kShortNames[] = {"Khx", "Ohx"};

struct Tree {
    const char* prefix;
    MenuKind kind;
};
constexpr Tree kEditTree{"mnuEdit", MenuKind::Edit};
constexpr Tree kViewTree{"mnuView", MenuKind::View};
// The table of cost centers is no worksheet of the registry.
constexpr std::string_view kCostCenters = "CCs";

std::string Open_Name(const Tree& tree, std::string_view stem) {
    const bool isShort = std::ranges::find(kShortNames, stem) != std::end(kShortNames);
    return std::string(tree.prefix) + (isShort ? "" : "Open") + std::string(stem);
}

void Add_Entries(std::vector<MenuRow>& rows, std::span<const Entry> entries) {
    for (const Entry& entry : entries) {
        MenuRow row{entry.name, entry.parent, entry.caption, entry.kind, entry.when};
        row.shortcut = entry.shortcut;
        row.ours = entry.ours;
        row.checkable = entry.checkable;
        rows.push_back(std::move(row));
    }
}

// Also the item of a part that has several: "A83p1" of "A83p1*".
bool Is_Placed(const WorksheetForms& forms) {
    const std::string stem(Stem_Of(forms.items));
    return std::ranges::any_of(kOpenRows, [&](const OpenRow& open) {
        if (open.kind == OpenKind::List) return ItemPattern(open.pattern).Matches(stem);
        return open.kind == OpenKind::Worksheet && forms.items.Matches(open.stem);
    });
}

void Add_Open_Row(std::vector<MenuRow>& rows, const Tree& tree, const OpenRow& open) {
    const bool edits = tree.kind == MenuKind::Edit;
    MenuRow row{Open_Name(tree, open.stem), Open_Name(tree, open.parent), open.caption, tree.kind, MenuWhen::Registry};
    if (open.kind == OpenKind::Menu) {
        row.kind = MenuKind::Menu;
    } else if (open.kind == OpenKind::List) {
        row.kind = MenuKind::List;
        row.item = open.pattern;
        row.edit = edits;
    } else {
        row.item = open.stem;
    }
    if (row.item == kCostCenters) row.when = MenuWhen::Report;
    rows.push_back(std::move(row));
}

void Add_Open_Rows(std::vector<MenuRow>& rows, const Tree& tree) {
    const bool edits = tree.kind == MenuKind::Edit;
    for (const OpenRow& open : kOpenRows) {
        const bool viewOnly = open.kind == OpenKind::Worksheet && Has_No_Edit_Form(open.stem);
        if (!edits || !viewOnly) Add_Open_Row(rows, tree, open);
    }
    for (const WorksheetForms& forms : All_Forms()) {
        if (forms.view == nullptr || (edits && forms.edit == nullptr) || Is_Placed(forms)) continue;
        const std::string pattern(forms.items.Text()), stem(Stem_Of(forms.items)), list = stem + "x";
        Add_Open_Row(
            rows, tree,
            stem == pattern ? OpenRow{stem.c_str()} : OpenRow{list.c_str(), "", OpenKind::List, "", pattern.c_str()});
    }
}

}  // namespace

std::vector<MenuRow> Make_Menu_Rows() {
    std::vector<MenuRow> rows;
    Add_Entries(rows, kReportMenu);
    Add_Entries(rows, kEditMenu);
    Add_Open_Rows(rows, kEditTree);
    Add_Entries(rows, kViewMenu);
    Add_Open_Rows(rows, kViewTree);
    Add_Entries(rows, kWindowMenu);
    Add_Entries(rows, kLastMenus);
    for (MenuRow& row : rows) row.built = std::ranges::find(kNotBuilt, row.name) == std::end(kNotBuilt);
    return rows;
}

const std::vector<MenuRow>& Menu_Rows() {
    static const std::vector<MenuRow> rows = Make_Menu_Rows();
    return rows;
}

const MenuRow* Find_Menu_Row(std::string_view name) {
    const auto& rows = Menu_Rows();
    const auto found = std::ranges::find(rows, name, &MenuRow::name);
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace tallmar
