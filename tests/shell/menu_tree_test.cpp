// The menu tree: captions and keys as they are laid down, and nothing forgotten.
#include "shell/menu_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "catalogue.h"
#include "common/item.h"
#include "screens/worksheet_forms.h"
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

// Below Open of both trees, behind "mnuEdit" and "mnuView": the edit tree has the first of the two lists.
constexpr const char* kBothTrees[] = {
    "OpenA",      "OpenA1",     "OpenA2",     "OpenA3",   "OpenA4",    "OpenA5",    "OpenA6pA",
    "OpenA6pB",   "OpenA6pC",   "OpenA7",     "OpenA83",  "OpenA83p1", "OpenA83p4", "OpenA83p5",
    "OpenA83p1O", "OpenA83p4O", "OpenA83p5O", "OpenB1",   "OpenC",     "OpenCp2",   "OpenA83p1P",
    "OpenA83p4P", "OpenA83p5P", "OpenA83p1S", "OpenCp2x", "OpenCp3",   "OpenCp4",   "OpenCp5",
    "OpenA83p4S", "OpenA83p5S", "OpenCCs",    "OpenDp1",  "OpenDp2",   "OpenD1",    "OpenF",
    "OpenF1",     "OpenF2",     "OpenK",      "Khx",      "OpenO",     "Ohx",       "OpenS2",
    "OpenS21",    "OpenS3p1",   "OpenS3p2",   "OpenS3p3", "OpenS3p4",  "OpenS5",    "OpenS5pxhx",
};
constexpr const char* kViewTreeOnly[] = {
    "OpenA83p2",  "OpenA83p3",  "OpenA83p2O", "OpenA83p3O", "OpenA83p2P", "OpenA83p3P",
    "OpenA83p2S", "OpenA83p3S", "OpenB",      "OpenCp1",    "OpenSp2",
};

std::set<std::string> Below_Open(const std::string& tree) {
    std::set<std::string> names;
    for (const MenuRow& row : Menu_Rows()) {
        const bool isBelow = row.name.starts_with(tree) && (row.parent != tree) && !row.parent.empty();
        if (isBelow) names.insert(row.name.substr(tree.size()));
    }
    return names;
}

TEST(MenuTreeTest, StatedCaptionsStandWhereTheyBelong) {
    for (const Caption& stated : kStated) {
        const MenuRow* row = Find_Menu_Row(stated.name);
        ASSERT_NE(row, nullptr) << stated.name;
        EXPECT_EQ(row->parent, stated.parent) << stated.name;
        EXPECT_EQ(row->caption, stated.caption) << stated.name;
        EXPECT_FALSE(row->ours) << stated.name;
    }
    for (const char* name : {"mnuReportPrintSelect", "mnuReportUtilitiesHQ", "mnuReportExit"}) {
        EXPECT_NE(Find_Menu_Row(name), nullptr) << name;
    }
}

TEST(MenuTreeTest, BothTreesHoldTheirWorksheetsAndNoOthers) {
    std::set<std::string> names(std::begin(kBothTrees), std::end(kBothTrees));
    EXPECT_EQ(Below_Open("mnuEdit"), names);
    names.insert(std::begin(kViewTreeOnly), std::end(kViewTreeOnly));
    EXPECT_EQ(Below_Open("mnuView"), names);
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
        if (!row.built) names.push_back(row.name);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(kNotBuilt));
}

TEST(MenuTreeTest, EveryEntryThatWorksHasItsHandler) {
    std::set<std::string> wanted, found;
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind == MenuKind::Command && row.built) wanted.insert(row.name);
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
    const std::string sample(Stem_Of(family.items));
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind == (edit ? MenuKind::Edit : MenuKind::View) && family.items.Matches(row.item)) return true;
        if (row.kind == MenuKind::List && row.edit == edit && ItemPattern(row.item.c_str()).Matches(sample))
            return true;
    }
    return false;
}

TEST(MenuTreeTest, EveryWorksheetIsReachable) {
    for (const WorksheetFamily& family : All_Families()) {
        const Item sample{std::string(Stem_Of(family.items))};
        EXPECT_EQ(Is_Reachable(family, true), Form_Of(FormMode::Edit, sample) != nullptr) << family.items.Text();
        EXPECT_EQ(Is_Reachable(family, false), Form_Of(FormMode::View, sample) != nullptr) << family.items.Text();
    }
}

TEST(MenuTreeTest, EveryWorksheetHasATitle) {
    for (const WorksheetFamily& family : All_Families()) {
        const Item sample{std::string(Stem_Of(family.items))};
        EXPECT_EQ(Worksheet_Title(sample).empty(), Form_Of(FormMode::View, sample) == nullptr) << sample.Name();
    }
    EXPECT_EQ(Worksheet_Title("K1h0"), "Hospice Compensation Analysis: Salaries and Wages");
    EXPECT_EQ(Worksheet_Title("Oh3"), "Analysis of HHA-Based Hospice Costs");
    EXPECT_EQ(Worksheet_Title("CCs"), "");
}

TEST(MenuTreeTest, EditTreeOpensOnlyWorksheetsWithAnEditForm) {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind != MenuKind::Edit || !row.built) continue;
        EXPECT_NE(Form_Of(FormMode::Edit, row.item), nullptr) << row.name;
    }
}

}  // namespace
}  // namespace tallmar
