// The menu tree: captions and keys as they are laid down, and nothing forgotten.
#include "shell/menu_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "catalogue.h"
#include "common/item.h"
#include "shell/main_commands.h"

namespace tallmar {
namespace {

struct Caption {
    const char *name, *parent, *caption;
};
constexpr Caption kStated[] = {
    {"mnuReport", "", "&Report File"},
    {"mnuReportNew", "mnuReport", "&New ..."},
    {"mnuReportOpen", "mnuReport", "&Open ..."},
    {"mnuReportClose", "mnuReport", "&Close"},
    {"mnuReportSaveAs", "mnuReport", "Save &As ..."},
    {"mnuReportEditCheck", "mnuReport", "Just run the edit checks"},
    {"mnuReportCalculate", "mnuReport", "Ca&lculate CRF"},
    {"mnuReportPrinterSetup", "mnuReport", "Prin&ter Setup ..."},
    {"mnuReportPrint", "mnuReport", "&Print Entire CRF"},
    {"mnuReportImport", "mnuReport", "&Import ...."},
    {"mnuReportImportASCII", "mnuReportImport", "&ASCII file"},
    {"mnuReportImportCRF", "mnuReportImport", "&CRF file"},
    {"mnuReportImportECR", "mnuReportImport", "&ECR file"},
    {"mnuReportImportPSRCSV", "mnuReportImport", "&PSR CSV file"},
    {"mnuReportSubmit", "mnuReport", "&Build an ECR file ..."},
    {"mnuReportUtilities", "mnuReport", "Tallmar &Utilities ..."},
    {"mnuReportUtilitiesReBuild", "mnuReportUtilities", "&ReBuild A Worksheet"},
    {"mnuReportUtilitiesHeader", "mnuReportUtilities", "Set/Change Custom &Header Lines"},
    {"mnuReportUtilitiesLog", "mnuReportUtilities", "View Last &Edit Check Entries"},
    {"mnuEdit", "", "Edit"},
    {"mnuEditOpen", "mnuEdit", "Open ..."},
    {"mnuEditOpenA83", "mnuEditOpen", "A-8-3 ..."},
    {"mnuEditOpenC", "mnuEditOpen", "C ..."},
    {"mnuEditOpenCp2", "mnuEditOpenC", "C Part 2 ..."},
    {"mnuEditOpenCCs", "mnuEditOpen", "Cost Centers Structure"},
    {"mnuEditClose", "mnuEdit", "Close All Edits"},
    {"mnuView", "", "View"},
    {"mnuViewOpen", "mnuView", "Open ..."},
    {"mnuViewCloseAll", "mnuView", "Close &All Views"},
    {"mnu339", "", "&Tallmar 339"},
    {"mnu1", "mnu339", "Part &1 339"},
    {"mnu2", "mnu339", "&Bad Debt Log"},
    {"mnuHelp", "", "&Help"},
    {"mnuHelpInstructions", "mnuHelp", "&Instructions"},
    {"mnuHelpAbout", "mnuHelp", "&About Tallmar 1728"},
};

// Entries that stand there for work to come. One that gets its work leaves this list.
constexpr const char* kNotBuilt[] = {
    "mnuReportEditCheck",   "mnuReportPrinterSetup",     "mnuReportPrintSelect",  "mnuReportPrint",
    "mnuReportImportASCII", "mnuReportImportCRF",        "mnuReportImportECR",    "mnuReportImportPSRCSV",
    "mnuReportSubmit",      "mnuReportUtilitiesReBuild", "mnuReportUtilitiesLog", "mnuEditOpenCCs",
};

constexpr const char* kStatedNames[] = {
    "mnuReportExit",     "mnuReportPrintSelect", "mnuReportUtilitiesHQ", "mnuEditOpenA",     "mnuEditOpenA5",
    "mnuEditOpenA6pA",   "mnuEditOpenA6pC",      "mnuEditOpenA7",        "mnuEditOpenA83p1", "mnuEditOpenA83p4O",
    "mnuEditOpenA83p5S", "mnuEditOpenB1",        "mnuEditOpenCp2x",      "mnuEditOpenCp3",   "mnuEditOpenCp5",
    "mnuEditOpenDp1",    "mnuEditOpenDp2",       "mnuEditOpenD1",        "mnuEditOpenF2",    "mnuEditOpenK",
    "mnuEditKhx",        "mnuEditOpenO",         "mnuEditOhx",           "mnuEditOpenS2",    "mnuEditOpenS21",
    "mnuEditOpenS3p4",   "mnuEditOpenS5",        "mnuEditOpenS5pxhx",    "mnuViewOpenCp2x",  "mnuViewKhx",
    "mnuViewOhx",        "mnuViewOpenS5pxhx",    "mnuViewOpenSp2",       "mnuViewOpenB",     "mnuViewOpenCp1",
    "mnuViewOpenA83p2P",
};

TEST(MenuTreeTest, StatedCaptionsStandWhereTheyBelong) {
    for (const Caption& stated : kStated) {
        const MenuRow* row = Find_Menu_Row(stated.name);
        ASSERT_NE(row, nullptr) << stated.name;
        EXPECT_EQ(row->parent, stated.parent) << stated.name;
        EXPECT_EQ(row->caption, stated.caption) << stated.name;
        EXPECT_FALSE(row->ours) << stated.name;
    }
    for (const char* name : kStatedNames) EXPECT_NE(Find_Menu_Row(name), nullptr) << name;
}

TEST(MenuTreeTest, ReportFileMenuIsInItsOrder) {
    std::vector<std::string> names;
    for (const MenuRow& row : Menu_Rows()) {
        if (row.parent == "mnuReport" && !row.ours) names.push_back(row.name);
    }
    EXPECT_THAT(names, testing::ElementsAre("mnuReportNew", "mnuReportOpen", "mnuReportClose", "mnuReportSaveAs",
                                            "mnuReportEditCheck", "mnuReportCalculate", "", "mnuReportPrinterSetup",
                                            "mnuReportPrintSelect", "mnuReportPrint", "", "mnuReportImport",
                                            "mnuReportSubmit", "", "mnuReportUtilities", "", "mnuReportExit"));
}

TEST(MenuTreeTest, NoAccessKeyTwiceInOneMenu) {
    std::map<std::string, std::set<char>> keys;
    for (const MenuRow& row : Menu_Rows()) {
        const std::size_t at = row.caption.find('&');
        if (at == std::string::npos) continue;
        const char key = static_cast<char>(std::toupper(row.caption.at(at + 1)));
        EXPECT_TRUE(keys[row.parent].insert(key).second) << row.parent << ": " << row.caption;
    }
}

TEST(MenuTreeTest, NoShortcutTwice) {
    std::set<std::string> keys;
    for (const MenuRow& row : Menu_Rows()) {
        if (!row.shortcut.empty()) {
            EXPECT_TRUE(keys.insert(row.shortcut).second) << row.name;
        }
    }
}

TEST(MenuTreeTest, WhatIsNotBuiltIsKnown) {
    std::vector<std::string> names;
    for (const MenuRow& row : Menu_Rows()) {
        if (row.when == MenuWhen::NotBuilt) names.push_back(row.name);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(kNotBuilt));
}

TEST(MenuTreeTest, EveryEntryThatWorksHasItsHandler) {
    std::set<std::string> wanted, found;
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind == MenuKind::Command && row.when != MenuWhen::NotBuilt) wanted.insert(row.name);
    }
    for (const MainCommand& command : Main_Commands()) found.insert(std::string(command.name));
    EXPECT_EQ(found, wanted);
}

