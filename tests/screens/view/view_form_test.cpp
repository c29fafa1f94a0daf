// The view form of every worksheet: its grid, record line, buttons and what they ask for.
#include <QLineEdit>
#include <QMenu>

#include "report/registry.h"
#include "screens/cell_batch.h"
#include "screens/view/view_test.h"

namespace tallmar {

TEST(ViewFormTest, EveryWorksheetOpensWithItsRows) {
    for (const FiscalYear& year : {fy1999, fy2000, fy2016}) {
        Report r(year);
        for (const std::string& item : Worksheets_Of_Report()) {
            const auto form = Open_View(item);
            EXPECT_EQ(form->windowTitle().toStdString(), "View Worksheet " + item);
            EXPECT_EQ(form->objectName().toStdString(), Form_Of(FormMode::View, item)->name);
            // The county's line stands above the grid.
            const int above = item == "S3p1" ? 1 : 0;
            EXPECT_EQ(form->Model().rowCount() + above, r.Read("SELECT Count(*) FROM " + item + ";").To_Long()) << item;
            EXPECT_GT(form->Model().columnCount(), 1) << item;
            EXPECT_EQ(form->findChild<QTableView*>("grd"), &form->Grid()) << item;
            EXPECT_FALSE(form->Grid().accessibleName().isEmpty()) << item;
            for (const QPushButton* button : form->findChildren<QPushButton*>()) {
                EXPECT_FALSE(button->accessibleName().isEmpty()) << item;
            }
        }
    }
}

TEST(ViewFormTest, AWorksheetWithoutRowsOpensAnEmptyGrid) {
    Report r(fy2016);
    r.Execute("DELETE FROM A6pA;");
    const auto form = Open_View("A6pA");
    EXPECT_EQ(form->Model().rowCount(), 0);
    EXPECT_EQ(form->findChild<QLabel*>("dat")->text().toStdString(), "Record: 0");
    form->Reload();
    EXPECT_TRUE(form->Grid().Find_All(CellSearch("x")).empty());
    EXPECT_TRUE(form->Grid().Selected_Text().isEmpty());
}

TEST(ViewFormTest, TheRecordLineFollowsTheCursor) {
    Report r(fy2016);
    const auto form = Open_View("A");
    const auto* dat = form->findChild<QLabel*>("dat");
    EXPECT_EQ(dat->text().toStdString(), "Record: 1 (First record)");
    QTest::keyClick(&form->Grid(), Qt::Key_Down);
    EXPECT_EQ(dat->text().toStdString(), "Record: 2");
    QTest::keyClick(&form->Grid(), Qt::Key_End, Qt::ControlModifier);
    const int rows = form->Model().rowCount();
    EXPECT_EQ(dat->text().toStdString(), "Record: " + std::to_string(rows) + " (Last record)");
    EXPECT_EQ(dat->accessibleName(), dat->text());
}

TEST(ViewFormTest, NextAndPreviousEndAtTheOutermostWorksheets) {
    Report r(fy2016);
    const Value first = r.Read("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY ItemName;");
    const Value last = r.Read("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY ItemName DESC;");
    const auto atFirst = Open_View(first.To_Text());
    EXPECT_FALSE(Button(*atFirst, "cmdPrevious")->isEnabled());
    EXPECT_TRUE(Button(*atFirst, "cmdPrevious")->toolTip().isEmpty());
    EXPECT_TRUE(Button(*atFirst, "cmdNext")->isEnabled());
    const auto atLast = Open_View(last.To_Text());
    EXPECT_FALSE(Button(*atLast, "cmdNext")->isEnabled());
    EXPECT_TRUE(Button(*atLast, "cmdPrevious")->isEnabled());
}

TEST(ViewFormTest, NextTellsItsTargetAndAsksForIt) {
    Report r(fy2016);
    const auto form = Open_View("A4");
    EXPECT_EQ(Button(*form, "cmdNext")->toolTip().toStdString(), "Open A-5 For View");
    QSignalSpy asked(form.get(), &WorksheetForm::Open_Requested);
    QTest::mouseClick(Button(*form, "cmdNext"), Qt::LeftButton);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].value<FormMode>(), FormMode::View);
    EXPECT_EQ(asked[0][1].toString().toStdString(), "A5");
}

