// Which rows are set apart as totals.
#include "screens/total_rows.h"

#include <gtest/gtest.h>

#include "report/registry.h"
#include "screens/entry_test.h"
#include "screens/open_form.h"
#include "screens/worksheet_forms.h"

namespace tallmar {
namespace {

// The lines of the totals that a form shows, joined by blanks.
std::string Totals(FormMode mode, const Item& item) {
    const FormRows rows(*Form_Of(mode, item), item);
    const std::vector<bool> totals = Total_Rows(item, rows);
    std::string lines;
    for (std::size_t i = 0; i < totals.size(); ++i) {
        if (totals[i]) lines += (lines.empty() ? "" : " ") + rows.Line(i).To_Text();
    }
    return lines;
}

struct Expected {
    ItemPattern items;
    std::string_view totals;
};
constexpr Expected kViews[] = {
    {"A", "29"},
    {"A1", "29"},
    {"A2", "29"},
    {"A3", "29"},
    {"A4", "30"},
    {"A5", "21"},
    {"A6pB", "4"},
    {"A7", "7"},
    {"A83p2?", "15 17 20"},
    {"A83p3?", "23 27"},
    {"A83p4?", "34"},
    {"A83p5?", "47"},
    {"B", "29"},
    {"B1", "29"},
    {"Cp1", "7"},
    {"Cp2*", "7 14"},
    {"Cp4", "17 19 20 22"},
    {"Cp5", "28"},
    {"D1", "3.99 4"},
    {"Dp1", "8"},
    {"Dp2", "12 14 16 21 25 28"},
    {"F", "11 27 32 33 42 49 50 58 59"},
    {"F1", "32"},
    {"F2", "3 9 10 16"},
    {"S3p1", "8"},
    {"S3p4", "42 44"},
    {"Sp2", "4"},
};

std::string_view Expected_Totals(const std::string& item) {
    for (const Expected& row : kViews) {
        if (row.items.Matches(item)) return row.totals;
    }
    return "";
}

// Forms to edit leave their totals out, but that of the visits.
std::string_view Expected_Keyed(const std::string& item) {
    return item == "S3p1" ? "8" : "";
}

TEST(TotalRowsTest, EveryFormSetsItsTotalsApart) {
    for (const FiscalYear& year : {fy1999, fy2000, fy2016}) {
        const Report r(year);
        EXPECT_FALSE(Enter("S3p3", "29", "1", "1600"));
        for (const std::string& item : Read_Items("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900;")) {
            EXPECT_EQ(Totals(FormMode::View, item), Expected_Totals(item)) << item;
            if (Form_Of(FormMode::Edit, item) == nullptr) continue;
            EXPECT_EQ(Totals(FormMode::Edit, item), Expected_Keyed(item)) << item;
        }
    }
}

TEST(TotalRowsTest, ALineThatAPersonCallsTotalIsNone) {
    const Report r(fy2016);
    EXPECT_FALSE(Enter("F1", "6", "Description", "Total of other costs"));
    EXPECT_EQ(Totals(FormMode::View, "F1"), "32");
}

TEST(TotalRowsTest, ATableThatIsNoWorksheetHasNone) {
    const Report r(fy2016);
    EXPECT_EQ(Totals(FormMode::View, "CCs"), "");
}

}  // namespace
}  // namespace tallmar
