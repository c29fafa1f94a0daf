#include "common/lines.h"

#include <gtest/gtest.h>

#include <array>

namespace tallmar {

namespace {

struct Named {
    LineRange lines;
    char name;
};
constexpr std::array kTable{
    Named{{12.01_cur, 12.14_cur}, 'a'},
    Named{13_cur, 'b'},
    Named{{13_cur, 14_cur}, 'c'},
};
constexpr std::array<FixedRow, 2> kLines{{{1_cur, "Land", ""}, {7_cur, "Sum", "", LineKind::Total}}};

char Name_At(Currency line) {
    const Named* row = Find_Row(kTable, line);
    return row == nullptr ? ' ' : row->name;
}

}  // namespace

TEST(LineRangeTest, BothEndsAreIncluded) {
    EXPECT_FALSE(kTable[0].lines.Has(12_cur));
    EXPECT_TRUE(kTable[0].lines.Has(12.01_cur));
    EXPECT_TRUE(kTable[0].lines.Has(12.14_cur));
    EXPECT_FALSE(kTable[0].lines.Has(12.15_cur));
    EXPECT_TRUE(kTable[1].lines.Has(13_cur));
    EXPECT_FALSE(kTable[1].lines.Has(13.0001_cur));
}

TEST(FindRowTest, TheFirstRowWithTheLineCounts) {
    EXPECT_EQ(Name_At(12.1_cur), 'a');
    EXPECT_EQ(Name_At(13_cur), 'b');
    EXPECT_EQ(Name_At(13.5_cur), 'c');
    EXPECT_EQ(Name_At(15_cur), ' ');
}

TEST(FindRowTest, ARowMayHaveToMeetMore) {
    const Named* row = Find_Row(kTable, 13_cur, [](const Named& r) { return r.name != 'b'; });
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->name, 'c');
    EXPECT_EQ(Find_Row(kTable, 12.1_cur, [](const Named& r) { return r.name == 'c'; }), nullptr);
}

TEST(KindOfTest, ALineThatTheFormDoesNotHaveIsAnEntry) {
    EXPECT_EQ(Kind_Of(kLines, 7_cur), LineKind::Total);
    EXPECT_EQ(Kind_Of(kLines, 1_cur), LineKind::Entry);
    EXPECT_EQ(Kind_Of(kLines, 7.01_cur), LineKind::Entry);
}

}  // namespace tallmar