TEST(ViewFormTest, AWorksheetThatCameIsTheNeighbourAtOnce) {
    Report r(fy2016);
    const auto form = Open_View("A4");
    r.Execute("UPDATE Worksheets SET Calc_Lvl = 999 WHERE Item = 'A5';");
    form->Refresh_Neighbours();
    EXPECT_EQ(Button(*form, "cmdNext")->toolTip().toStdString(), "Open A-6  Part-A For View");
}

TEST(ViewFormTest, OpenEditIsDisabledWhereThereIsNoEditForm) {
    Report r(fy2016);
    EXPECT_FALSE(Button(*Open_View("B"), "cmdOpenEdit")->isEnabled());
    const auto form = Open_View("A");
    QSignalSpy asked(form.get(), &WorksheetForm::Open_Requested);
    Button(*form, "cmdOpenEdit")->click();
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].value<FormMode>(), FormMode::Edit);
    EXPECT_EQ(asked[0][1].toString().toStdString(), "A");
}

TEST(ViewFormTest, RecalculateAsksAndPrintWaits) {
    Report r(fy2016);
    const auto form = Open_View("A");
    QSignalSpy asked(form.get(), &WorksheetForm::Recalculate_Requested);
    Button(*form, "cmdRecalculate")->click();
    EXPECT_EQ(asked.count(), 1);
    EXPECT_FALSE(Button(*form, "cmdPrint")->isEnabled());
    EXPECT_FALSE(Button(*form, "cmdPrint")->toolTip().isEmpty());
}

TEST(ViewFormTest, ReloadKeepsThePlace) {
    Report r(fy2016);
    const auto form = Open_View("A", {500, 300});
    GridView& grd = form->Grid();
    Put_Cursor(*form, 23_cur, "Col_9");
    const int across = grd.horizontalScrollBar()->value();
    const int down = grd.verticalScrollBar()->value();
    ASSERT_GT(across, 0);
    ASSERT_GT(down, 0);
    r.Execute("DELETE FROM A WHERE LineNum = 2;");
    form->Reload();
    EXPECT_EQ(form->Model().Line(grd.currentIndex().row()), 23_cur);
    EXPECT_EQ(form->Model().Column(grd.currentIndex().column()).field, "Col_9");
    EXPECT_EQ(grd.horizontalScrollBar()->value(), across);
    EXPECT_EQ(grd.verticalScrollBar()->value(), down);
}

TEST(ViewFormTest, ReloadTakesColumnsThatCameAndWent) {
    Report r(fy2016);
    const auto form = Open_View("B1");
    ASSERT_GE(form->Model().Column_Of("CC_500"), 0);
    Put_Cursor(*form, 6_cur, "CC_500");
    // Option 1 splits Administrative and General: elsewhere, while the form is open.
    EXPECT_FALSE(Enter_Cell({"S2", "26", "Col_1", "1"}));
    form->Reload();
    EXPECT_EQ(form->Model().Column_Of("CC_500"), -1);
    EXPECT_GE(form->Model().Column_Of("CC_501"), 0);
    EXPECT_EQ(form->Model().Line(form->Grid().currentIndex().row()), 6_cur);
    EXPECT_FALSE(form->grab().isNull());
}

TEST(ViewFormTest, ATableThatIsGoneLeavesWhatWasRead) {
    Report r(fy2016);
    const auto form = Open_View("A4");
    const int rows = form->Model().rowCount();
    db.TableDefs().Delete("A4");
    EXPECT_THROW(form->Reload(), DbError);
    EXPECT_EQ(form->Model().rowCount(), rows);
    EXPECT_FALSE(form->grab().isNull());
}

