// Which rows are set apart as totals.
#include "screens/total_rows.h"

#include <gtest/gtest.h>

#include "screens/forms.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

bool Is_Total(const FormDescription& description, const char* item, Currency line) {
    const OpenForm form(description, item);
    const FormRows rows(description, item);
    return Total_Rows(form, rows)[*rows.Find(line)];
}

TEST(TotalRowsTest, ATotalIsSetApartInEditAndView) {
    Report r(fy2016);
    EXPECT_TRUE(Is_Total(kViewA, "A", 29_cur));
    EXPECT_FALSE(Is_Total(kViewA, "A", 5_cur));
    EXPECT_TRUE(Is_Total(kEditS3p1, "S3p1", 8_cur));
    EXPECT_TRUE(Is_Total(kViewS3p1, "S3p1", 8_cur));
}

// Line 12.01 of D Part II, "Total PPS Payment - Full Episodes without Outliers", comes from the remittances.
TEST(TotalRowsTest, WhatAPersonKeysIsNone) {
    Report r(fy2016);
    EXPECT_FALSE(Is_Total(kEditDp2, "Dp2", 12.01_cur));
    EXPECT_FALSE(Is_Total(kViewDp2, "Dp2", 12.01_cur));
}

TEST(TotalRowsTest, WithoutAnEditFormTheNameDecides) {
    Report r(fy2016);
    EXPECT_TRUE(Is_Total(kViewSp2, "Sp2", 4_cur));
    EXPECT_FALSE(Is_Total(kViewSp2, "Sp2", 1_cur));
}

}  // namespace
}  // namespace tallmar
