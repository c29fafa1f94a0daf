// What is refused shows one box and holds the cursor, however the person tries to leave.
#include <QMouseEvent>

#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

constexpr const char* kNonNumeric = "Invalid Non-Numeric Entry";
constexpr const char* kWhy =
    "You're attempting to enter invalid data ['abc'].  The cell you're attempting to input or modify only accepts "
    "numeric data.  Your entry or modification is being discarded.  Select OK to continue.";

// Types "abc" into an amount, with one box to come.
void Type_Nonsense(Report& r, Screen& a) {
    r.Cell("A", 6, 1, 77_cur);
    a.grd.Entries().Reload_In_Place();
    a.At(6, 1);
    a.Type("abc");
    r.platform.Expect_Box(kNonNumeric, kWhy);
}

void Expect_Held(Report& r, Screen& a) {
    EXPECT_EQ(r.platform.boxes.size(), 1U);
    EXPECT_EQ(r.platform.beeps, 1);
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes(), QModelIndexList{a.Index(6, 1)});
    EXPECT_EQ(a.Shown(6, 1), "77");
    EXPECT_EQ(a.Editor(), nullptr);
    EXPECT_CELL("A", 6, 1, 77_cur);
    EXPECT_EQ(a.changes, 0);
}

}  // namespace

TEST(EditRefusal, ByEnter) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.Press(Qt::Key_Return);
    Expect_Held(r, a);
    EXPECT_TRUE(a.grd.hasFocus());
}

TEST(EditRefusal, ByTab) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.Press(Qt::Key_Tab);
    Expect_Held(r, a);
}

TEST(EditRefusal, ByAnArrow) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.Press(Qt::Key_Down);
    Expect_Held(r, a);
}

TEST(EditRefusal, ByAClickOnAnotherCell) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.Click(6, 3);
    Expect_Held(r, a);
}

TEST(EditRefusal, ByAClickOnAnotherRow) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.Click(9, 1);
    Expect_Held(r, a);
    a.Click(9, 1);
    EXPECT_EQ(a.Cursor(), "9 Col_1") << "the second click finds nothing to refuse";
}

TEST(EditRefusal, ByTheProgram) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    a.At(9, 2);
    Expect_Held(r, a);
}

TEST(EditRefusal, ByClose) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    EXPECT_FALSE(a.form.close());
    Expect_Held(r, a);
    EXPECT_TRUE(a.form.isVisible());
    EXPECT_TRUE(a.form.close());
}

TEST(EditRefusal, ByCloseWithTheButton) {
    Report r(fy2016);
    Screen a("A");
    Type_Nonsense(r, a);
    QTest::mouseClick(a.Button("cmdClose"), Qt::LeftButton);
    Expect_Held(r, a);
    EXPECT_TRUE(a.form.isVisible());
}

TEST(EditRefusal, ByRecalculateAndOpenView) {
    Report r(fy2016);
    Screen a("A");
    int asked = 0;
    QObject::connect(&a.form, &WorksheetForm::Recalculate_Requested, [&] { ++asked; });
    QObject::connect(&a.form, &WorksheetForm::Open_Requested, [&] { ++asked; });
    Type_Nonsense(r, a);
    a.Button("cmdRecalculate")->click();
    Expect_Held(r, a);
    a.Type("abc");
    r.platform.Expect_Box(kNonNumeric, kWhy);
    a.Button("cmdOpenView")->click();
    EXPECT_EQ(asked, 0);
    a.Button("cmdOpenView")->click();
    a.Button("cmdRecalculate")->click();
    EXPECT_EQ(asked, 2);
}

TEST(EditRefusal, TheEditorStaysWhenTheFocusGoesElsewhere) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("12");
    a.Button("cmdClose")->setFocus();
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_EQ(a.Editor()->text(), "12");
    EXPECT_TRUE(a.form.Commit_Grid());
    EXPECT_CELL("A", 6, 1, 12_cur);
}

TEST(EditRefusal, ARowThatItsFormHolds) {
    Report r(fy2016);
    Screen a("A4");
    a.Button("cmdAdd")->click();
    a.Button("cmdAdd")->click();
    a.At(1, 1);
    a.Type("a");
    a.Press(Qt::Key_Tab);
    const auto expect = [&] {
        r.platform.Expect_Box("Error: Blank EXPLANATION Item",
                              "The EXPLANATION may not be left blank for the first reclassification in a given code.");
    };
    expect();
    a.Press(Qt::Key_Down);
    EXPECT_EQ(a.Cursor(), "1 Col_3");
    expect();
    a.Click(2, 1);
    EXPECT_EQ(a.Cursor(), "1 Col_3");
    expect();
    EXPECT_FALSE(a.form.close());
    EXPECT_EQ(r.platform.boxes.size(), 3U);
    EXPECT_EQ(a.Shown(1, 1), "A") << "the entries stay in the row";
    EXPECT_CELL("A4", 1, 1, Null);
    a.At(1, "Explanation");
    a.Type("Insurance");
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "2 Explanation");
    EXPECT_CELL("A4", 1, 1, "A");
}

