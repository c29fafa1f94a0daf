// A row under edit: how it is marked, discarded, restored, and stored when no key comes.
#include "report/open_report.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

bool Is_Marked(const Screen& s, int row) {
    return s.form.Model().index(row, 0).data(kPendingRole).toBool();
}

}  // namespace

TEST(EditPending, ARowWithEntriesIsMarkedUntilItIsStored) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    const int row = a.grd.currentIndex().row();
    const auto seen = [&](int zoom) {
        a.grd.Set_Zoom(zoom);
        return a.grd.viewport()->grab(a.grd.visualRect(a.form.Model().index(row, 0))).toImage();
    };
    std::map<int, QImage> plain;
    for (const int zoom : {50, 300, 100}) plain[zoom] = seen(zoom);
    a.Type("5");
    EXPECT_FALSE(Is_Marked(a, row)) << "what is under the editor is no entry yet";
    a.Press(Qt::Key_Tab);
    EXPECT_TRUE(Is_Marked(a, row));
    for (const auto& [zoom, image] : plain) EXPECT_NE(seen(zoom), image) << zoom;
    // In the colour of what is at work, from the palette.
    const QImage marked = seen(300);
    const QRgb ink = a.grd.palette().color(QPalette::Highlight).rgb();
    bool found = false;
    for (int x = 0; x < marked.width() && !found; ++x) {
        for (int y = 0; y < marked.height() && !found; ++y) found = marked.pixel(x, y) == ink;
    }
    EXPECT_TRUE(found);
    a.grd.Set_Zoom(100);
    a.Press(Qt::Key_Down);
    EXPECT_FALSE(Is_Marked(a, row));
    EXPECT_EQ(seen(100), plain[100]);
}

// Escape by habit, after a list or a box, costs nothing.
TEST(EditPending, WhatEscapeTakesBackComesBackByCtrlZ) {
    Report r(fy2016);
    Screen s("S2");
    s.At(1.01, 1);
    s.Type("Springfield");
    s.Press(Qt::Key_Tab);
    s.Type("IL");
    s.Press(Qt::Key_Tab);
    const std::string cursor = s.Cursor();
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(s.Shown(1.01, 1), "");
    EXPECT_EQ(s.told.back(), "The entries of the row were taken back. Ctrl+Z brings them back.");
    EXPECT_TRUE(s.form.Can_Undo());
    s.At(5, 1);
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(s.Shown(1.01, 1), "Springfield");
    EXPECT_EQ(s.Shown(1.01, 2), "IL");
    EXPECT_TRUE(Is_Marked(s, s.grd.currentIndex().row()));
    s.Press(Qt::Key_Down);
    EXPECT_CELL("S2", 1.01, 1, "Springfield");
    EXPECT_CELL("S2", 1.01, 2, "IL");
}

TEST(EditPending, CtrlZGoesOnToTheStepBeforeOnceTheRowIsBack) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("1");
    a.Press(Qt::Key_Return);
    a.Type("2");
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Escape);
    for (const char* told : {"The entries of the row are back.", "The entries of the row were taken back.",
                             "Worksheet A, line 6: 1 cell taken back.", "There is nothing to take back."}) {
        a.Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(a.told.back(), told);
    }
}

TEST(EditPending, AnotherEntryEndsWhatEscapeLeft) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("1");
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Escape);
    a.At(7, 1);
    a.Type("2");
    a.Press(Qt::Key_Return);
    a.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_CELL("A", 7, 1, 0_cur);
    EXPECT_EQ(a.Shown(6, 1), "0");
    EXPECT_FALSE(a.form.Can_Undo());
}

