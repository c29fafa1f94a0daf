// Which entries are on, by the state of the report.
#include "shell/menu_refresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "report/open_report.h"
#include "report/registry.h"
#include "shell/menu_tree.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool Is_On(const MenuState& state, std::string_view name) {
    EXPECT_NE(Find_Menu_Row(name), nullptr) << name;
    return state.enabled.contains(name);
}

constexpr const char* kEmptyLists[] = {"mnuEditOpenCp2", "mnuEditOpenK", "mnuEditOpenO", "mnuEditOpenS5",
                                       "mnuViewOpenCp2", "mnuViewOpenK", "mnuViewOpenO", "mnuViewOpenS5"};
constexpr const char* kWithReport[] = {"mnuReportSaveAs",
                                       "mnuReportClose",
                                       "mnuReportCalculate",
                                       "mnuReportUtilities",
                                       "mnuReportUtilitiesHQ",
                                       "mnuReportUtilitiesHeader",
                                       "mnuEditOpen",
                                       "mnuEditClose",
                                       "mnuViewOpen",
                                       "mnuViewCloseAll",
                                       "mnu1",
                                       "mnu2"};

TEST(MenuRefreshTest, WithoutAReportOnlyNewOpenExitAndHelpAreOn) {
    const MenuState state = Menu_State(false);
    const std::set<std::string> live{"mnuReportNew", "mnuReportOpen", "mnuReportExit", "mnuHelpInstructions",
                                     "mnuHelpAbout"};
    for (const MenuRow& row : Menu_Rows()) {
        const bool isEntry = row.kind != MenuKind::Separator && !(row.kind == MenuKind::Menu && row.parent.empty());
        if (isEntry && !row.ours) {
            EXPECT_EQ(Is_On(state, row.name), live.contains(row.name)) << row.name;
        }
    }
    for (const auto& [list, entries] : state.lists) EXPECT_THAT(entries, IsEmpty()) << list;
}

TEST(MenuRefreshTest, ClosedReportCountsAsNone) {
    const Report r(fy2016);
    db.Close();
    EXPECT_FALSE(Is_On(Menu_State(false), "mnuReportClose"));
}

TEST(MenuRefreshTest, ReportTurnsItsEntriesOn) {
    const Report r(fy2016);
    const MenuState state = Menu_State(false);
    for (const char* name : kWithReport) EXPECT_TRUE(Is_On(state, name)) << name;
    EXPECT_FALSE(Is_On(state, "mnuReportSubmit"));
    EXPECT_FALSE(Is_On(state, "mnuReportPrint"));
}

TEST(MenuRefreshTest, WhatTheEditChecksTurnOnIsOffUntilTheyPass) {
    MenuRow row{.name = "mnuReportSubmit", .parent = "mnuReport", .caption = "", .when = MenuWhen::Checks};
    EXPECT_EQ(Why_Off(row), "No report is open");
    const Report r(fy2016);
    EXPECT_FALSE(Is_On(row));
    EXPECT_EQ(Why_Off(row), "The report has not passed the edit checks");
    openReport.ecrMayBeBuilt = true;
    EXPECT_TRUE(Is_On(row));
    row.built = false;
    EXPECT_FALSE(Is_On(row));
    EXPECT_EQ(Why_Off(row), "Not available yet");
}

TEST(MenuRefreshTest, MenuOfEntriesThatAreNotBuiltIsOff) {
    const Report r(fy2016);
    const MenuState state = Menu_State(false);
    bool anyIsBuilt = false;
    for (const MenuRow& row : Menu_Rows()) {
        anyIsBuilt |= row.parent == "mnuReportImport" && row.built;
    }
    EXPECT_EQ(Is_On(state, "mnuReportImport"), anyIsBuilt);
    EXPECT_TRUE(Is_On(state, "mnuReportUtilities"));
}

TEST(MenuRefreshTest, EntryThatIsOffSaysWhy) {
    const auto why = [](const char* name) { return std::string(Why_Off(*Find_Menu_Row(name))); };
    EXPECT_EQ(why("mnuEditOpenA"), "No report is open");
    EXPECT_EQ(why("mnuReportClose"), "No report is open");
    EXPECT_EQ(why("mnuReportPrint"), "Not available yet");
    const Report r(fy2016);
    EXPECT_EQ(why("mnuEditOpenA1"), "This report has no such worksheet");
    EXPECT_EQ(why("mnuEditOpenCp4"), "Not used in this fiscal year");
    EXPECT_EQ(why("mnuReportImport"), "Not available yet");
    EXPECT_EQ(why("mnuEditFind"), "No form that this works on is open");
}

TEST(MenuRefreshTest, ReportOf2016HasS21AndNoCostLimits) {
    const Report r(fy2016);
    const MenuState state = Menu_State(false);
    for (const char* name :
         {"mnuEditOpenA", "mnuViewOpenA", "mnuEditOpenS21", "mnuViewOpenS21", "mnuViewOpenB", "mnuViewOpenSp2",
          "mnuEditOpenS3p4", "mnuViewOpenS3p4", "mnuEditOpenC", "mnuViewOpenCp4", "mnuViewOpenCCs"}) {
        EXPECT_TRUE(Is_On(state, name)) << name;
    }
    for (const char* name : {"mnuEditOpenA1", "mnuViewOpenA1", "mnuEditOpenA83", "mnuViewOpenA83", "mnuEditOpenCp4"}) {
        EXPECT_FALSE(Is_On(state, name)) << name;
    }
}

