// Where the keyboard is as a form opens, and that nothing of what is typed ahead is lost.
#include <QLineEdit>

#include "report/open_report.h"
#include "shell/focus/person.h"

namespace tallmar {

TEST(FormFocus, EveryFormStartsInItsGrid) {
    Person person(fy2016);
    Desk& desk = person.desk;
    for (const bool tabs : {false, true}) {
        for (const char* item : {"S3p1", "A", "S2", "A4"}) {
            SCOPED_TRACE(item);
            desk.main->Forms().Open_Worksheet_Form(FormMode::Edit, std::string(item));
            EXPECT_TRUE(person.Has_Keyboard(desk.Find(FormMode::Edit, item)->Grid()));
            desk.Find(FormMode::Edit, item)->close();
            Desk::Settle();
        }
        if (!tabs) desk.Choose("mnuWindowTabbed");
    }
}

// Keys that come faster than the county is stored go where they would go one by one.
TEST(FormFocus, KeysTypedAheadBehindTheCountyGoIntoTheirCells) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("S3p1");
    const std::string first = desk.Cursor();
    auto* county = desk.Form().findChild<QLineEdit*>("tbCounty");
    ASSERT_NE(county, nullptr);
    county->setFocus();
    ASSERT_TRUE(person.Has_Keyboard(*county));
    const XScreen& screen = The_Screen();
    for (const char character : std::string("Cook")) screen.Type(character);
    screen.Press("Tab");
    for (const char character : std::string("300")) screen.Type(character);
    screen.Press("Tab");
    for (const char character : std::string("44")) screen.Type(character);
    screen.Press("Down");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Desk::Stored("S3p1", 1, 2) == "44"; })) << desk.Cursor();
    EXPECT_EQ(first, "1 Col_1");
    EXPECT_EQ(Desk::Stored("S3p1", 0, "Description"), "Cook");
    EXPECT_EQ(Desk::Stored("S3p1", 1, 1), "300");
}

// Add is quick, and so is the preparer.
TEST(FormFocus, KeysTypedAheadBehindAddGoIntoTheNewLine) {
    Person person(fy2016);
    Desk& desk = person.desk;
    desk.Edit("A4");
    ASSERT_TRUE(person.Has_Keyboard(desk.Grid()));
    const int rows = desk.Form().Model().rowCount();
    const XScreen& screen = The_Screen();
    screen.Press("a", "Alt_L");
    for (const char character : std::string("postage")) screen.Type(character);
    screen.Press("Tab");
    ASSERT_TRUE(QTest::qWaitFor([&] { return desk.Form().Model().rowCount() > rows && desk.Editor() == nullptr; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return desk.Shown(rows + 1, "Explanation") == "postage"; }));
}

}  // namespace tallmar
