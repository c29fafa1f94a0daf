#include "screens/cell_search.h"

#include <algorithm>

#include "screens/entry_test.h"

namespace tallmar {

namespace {

bool Finds(std::string_view typed, std::string_view shown, const Value& value) {
    return CellSearch(typed).Matches(shown, value);
}

}  // namespace

TEST(CellSearchTest, AmountsAreComparedAsNumbers) {
    for (const char* typed : {"402600", "402,600", "$402,600.00", "4026", "402600.0"}) {
        EXPECT_TRUE(Finds(typed, "402,600", 402600_cur)) << typed;
    }
    for (const char* typed : {"-3180", "-3,180", "(3,180)", "3180-", "3,180",
                              "\u2212"
                              "3180"}) {
        EXPECT_TRUE(Finds(typed, "(3,180)", -3180_cur)) << typed;
    }
    EXPECT_TRUE(Finds("0.5", "0.500000", 0.5));
    EXPECT_FALSE(Finds("3180", "(3,180)", -3180_cur)) << "another amount";
    EXPECT_FALSE(Finds("02600", "402,600", 402600_cur)) << "not its beginning";
    EXPECT_FALSE(Finds("402601", "402,600", 402600_cur));
    EXPECT_FALSE(Finds("-", "0", 0_cur)) << "a dash is text here";
}

TEST(CellSearchTest, TextsAreFoundWithoutRegardToCase) {
    EXPECT_TRUE(Finds("therapy", "Physical Therapy", "Physical Therapy"));
    EXPECT_TRUE(Finds("0100", "0100", 100));
    EXPECT_FALSE(Finds("therapy", "", Null));
    EXPECT_FALSE(Finds("", "x", "x"));
    EXPECT_FALSE(Finds("100", "12/30/1899", Date{100})) << "a date is no amount";
    EXPECT_FALSE(Finds("118400.00", "118400", "118400")) << "a text is not computed with";
}

TEST(CellSearchTest, FindsCellsOfAFormAsItShowsThem) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 402600_cur);
    r.Cell("A", 7, 2, 402600_cur);
    r.Cell("A", 7, 6, 402600_cur);
    const std::vector<FoundCell> edit = Find_In_Form(FormMode::Edit, "A", CellSearch("402600"));
    ASSERT_EQ(edit.size(), 2U) << "the edit form does not show column 6";
    EXPECT_EQ(edit[0].field, "Col_1");
    EXPECT_EQ(edit[1].field, "Col_2");
    EXPECT_EQ(edit[1].row, edit[0].row + 1);
    EXPECT_EQ(Find_In_Form(FormMode::View, "A", CellSearch("402600")).size(), 3U);
    EXPECT_TRUE(Find_In_Form(FormMode::Edit, "B", CellSearch("402600")).empty()) << "there is no such form";
}

TEST(CellSearchTest, WorksheetsWithoutAnEditFormAreSearchedInTheirView) {
    Report r(fy2016);
    const std::vector<SearchedForm> forms = Searched_Forms(FormMode::Edit);
    const auto mode_of = [&](const char* item) {
        const auto found = std::ranges::find(forms, item, &SearchedForm::item);
        return found == forms.end() ? "none" : found->mode == FormMode::Edit ? "edit" : "view";
    };
    EXPECT_STREQ(mode_of("A"), "edit");
    EXPECT_STREQ(mode_of("B"), "view");
    EXPECT_STREQ(mode_of("A1"), "none");
}

}  // namespace tallmar
