#include "common/worksheets.h"

#include <gtest/gtest.h>

namespace tallmar {

namespace {

void Build(const Item&) {}
constexpr WorksheetFamily kFamilies[] = {{"A1", 0, Years::CostLimits, true, Build},
                                         {"A83p1*", 0, Years::CostLimits, true, Build},
                                         {"Kh#", 4, Years::Always, false, Build}};

class WorksheetsTest : public testing::Test {
  protected:
    WorksheetsTest() { Install_Catalogue(kFamilies); }
    ~WorksheetsTest() override { Install_Catalogue({}); }
};

}  // namespace

TEST(YearsTest, TheStartOfTheYearDecidesToTheDay) {
    const Date limitsEnd = Date_Of(2000, 10, 1), s21From = Date_Of(2015, 10, 1);
    EXPECT_TRUE(Year_Has(Years::CostLimits, Date_Of(2000, 9, 30)));
    EXPECT_FALSE(Year_Has(Years::CostLimits, limitsEnd));
    EXPECT_FALSE(Year_Has(Years::FromS21, Date_Of(2015, 9, 30)));
    EXPECT_TRUE(Year_Has(Years::FromS21, s21From));
    for (const Date start : {Date{}, limitsEnd, s21From}) EXPECT_TRUE(Year_Has(Years::Always, start));
}

TEST(YearsTest, OnlyYearsThatWereHaveEnded) {
    EXPECT_FALSE(Have_Ended(Years::CostLimits, Date_Of(2000, 9, 30)));
    EXPECT_TRUE(Have_Ended(Years::CostLimits, Date_Of(2000, 10, 1)));
    EXPECT_FALSE(Have_Ended(Years::FromS21, Date_Of(1999, 10, 1))) << "it is still to come";
    EXPECT_FALSE(Have_Ended(Years::Always, Date_Of(9999, 12, 31)));
}

TEST(StemTest, EndsBeforeTheOpenPlaces) {
    EXPECT_EQ(Stem_Of("A"), "A");
    EXPECT_EQ(Stem_Of("A83p1*"), "A83p1");
    EXPECT_EQ(Stem_Of("Kh#"), "Kh");
    EXPECT_EQ(Stem_Of("S5?2*"), "S5");
}

TEST_F(WorksheetsTest, AFamilyIsFoundByItsItems) {
    EXPECT_EQ(Find_Family("A1"), &kFamilies[0]);
    EXPECT_EQ(Find_Family("A83p1P"), &kFamilies[1]);
    EXPECT_EQ(Find_Family("a1"), nullptr);
    EXPECT_EQ(Find_Family("Kh"), nullptr);
}

TEST_F(WorksheetsTest, ATableMayBeNamedInAnotherCase) {
    EXPECT_EQ(Find_Family_In_Any_Case("a1"), &kFamilies[0]);
    EXPECT_EQ(Find_Family_In_Any_Case("A83P1p"), &kFamilies[1]);
    EXPECT_EQ(Find_Family_In_Any_Case("KH0"), &kFamilies[2]);
    EXPECT_EQ(Find_Family_In_Any_Case("A8"), nullptr);
}

}  // namespace tallmar
