#include "screens/cell_place.h"

#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

TEST(CellPlaceTest, ACellIsNamedByItsHeadAndItsLineAsTheFormWritesIt) {
    Report r(fy2016);
    const OpenForm a(kEditA, "A");
    EXPECT_EQ(Cell_Place(a, *a.Find_Column("Col_4"), 23.2_cur),
              "Worksheet A, line 23.20, column 4 Contracted Purchased Services");
    EXPECT_EQ(Cell_Place(a, *a.Find_Column("LineNum"), 5_cur), "Worksheet A, line 5, column Line #");
    EXPECT_EQ(Head_Text(a, *a.Find_Column("Col_10"), 5_cur), "10") << "the edit form has no head for it";
}

TEST(CellPlaceTest, AQuestionnairesColumnHasTheLabelOfItsLine) {
    Report r(fy2016);
    const OpenForm s2(kEditS2, "S2");
    const GridColumn& first = *s2.Find_Column("Col_1");
    EXPECT_EQ(Head_Text(s2, first, 1_cur), "1 Street");
    EXPECT_NE(Head_Text(s2, first, 14_cur), Head_Text(s2, first, 1_cur));
}

TEST(CellPlaceTest, WithoutLinesThePlaceIsTheWorksheet) {
    Report r(fy2016);
    const OpenForm a6(kEditA6pA, "A6pA");
    EXPECT_EQ(Line_Place(a6, {}), "Worksheet A6pA");
}

TEST(CellPlaceTest, EntryNamesAShutCellByItsHead) {
    Report r(fy2016);
    EXPECT_EQ(Enter("A", "1", "1", "5").text,
              "Worksheet A, line 1, column 1 Salaries takes no entry: it is shaded on the form.");
}

}  // namespace tallmar