TEST(EditPending, WhatACheckWroteBesideTheRowComesBackWithIt) {
    Report r(fy2016);
    Screen s("B1");
    const auto overrides = [&] { return db.Read_Rows("SELECT * FROM B1X;").size(); };
    s.At(6, "CC_500");
    s.Type("4");
    r.platform.Expect_Box_Starting(
        "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center", "The statistic",
        Answer::Ok);
    // It is the last entry of its row, and Tab would store the row.
    s.Press(Qt::Key_Backtab);
    EXPECT_EQ(overrides(), 1U);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(overrides(), 0U);
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(overrides(), 1U);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(overrides(), 0U);
}

TEST(EditPending, EscapeWithoutEntriesTakesNothingBack) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("1");
    a.Press(Qt::Key_Return);
    const std::vector<std::string> told = a.told;
    a.Press(Qt::Key_Escape);
    EXPECT_EQ(a.told, told);
    EXPECT_CELL("A", 6, 1, 1_cur);
}

// A view may have been opened after the row was discarded.
TEST(EditPending, TheFirstChangeIsToldAgainAfterTheRowWasDiscarded) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("5");
    a.Press(Qt::Key_Tab);
    a.Press(Qt::Key_Escape);
    EXPECT_EQ(a.changes, 1);
    a.Type("7");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.changes, 2);
    a.form.Undo();
    a.Type("8");
    a.Press(Qt::Key_Tab);
    EXPECT_EQ(a.changes, 3);
}

TEST(EditPending, ARowIsStoredWhenNoKeyComesAndTheCursorStays) {
    Report r(fy2016);
    Screen a("A");
    a.grd.Set_Idle_Time(std::chrono::milliseconds(1));
    a.At(6, 1);
    a.Type("5");
    a.Press(Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !a.form.Model().Form().Has_Entries(); }));
    EXPECT_CELL("A", 6, 1, 5_cur);
    EXPECT_EQ(a.Cursor(), "6 Col_2");
    EXPECT_EQ(a.told.back(), "Worksheet A, line 6: 1 cell stored.");
    EXPECT_TRUE(a.form.Can_Undo());
}

TEST(EditPending, AnEntryUnderTheEditorWaits) {
    Report r(fy2016);
    Screen a("A");
    a.grd.Set_Idle_Time(std::chrono::milliseconds(1));
    a.At(6, 1);
    a.Type("5");
    a.Press(Qt::Key_Tab);
    a.Type("12");
    QTest::qWait(50);
    EXPECT_CELL("A", 6, 1, 0_cur);
    ASSERT_NE(a.Editor(), nullptr);
    EXPECT_EQ(a.Editor()->text(), "12");
    a.Press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !a.form.Model().Form().Has_Entries(); }));
    EXPECT_CELL("A", 6, 1, 5_cur);
}

TEST(EditPending, ARowThatItsCheckHoldsWaitsWithoutABox) {
    Report r(fy2016);
    Screen s("A4");
    s.Button("cmdAdd")->click();
    s.grd.Set_Idle_Time(std::chrono::milliseconds(1));
    s.At(1, 1);
    s.Type("a");
    s.Press(Qt::Key_Tab);
    QTest::qWait(50);
    EXPECT_TRUE(r.platform.boxes.empty());
    EXPECT_TRUE(Is_Marked(s, 0));
    EXPECT_CELL("A4", 1, 1, Null);
    s.Press(Qt::Key_Escape);
}

TEST(EditPending, ARowThatAnotherProgramChangedWaitsForThePerson) {
    Report r(fy2016);
    Screen a("A");
    a.At(6, 1);
    a.Type("5");
    a.Press(Qt::Key_Tab);
    r.Cell("A", 6, 1, 99_cur);
    a.grd.Set_Idle_Time(std::chrono::milliseconds(1));
    QTest::qWait(50);
    EXPECT_CELL("A", 6, 1, 99_cur);
    EXPECT_TRUE(a.form.Model().Form().Has_Entries());
    r.platform.Expect_Box_Starting("Warning: Entry Changed By Another Program", "", Answer::Ok);
    a.Press(Qt::Key_Down);
    EXPECT_CELL("A", 6, 1, 5_cur);
}

}  // namespace tallmar
