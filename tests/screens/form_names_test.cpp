// The names of the forms, as the menus, the settings and the rules that close forms go by them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "catalogue.h"
#include "common/worksheets.h"
#include "screens/dispatch.h"
#include "screens/form_description.h"

namespace tallmar {

namespace {

constexpr const char* kEditForms[] = {
    "frmEditA",      "frmEditA1",     "frmEditA2",   "frmEditA3",       "frmEditA4",   "frmEditA5",
    "frmEditA6pA",   "frmEditA6pB",   "frmEditA6pC", "frmEditA7",       "frmEditB1",   "frmEditA83p1x",
    "frmEditA83p4x", "frmEditA83p5x", "frmEditCp3",  "frmEditCp2mxxxx", "frmEditCp4",  "frmEditCp5",
    "frmEditD1",     "frmEditDp1",    "frmEditDp2",  "frmEditF",        "frmEditF1",   "frmEditF2",
    "frmEditS2",     "frmEditS21",    "frmEditS3p1", "frmEditS3p2",     "frmEditS3p3", "frmEditS3p4",
};
constexpr const char* kViewForms[] = {
    "frmViewA",      "frmViewA1",     "frmViewA2",     "frmViewA3",   "frmViewA4",     "frmViewA5",
    "frmViewA6pA",   "frmViewA6pB",   "frmViewA6pC",   "frmViewA7",   "frmViewA83p1x", "frmViewA83p2x",
    "frmViewA83p3x", "frmViewA83p4x", "frmViewA83p5x", "frmViewB",    "frmViewB1",     "frmViewCp1",
    "frmViewCp3",    "frmViewCp4",    "frmViewCp5",    "frmViewD1",   "frmViewDp1",    "frmViewCp2mxxxx",
    "frmViewDp2",    "frmViewF",      "frmViewF1",     "frmViewF2",   "frmViewS2",     "frmViewS21",
    "frmViewS3p1",   "frmViewS3p2",   "frmViewS3p3",   "frmViewS3p4", "frmViewSp2",
};

std::set<std::string> Names(FormMode mode) {
    std::set<std::string> names;
    for (const WorksheetFamily& family : All_Families()) {
        const FormDescription* form = Form_Of(mode, std::string(Stem_Of(family.items)));
        if (form != nullptr) names.emplace(form->name);
    }
    return names;
}

}  // namespace

TEST(FormNamesTest, EveryWorksheetHasItsFormsByTheirNames) {
    EXPECT_THAT(Names(FormMode::Edit), testing::UnorderedElementsAreArray(kEditForms));
    EXPECT_THAT(Names(FormMode::View), testing::UnorderedElementsAreArray(kViewForms));
}

TEST(FormNamesTest, TablesThatAreNoWorksheetsHaveTheirs) {
    ASSERT_NE(Form_Of(FormMode::View, "CCs"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::View, "CCs")->name, "frmViewCCs");
    ASSERT_NE(Form_Of(FormMode::Edit, "HeaderLines"), nullptr);
    EXPECT_EQ(Form_Of(FormMode::Edit, "HeaderLines")->name, "frmHeaderLines");
}

}  // namespace tallmar
