// What a few typed characters find.
#include "shell/worksheet_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "report/registry.h"
#include "shell/menu_refresh.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

using testing::ElementsAre;

std::vector<std::string> Found(std::string_view text) {
    std::vector<std::string> items;
    for (const FoundWorksheet& worksheet : Find_Worksheets(Worksheets_To_Open(Menu_State(false)), text)) {
        items.push_back(worksheet.item);
    }
    return items;
}

TEST(WorksheetSearchTest, NameIsFoundHoweverItIsTyped) {
    const Report r(fy2016);
    for (const char* text : {"a4", "A-4", " a 4 "}) EXPECT_THAT(Found(text), ElementsAre("A4")) << text;
    EXPECT_THAT(Found("s3"), ElementsAre("S3p1", "S3p2", "S3p3", "S3p4"));
    for (const char* text : {"s-3 part-4", "s3p4", "s3-4", "S34"})
        EXPECT_THAT(Found(text), ElementsAre("S3p4")) << text;
}

TEST(WorksheetSearchTest, WholeNameComesBeforeItsBeginnings) {
    const Report r(fy2016);
    EXPECT_EQ(Found("a").front(), "A");
    EXPECT_THAT(Found("f"), testing::Contains("F2"));
    EXPECT_EQ(Found("s2").front(), "S2");
    EXPECT_EQ(Found("s21").front(), "S21");
    EXPECT_THAT(Found("d-1"), ElementsAre("D1", "Dp1")) << "D-1 before D Part-1";
}

TEST(WorksheetSearchTest, WordOfATitleIsFound) {
    const Report r(fy2016);
    EXPECT_THAT(Found("settlement"), ElementsAre("Dp2", "Sp2"));
    EXPECT_THAT(Found("no such worksheet"), ElementsAre());
}

TEST(WorksheetSearchTest, OnlyWhatTheMenusOfferIsFound) {
    EXPECT_THAT(Found(""), ElementsAre());
    const Report r(fy2016);
    EXPECT_THAT(Found("a1"), ElementsAre()) << "of another year";
    Edit_Worksheets("Cp2m1600", "Make", 7);
    EXPECT_THAT(Found("1600"), ElementsAre());
    EXPECT_THAT(Found("c2"), ElementsAre("Cp2m1600"));
    const std::vector<FoundWorksheet> all = Worksheets_To_Open(Menu_State(false));
    const auto has_edit = [&](const char* item) {
        return std::ranges::find(all, item, &FoundWorksheet::item)->hasEdit;
    };
    EXPECT_TRUE(has_edit("A"));
    EXPECT_TRUE(has_edit("Cp2m1600"));
    EXPECT_FALSE(has_edit("B"));
    EXPECT_FALSE(has_edit("Cp4")) << "no entries in this year";
}

}  // namespace
}  // namespace tallmar
