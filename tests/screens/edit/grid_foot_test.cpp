// The sums at the foot of an edit form, and the menu of the right button.
#include "screens/edit/grid_foot.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

std::string Sum(const Screen& screen, int sum, const ColumnRef& column) {
    const auto* foot = screen.form.findChild<GridFoot*>();
    return foot == nullptr ? "no foot" : foot->Sum_Text(sum, screen.form.Model().Column_Of(column.name)).toStdString();
}

QMenu* Menu_At_Cursor(EditGrid& grd) {
    const QPoint at = grd.visualRect(grd.currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, grd.viewport()->mapToGlobal(at));
    QApplication::sendEvent(grd.viewport(), &event);
    return grd.findChild<QMenu*>("mnuGrid");
}

}  // namespace

TEST(GridFootTest, AddsUpTheColumnsAsOneKeys) {
    Report r(fy2016);
    r.Cell("A", 29, 1, 77_cur);
    Screen s("A");
    EXPECT_EQ(Sum(s, 0, 1), "0");
    s.At(6, 1);
    s.Type("1200\t");
    EXPECT_EQ(Sum(s, 0, 1), "1,200") << "before the row is stored";
    s.At(7, 1);
    s.Type("(1500)\t");
    EXPECT_EQ(Sum(s, 0, 1), "(300)");
    EXPECT_EQ(Sum(s, 0, 2), "0");
    EXPECT_EQ(Sum(s, 0, "CCName"), "");
    s.form.Undo();
    EXPECT_EQ(Sum(s, 0, 1), "1,200");
}

TEST(GridFootTest, WorksheetFTakesAllowancesAndDepreciationOff) {
    Report r(fy2016);
    Screen s("F");
    r.Cell("F", 1, 1, 1000_cur);
    r.Cell("F", 6, 1, 50_cur);
    r.Cell("F", 12, 1, 300_cur);
    r.Cell("F", 14, 1, 100_cur);
    r.Cell("F", 34, 1, 400_cur);
    r.Cell("F", 51, 1, 750_cur);
    s.form.Reload();
    EXPECT_EQ(Sum(s, 0, 1), "1,150");
    EXPECT_EQ(Sum(s, 1, 1), "1,150");
    EXPECT_EQ(Sum(s, 1, 2), "0");
    r.Calc();
    EXPECT_CELL("F", 33, 1, 1150_cur);
}

TEST(GridFootTest, OnB1AColumnsOwnLineIsItsTotalAndNotAddedIn) {
    Report r(fy2016);
    Screen s("B1");
    r.Cell("B1", 1, "CC_100", 999.0);
    r.Cell("B1", 6, "CC_100", 40.0);
    r.Cell("B1", 7, "CC_100", 2.0);
    s.form.Reload();
    EXPECT_EQ(Sum(s, 0, "CC_100"), "42");
}

TEST(GridFootTest, IsRightBelowTheGrid) {
    Report r(fy2016);
    Screen s("A");
    const auto* foot = s.form.findChild<GridFoot*>();
    ASSERT_NE(foot, nullptr);
    EXPECT_EQ(foot->y(), s.grd.y() + s.grd.height());
    EXPECT_GT(foot->height(), QFontMetrics(s.grd.font()).height());
    EXPECT_FALSE(foot->accessibleDescription().isEmpty());
    Screen noFoot("S2");
    EXPECT_EQ(noFoot.form.findChild<GridFoot*>(), nullptr);
}

TEST(EditMenuTest, OffersWhatTheCellTakes) {
    Report r(fy2016);
    Screen s("A");
    QApplication::clipboard()->setText("1200");
    s.At(6, 1);
    QMenu* menu = Menu_At_Cursor(s.grd);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->findChild<QAction*>("mnuGridList"), nullptr);
    EXPECT_FALSE(menu->findChild<QAction*>("mnuGridUndo")->isEnabled());
    menu->findChild<QAction*>("mnuGridPaste")->trigger();
    menu->close();
    EXPECT_CELL("A", 6, 1, 1200_cur);
    QApplication::processEvents();
    menu = Menu_At_Cursor(s.grd);
    menu->findChild<QAction*>("mnuGridUndo")->trigger();
    menu->close();
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EditMenuTest, OpensTheListOfACell) {
    Report r(fy2016);
    Screen s("S2");
    s.At(14, 1);
    QMenu* menu = Menu_At_Cursor(s.grd);
    ASSERT_NE(menu, nullptr);
    ASSERT_NE(menu->findChild<QAction*>("mnuGridList"), nullptr);
    menu->close();
    menu->findChild<QAction*>("mnuGridList")->trigger();
    EXPECT_NE(s.grd.Choices(), nullptr);
}

TEST(ShadeTest, LabelsAreLightAndEntriesWhite) {
    Report r(fy2016);
    Screen s("A");
    const auto is = [&](const LineRef& line, const ColumnRef& column, int role) {
        return s.Index(line, column).data(role).toBool();
    };
    EXPECT_TRUE(is(6, "LineNum", kLabelRole));
    EXPECT_TRUE(is(6, "CCGroup", kLabelRole));
    EXPECT_FALSE(is(6, "CCGroup", kShadedRole));
    EXPECT_FALSE(is(6, 1, kLabelRole));
    EXPECT_FALSE(is(6, 1, kShadedRole));
    EXPECT_TRUE(is(1, 1, kShadedRole));
    EXPECT_FALSE(is(1, 1, kLabelRole));
}

}  // namespace tallmar
