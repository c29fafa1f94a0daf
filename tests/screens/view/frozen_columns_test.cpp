// The columns that stay in sight while the others are scrolled: on the screen, under the mouse and the keys.
#include "screens/view/frozen_columns.h"

#include <QApplication>
#include <QScrollBar>

#include "screens/view/grid_delegate.h"
#include "screens/view/grid_head.h"
#include "screens/view/view_test.h"

namespace tallmar {

namespace {

// Line, group and name take more than their share, line and name do not.
void Leave_Room_For_Line_And_Name(ViewForm& form) {
    const GridView& grd = form.Grid();
    const int share = grd.columnWidth(0) + grd.columnWidth(2) + grd.columnWidth(1) / 2;
    form.resize(form.width() - grd.viewport()->width() + share * 100 / 60, form.height());
    QApplication::processEvents();
}

}  // namespace

TEST(FrozenColumnsTest, LineAndNameStayWhileTheOthersAreScrolled) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    ASSERT_EQ(grd.Frozen().Columns(), (std::vector{0, 1, 2}));
    const QRect name = grd.visualRect(At(*form, 5_cur, "CCName"));
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    EXPECT_EQ(grd.visualRect(At(*form, 5_cur, "CCName")), name);
    EXPECT_EQ(grd.indexAt(name.center()), At(*form, 5_cur, "CCName"));
    // What was scrolled away is not in sight; what is left of a column begins beside them.
    EXPECT_FALSE(grd.visualRect(At(*form, 5_cur, "Col_1")).intersects(grd.viewport()->rect()));
    EXPECT_EQ(grd.indexAt(grd.visualRect(At(*form, 5_cur, "Col_1")).center()), At(*form, 5_cur, "Col_1"));
    const QModelIndex beside = grd.indexAt({grd.Frozen().Width() + 1, name.center().y()});
    EXPECT_GT(beside.column(), form->Model().Column_Of("Col_1"));
    EXPECT_GE(grd.visualRect(beside).left(), grd.Frozen().Width());
}

TEST(FrozenColumnsTest, AreSeenOnTheScreenAndTakeTheMouse) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    QApplication::processEvents();
    const QRect part(0, 0, grd.Frozen().Width() - 1, grd.viewport()->height());
    grd.selectionModel()->clear();
    const QImage before = grd.viewport()->grab(part).toImage();
    const QImage head = grd.Head().viewport()->grab(QRect(0, 0, part.width(), 20)).toImage();
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    EXPECT_EQ(grd.viewport()->grab(part).toImage(), before);
    EXPECT_EQ(grd.Head().viewport()->grab(QRect(0, 0, part.width(), 20)).toImage(), head);

    QTest::mouseClick(grd.viewport(), Qt::LeftButton, {}, grd.visualRect(At(*form, 7_cur, "CCName")).center());
    EXPECT_EQ(grd.currentIndex(), At(*form, 7_cur, "CCName"));
    EXPECT_EQ(grd.horizontalScrollBar()->value(), grd.horizontalScrollBar()->maximum());
}

// Stronger than the lines between cells.
TEST(FrozenColumnsTest, AnEdgeShowsWhereTheOthersGoBeneath) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    const QPoint edge(grd.Frozen().Width() - 1, grd.visualRect(At(*form, 5_cur, "CCName")).center().y());
    const auto seen = [&] { return grd.viewport()->grab().toImage().pixelColor(edge).rgb(); };
    const QColor base = grd.palette().color(QPalette::Base);
    const QColor text = grd.palette().color(QPalette::Text);
    EXPECT_EQ(seen(), Line_Tone(grd.palette()).rgb());
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    EXPECT_EQ(seen(), Mixed(base, text, 60).rgb());
}

TEST(FrozenColumnsTest, TheCursorIsNeverBeneathThem) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    Put_Cursor(*form, 5_cur, "Col_10");
    for (int i = 0; i < 9; ++i) {
        QTest::keyClick(&grd, Qt::Key_Left);
        EXPECT_GE(grd.visualRect(grd.currentIndex()).left(), grd.Frozen().Width()) << i;
        EXPECT_EQ(grd.visualRect(grd.currentIndex()).width(), grd.columnWidth(grd.currentIndex().column())) << i;
    }
    EXPECT_EQ(grd.currentIndex(), At(*form, 5_cur, "Col_1"));
}

