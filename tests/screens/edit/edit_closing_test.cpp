// What a form says of what goes: codes with figures, reclassifications without a cost center, cells that are closed.
#include "report/registry.h"
#include "screens/edit/edit_test.h"
#include "screens/entry_test.h"

namespace tallmar {

namespace {

constexpr const char* kRemoveTitle = "Remove Code";
constexpr const char* kRemoveText =
    "The visits and limits of code 1600 on C Part II will be removed.  Do you wish to continue?";
constexpr int kAsk = kYesNo + kQuestion + kDefaultButton2;

void Enter_Visits() {
    ASSERT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    ASSERT_EQ(Answer_To("Cp2m1600", "1", "5", "120"), kStored);
}

}  // namespace

TEST(EditCodes, ACodeWithVisitsIsAskedForOnce) {
    Report r(fy2016);
    Enter_Visits();
    Screen s("S3p3");
    s.At(29, 1);
    s.Type("1700");
    r.platform.Expect_Box(kRemoveTitle, kRemoveText, Answer::No, kAsk);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Shown(29, 1), "1600");
    EXPECT_EQ(s.Cursor(), "29 Col_1");
    EXPECT_CELL("Cp2m1600", 1, 5, 120.0);
    s.At(29, 1);
    s.Type("1700");
    r.platform.Expect_Box(kRemoveTitle, kRemoveText, Answer::Yes, kAsk);
    s.Press(Qt::Key_Return);
    EXPECT_TRUE(s.form.close());
    EXPECT_EQ(r.platform.boxes.size(), 2U);
    EXPECT_FALSE(TableExists("Cp2m1600", true));
    EXPECT_TRUE(TableExists("Cp2m1700", true));
}

TEST(EditCodes, DeleteKeepsALineThatThePersonKeeps) {
    Report r(fy2016);
    Enter_Visits();
    Screen s("S3p3");
    s.At(29, 1);
    r.platform.Expect_Box(kRemoveTitle, kRemoveText, Answer::No, kAsk);
    s.Button("cmdDelete")->click();
    EXPECT_EQ(s.form.Model().rowCount(), 1);
    EXPECT_TRUE(s.told.empty());
    EXPECT_EQ(s.changes, 0);
    EXPECT_CELL("Cp2m1600", 1, 5, 120.0);
    r.platform.Expect_Box(kRemoveTitle, kRemoveText, Answer::Yes, kAsk);
    s.Button("cmdDelete")->click();
    EXPECT_EQ(s.form.Model().rowCount(), 0);
    EXPECT_FALSE(TableExists("Cp2m1600", true));
}

TEST(EditClosing, AReclassificationWithoutACostCenterIsToldAsItGoes) {
    Report r(fy2016);
    Screen s("A4");
    s.Button("cmdAdd")->click();
    s.At(1, "Explanation");
    s.Type("Move");
    s.Press(Qt::Key_Return);
    r.platform.Expect_Box("Rows Not Stored", "Worksheet A-4: row 1 has no cost center and was dropped.", Answer::Ok,
                          kExclamation);
    EXPECT_TRUE(s.form.close());
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4 WHERE LineNum < 30;"), Value(0));
}

TEST(EditClosing, AnAnswerThatIsNoLongerAskedForCanOnlyBeCleared) {
    Report r(fy2016);
    ASSERT_EQ(Answer_To("S2", "29", "1", "Y"), kStored);
    ASSERT_EQ(Answer_To("S2", "29.01", "1", "Office"), kStored);
    ASSERT_EQ(Answer_To("S2", "29", "1", "N"), kStored);
    Screen s("S2");
    s.At(29.01, 1);
    s.Type("Other");
    r.platform.Expect_Box("Locked Cell",
                          "Worksheet S2, line 29.01, column 1 Name takes no entry: answer line 29 with Y first.",
                          Answer::Ok, kStop);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Shown(29.01, 1), "Office");
    s.At(29.01, 1);
    s.Press(Qt::Key_Delete);
    s.At(1, 1);
    EXPECT_CELL("S2", 29.01, 1, Null);
    s.At(29.01, 1);
    EXPECT_FALSE(s.grd.Entries().Takes_Entry(s.grd.currentIndex())) << "empty, it is closed";
}

TEST(EditClosing, TheNumberLocksTheNameBesideIt) {
    Report r(fy2016);
    Screen s("A6pB");
    s.Button("cmdAdd")->click();
    s.At(1, 1);
    EXPECT_TRUE(s.grd.Entries().Takes_Entry(s.Index(1, 2)));
    s.Type("6");
    s.Press(Qt::Key_Tab);
    EXPECT_EQ(s.Shown(1, 2), "Skilled Nursing Care");
    EXPECT_FALSE(s.grd.Entries().Takes_Entry(s.Index(1, 2)));
    s.At(1, 1);
    s.Press(Qt::Key_Delete);
    EXPECT_EQ(s.Shown(1, 2), "");
    EXPECT_TRUE(s.grd.Entries().Takes_Entry(s.Index(1, 2)));
}

TEST(EditClosing, ATextThatTheElectronicReportCannotCarryIsRefusedAtItsCell) {
    Report r(fy2016);
    Screen s("S2");
    r.platform.Expect_Box_Starting("Invalid Character Entry", "You're attempting to enter invalid data ['Łódź'].",
                                   Answer::Ok, kStop);
    EXPECT_FALSE(s.form.Model().setData(s.Index(1, 1), QString("Łódź"), Qt::EditRole));
    EXPECT_CELL("S2", 1, 1, Null);
}

}  // namespace tallmar
