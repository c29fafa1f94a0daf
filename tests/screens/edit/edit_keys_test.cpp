// The keys of the grid, as spreadsheets have them.
#include "screens/edit/edit_test.h"

namespace tallmar {

TEST(EditKeys, TypingReplacesAndEnterGoesDown) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 77_cur);
    Screen a("A");
    a.At(6, 1);
    a.Type("1200");
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_EQ(a.Editor()->text(), "1200");
    EXPECT_CELL("A", 6, 1, 77_cur) << "under the editor";
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Editor(), nullptr);
    EXPECT_EQ(a.Cursor(), "7 Col_1");
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_EQ(a.told, std::vector<std::string>{"Worksheet A, line 6: 1 cell stored."});
    a.Type("5");
    a.Press(Qt::Key_Enter, Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_CELL("A", 7, 1, 5_cur);
}

TEST(EditKeys, TabGoesOnWithinTheRowWithoutStoringIt) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("10");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "6 Col_2");
    a.Type("20");
    a.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_EQ(a.Shown(6, 1), "10");
    EXPECT_EQ(a.Shown(6, 2), "20");
    EXPECT_CELL("A", 6, 1, 0_cur) << "the cursor is still in the row";
    a.At(7, 1);
    EXPECT_CELL("A", 6, 1, 10_cur);
    EXPECT_CELL("A", 6, 2, 20_cur);
    EXPECT_EQ(a.told, std::vector<std::string>{"Worksheet A, line 6: 2 cells stored."});
}

TEST(EditKeys, TabPassesCellsThatTakeNothingAndGoesToTheNextRow) {
    Report r(fy2016);
    Screen a("A");
    a.At(1, "CCName");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "1 Col_3") << "capital lines have no salaries, and names are passed by";
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "1 Col_5");
    a.Type("9");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "2 Col_3");
    EXPECT_CELL("A", 1, 5, 9_cur);
    a.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "1 Col_5");
}

TEST(EditKeys, TabBehindTheLastCellStoresTheRowAndGoesToTheButtons) {
    Report r(fy2016);
    Screen a("A7");
    a.At(6, 5);
    a.Type("4");
    a.Press(Qt::Key_Tab);
    EXPECT_CELL("A7", 6, 5, 4_cur);
    EXPECT_FALSE(a.grd.hasFocus());
}

TEST(EditKeys, ArrowsLeaveACellThatWasTypedInto) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 2);
    a.Type("3");
    a.Press(Qt::Key_Right);
    EXPECT_EQ(a.Cursor(), "6 Col_3");
    a.Type("4");
    a.Press(Qt::Key_Down);
    EXPECT_EQ(a.Cursor(), "7 Col_3");
    EXPECT_CELL("A", 6, 2, 3_cur);
    EXPECT_CELL("A", 6, 3, 4_cur);
}

TEST(EditKeys, ArrowsMoveInTheTextThatF2Opens) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 1234_cur);
    Screen a("A");
    a.At(6, 1);
    a.Press(Qt::Key_F2);
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_EQ(a.Editor()->text(), "1234");
    a.Press(Qt::Key_Left);
    a.Press(Qt::Key_Up);
    a.Type("5");
    EXPECT_EQ(a.Editor()->text(), "12354");
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    a.Press(Qt::Key_Return);
    EXPECT_CELL("A", 6, 1, 12354_cur);
}

TEST(EditKeys, F2TurnsTypingIntoEditing) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("12");
    a.Press(Qt::Key_F2);
    a.Press(Qt::Key_Left);
    a.Type("9");
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_EQ(a.Editor()->text(), "192");
}

TEST(EditKeys, ADoubleClickEdits) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 12_cur);
    Screen a("A");
    a.Click(6, 1);
    QTest::mouseDClick(a.grd.viewport(), Qt::LeftButton, {}, a.grd.visualRect(a.Index(6, 1)).center());
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_EQ(a.Editor()->text(), "12");
}

