// Names of rows are in nobody's way, and no amount is taken for one.
#include <QClipboard>

#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

constexpr const char* kNursing = "Skilled Nursing Care";

// Opens the name of line 6, types over it and presses Enter.
void Rename(Screen& a, const char* name) {
    a.At(6, "CCName");
    a.Press(Qt::Key_F2);
    a.Press(Qt::Key_A, Qt::ControlModifier);
    a.Type(name);
    a.Press(Qt::Key_Return);
}

}  // namespace

TEST(EditNames, TypingLeavesANameAlone) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, "CCName");
    const std::string name = a.Shown(6, "CCName");
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_X, Qt::Key_7}) {
        a.told.clear();
        a.Press(key);
        EXPECT_EQ(a.Editor(), nullptr);
        EXPECT_EQ(a.told, std::vector<std::string>{
                              "Worksheet A, line 6, column Cost Center is a name: press F2 to change it."});
    }
    EXPECT_EQ(a.Shown(6, "CCName"), name);
    EXPECT_EQ(a.changes, 0);
}

TEST(EditNames, ANumberIsNeverTakenForAName) {
    Report r(fy2016);
    r.Cell("A", 6, "CCName", kNursing);
    Screen a("A");
    for (const char* number : {"1118400", "$ (500)", "12.00"}) {
        Rename(a, number);
        EXPECT_EQ(a.told.back(), "A number is no name: 'Skilled Nursing Care' stays.");
        EXPECT_EQ(a.Cursor(), "6 CCName");
        EXPECT_EQ(a.Shown(6, "CCName"), kNursing);
    }
    EXPECT_FALSE(a.form.Can_Undo());
}

TEST(EditNames, ARenamedCostCenterTellsThatTheChartKeepsItsName) {
    Report r(fy2016);
    Screen a("A");
    const std::string name = a.Shown(6, "CCName");
    Rename(a, "Nursing");
    EXPECT_CELL("A", 6, "CCName", "Nursing");
    EXPECT_CELL("CostCenters", 6, "CCName", name.c_str());
    EXPECT_EQ(a.told.back(), "Worksheet A, line 6: 1 cell stored. The chart keeps '" + name +
                                 "'. To rename a cost center everywhere use Cost Centers Structure.");
    Rename(a, name.c_str());
    EXPECT_EQ(a.told.back(), "Worksheet A, line 6: 1 cell stored.");
}

TEST(EditNames, APasteOneColumnTooFarLeftLeavesTheNames) {
    Report r(fy2016);
    Screen a("A");
    const std::string name = a.Shown(6, "CCName");
    a.At(6, "CCName");
    QApplication::clipboard()->setText("$ (500)\t7\n\t8\n12.00\t9");
    a.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(a.Shown(6, "CCName"), name);
    EXPECT_FALSE(a.Shown(7, "CCName").empty()) << "a blank passes it by as well";
    for (const auto& [line, amount] : {std::pair{6, 7_cur}, {7, 8_cur}, {8, 9_cur}}) {
        EXPECT_CELL("A", line, 1, amount);
    }
    ASSERT_EQ(r.platform.batches.size(), 1U);
    EXPECT_EQ(r.platform.batches.front().rows.size(), 2U);
    EXPECT_EQ(r.platform.batches.front().rows.front().message,
              "Line 6, column Cost Center, '$ (500)': A number is no name.");
}

TEST(EditNames, ABlankNameIsTypedInto) {
    Report r(fy2016);
    Screen f("F1");
    f.At(6, 1);
    f.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(f.Cursor(), "6 Description");
    f.Type("Gain");
    f.Press(Qt::Key_Tab);
    EXPECT_EQ(f.Cursor(), "6 Col_1");
    f.Press(Qt::Key_Tab);
    EXPECT_CELL("F1", 6, "Description", "Gain");
}

}  // namespace tallmar