TEST(FrozenColumnsTest, ARangeFromBehindThemIsTheColumnsBetween) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    Put_Cursor(*form, 5_cur, "Col_1");
    for (int i = 0; i < 9; ++i) QTest::keyClick(&grd, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GT(grd.horizontalScrollBar()->value(), 0);
    EXPECT_EQ(grd.selectionModel()->selectedIndexes().size(), 10);
    EXPECT_TRUE(grd.selectionModel()->isSelected(At(*form, 5_cur, "Col_1")));
    EXPECT_FALSE(grd.selectionModel()->isSelected(At(*form, 5_cur, "CCName")));
}

TEST(FrozenColumnsTest, InANarrowWindowOnlyAsManyStayAsLeaveRoom) {
    Report r(fy2016);
    const auto form = Open_View("A", {300, 400});
    GridView& grd = form->Grid();
    EXPECT_LT(grd.Frozen().Columns().size(), 3U);
    EXPECT_LE(grd.Frozen().Width() * 10, grd.viewport()->width() * 6);
    // The name scrolls then.
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    EXPECT_LT(grd.visualRect(At(*form, 5_cur, "CCName")).right(), 0);
}

TEST(FrozenColumnsTest, TheGroupGoesBeforeTheName) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    const int line = form->Model().Column_Of("LineNum"), group = form->Model().Column_Of("CCGroup"),
              name = form->Model().Column_Of("CCName");
    Leave_Room_For_Line_And_Name(*form);
    ASSERT_EQ(grd.Frozen().Columns(), (std::vector{line, name}));

    // At first all move together; then the name stays beside the line, and the group is beneath them.
    grd.horizontalScrollBar()->setValue(grd.columnWidth(group) / 2);
    EXPECT_EQ(grd.visualRect(At(*form, 5_cur, "LineNum")).left(), 0);
    EXPECT_EQ(grd.visualRect(At(*form, 5_cur, "CCName")).left(),
              grd.columnWidth(line) + grd.columnWidth(group) - grd.columnWidth(group) / 2);
    const QRect half = grd.visualRect(At(*form, 5_cur, "CCGroup"));
    EXPECT_EQ(half.left(), grd.columnWidth(line));
    EXPECT_EQ(grd.indexAt(half.center()), At(*form, 5_cur, "CCGroup"));
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    const QRect kept = grd.visualRect(At(*form, 5_cur, "CCName"));
    EXPECT_EQ(kept.left(), grd.columnWidth(line));
    EXPECT_EQ(kept.width(), grd.columnWidth(name)) << "whole";
    EXPECT_EQ(grd.indexAt(kept.center()), At(*form, 5_cur, "CCName"));
    EXPECT_FALSE(grd.visualRect(At(*form, 5_cur, "CCGroup")).intersects(grd.viewport()->rect()));

    // Gone to, the group comes back into sight.
    Put_Cursor(*form, 5_cur, "CCGroup");
    EXPECT_EQ(grd.visualRect(At(*form, 5_cur, "CCGroup")).width(), grd.columnWidth(group));
}

TEST(FrozenColumnsTest, HeadsStayWithTheirColumns) {
    Report r(fy2016);
    const auto form = Open_View("A", {700, 400});
    GridView& grd = form->Grid();
    Leave_Room_For_Line_And_Name(*form);
    const auto head_of_name = [&] {
        QApplication::processEvents();
        const QRect name = grd.visualRect(At(*form, 5_cur, "CCName"));
        return grd.Head().viewport()->grab(QRect(name.left(), 0, name.width(), grd.Head().height())).toImage();
    };
    grd.selectionModel()->clear();
    const QImage before = head_of_name();
    grd.horizontalScrollBar()->setValue(grd.horizontalScrollBar()->maximum());
    EXPECT_EQ(head_of_name(), before);
}

}  // namespace tallmar