TEST(EditKeys, EscTakesBackTheCellAndThenTheRow) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("10");
    a.Press(Qt::Key_Tab);
    a.Type("20");
    a.Press(Qt::Key_Escape);
    EXPECT_EQ(a.Editor(), nullptr);
    EXPECT_EQ(a.Shown(6, 2), "0");
    EXPECT_EQ(a.Shown(6, 1), "10");
    a.Press(Qt::Key_Escape);
    EXPECT_EQ(a.Shown(6, 1), "0");
    a.At(7, 1);
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EditKeys, DeleteClearsACellAndASelection) {
    Report r(fy2016);
    for (const int line : {6, 7}) {
        for (const int column : {1, 2}) r.Cell("A", line, column, 5_cur);
    }
    Screen a("A");
    a.At(6, 1);
    a.Press(Qt::Key_Delete);
    EXPECT_EQ(a.Shown(6, 1), "0");
    EXPECT_CELL("A", 6, 1, 5_cur) << "until the row is left";
    a.Press(Qt::Key_Right);
    a.Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_CELL("A", 6, 1, 0_cur);
    a.Press(Qt::Key_Delete);
    EXPECT_CELL("A", 6, 2, 0_cur);
    EXPECT_CELL("A", 7, 2, 0_cur);
    EXPECT_CELL("A", 7, 1, 5_cur);
    a.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_CELL("A", 6, 2, 5_cur);
    EXPECT_CELL("A", 7, 2, 5_cur);
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EditKeys, BackspaceBeginsAnEmptyEntry) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 5_cur);
    Screen a("A");
    a.At(6, 1);
    a.Press(Qt::Key_Backspace);
    ASSERT_NE(a.Editor(), nullptr);
    a.Press(Qt::Key_Return);
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EditKeys, LookingAtACellChangesNothing) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Press(Qt::Key_F2);
    a.Press(Qt::Key_Return);
    EXPECT_FALSE(a.form.Can_Undo());
    EXPECT_EQ(a.changes, 0);
    EXPECT_TRUE(a.told.empty());
}

TEST(EditKeys, ALockedCellTellsWhyAndOpensNoEditor) {
    Report r(fy2016);
    Screen a("A");
    a.At(1, 1);
    a.Type("5");
    EXPECT_EQ(a.Editor(), nullptr);
    a.Press(Qt::Key_F2);
    EXPECT_EQ(a.Editor(), nullptr);
    a.Press(Qt::Key_Delete);
    ASSERT_EQ(a.told.size(), 3U);
    for (const std::string& told : a.told) {
        EXPECT_EQ(told, "Worksheet A, line 1, column 1 Salaries takes no entry: it is shaded on the form.");
    }
    a.At(6, 1);
    EXPECT_CELL("A", 1, 1, Null);
    EXPECT_EQ(a.changes, 0);
}

TEST(EditKeys, EnterOnTheLastRowStoresIt) {
    Report r(fy2016);
    Screen a("A7");
    a.At(6, 1);
    a.Type("4");
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_CELL("A7", 6, 1, 4_cur);
}

TEST(EditKeys, NamesInTheFrozenColumnsAreEdited) {
    Report r(fy2016);
    Screen a("A");
    a.form.resize(500, 500);
    a.At(6, 5);
    a.Press(Qt::Key_Home);
    a.At(6, "CCName");
    a.Press(Qt::Key_F2);
    ASSERT_NE(a.Editor(), nullptr);
    a.Press(Qt::Key_A, Qt::ControlModifier);
    a.Type("Nursing");
    EXPECT_TRUE(a.grd.viewport()->rect().contains(a.Editor()->geometry().center()));
    a.Press(Qt::Key_Return);
    EXPECT_CELL("A", 6, "CCName", "Nursing");
}

TEST(EditKeys, TheEditorStaysInSightWhenTheWindowShrinks) {
    Report r(fy2016);
    Screen a("A");
    a.At(22, 5);
    a.Type("7");
    a.form.resize(450, 400);
    QTest::qWait(20);
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_TRUE(a.grd.viewport()->rect().contains(a.Editor()->geometry()));
    EXPECT_EQ(a.Editor()->text(), "7");
}

TEST(EditKeys, TheFirstChangeIsToldOnceARow) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("10");
    a.Press(Qt::Key_Tab);
    a.Type("20");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.changes, 1);
    a.Press(Qt::Key_Down);
    a.Type("30");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.changes, 2) << "a view may have been opened since the row was stored";
}

}  // namespace tallmar
