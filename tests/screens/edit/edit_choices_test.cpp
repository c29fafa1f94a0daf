// Pop-up lists: they help, and hold nobody up.
#include <QListWidget>

#include "report/open_report.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

// The entry of the list that is open.
QAction* Entry(Screen& s, const char* list, const char* entry) {
    if (s.grd.Choices() == nullptr || s.grd.Choices()->objectName() != list) return nullptr;
    return s.form.findChild<QWidget*>(list)->findChild<QAction*>(entry);
}

}  // namespace

TEST(EditChoices, AListOpensOverItsCellAndAChoiceIsWritten) {
    Report r(fy2016);
    Screen s("S2");
    s.At(14, 1);
    ASSERT_NE(Entry(s, "ButtonListYN", "mnuY"), nullptr);
    EXPECT_TRUE(s.grd.hasFocus());
    EXPECT_EQ(Entry(s, "ButtonListYN", "mnuY")->text(), "Yes");
    Entry(s, "ButtonListYN", "mnuY")->trigger();
    EXPECT_EQ(s.grd.Choices(), nullptr);
    EXPECT_EQ(s.Cursor(), "14 Col_1");
    EXPECT_EQ(s.Shown(14, 1), "Yes");
    s.At(15, 1);
    EXPECT_CELL("S2", 14, 1, "Y");
    EXPECT_EQ(s.changes, 1);
}

TEST(EditChoices, EveryLineHasItsOwnList) {
    Report r(fy2016);
    Screen s("S2");
    s.At(8, 1);
    ASSERT_NE(Entry(s, "ButtonList8", "mnu8_13"), nullptr);
    Entry(s, "ButtonList8", "mnu8_13")->trigger();
    s.At(9, 1);
    EXPECT_CELL("S2", 8, 1, "13");
    ASSERT_NE(Entry(s, "ButtonList9", "mnu9_1"), nullptr);
    s.At(10, 1);
    EXPECT_EQ(s.grd.Choices(), nullptr);
    s.At(26, 1);
    ASSERT_NE(Entry(s, "ButtonList26", "mnuOption1"), nullptr);
    Entry(s, "ButtonList26", "mnuOption1")->trigger();
    EXPECT_EQ(r.platform.formClosings, 1);
    EXPECT_CELL("CostCenters", 5.01, "LineType", "U") << "the chart follows the choice, not the cursor";
    EXPECT_EQ(s.Cursor(), "26 Col_1");
}

TEST(EditChoices, TheOptionStaysWhereFormsAreToStayOpen) {
    Report r(fy2016);
    r.platform.closeFormsCancelled = true;
    Screen s("S2");
    s.At(26, 1);
    Entry(s, "ButtonList26", "mnuOption1")->trigger();
    EXPECT_EQ(s.Shown(26, 1), "");
    s.At(28, 1);
    EXPECT_CELL("S2", 26, 1, Null);
}

TEST(EditChoices, TheListMarksTheAnswerThatStands) {
    Report r(fy2016);
    r.Cell("S2", 14, 1, "N");
    r.Cell("S2", 15, 1, "Y");
    Screen s("S2");
    EXPECT_CELL("S2", 16, 1, "No") << "as a report just made has it";
    for (const auto& [line, marked] : {std::pair{14_cur, "No"}, {15_cur, "Yes"}, {16_cur, "No"}}) {
        s.At(line, 1);
        ASSERT_NE(s.grd.Choices(), nullptr);
        const auto* list = s.grd.Choices()->findChild<QListWidget*>();
        ASSERT_EQ(list->selectedItems().size(), 1);
        EXPECT_EQ(list->selectedItems().front()->text(), marked);
        // Seen, too: the highlight's colour behind the entry.
        QRect entry = list->visualItemRect(list->selectedItems().front());
        const QColor ground = list->viewport()->grab().toImage().pixelColor(entry.right() - 2, entry.center().y());
        EXPECT_NE(ground, list->palette().color(QPalette::Active, QPalette::Base));
    }
}