TEST(ViewFormTest, AccessKeysAreUnique) {
    Report r(fy1999);
    for (const char* item : {"A", "A83p3P"}) {
        const auto form = Open_View(item);
        QString keys;
        for (const QPushButton* button : form->findChildren<QPushButton*>()) {
            const qsizetype at = button->text().indexOf('&');
            if (at < 0) continue;
            const QChar key = button->text()[at + 1].toLower();
            EXPECT_FALSE(keys.contains(key)) << button->text().toStdString();
            keys += key;
        }
        EXPECT_GE(keys.size(), 6);
    }
}

TEST(ViewFormTest, ALineSetIsChosenFromTheButtonList) {
    Report r(fy1999);
    const auto form = Open_View("A83p3P");
    auto* list = form->findChild<QMenu*>("ButtonList");
    ASSERT_NE(list, nullptr);
    auto* button30 = list->findChild<QAction*>("Button30");
    ASSERT_NE(button30, nullptr);
    button30->trigger();
    EXPECT_EQ(form->Model().Line(form->Grid().currentIndex().row()), 30_cur);
    EXPECT_TRUE(form->Grid().selectionModel()->isRowSelected(form->Model().Row_Of(27_cur)));
    EXPECT_FALSE(form->Grid().selectionModel()->isRowSelected(form->Model().Row_Of(28_cur)));
    EXPECT_NE(list->findChild<QAction*>("Button29"), nullptr);
    EXPECT_NE(list->findChild<QAction*>("Button31"), nullptr);
    QMenu* menu = Menu_At_Cursor(form->Grid());
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().contains(button30));
    menu->close();
}

TEST(ViewFormTest, TheCountyStandsAboveTheGrid) {
    Report r(fy2016);
    r.Cell("S3p1", 0, "Description", "Cook");
    const auto form = Open_View("S3p1");
    auto* county = form->findChild<QLineEdit*>("tbCounty");
    ASSERT_NE(county, nullptr);
    EXPECT_EQ(county->text().toStdString(), "Cook");
    EXPECT_TRUE(county->isReadOnly());
    EXPECT_EQ(county->accessibleName().toStdString(), "County");
    EXPECT_NE(form->findChild<QLabel*>("Label1"), nullptr);
    EXPECT_EQ(form->Model().Row_Of(0_cur), -1);
    r.Cell("S3p1", 0, "Description", "Lake");
    form->Reload();
    EXPECT_EQ(county->text().toStdString(), "Lake");
}

TEST(ViewFormTest, BuildingTheColumnsOfB1HasItsOwnLine) {
    Report r(fy2016);
    EXPECT_EQ(Open_View("A")->findChild<QLabel*>("txtCalcMsg"), nullptr);
    const auto form = Open_View("B1");
    const auto* message = form->findChild<QLabel*>("txtCalcMsg");
    ASSERT_NE(message, nullptr);
    bool shown = false;
    QObject::connect(&form->Model(), &QAbstractItemModel::modelReset, [&] { shown = message->isVisible(); });
    EXPECT_TRUE(message->isHidden());
    form->Reload();
    EXPECT_TRUE(shown);
    EXPECT_TRUE(message->isHidden());
}

TEST(ViewFormTest, TheCostCentersAreViewedThoughTheyAreNoWorksheet) {
    Report r(fy2016);
    ViewForm form(kViewCCs, "CCs");
    form.show();
    EXPECT_EQ(form.windowTitle().toStdString(), "View Worksheet CCs");
    EXPECT_EQ(form.Model().rowCount(), r.Read("SELECT Count(*) FROM CostCenters;").To_Long());
    EXPECT_EQ(Text_At(form, 5_cur, "CCName").toStdString(), "Administrative & General");
    EXPECT_FALSE(Button(form, "cmdNext")->isEnabled());
    EXPECT_FALSE(Button(form, "cmdPrevious")->isEnabled());
}

}  // namespace tallmar
