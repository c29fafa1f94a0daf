// B-1: what asks before a statistic is changed asks once, and Cancel keeps the former value.
#include "report/open_report.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

constexpr const char* kAccumulated =
    "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center";
constexpr const char* kExcluded = "Warning: Modifying An Excluded 'Accumulated Costs' Statistic";
constexpr const char* kRecipient = "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center";
constexpr const char* kOverridden =
    "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center Having An Override Value";
constexpr const char* kModified = "The statistic you just modified";

std::int64_t Overrides() {
    return db.Read_Row("SELECT Count(*) AS Cnt FROM B1X;")["Cnt"].To_Long();
}

void Link(Report& r) {
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
}

}  // namespace

TEST(EditB1, AnExclusionIsMadeAndRemovedByOneBoxEach) {
    Report r(fy2016);
    Screen s("B1");
    s.At(6, "CC_500");
    s.Type("4");
    r.platform.Expect_Box_Starting(kAccumulated, kModified);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(Overrides(), 1);
    EXPECT_EQ(s.Cursor(), "7 CC_500");
    s.At(6, "CC_500");
    s.Type("0");
    r.platform.Expect_Box_Starting(kExcluded, kModified);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(Overrides(), 0);
    EXPECT_EQ(r.platform.boxes.size(), 2U);
    EXPECT_EQ(r.platform.beeps, 0);
}

TEST(EditB1, CancelKeepsTheFormerValue) {
    Report r(fy2016);
    Screen s("B1");
    s.At(6, "CC_500");
    s.Type("4");
    r.platform.Expect_Box_Starting(kAccumulated, kModified, Answer::Cancel);
    s.Click(9, "CC_500");
    EXPECT_EQ(s.Cursor(), "6 CC_500");
    EXPECT_EQ(s.Shown(6, "CC_500"), "0");
    EXPECT_EQ(r.platform.boxes.size(), 1U);
    s.At(7, "CC_500");
    EXPECT_EQ(Overrides(), 0);
    EXPECT_CELL("B1", 6, "CC_500", 0.0);
}

TEST(EditB1, ARecipientTakesAnOverrideAndLosesIt) {
    Report r(fy2016);
    Link(r);
    Screen s("B1");
    s.At(6, "CC_300");
    s.Type("40");
    r.platform.Expect_Box_Starting(kRecipient, kModified);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(Overrides(), 1);
    s.At(6, "CC_300");
    s.Type("50");
    r.platform.Expect_Box_Starting(kOverridden, kModified, Answer::Cancel);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Shown(6, "CC_300"), "40");
    s.Type("60");
    r.platform.Expect_Box_Starting(kOverridden, kModified, Answer::No);
    s.Press(Qt::Key_Return);
    EXPECT_EQ(Overrides(), 0);
    EXPECT_CELL("B1", 6, "CC_300", 60.0);
    s.form.Undo();
    EXPECT_EQ(Overrides(), 1);
    EXPECT_CELL("B1", 6, "CC_300", 40.0);
}

TEST(EditB1, RecipientsShowWhatTheirSourceTook) {
    Report r(fy2016);
    Link(r);
    Screen s("B1");
    s.At(6, "CC_100");
    s.Type("900");
    s.Press(Qt::Key_Return);
    EXPECT_EQ(s.Shown(6, "CC_300"), "900");
    s.form.Undo();
    EXPECT_EQ(s.Shown(6, "CC_100"), "0");
    EXPECT_EQ(s.Shown(6, "CC_300"), "0");
}

TEST(EditB1, EscTakesAnExclusionBackThatWasNotStored) {
    Report r(fy2016);
    Screen s("B1");
    s.At(6, "CC_500");
    s.Type("4");
    r.platform.Expect_Box_Starting(kAccumulated, kModified);
    s.Press(Qt::Key_Left);
    EXPECT_EQ(Overrides(), 1);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(Overrides(), 0);
    EXPECT_EQ(s.Shown(6, "CC_500"), "0");
}

}  // namespace tallmar