TEST(EditChoices, TypingGoesIntoTheCell) {
    Report r(fy2016);
    Screen s("S2");
    s.At(14, 1);
    s.Type("y");
    EXPECT_EQ(s.grd.Choices(), nullptr);
    ASSERT_NE(s.Editor(), nullptr);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Cursor(), "15 Col_1");
    EXPECT_CELL("S2", 14, 1, "Y");
}

TEST(EditChoices, ArrowsGoThroughTheListAndOn) {
    Report r(fy2016);
    Screen s("S21");
    s.At(3, 1);
    s.At(1, 1);
    ASSERT_NE(s.grd.Choices(), nullptr);
    s.Press(Qt::Key_Down);
    s.Press(Qt::Key_Down);
    EXPECT_EQ(s.Cursor(), "1 Col_1");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Shown(1, 1), "No");
    EXPECT_EQ(s.Cursor(), "2 Col_1") << "on, as after an answer that was typed";
    s.Press(Qt::Key_Up);
    EXPECT_EQ(s.Cursor(), "1 Col_1") << "beyond the first entry";
    for (int i = 0; i < 3; ++i) s.Press(Qt::Key_Down);
    EXPECT_EQ(s.Cursor(), "2 Col_1") << "from No beyond the last, then through the list of line 2";
    s.Press(Qt::Key_Right);
    EXPECT_EQ(s.Cursor(), "2 Col_2");
    EXPECT_EQ(s.grd.Choices(), nullptr);
    s.Press(Qt::Key_Right);
    EXPECT_NE(Entry(s, "ButtonList2", "mnuV"), nullptr);
    s.Press(Qt::Key_Tab);
    EXPECT_EQ(s.Cursor(), "3 Col_1");
}

TEST(EditChoices, EnterGoesOnWhereNoEntryWasGoneTo) {
    Report r(fy2016);
    Screen s("S21");
    s.At(1, 1);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Cursor(), "2 Col_1");
    s.At(2, 1);
    EXPECT_CELL("S21", 1, 1, Null);
}

TEST(EditChoices, EscClosesAndAltDownOpens) {
    Report r(fy2016);
    Screen s("A6pA");
    s.At(0, "Answer");
    s.grd.clearFocus();
    EXPECT_EQ(s.grd.Choices(), nullptr);
    s.grd.setFocus();
    s.Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(s.grd.Choices(), nullptr);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(s.grd.Choices(), nullptr);
    EXPECT_TRUE(s.form.isVisible());
}

TEST(EditChoices, AClickChooses) {
    Report r(fy2016);
    Screen s("S2");
    s.Click(14, 1);
    ASSERT_NE(s.grd.Choices(), nullptr);
    QWidget* list = s.grd.Choices()->findChild<QWidget*>("qt_scrollarea_viewport");
    ASSERT_NE(list, nullptr);
    QTest::mouseClick(list, Qt::LeftButton, {}, QPoint(10, 6));
    EXPECT_EQ(s.grd.Choices(), nullptr);
    EXPECT_EQ(s.Shown(14, 1), "Yes");
    EXPECT_TRUE(s.grd.hasFocus());
}

TEST(EditChoices, APressElsewhereCloses) {
    Report r(fy2016);
    Screen s("S2");
    s.At(14, 1);
    ASSERT_NE(s.grd.Choices(), nullptr);
    QTest::mouseClick(&s.form, Qt::LeftButton, {}, QPoint(s.form.width() - 3, s.form.height() - 3));
    EXPECT_EQ(s.grd.Choices(), nullptr);
}

TEST(EditChoices, AWrongLetterIsRefused) {
    Report r(fy2016);
    Screen s("S2");
    s.At(14, 1);
    s.Type("q");
    r.platform.Expect_Box("Entry Error", "Please enter Y or N.");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Cursor(), "14 Col_1");
    EXPECT_EQ(s.Shown(14, 1), "No");
}

