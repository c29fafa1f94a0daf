#include "screens/form_columns.h"

#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

TEST(CellPlaceTest, ACellIsNamedByItsHeadAndItsLineAsTheFormWritesIt) {
    Report r(fy2016);
    const OpenForm a(kEditA, "A");
    EXPECT_EQ(a.Cell_Place(*a.Find_Column("Col_4"), 23.2_cur),
              "Worksheet A, line 23.20, column 4 Contracted Purchased Services");
    EXPECT_EQ(a.Cell_Place(*a.Find_Column("LineNum"), 5_cur), "Worksheet A, line 5, column Line #");
    EXPECT_EQ(a.Head_Text(*a.Find_Column("Col_10"), 5_cur), "10") << "the edit form has no head for it";
}

TEST(CellPlaceTest, AQuestionnairesColumnHasTheLabelOfItsLine) {
    Report r(fy2016);
    const OpenForm s2(kEditS2, "S2");
    const GridColumn& first = *s2.Find_Column("Col_1");
    EXPECT_EQ(s2.Head_Text(first, 1_cur), "1 Street");
    EXPECT_NE(s2.Head_Text(first, 14_cur), s2.Head_Text(first, 1_cur));
}

TEST(CellPlaceTest, WithoutLinesThePlaceIsTheWorksheet) {
    Report r(fy2016);
    const OpenForm a6(kEditA6pA, "A6pA");
    EXPECT_EQ(a6.Line_Place({}), "Worksheet A6pA");
}

TEST(CellPlaceTest, EntryNamesALockedCellByItsHead) {
    Report r(fy2016);
    EXPECT_EQ(Text_Of(Enter("A", "1", "1", "5")),
              "Worksheet A, line 1, column 1 Salaries takes no entry: it is shaded on the form.");
}

}  // namespace tallmar
