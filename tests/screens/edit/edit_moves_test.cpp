// The cursor goes from entry to entry.
#include <algorithm>
#include <vector>

#include "screens/edit/edit_test.h"

namespace tallmar {

TEST(EditMoves, TabGoesOverTheEndOfARowToTheNextAmountAndBack) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 5);
    a.Type("9");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "7 Col_1");
    EXPECT_CELL("A", 6, 5, 9_cur);
    a.Type("1118400");
    a.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "6 Col_5");
    EXPECT_CELL("A", 7, 1, 1118400_cur);
}

TEST(EditMoves, EnterAfterARunOfTabsGoesBackToItsFirstColumnOneRowLower) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 2);
    for (const char* amount : {"1", "2", "3"}) {
        a.Type(amount);
        a.Press(Qt::Key_Tab);
    }
    EXPECT_EQ(a.Cursor(), "6 Col_5");
    a.Type("4");
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "7 Col_2");
    EXPECT_CELL("A", 6, 5, 4_cur);
    // The run is over.
    a.Press(Qt::Key_Right);
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "8 Col_3");
    // So it is where the cursor was moved by another key.
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Up);
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "8 Col_4");
}

TEST(EditMoves, ARunThatGoesOverTheEndOfARowBeginsAnewThere) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 4);
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.Cursor(), "7 Col_2");
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "8 Col_1");
}

// While a row is stored the form has no row under edit for a moment, and whoever hears of the change may ask for cells.
TEST(EditMoves, TheCellsOfARowThatWasStoredWithoutLeavingItStayOpen) {
    Report r(fy2016);
    Screen a("A");
    a.At(23.2, 5);
    std::vector<bool> asked;
    QObject::connect(&a.form.Model(), &QAbstractItemModel::dataChanged, &a.form,
                     [&] { asked.push_back(a.Index(23.2, 1).data(kShadedRole).toBool()); });
    a.Type("7");
    a.Press(Qt::Key_Return);
    EXPECT_CELL("A", 23.2, 5, 7_cur);
    EXPECT_FALSE(asked.empty());
    EXPECT_EQ(std::ranges::count(asked, true), 0);
    EXPECT_FALSE(a.Index(23.2, 1).data(kShadedRole).toBool());
}

TEST(EditMoves, EnterPassesCellsThatTakeNothing) {
    Report r(fy2016);
    Screen s("S2");
    s.At(12, 1);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Cursor(), "14 Col_1") << "line 13 is computed";
    s.Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(s.Cursor(), "12 Col_1");
}

TEST(EditMoves, EnterBelowTheLastEntryOfAColumnGoesToTheNearestOne) {
    Report r(fy2016);
    Screen f("F2");
    f.At(1, 4);
    f.Press(Qt::Key_Return);
    EXPECT_EQ(f.Cursor(), "4 Col_3");
}

// What is typed goes into the cell that is marked.
TEST(EditMoves, ControlWithHomeEndAndArrowsMovesTheVisibleCursorToEntries) {
    Report r(fy2016);
    Screen a("A");
    const auto move = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        a.Press(key, modifiers);
        EXPECT_EQ(a.grd.selectionModel()->selectedIndexes(), QModelIndexList{a.grd.currentIndex()});
        return a.Cursor();
    };
    a.At(6, 3);
    EXPECT_EQ(move(Qt::Key_Home, {}), "6 Col_1");
    EXPECT_EQ(move(Qt::Key_End, {}), "6 Col_5");
    EXPECT_EQ(move(Qt::Key_Left, Qt::ControlModifier), "6 Col_1");
    EXPECT_EQ(move(Qt::Key_Right, Qt::ControlModifier), "6 Col_5");
    EXPECT_EQ(move(Qt::Key_Home, Qt::ControlModifier), "1 Col_3");
    const std::string last = move(Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(last.ends_with(" Col_5")) << last;
    EXPECT_EQ(a.grd.currentIndex().row(), a.form.Model().rowCount() - 1);
    EXPECT_EQ(move(Qt::Key_Up, Qt::ControlModifier), "1 Col_5");
    EXPECT_EQ(move(Qt::Key_Down, Qt::ControlModifier), last);
    a.At(6, 1);
    EXPECT_EQ(move(Qt::Key_Up, Qt::ControlModifier), "3 Col_1") << "the capital lines have no salaries";
}

TEST(EditMoves, ShiftExtendsTheSelectionToTheEdge) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 2);
    a.Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "6 Col_5");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes().size(), 4);
}

TEST(EditMoves, AnEmptyWorksheetTakesTheFirstKeyIntoANewLine) {
    Report r(fy2016);
    r.Execute("DELETE FROM A4;");
    Screen s("A4");
    ASSERT_EQ(s.form.Model().rowCount(), 0);
    s.Type("Postage");
    ASSERT_EQ(s.form.Model().rowCount(), 1);
    EXPECT_EQ(s.Cursor(), "1 Explanation");
    s.Press(Qt::Key_Tab);
    EXPECT_EQ(s.Shown(1, "Explanation"), "Postage");
}

// Lines 7 and 8 are asked where line 6 is answered with yes.
TEST(EditMoves, EnterAndTabGoIntoTheLineThatTheAnswerOpens) {
    Report r(fy2016);
    Screen s("S21");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
        s.At(6, 1);
        s.Type("y");
        s.Press(key);
        EXPECT_EQ(s.Cursor(), "7 Col_1");
        s.At(6, 1);
        s.Type("n");
        s.Press(key);
        EXPECT_EQ(s.Cursor(), "9 Col_1");
    }
}

TEST(EditMoves, AddPutsTheCursorIntoTheFirstCellToFill) {
    Report r(fy2016);
    Screen a("A4");
    a.Button("cmdAdd")->click();
    EXPECT_EQ(a.Cursor(), "1 Explanation");
    a.At(1, 4);
    a.Button("cmdAdd")->click();
    EXPECT_EQ(a.Cursor(), "2 Explanation");
}

TEST(EditMoves, EnterOnTheLastRowStoresItAndTheNextEnterAddsOne) {
    Report r(fy2016);
    r.Execute("DELETE FROM A4;");
    Screen s("A4");
    s.Type("Postage");
    s.Press(Qt::Key_Return);
    EXPECT_CELL("A4", 1, "Explanation", "Postage");
    ASSERT_EQ(s.told.back(), "Worksheet A4, line 1: 1 cell stored. Press Enter again to add a line.");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.form.Model().rowCount(), 2);
    EXPECT_EQ(s.Cursor(), "2 Explanation");
    // Another key between the two takes the offer back.
    s.Press(Qt::Key_Return);
    s.Press(Qt::Key_Home);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.form.Model().rowCount(), 2);
}

}  // namespace tallmar