TEST(EditChoices, LockedCellsHaveNone) {
    Report r(fy2016);
    Screen s("S21");
    s.At(7, 1);
    EXPECT_EQ(s.grd.Choices(), nullptr) << "line 6 is not answered with yes";
    s.At(6, 1);
    Entry(s, "ButtonListYN", "mnuY")->trigger();
    s.At(7, 1);
    EXPECT_NE(s.grd.Choices(), nullptr);
}

TEST(EditChoices, CostCentersAreListedWhereOneIsAskedForAndNarrowToWhatIsTyped) {
    Report r(fy2016);
    Screen s("A4");
    s.Button("cmdAdd")->click();
    s.At(1, 3);
    EXPECT_EQ(s.grd.Choices(), nullptr) << "nobody asked";
    s.Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(s.grd.Choices(), nullptr);
    const auto* list = s.grd.Choices()->findChild<QListWidget*>();
    const auto shown = [&] {
        std::vector<std::string> captions;
        for (int i = 0; i < list->count(); ++i) {
            if (!list->isRowHidden(i)) captions.push_back(list->item(i)->text().toStdString());
        }
        return captions;
    };
    EXPECT_EQ(shown().size(), db.Read_Rows("SELECT CCNum FROM CostCenters WHERE CCName Is Not Null;").size());
    s.Type("skilled");
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(shown().front(), "6  Skilled Nursing Care");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.grd.Choices(), nullptr);
    EXPECT_EQ(s.Shown(1, 3), "6");
    EXPECT_EQ(s.Shown(1, 2), "Skilled Nursing Care");
}

TEST(EditChoices, ANumberThatIsTypedGoesBeforeTheOnesThatBeginWithIt) {
    Report r(fy2016);
    Screen s("A5");
    s.At(1, 4);
    s.Press(Qt::Key_F4);
    s.Type("1");
    s.Press(Qt::Key_Tab);
    EXPECT_EQ(s.Shown(1, 4), "1");
    s.At(2, 4);
    s.Type("1");
    s.Press(Qt::Key_F4);
    ASSERT_NE(s.grd.Choices(), nullptr);
    s.Press(Qt::Key_Down);
    s.Press(Qt::Key_Return);
    EXPECT_NE(s.Shown(2, 4), "1");
    EXPECT_TRUE(s.Shown(2, 4).starts_with("1")) << s.Shown(2, 4);
}

TEST(EditChoices, WhatIsInNoListIsRefusedAsEver) {
    Report r(fy2016);
    Screen s("A6pB");
    if (s.form.Model().rowCount() == 0) s.Button("cmdAdd")->click();
    s.At(1, 1);
    s.Press(Qt::Key_F4);
    s.Type("zebra");
    r.platform.Expect_Box("Error: Invalid Entry", "Invalid Cost Center, entries must be a valid Cost Center Number.");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Cursor(), "1 Col_1");
    EXPECT_EQ(s.grd.Choices(), nullptr);
    s.Press(Qt::Key_F4);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(s.grd.Choices(), nullptr);
    ASSERT_NE(s.Editor(), nullptr) << "the first Esc closes the list alone";
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(s.Editor(), nullptr);
}

TEST(EditHeads, FollowTheRow) {
    Report r(fy2016);
    Screen s("S2");
    const auto heads = [&] {
        std::string text;
        for (int i = 1; i < s.form.Model().columnCount(); ++i) {
            text += (i > 1 ? "|" : "") + s.form.Model().headerData(i, Qt::Horizontal).toString().toStdString();
        }
        return text;
    };
    s.At(1, 1);
    EXPECT_EQ(heads(), "Description|Street|P.O. Box|N/A");
    s.At(1.01, 1);
    EXPECT_EQ(heads(), "Description|City|State|Zip");
    s.At(2, 1);
    EXPECT_EQ(heads(), "Component|Component Name|Provider No.|Date Certified");
    s.Press(Qt::Key_Down);
    s.At(23, 1);
    EXPECT_EQ(heads(), "Description|Part A|Part B|N/A");
    s.At(26, 1);
    EXPECT_EQ(heads(), "Description|Answer|N/A|N/A");
}

}  // namespace tallmar