TEST(MenuTreeTest, NamesAreOnceAndMenusStandAboveTheirEntries) {
    std::set<std::string> names;
    for (const MenuRow& row : Menu_Rows()) {
        if (!row.parent.empty()) {
            EXPECT_TRUE(names.contains(row.parent)) << row.name << " in " << row.parent;
        }
        if (!row.name.empty()) {
            EXPECT_TRUE(names.insert(row.name).second) << row.name;
        }
    }
}

bool Is_Reachable(const WorksheetFamily& family, bool edit) {
    const std::string_view pattern = family.items.Text();
    const std::string sample(pattern.substr(0, pattern.find_first_of("*#?")));
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind == (edit ? MenuKind::Edit : MenuKind::View) && family.items.Matches(row.item)) return true;
        if (row.kind == MenuKind::List && row.edit == edit && ItemPattern(row.item.c_str()).Matches(sample))
            return true;
    }
    return false;
}

TEST(MenuTreeTest, EveryWorksheetIsReachable) {
    for (const WorksheetFamily& family : All_Families()) {
        if (family.edit != nullptr) {
            EXPECT_TRUE(Is_Reachable(family, true)) << family.items.Text();
        }
        if (family.view != nullptr) {
            EXPECT_TRUE(Is_Reachable(family, false)) << family.items.Text();
        }
    }
}

TEST(MenuTreeTest, EditTreeOpensOnlyWorksheetsWithAnEditForm) {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind != MenuKind::Edit || row.when == MenuWhen::NotBuilt) continue;
        const auto families = All_Families();
        const auto family = std::ranges::find_if(families, [&](const auto& f) { return f.items.Matches(row.item); });
        ASSERT_NE(family, families.end()) << row.name;
        EXPECT_NE(family->edit, nullptr) << row.name;
    }
}

}  // namespace
}  // namespace tallmar
