// A search of all worksheets goes from form to form.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "screens/view/find_bar.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"

namespace tallmar {

namespace {

void Find(const WorksheetForm& form, const char* text) {
    form.findChild<QCheckBox*>("chkEverywhere")->setChecked(true);
    auto* entry = form.findChild<QLineEdit*>("txtFind");
    entry->clear();
    QTest::keyClicks(entry, text);
}

std::string Found(const WorksheetForm& form) {
    return Plain_Text(form.findChild<QLabel*>("lblFound")->text());
}

TEST(FindEverywhere, EnterGoesToTheCellInItsForm) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "402600");
    desk.Edit("F");
    desk.Key(2, 1, "402600");
    desk.Push("cmdClose");
    WorksheetForm& a5 = desk.Edit("A5");
    a5.Open_Find();
    Find(a5, "402600");
    EXPECT_EQ(Found(a5), "2 in other worksheets; Enter goes there.");
    QTest::keyClick(a5.findChild<QLineEdit*>("txtFind"), Qt::Key_Return);
    WorksheetForm& f = desk.Take_Front();
    EXPECT_EQ(f.Caption(), "Edit Worksheet F") << "opened again";
    EXPECT_EQ(desk.Cursor(), "2 Col_1");
    EXPECT_EQ(Found(f), "2 of 2");
    QTest::keyClick(f.findChild<QLineEdit*>("txtFind"), Qt::Key_Return);
    WorksheetForm& a = desk.Take_Front();
    EXPECT_EQ(a.Caption(), "Edit Worksheet A") << "around the end";
    EXPECT_EQ(desk.Cursor(), "6 Col_1");
    EXPECT_EQ(Found(a), "1 of 2");
    QTest::keyClick(a.findChild<QLineEdit*>("txtFind"), Qt::Key_Escape);
    EXPECT_TRUE(desk.Grid().hasFocus());
}

TEST(FindEverywhere, AWorksheetWithoutAnEditFormIsFoundInItsView) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 5, "8313");
    desk.Push("cmdRecalculate");
    WorksheetForm& form = desk.Edit("A");
    form.Open_Find();
    Find(form, "8313");
    std::vector<std::string> captions;
    for (int i = 0; i < 12; ++i) {
        WorksheetForm& front = desk.Take_Front();
        captions.push_back(front.Caption());
        QTest::keyClick(front.findChild<QLineEdit*>("txtFind"), Qt::Key_Return);
    }
    EXPECT_NE(std::ranges::find(captions, "View Worksheet B"), captions.end());
    EXPECT_NE(std::ranges::find(captions, "Edit Worksheet A"), captions.end());
}

TEST(SelectionSum, IsShownInTheStatusLine) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    desk.Key(7, 1, "300");
    const auto* sum = desk.main->findChild<QLabel*>("lblSelection");
    EXPECT_EQ(sum->text(), "");
    desk.At(6, 1);
    Desk::Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(sum->text(), "Sum 1,500   Count 2");
    desk.Push("cmdClose");
    EXPECT_EQ(sum->text(), "");
}

}  // namespace

}  // namespace tallmar
