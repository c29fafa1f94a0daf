// After a box the cursor is where it was, whatever other forms are open: what is typed next goes into that cell.
#include <QClipboard>
#include <QLineEdit>

#include "report/open_report.h"
#include "shell/focus/person.h"

namespace tallmar {

namespace {

// A cell, what is keyed into it, and the box that comes; then the cell where the cursor is.
struct Keyed {
    const char* item;
    LineRef line;
    ColumnRef column;
    const char* typed;
    const char* leave;
    std::vector<std::string> boxes;
    LineRef lineAfter;
    ColumnRef columnAfter;
    Answer answer = Answer::Ok;
};

const std::vector<Keyed>& Entries() {
    static const std::vector<Keyed> entries{
        {"B1", 6, "CC_100", "12.75", "Return", {"Too Specific Numeric Entry"}, 7, "CC_100"},
        {"B1", 6, "CC_100", "13.75", "Tab", {"Too Specific Numeric Entry"}, 6, "CC_200"},
        {"B1", 6, "CC_100", "14.75", "Down", {"Too Specific Numeric Entry"}, 7, "CC_100"},
        {"B1", 6, "CC_100", "abc", "Return", {"Invalid Non-Numeric Entry"}, 6, "CC_100"},
        {"B1",
         6,
         "CC_500",
         "4",
         "Return",
         {"Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center"},
         6,
         "CC_500",
         Answer::Cancel},
        {"A", 6, 1, "12.75", "Tab", {"Too Specific Numeric Entry"}, 6, 2},
        {"A", 6, 1, "abc", "Tab", {"Invalid Non-Numeric Entry"}, 6, 1},
        {"A5", 1, 4, "77", "Return", {"Error: Invalid Entry"}, 1, 4},
        {"S2", 1.01, 2, "ILL", "Return", {"Entry Error"}, 1.01, 2},
        {"S21", 6, 1, "q", "Return", {"Entry Error"}, 6, 1},
    };
    return entries;
}

class BoxFocus : public testing::TestWithParam<std::tuple<bool, FormMode, AnswerBy>> {};

std::string Name_Of(const testing::TestParamInfo<BoxFocus::ParamType>& test) {
    const auto [tabs, mode, by] = test.param;
    return std::string(tabs ? "Tabs" : "Windows") + (mode == FormMode::Edit ? "BesideAnEdit" : "BesideAView") +
           (by == AnswerBy::Key ? "ByKey" : "ByClick");
}

}  // namespace

TEST_P(BoxFocus, TheCursorStaysInItsForm) {
    const auto [tabs, mode, by] = GetParam();
    Person person(fy2016);
    Desk& desk = person.desk;
    if (tabs) desk.Choose("mnuWindowTabbed");
    if (mode == FormMode::Edit) {
        desk.Edit("F");
    } else {
        desk.View("F");
    }
    const std::string cash = Desk::Stored("F", 1, 1);
    for (const Keyed& keyed : Entries()) {
        SCOPED_TRACE(std::string(keyed.item) + " '" + keyed.typed + "' " + keyed.leave);
        desk.Edit(keyed.item);
        desk.At(keyed.line, keyed.column);
        ASSERT_TRUE(person.Is_At(keyed.line, keyed.column));
        person.Will_Answer(keyed.answer, by);
        person.Type(keyed.typed);
        person.Press(keyed.leave);
        EXPECT_EQ(person.Take_Boxes(), keyed.boxes);
        ASSERT_TRUE(person.Is_At(keyed.lineAfter, keyed.columnAfter));
        person.Type("7");
        ASSERT_NE(desk.Editor(), nullptr);
        EXPECT_EQ(desk.Editor()->text(), "7");
        EXPECT_TRUE(desk.Editor()->hasFocus());
        person.Press("Escape");
        EXPECT_TRUE(person.Is_At(keyed.lineAfter, keyed.columnAfter));
    }
    EXPECT_EQ(Desk::Stored("F", 1, 1), cash);
}

TEST(ListFocus, AListOfMessagesLeavesTheCursor) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("F");
    desk.Edit("B1");
    desk.At(6, "CC_100");
    QApplication::clipboard()->setText("5\nabc");
    person.Press("v", "Control_L");
    EXPECT_EQ(person.Take_Boxes().size(), 1u);
    EXPECT_TRUE(person.Is_At(6, "CC_100"));
    EXPECT_EQ(Desk::Stored("B1", 6, "CC_100"), "5");
}

TEST(ListFocus, AnAnswerChosenByEnterPutsTheCursorIntoTheLineThatItOpens) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("F");
    desk.Edit("S21");
    desk.At(6, 1);
    ASSERT_TRUE(person.Is_At(6, 1));
    person.Press("Down", "Alt_L");
    ASSERT_NE(desk.Grid().Choices(), nullptr);
    person.Press("Down");
    person.Press("Return");
    EXPECT_TRUE(person.Is_At(7, 1));
    EXPECT_EQ(desk.Shown(6, 1), "Yes");
}

TEST(ListFocus, AClickedAnswerLeavesTheCursor) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("F");
    desk.Edit("S21");
    desk.At(6, 1);
    ASSERT_TRUE(person.Is_At(6, 1));
    person.Press("Down", "Alt_L");
    ASSERT_NE(desk.Grid().Choices(), nullptr);
    QTest::mouseClick(desk.Grid().Choices()->findChild<QWidget*>("qt_scrollarea_viewport"), Qt::LeftButton, {},
                      QPoint(10, 6));
    EXPECT_TRUE(person.Is_At(6, 1));
    EXPECT_EQ(desk.Shown(6, 1), "Yes");
}

// The window manager takes the keyboard away and gives it back.
TEST(WindowFocus, AnotherWindowLeavesTheEntryUnderTheEditor) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("F");
    desk.Edit("B1");
    desk.At(6, "CC_100");
    ASSERT_TRUE(person.Is_At(6, "CC_100"));
    person.Type("12");
    {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    }
    ASSERT_NE(desk.Editor(), nullptr);
    EXPECT_TRUE(person.Has_Keyboard(*desk.Editor()));
    person.Type("3");
    person.Press("Return");
    EXPECT_TRUE(person.Is_At(7, "CC_100"));
    EXPECT_EQ(Desk::Stored("B1", 6, "CC_100"), "123");
}

INSTANTIATE_TEST_SUITE_P(Forms, BoxFocus,
                         testing::Combine(testing::Bool(), testing::Values(FormMode::Edit, FormMode::View),
                                          testing::Values(AnswerBy::Key, AnswerBy::Click)),
                         Name_Of);

}  // namespace tallmar
