// Real boxes take the focus from the grid and its editor: still one refusal is one box.
#include "screens/edit/edit_test.h"
#include "shell/desktop_platform_boxes.h"
#include "support/desktop/box_driver.h"

namespace tallmar {

namespace {

// The boxes of the desktop over all else of the tests' platform.
class RealBoxes : public FakePlatform {
  public:
    Answer Message_Box(std::string_view prompt, int buttons, std::string_view title) override {
        return Show_Message_Box(QApplication::activeWindow(), prompt, buttons, title);
    }
};

constexpr const char* kTitle = "Invalid Non-Numeric Entry";
constexpr const char* kWhy = "You're attempting to enter invalid data ['abc'].";

}  // namespace

TEST(EditFocus, ARefusedCellHoldsTheCursorBehindARealBox) {
    Report r(fy2016);
    RealBoxes boxes;
    BoxDriver driver;
    Screen a("A");
    a.At(6, 1);
    a.Type("abc");
    driver.Expect_Box_Starting(kTitle, kWhy);
    a.Press(Qt::Key_Return);
    EXPECT_TRUE(driver.Done());
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_EQ(a.Editor(), nullptr);

    QApplication::setActiveWindow(&a.form);
    a.grd.setFocus();
    a.Type("abc");
    driver.Expect_Box_Starting(kTitle, kWhy);
    a.Click(9, 2);
    EXPECT_TRUE(driver.Done());
    EXPECT_EQ(a.Cursor(), "6 Col_1");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(driver.Boxes_Seen(), 2);
    EXPECT_TRUE(a.form.close());
}

TEST(EditFocus, AWarningIsOneRealBoxAndTheEntryGoesIn) {
    Report r(fy2016);
    RealBoxes boxes;
    BoxDriver driver;
    Screen a("A");
    a.At(6, 1);
    a.Type("12.5");
    driver.Expect_Box_Starting("Too Specific Numeric Entry", "You're attempting");
    a.Click(9, 2);
    EXPECT_EQ(a.Cursor(), "9 Col_2");
    EXPECT_CELL("A", 6, 1, 13_cur);
    EXPECT_EQ(driver.Boxes_Seen(), 1);
}

TEST(EditFocus, AQuestionThatIsCancelledKeepsTheCursor) {
    Report r(fy2016);
    RealBoxes boxes;
    BoxDriver driver;
    Screen s("B1");
    s.At(6, "CC_500");
    s.Type("4");
    driver.Expect_Box_Starting("Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center",
                               "The statistic", Answer::Cancel);
    s.Press(Qt::Key_Down);
    EXPECT_EQ(s.Cursor(), "6 CC_500");
    EXPECT_EQ(s.Shown(6, "CC_500"), "0");
    EXPECT_EQ(driver.Boxes_Seen(), 1);
}

// A button of the strip that is clicked leaves the keyboard in the grid.
TEST(EditFocus, AButtonThatRefusesOrOpensLeavesTheKeysToTheCell) {
    Report r(fy2016);
    RealBoxes boxes;
    BoxDriver driver;
    Screen a("A");
    a.At(6, 1);
    a.Type("abc");
    driver.Expect_Box_Starting(kTitle, kWhy);
    QTest::mouseClick(a.Button("cmdNext"), Qt::LeftButton);
    EXPECT_TRUE(driver.Done());
    QApplication::setActiveWindow(&a.form);
    EXPECT_EQ(QApplication::focusWidget(), &a.grd);
    a.Type("9");
    QTest::mouseClick(a.Button("cmdNext"), Qt::LeftButton);
    EXPECT_CELL("A", 6, 1, 9_cur);
    EXPECT_EQ(QApplication::focusWidget(), &a.grd);
    // The Tab key reaches it still.
    EXPECT_TRUE(a.Button("cmdNext")->focusPolicy() & Qt::TabFocus);
}

TEST(EditFocus, TheFormOpensOnTheFirstCellThatTakesAnEntry) {
    Report r(fy2016);
    EXPECT_EQ(Screen("A").Cursor(), "1 Col_3");
    EXPECT_EQ(Screen("S2").Cursor(), "1 Col_1");
}

TEST(EditFocus, CellsThatTakeNothingAreShaded) {
    Report r(fy2016);
    Screen s("S21");
    const auto shaded = [&](int line, int column) { return s.Index(line, column).data(kShadedRole).toBool(); };
    EXPECT_FALSE(shaded(1, 1));
    EXPECT_TRUE(shaded(1, 3));
    EXPECT_TRUE(shaded(7, 1));
    s.At(6, 1);
    s.Type("y");
    s.Press(Qt::Key_Return);
    EXPECT_FALSE(shaded(7, 1));
    EXPECT_FALSE(s.Index(7, "LineNum").data(kShadedRole).toBool());
}

}  // namespace tallmar
