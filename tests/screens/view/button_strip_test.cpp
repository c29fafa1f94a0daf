// The buttons of a form in one row, and in a narrow window in two.
#include "screens/view/button_strip.h"

#include "screens/view/view_test.h"

namespace tallmar {

TEST(ButtonStripTest, OneRowInOrderWithTheMeasuresOfTheForm) {
    Report r(fy2016);
    const auto form = Open_View("A", {1200, 500});
    const auto* strip = form->findChild<QWidget*>("picButtons");
    const int inch = strip->logicalDpiX();
    int right = 0;
    for (const char* name : {"cmdRecalculate", "cmdPrint", "cmdOpenEdit", "cmdClose", "cmdPrevious", "cmdNext"}) {
        const QPushButton* button = Button(*form, name);
        EXPECT_EQ(button->y(), Button(*form, "cmdRecalculate")->y()) << name;
        EXPECT_EQ(button->x(), right == 0 ? 240 * inch / 1440 : right + 160 * inch / 1440) << name;
        EXPECT_GE(button->width(), 1210 * inch / 1440) << name;
        EXPECT_GE(button->width(), button->sizeHint().width()) << name;
        right = button->x() + button->width();
    }
}

TEST(ButtonStripTest, ANarrowWindowPutsButtonsOnASecondRow) {
    Report r(fy2016);
    const auto form = Open_View("A", {400, 500});
    const auto* strip = form->findChild<QWidget*>("picButtons");
    const QPushButton* first = Button(*form, "cmdRecalculate");
    const QPushButton* last = Button(*form, "cmdNext");
    EXPECT_GT(last->y(), first->y());
    EXPECT_EQ(Button(*form, "cmdClose")->x(), first->x());
    EXPECT_LE(last->geometry().bottom(), strip->height());
    EXPECT_LE(last->geometry().right(), form->width());
    const int high = strip->height();
    form->resize(1200, 500);
    QApplication::processEvents();
    EXPECT_LT(strip->height(), high);
    EXPECT_EQ(last->y(), first->y());
}

TEST(ButtonStripTest, TheSecondRowComesBelowTheWidthOfTheStrip) {
    QWidget strip;
    QList<QPushButton*> buttons;
    for (int i = 0; i < 3; ++i) buttons << new QPushButton("a", &strip);
    new QLabel("no button", &strip);
    strip.show();
    const int view = 6810 * strip.logicalDpiX() / 1440;
    const int edit = 7620 * strip.logicalDpiX() / 1440;
    EXPECT_EQ(View_Strip_Width(strip), view);
    EXPECT_EQ(Edit_Strip_Width(strip), edit);
    Layout_View_Buttons(strip, view);
    EXPECT_EQ(buttons[2]->y(), buttons[0]->y());
    Layout_View_Buttons(strip, view - 1);
    EXPECT_GT(buttons[2]->y(), buttons[0]->y());
    Layout_Edit_Buttons(strip, edit - 1);
    EXPECT_GT(buttons[2]->y(), buttons[0]->y());
    Layout_Edit_Buttons(strip, edit);
    EXPECT_EQ(buttons[2]->y(), buttons[0]->y());
    // A button that is not shown takes no place.
    buttons[1]->hide();
    Layout_Edit_Buttons(strip, edit);
    EXPECT_LT(buttons[2]->x(), buttons[0]->x() + 2 * buttons[0]->width());
}

}  // namespace tallmar
