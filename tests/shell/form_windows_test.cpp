// Worksheet windows: opened once, brought up, closed after the question, and kept in place.
#include "shell/form_windows.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <set>

#include "shell/shell_test.h"
#include "shell/window_places.h"

namespace tallmar {
namespace {

constexpr const char* kQuestionText =
    "This process requires all forms to be closed.  Pressing OK will close all open forms.";
constexpr int kQuestionButtons = kOkCancel + kQuestion + kDefaultButton2;

class FormWindowsTest : public ShellTest {
  protected:
    static QMdiSubWindow& Window_Of(const WorksheetForm& form) {
        return *qobject_cast<QMdiSubWindow*>(form.parentWidget());
    }
    // What was asked for in the queue of events has come about.
    static void Settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    BoxDriver boxes;
};

TEST_F(FormWindowsTest, ViewOpensWithItsCaption) {
    Make_Report(fy2016);
    const WorksheetForm* form = View("A");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->objectName(), "frmViewA");
    EXPECT_EQ(Window_Of(*form).windowTitle(), "View Worksheet A");
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(main->Forms().Form_Is_Loaded("FRMVIEWA"));
    EXPECT_FALSE(main->Forms().Form_Is_Loaded("frmViewA1"));
}

TEST_F(FormWindowsTest, MenuEntryOpensTheForm) {
    Make_Report(fy2016);
    Entry("mnuViewOpenSp2").trigger();
    EXPECT_NE(main->Forms().Find_Form("Sp2", FormMode::View), nullptr);
    EXPECT_EQ(main->Forms().Find_Form("Sp2", FormMode::Edit), nullptr);
}

TEST_F(FormWindowsTest, OpenFormIsOnlyBroughtUp) {
    Make_Report(fy2016);
    WorksheetForm* a = View("A");
    View("A5");
    ASSERT_NE(main->Forms().Active(), a);
    EXPECT_EQ(View("A"), a);
    EXPECT_EQ(Open_Forms(), 2U);
    EXPECT_EQ(main->Forms().Active(), a);
}

TEST_F(FormWindowsTest, MinimisedFormIsRestored) {
    Make_Report(fy2016);
    WorksheetForm* a = View("A");
    Window_Of(*a).showMinimized();
    View("A");
    EXPECT_FALSE(Window_Of(*a).isMinimized());
    EXPECT_TRUE(a->isVisible());
}

TEST_F(FormWindowsTest, UnknownWorksheetGetsItsBox) {
    Make_Report(fy2016);
    boxes.Expect_Box("Tallmar 1728", "Unknown worksheet requested (Zz) for view");
    View("Zz");
    boxes.Expect_Box("Tallmar 1728", "Unknown worksheet requested (B) for edit");
    main->Forms().Open_Worksheet_Form(FormMode::Edit, "B");
    boxes.Expect_Box("Tallmar 1728", "Unknown worksheet requested (A1) for view");
    View("A1");
    EXPECT_EQ(Open_Forms(), 0U);
}

TEST_F(FormWindowsTest, HeightIsHeldToNineTenthsOfTheMainWindow) {
    Make_Report(fy2016);
    const WorksheetForm* form = View("A");
    EXPECT_LE(Window_Of(*form).height(), main->height() * 9 / 10);
    EXPECT_LE(Window_Of(*form).width(), main->width());
    EXPECT_GT(Window_Of(*form).height(), main->height() / 3);
}

TEST_F(FormWindowsTest, WithoutFormsNothingIsAsked) {
    Make_Report(fy2016);
    EXPECT_FALSE(The_Platform().Close_All_Forms());
}

TEST_F(FormWindowsTest, CancelKeepsAllFormsOpen) {
    Make_Report(fy2016);
    View("A");
    View("A5");
    boxes.Expect_Box("Close form frmViewA", kQuestionText, Answer::Cancel, kQuestionButtons);
    EXPECT_TRUE(The_Platform().Close_All_Forms());
    EXPECT_EQ(Open_Forms(), 2U);
}

TEST_F(FormWindowsTest, OkClosesAllForms) {
    Make_Report(fy2016);
    View("A5");
    View("A");
    boxes.Expect_Box("Close form frmViewA5", kQuestionText, Answer::Ok, kQuestionButtons);
    EXPECT_FALSE(The_Platform().Close_All_Forms());
    EXPECT_EQ(Open_Forms(), 0U);
}

TEST_F(FormWindowsTest, OneFormMayStay) {
    Make_Report(fy2016);
    View("S2");
    EXPECT_FALSE(The_Platform().Close_All_Forms("frmViewS2")) << "nothing but the form that asks is open";
    View("A");
    boxes.Expect_Box("Close form frmViewA", kQuestionText);
    EXPECT_FALSE(The_Platform().Close_All_Forms("frmViewS2"));
    EXPECT_NE(main->Forms().Find_Form("S2", FormMode::View), nullptr);
    EXPECT_EQ(Open_Forms(), 1U);
}

TEST_F(FormWindowsTest, CloseAllViewsAsksFirst) {
    Make_Report(fy2016);
    View("A");
    boxes.Expect_Box("Close form frmViewA", kQuestionText, Answer::Cancel);
    Entry("mnuViewCloseAll").trigger();
    EXPECT_EQ(Open_Forms(), 1U);
    boxes.Expect_Box("Close form frmViewA", kQuestionText, Answer::Ok);
    Entry("mnuViewCloseAll").trigger();
    EXPECT_EQ(Open_Forms(), 0U);
}

TEST_F(FormWindowsTest, CloseAllEditsLeavesTheViews) {
    Make_Report(fy2016);
    View("A");
    Entry("mnuEditClose").trigger();
    EXPECT_EQ(Open_Forms(), 1U);
}

TEST_F(FormWindowsTest, CloseButtonOfTheFormClosesItsWindow) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    QTest::mouseClick(form->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(Open_Forms(), 0U);
    EXPECT_TRUE(main->Area().subWindowList().isEmpty());
}

TEST_F(FormWindowsTest, NextOpensTheNeighbour) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    QTest::mouseClick(form->findChild<QPushButton*>("cmdNext"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(Open_Forms(), 2U);
    EXPECT_NE(main->Forms().Find_Form("A4", FormMode::View), nullptr);
}

TEST_F(FormWindowsTest, WalkClosesTheFormsThatItOpenedItself) {
    main->resize(3000, 2000);  // room for every form at its own size
    Make_Report(fy2016);
    View("A");
    const auto next = [this] {
        QTest::mouseClick(main->Forms().Active()->findChild<QPushButton*>("cmdNext"), Qt::LeftButton);
        Settle();
        return main->Forms().Active();
    };
    const QPoint second = Window_Of(*next()).pos();
    for (int step = 0; step < 6; ++step) next();
    EXPECT_EQ(Open_Forms(), 2U) << "the form that the menu opened, and that which the walk has reached";
    EXPECT_NE(main->Forms().Find_Form("A", FormMode::View), nullptr);
    EXPECT_EQ(Window_Of(*main->Forms().Active()).pos(), second) << "in one place";
}

TEST_F(FormWindowsTest, WalkKeepsAFormThatThePersonMoved) {
    Make_Report(fy2016);
    View("A");
    QTest::mouseClick(main->Forms().Active()->findChild<QPushButton*>("cmdNext"), Qt::LeftButton);
    Settle();
    Window_Of(*main->Forms().Active()).move(5, 90);
    QTest::mouseClick(main->Forms().Active()->findChild<QPushButton*>("cmdNext"), Qt::LeftButton);
    Settle();
    EXPECT_NE(main->Forms().Find_Form("A4", FormMode::View), nullptr);
    EXPECT_EQ(Open_Forms(), 3U);
}

TEST_F(FormWindowsTest, RecalculateOfAViewKeepsItsPosition) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    Window_Of(*form).resize(500, 300);
    Settle();
    const QModelIndex at = form->Model().index(form->Model().rowCount() - 2, form->Model().Column_Of("Col_9"));
    form->Grid().setCurrentIndex(at);
    const int down = form->Grid().verticalScrollBar()->value(), across = form->Grid().horizontalScrollBar()->value();
    ASSERT_GT(down, 0);
    ASSERT_GT(across, 0);
    QTest::mouseClick(form->findChild<QPushButton*>("cmdRecalculate"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(form->Grid().currentIndex(), at);
    EXPECT_EQ(form->Grid().verticalScrollBar()->value(), down);
    EXPECT_EQ(form->Grid().horizontalScrollBar()->value(), across);
}

TEST_F(FormWindowsTest, RecalculateShowsTheNewFiguresAndKeepsTheForm) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    View("A5");
    View("A");
    db.Execute("UPDATE A SET Col_1 = 1200 WHERE LineNum = 5;");
    QTest::mouseClick(form->findChild<QPushButton*>("cmdRecalculate"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(main->focusWidget(), &form->Grid()) << "the keys go on where they were";
    EXPECT_EQ(View("A"), form);
    EXPECT_TRUE(form->isEnabled());
    EXPECT_FALSE(platform.Guard().Is_On());
    const int row = form->Model().Row_Of(5_cur);
    const int column = form->Model().Column_Of("Col_6");
    ASSERT_GE(row, 0);
    EXPECT_EQ(form->Model().index(row, column).data().toString(), "1,200");
}

TEST_F(FormWindowsTest, CalculateOfTheMenuRefreshesAllForms) {
    Make_Report(fy2016);
    const WorksheetForm* form = View("A");
    db.Execute("UPDATE A SET Col_1 = 700 WHERE LineNum = 5;");
    Entry("mnuReportCalculate").trigger();
    EXPECT_TRUE(Entry("mnuReportCalculate").isEnabled());
    const int row = form->Model().Row_Of(5_cur);
    EXPECT_EQ(form->Model().index(row, form->Model().Column_Of("Col_6")).data().toString(), "700");
}

TEST_F(FormWindowsTest, FormOfAWorksheetThatIsGoneGoesToo) {
    Make_Report(fy2016);
    View("A");
    View("F");
    db.Execute("DROP TABLE F;");
    main->Forms().Reload_All();
    EXPECT_EQ(main->Forms().Find_Form("F", FormMode::View), nullptr);
    EXPECT_NE(main->Forms().Find_Form("A", FormMode::View), nullptr);
}

TEST_F(FormWindowsTest, PlaceOfAFormIsRemembered) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    const QRect place(40, 30, 500, 300);
    Window_Of(*form).setGeometry(place);
    Window_Of(*form).close();
    Settle();
    EXPECT_EQ(Window_Of(*View("A")).geometry(), place);
}

TEST_F(FormWindowsTest, SizesOfTileAndCascadeAreNotRemembered) {
    main->resize(1600, 900);
    Make_Report(fy2016);
    const QSize own = Window_Of(*View("F")).size();
    View("A5");
    for (const char* arrange : {"mnuWindowTile", "mnuWindowCascade"}) {
        Entry(arrange).trigger();
        EXPECT_NE(Window_Of(*View("F")).size(), own);
        main->resize(main->size() + QSize(60, 40));  // tiled windows follow
        Settle();
        Window_Of(*View("F")).close();
        Settle();
        EXPECT_FALSE(Remembered_Place("frmViewF").has_value()) << arrange;
        EXPECT_EQ(Window_Of(*View("F")).width(), own.width()) << arrange;
    }
}

TEST_F(FormWindowsTest, SizeThatWasChosenOutlivesTile) {
    Make_Report(fy2016);
    const QRect place(40, 30, 500, 300);
    Window_Of(*View("A")).setGeometry(place);
    Window_Of(*View("A")).close();
    Settle();
    View("A");
    View("A5");
    Entry("mnuWindowTile").trigger();
    Window_Of(*View("A")).close();
    Settle();
    EXPECT_EQ(Window_Of(*View("A")).geometry(), place);
}

TEST_F(FormWindowsTest, FormThatWasOnlyMovedGrowsWithItsRows) {
    Make_Report(fy2016);
    QMdiSubWindow& empty = Window_Of(*View("A4"));
    empty.move(17, 23);
    const int height = empty.height();
    empty.close();
    Settle();
    for (int line = 1; line <= 8; ++line) {
        db.Execute("INSERT INTO A4 (LineNum, Explanation) VALUES (" + std::to_string(line) + ", \"Rent\");");
    }
    const QMdiSubWindow& filled = Window_Of(*View("A4"));
    EXPECT_EQ(filled.pos(), QPoint(17, 23));
    EXPECT_GT(filled.height(), height);
}

TEST_F(FormWindowsTest, FormWidensWithTheZoomWhileThereIsRoom) {
    main->resize(1600, 900);
    Make_Report(fy2016);
    WorksheetForm* form = View("F");
    const int width = Window_Of(*form).width();
    Entry("mnuWindowZoomIn").trigger();
    EXPECT_GT(Window_Of(*form).width(), width);
    EXPECT_EQ(form->Grid().horizontalScrollBar()->maximum(), 0) << "nothing is scrolled away";
    for (int i = 0; i < 15; ++i) Entry("mnuWindowZoomIn").trigger();
    EXPECT_EQ(Window_Of(*form).width(), main->Area().viewport()->width()) << "as far as the window goes";
    Entry("mnuWindowZoomNormal").trigger();
    EXPECT_EQ(Window_Of(*form).width(), width);
    Window_Of(*form).close();
    Settle();
    EXPECT_FALSE(Remembered_Place("frmViewF").has_value()) << "nobody chose that size";
}

TEST_F(FormWindowsTest, WindowThatWasMadeNarrowStaysSoAtEveryZoom) {
    main->resize(1600, 900);
    Make_Report(fy2016);
    WorksheetForm* form = View("A");
    Window_Of(*form).resize(400, 300);
    Entry("mnuWindowZoomIn").trigger();
    EXPECT_EQ(Window_Of(*form).width(), 400);
}

TEST_F(FormWindowsTest, PlaceOutsideTheWindowIsBroughtIn) {
    Make_Report(fy2016);
    Remember_Place("frmViewA", {QPoint(5000, -40), QSize(9000, 300)});
    const WorksheetForm* form = View("A");
    EXPECT_TRUE(main->Area().viewport()->rect().contains(Window_Of(*form).geometry()));
}

TEST_F(FormWindowsTest, ZoomHoldsForAllFormsAndIsRemembered) {
    Make_Report(fy2016);
    const WorksheetForm* a = View("A");
    Entry("mnuWindowZoomIn").trigger();
    EXPECT_EQ(a->Grid().Zoom(), 110);
    EXPECT_EQ(View("A5")->Grid().Zoom(), 110);
    EXPECT_EQ(Remembered_Zoom(), 110);
    Entry("mnuWindowZoomNormal").trigger();
    Entry("mnuWindowZoomOut").trigger();
    EXPECT_EQ(a->Grid().Zoom(), 90);
}

TEST_F(FormWindowsTest, TabsHoldFormsAndTheCaptionStays) {
    Make_Report(fy2016);
    const QString caption = main->windowTitle();
    View("A");
    Entry("mnuWindowTabbed").trigger();
    View("A5");
    Settle();
    EXPECT_EQ(main->Area().viewMode(), QMdiArea::TabbedView);
    EXPECT_EQ(main->windowTitle(), caption);
    EXPECT_TRUE(Tabs_Remembered());
    Entry("mnuWindowTabbed").trigger();
    Settle();
    EXPECT_FALSE(Tabs_Remembered());
    EXPECT_FALSE(Window_Of(*View("A")).isMaximized());
    EXPECT_EQ(main->windowTitle(), caption);
}

TEST_F(FormWindowsTest, AFormThatFillsTheWindowIsNamedAtItsHead) {
    Make_Report(fy2016);
    WorksheetForm* form = View("A4");
    const QLabel* name = main->findChild<QLabel*>("lblForm");
    Settle();
    EXPECT_EQ(name->text(), "");
    Window_Of(*form).showMaximized();
    Settle();
    EXPECT_EQ(name->text(), "View Worksheet A4");
    EXPECT_TRUE(name->isVisible());
    Window_Of(*form).showNormal();
    Settle();
    EXPECT_EQ(name->text(), "");
}

TEST_F(FormWindowsTest, FormEntriesAreOnWhileAFormIsOpen) {
    Make_Report(fy2016);
    EXPECT_FALSE(Entry("mnuEditCopy").isEnabled());
    WorksheetForm* form = View("A");
    EXPECT_TRUE(Entry("mnuEditCopy").isEnabled());
    EXPECT_FALSE(Entry("mnuEditPaste").isEnabled()) << "a view form takes nothing";
    Window_Of(*form).close();
    Settle();
    EXPECT_FALSE(Entry("mnuEditCopy").isEnabled());
}

TEST_F(FormWindowsTest, WindowMenuListsTheForms) {
    Make_Report(fy2016);
    WorksheetForm* a = View("A");
    View("A5");
    QMenu& menu = main->Menus().Menu("mnuWindowList");
    emit menu.aboutToShow();
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions()[0]->text(), "&1 View Worksheet A");
    EXPECT_TRUE(menu.actions()[1]->isChecked());
    menu.actions()[0]->trigger();
    EXPECT_EQ(main->Forms().Active(), a);
}

// The strip's keys and the menu bar's are live at once: a key that both had would open neither.
TEST_F(FormWindowsTest, TheStripsAccessKeysAreTheirsAlone) {
    Make_Report(fy1999);
    for (const FormMode mode : {FormMode::Edit, FormMode::View}) {
        for (const char* item : {"A", "A4", "S3p1"}) {
            main->Forms().Open_Worksheet_Form(mode, item);
            const WorksheetForm* form = main->Forms().Find_Form(item, mode);
            ASSERT_NE(form, nullptr) << item;
            std::set<QKeySequence> keys;
            for (const QAction* menu : main->menuBar()->actions()) keys.insert(QKeySequence::mnemonic(menu->text()));
            keys.erase(QKeySequence());
            for (const QPushButton* button : form->findChildren<QPushButton*>()) {
                if (button->isHidden()) continue;
                const QKeySequence key = button->shortcut();
                EXPECT_TRUE(key.isEmpty() || keys.insert(key).second)
                    << item << " " << button->objectName().toStdString();
            }
        }
    }
}

}  // namespace
}  // namespace tallmar