TEST(EditRefusal, ADragToAnotherRow) {
    Report r(fy2016);
    Screen a("A4");
    a.Button("cmdAdd")->click();
    a.Button("cmdAdd")->click();
    a.At(1, 1);
    a.Type("a");
    a.Press(Qt::Key_Tab);
    const auto at = [&](int line, int column) { return a.grd.visualRect(a.Index(line, column)).center(); };
    QTest::mousePress(a.grd.viewport(), Qt::LeftButton, {}, at(1, 3));
    r.platform.Expect_Box_Starting("Error: Blank EXPLANATION Item", "");
    for (int i = 0; i < 3; ++i) {
        QMouseEvent move(QEvent::MouseMove, at(2, 4), a.grd.viewport()->mapToGlobal(at(2, 4)), Qt::NoButton,
                         i == 0 ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(a.grd.viewport(), &move);
    }
    QTest::mouseRelease(a.grd.viewport(), Qt::LeftButton, {}, at(2, 4));
    EXPECT_EQ(a.Cursor(), "1 Col_3");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes().size(), 1);
    a.Press(Qt::Key_Escape);
}

TEST(EditRefusal, ASelectionDoesNotGrowIntoARowThatIsRefused) {
    Report r(fy2016);
    Screen a("A4");
    a.Button("cmdAdd")->click();
    a.Button("cmdAdd")->click();
    a.At(1, 1);
    a.Type("a");
    a.Press(Qt::Key_Tab);
    r.platform.Expect_Box_Starting("Error: Blank EXPLANATION Item", "");
    a.Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(a.Cursor(), "1 Col_3");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes(), QModelIndexList{a.Index(1, 3)});
    a.Press(Qt::Key_Escape);
}

TEST(EditRefusal, ALongNameLeavesTheFormerOne) {
    Report r(fy2016);
    r.Cell("A", 6, "CCName", "Nursing");
    Screen a("A");
    a.At(6, "CCName");
    const std::string name(37, 'x');
    a.Press(Qt::Key_F2);
    a.Press(Qt::Key_A, Qt::ControlModifier);
    a.Type(name.c_str());
    EXPECT_EQ(a.Editor()->text().size(), 37);
    r.platform.Expect_Box("Invalid Length Entry",
                          "You're attempting to enter invalid data ['" + name +
                              "'].  The cell you're attempting to input or modify only accepts up to 36 characters.  "
                              "Your entry or modification is being discarded.  Select OK to continue.");
    a.Press(Qt::Key_Return);
    EXPECT_EQ(a.Cursor(), "6 CCName");
    EXPECT_EQ(a.Shown(6, "CCName"), "Nursing");
}

TEST(EditAmounts, RoundedWithAWarning) {
    Report r(fy2016);
    Screen a("A");
    for (const auto& [typed, stored] : {std::pair{"12.5", 13_cur}, {"-12.5", -13_cur}}) {
        a.At(6, 1);
        a.Type(typed);
        r.platform.Expect_Box_Starting("Too Specific Numeric Entry", "You're attempting to enter invalid data");
        a.Press(Qt::Key_Return);
        EXPECT_EQ(a.Cursor(), "7 Col_1");
        EXPECT_CELL("A", 6, 1, stored);
    }
    EXPECT_EQ(r.platform.beeps, 0);
}

TEST(EditAmounts, AlmostWholeOnesStayAsTheyAre) {
    Report r(fy2016);
    Screen a("S3p4");
    a.At(30, 1);
    a.Type("12.00001");
    a.Press(Qt::Key_Return);
    EXPECT_CELL("S3p4", 30, 1, 12.00001);
}

TEST(EditAmounts, ABlankIsZero) {
    Report r(fy2016);
    r.Cell("A", 6, 1, 5_cur);
    Screen a("A");
    a.At(6, 1);
    a.Press(Qt::Key_F2);
    a.Press(Qt::Key_Backspace);
    a.Press(Qt::Key_Return);
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EditAmounts, AsPeopleWriteThem) {
    Report r(fy2016);
    Screen a("A");
    for (const auto& [typed, stored] :
         {std::pair{"$1,200", 1200_cur}, {"(70)", -70_cur}, {"8-", -8_cur}, {"-9", -9_cur}}) {
        a.At(6, 1);
        a.Type(typed);
        a.Press(Qt::Key_Return);
        EXPECT_CELL("A", 6, 1, stored) << typed;
    }
}

}  // namespace tallmar