TEST(MenuRefreshTest, ReportOf1999HasCostLimitsAndNoS3p4) {
    const Report r(fy1999);
    const MenuState state = Menu_State(false);
    for (const char* name : {"mnuEditOpenA1", "mnuViewOpenA3", "mnuEditOpenA83", "mnuEditOpenA83p1O",
                             "mnuViewOpenA83p2P", "mnuEditOpenCp4"}) {
        EXPECT_TRUE(Is_On(state, name)) << name;
    }
    for (const char* name : {"mnuEditOpenS3p4", "mnuViewOpenS3p4", "mnuEditOpenS21", "mnuEditOpenA83p1"}) {
        EXPECT_FALSE(Is_On(state, name)) << name;
    }
}

TEST(MenuRefreshTest, ReportAcross2000HasBoth) {
    const Report r(fy2000);
    const MenuState state = Menu_State(false);
    for (const char* name : {"mnuEditOpenS3p4", "mnuViewOpenS3p4", "mnuEditOpenCp4", "mnuEditOpenA1"}) {
        EXPECT_TRUE(Is_On(state, name)) << name;
    }
}

TEST(MenuRefreshTest, EntriesFollowTheBoundDates) {
    const Report r(fy2000);
    openReport.FYStart = Date_Of(2000, 10, 1);
    EXPECT_FALSE(Is_On(Menu_State(false), "mnuEditOpenCp4"));
    openReport.FYStart = Date_Of(2000, 9, 30);
    EXPECT_TRUE(Is_On(Menu_State(false), "mnuEditOpenCp4"));
    openReport.FYEnd = Date_Of(2000, 9, 30);
    EXPECT_FALSE(Is_On(Menu_State(false), "mnuEditOpenS3p4"));
    openReport.FYEnd = Date_Of(2000, 10, 1);
    EXPECT_TRUE(Is_On(Menu_State(false), "mnuEditOpenS3p4"));
}

TEST(MenuRefreshTest, ListsAreEmptyWithoutCodesAndHospices) {
    const Report r(fy2016);
    const MenuState state = Menu_State(false);
    for (const char* name : kEmptyLists) EXPECT_FALSE(Is_On(state, name)) << name;
}

TEST(MenuRefreshTest, CodesFillTheListOfCPart2) {
    const Report r(fy2000);
    Edit_Worksheets("Cp2m1600", "Make", 7);
    Edit_Worksheets("Cp2c16974", "Make", 7);
    const MenuState state = Menu_State(false);
    EXPECT_TRUE(Is_On(state, "mnuEditOpenCp2"));
    EXPECT_TRUE(Is_On(state, "mnuViewOpenCp2"));
    const MenuListEntry cbsa{"C  Part-2  CBSA-16974 (Cp2c16974)", "Cp2c16974"};
    const MenuListEntry msa{"C  Part-2  MSA-1600 (Cp2m1600)", "Cp2m1600"};
    EXPECT_THAT(state.lists.at("mnuEditOpenCp2x"), ElementsAre(cbsa, msa));
    EXPECT_THAT(state.lists.at("mnuViewOpenCp2x"), ElementsAre(cbsa, msa));
    EXPECT_EQ(Item_In_Caption(cbsa.caption), "Cp2c16974");
}

TEST(MenuRefreshTest, HospiceWorksheetsFillTheirLists) {
    const Report r(fy2016);
    for (const char* item : {"Kh0", "K4p1h0", "Oh0", "O8h0", "S5p1h0"}) Edit_Worksheets(item, "Make", 4);
    const MenuState state = Menu_State(false);
    EXPECT_EQ(state.lists.at("mnuEditKhx").size(), 1U) << "K-4 Part 1 has no edit form";
    EXPECT_EQ(state.lists.at("mnuViewKhx").size(), 2U);
    EXPECT_EQ(state.lists.at("mnuEditOhx").size(), 1U) << "O-8 has no edit form";
    EXPECT_EQ(state.lists.at("mnuViewOhx").size(), 2U);
    EXPECT_THAT(state.lists.at("mnuViewOpenS5pxhx"),
                ElementsAre(MenuListEntry{"S-5  Hospice-0  Part-1 (S5p1h0)", "S5p1h0"}));
    EXPECT_TRUE(Is_On(state, "mnuEditOpenS5"));
}

TEST(MenuRefreshTest, WhileCostCentersAreEditedTheReportsEntriesAreOff) {
    const Report r(fy2016);
    const MenuState state = Menu_State(true);
    EXPECT_FALSE(Is_On(state, "mnuEditOpen"));
    EXPECT_FALSE(Is_On(state, "mnuViewOpenA"));
    EXPECT_TRUE(Is_On(state, "mnuReportExit"));
}

TEST(MenuRefreshTest, ErrorsArePassedOver) {
    Report r(fy2016);
    r.Execute("DROP TABLE Worksheets;");
    const MenuState state = Menu_State(false);
    EXPECT_TRUE(Is_On(state, "mnuReportClose"));
    EXPECT_FALSE(Is_On(state, "mnuEditOpenA"));
}

TEST(MenuRefreshTest, ItemStandsBetweenTheLastParentheses) {
    EXPECT_EQ(Item_In_Caption("A (b) (Kh0)"), "Kh0");
    EXPECT_EQ(Item_In_Caption("A"), "");
}

}  // namespace
}  // namespace tallmar
