// Rows that come and go, undo, paste, and rows that others change.
#include <QClipboard>

#include "report/open_report.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

void Put_On_Clipboard(const char* text) {
    QApplication::clipboard()->setText(text);
}

}  // namespace

TEST(EditRows, ButtonsStandWhereTheFormHasThem) {
    Report r(fy2016);
    const auto shown = [](const char* item) {
        Screen s(item);
        std::string names;
        for (const QPushButton* button : s.form.findChild<QWidget*>("picButtons")->findChildren<QPushButton*>()) {
            names += button->objectName().toStdString() + " ";
        }
        return names;
    };
    EXPECT_EQ(shown("A"), "cmdOpenView cmdRecalculate cmdClose cmdPrevious cmdNext ");
    EXPECT_EQ(shown("A4"), "cmdAdd cmdDelete cmdOpenView cmdRecalculate cmdClose cmdPrevious cmdNext ");
    EXPECT_EQ(shown("B1"), "cmdOpenView cmdRecalculate cmdStatLinks cmdClose cmdPrevious cmdNext ");
}

TEST(EditRows, AddAndDeleteOnEveryFormThatHasThem) {
    struct Case {
        const char* item;
        Currency at, added;
    };
    for (const auto& [item, at, added] :
         {Case{"A4", {}, 1_cur}, Case{"A5", {}, 13_cur}, Case{"A6pC", {}, 1_cur}, Case{"S3p3", {}, 29_cur},
          Case{"D1", 3.5_cur, 3.51_cur}, Case{"F1", 6_cur, 6.01_cur}}) {
        Report r(fy2016);
        Screen s(item);
        if (at != Currency()) s.At(at, 1);
        const int rows = s.form.Model().rowCount();
        s.Button("cmdAdd")->click();
        EXPECT_EQ(s.form.Model().rowCount(), rows + 1) << item;
        EXPECT_EQ(s.form.Model().Line(s.grd.currentIndex().row()), added) << item;
        EXPECT_TRUE(s.grd.Entries().Takes_Entry(s.grd.currentIndex())) << item;
        EXPECT_EQ(s.told.back(), "Line " + added.To_Text() + " added.");
        EXPECT_EQ(s.changes, 1) << item;
        s.Button("cmdDelete")->click();
        EXPECT_EQ(s.form.Model().rowCount(), rows) << item;
        EXPECT_EQ(s.told.back(), "Line " + added.To_Text() + " removed. Ctrl+Z brings it back.");
        s.Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(s.form.Model().rowCount(), rows + 1) << item;
        EXPECT_EQ(s.form.Model().Line(s.grd.currentIndex().row()), added) << item;
        s.form.Undo();
        EXPECT_EQ(s.form.Model().rowCount(), rows) << item;
        EXPECT_FALSE(s.form.Can_Undo());
    }
}

TEST(EditRows, TheFormsOwnLinesStay) {
    Report r(fy2016);
    Screen s("A5");
    s.At(3, 2);
    s.Type("7");
    s.Button("cmdDelete")->click();
    EXPECT_EQ(s.told.back(), "Line 3 is the form's own and stays.");
    EXPECT_EQ(s.changes, 0) << "the entry under the editor was given up, and nothing was stored";
}

TEST(EditRows, AddStoresTheRowFirstAndStopsWhereItIsRefused) {
    Report r(fy2016);
    Screen s("A4");
    s.Button("cmdAdd")->click();
    s.At(1, 1);
    s.Type("a");
    s.Press(Qt::Key_Tab);
    r.platform.Expect_Box_Starting("Error: Blank EXPLANATION Item", "");
    s.Button("cmdAdd")->click();
    EXPECT_EQ(s.form.Model().rowCount(), 1);
    s.Button("cmdDelete")->click();
    EXPECT_EQ(s.form.Model().rowCount(), 0);
    s.Button("cmdDelete")->click();
    EXPECT_EQ(r.platform.boxes.size(), 1U);
}

TEST(EditRows, ClosingNumbersAnew) {
    Report r(fy2016);
    {
        Screen s("A4");
        for (const char* code : {"b", "a"}) {
            s.Button("cmdAdd")->click();
            s.Press(Qt::Key_Home);
            s.At(s.form.Model().Line(s.grd.currentIndex().row()), "Explanation");
            s.Type("Why");
            s.Press(Qt::Key_Tab);
            s.Type(code);
            s.Press(Qt::Key_Tab);
            s.Type("5");
            s.Press(Qt::Key_Tab);
        }
        s.Button("cmdAdd")->click();
        EXPECT_TRUE(s.form.close());
    }
    EXPECT_CELL("A4", 1, 1, "A");
    EXPECT_CELL("A4", 2, 1, "B");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4;"), Value(3)) << "the empty row went";
}

TEST(EditUndo, ByKeySelectsTheCellAlone) {
    Report r(fy2016);
    Screen a("A");
    a.At(3, 3);
    a.Type("13");
    a.Press(Qt::Key_Return);
    a.Press(Qt::Key_Down);
    a.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(a.Cursor(), "3 Col_3");
    EXPECT_EQ(a.grd.selectionModel()->selectedIndexes().size(), 1);
}

TEST(EditUndo, GoesBackStepByStep) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Type("1");
    s.Press(Qt::Key_Return);
    s.Type("2");
    s.Press(Qt::Key_Return);
    s.Type("3");
    s.Press(Qt::Key_Tab);
    EXPECT_TRUE(s.form.Can_Undo());
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(s.told.back(), "The entries of the row were taken back.");
    EXPECT_EQ(s.Shown(8, 1), "0");
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(s.told.back(), "Worksheet A, line 7: 1 cell taken back.");
    EXPECT_EQ(s.Cursor(), "7 Col_2");
    EXPECT_CELL("A", 7, 1, 0_cur);
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(s.Shown(6, 1), "0");
    EXPECT_FALSE(s.form.Can_Undo());
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(s.told.back(), "There is nothing to take back.");
}

TEST(EditUndo, ListsWhatChangedSince) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Type("1");
    s.Press(Qt::Key_Return);
    r.Cell("A", 6, 1, 99_cur);
    s.form.Undo();
    ASSERT_EQ(r.platform.batches.size(), 1U);
    EXPECT_EQ(r.platform.batches.front().rows.front().message,
              "Worksheet A, line 6, column 1 Salaries: changed since then and kept.");
    EXPECT_EQ(s.Shown(6, 1), "99");
}

TEST(EditPaste, GoesInFromTheCursorOn) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    Put_On_Clipboard("$1,200\t(70)\r\n5\tx\r\n");
    s.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_CELL("A", 6, 2, -70_cur);
    EXPECT_CELL("A", 7, 1, 5_cur);
    EXPECT_EQ(s.Shown(6, 2), "(70)");
    EXPECT_EQ(s.told.back(), "Worksheet A: 3 cells stored.");
    EXPECT_EQ(s.changes, 1);
    EXPECT_TRUE(r.platform.boxes.empty());
    ASSERT_EQ(r.platform.batches.size(), 1U);
    EXPECT_EQ(r.platform.batches.front().title, "The following messages were generated during the Paste process.");
    ASSERT_EQ(r.platform.batches.front().rows.size(), 1U);
    EXPECT_EQ(r.platform.batches.front().rows.front().level, "E");
    EXPECT_EQ(r.platform.batches.front().rows.front().form, "A");
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_EQ(s.Cursor(), "6 Col_1");
}

TEST(EditPaste, OneValueFillsTheSelection) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Press(Qt::Key_Right, Qt::ShiftModifier);
    s.Press(Qt::Key_Down, Qt::ShiftModifier);
    Put_On_Clipboard("9");
    s.form.Paste();
    for (const int line : {6, 7}) {
        for (const int column : {1, 2}) EXPECT_CELL("A", line, column, 9_cur);
    }
    EXPECT_CELL("A", 6, 3, 0_cur);
    EXPECT_CELL("A", 8, 1, 0_cur);
}

TEST(EditPaste, WhatWasCopiedGoesInAgain) {
    Report r(fy2016);
    for (const int line : {6, 7}) r.Cell("A", line, 1, 1234.56_cur);
    Screen s("A");
    s.At(6, 1);
    s.Press(Qt::Key_Down, Qt::ShiftModifier);
    s.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1234.56\n1234.56");
    s.Click(9, 3);
    s.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_CELL("A", 9, 3, 1235_cur);
    EXPECT_CELL("A", 10, 3, 1235_cur);
    ASSERT_EQ(r.platform.batches.size(), 1U);
    EXPECT_EQ(r.platform.batches.front().rows.front().level, "W");
}

TEST(EditPaste, AddsRowsWhereTheFormAddsThem) {
    Report r(fy2016);
    Screen s("A4");
    s.Button("cmdAdd")->click();
    s.At(1, "Explanation");
    Put_On_Clipboard("Insurance\tA\t\t1\t100\t\t5\t100\nInterest\tB\t\t2\t50\t\t5\t50\n");
    s.form.Paste();
    EXPECT_TRUE(r.platform.batches.empty());
    EXPECT_EQ(s.form.Model().rowCount(), 2);
    EXPECT_CELL("A4", 2, 3, 2_cur);
    s.form.Undo();
    EXPECT_EQ(s.form.Model().rowCount(), 1);
}

TEST(EditOthers, AChangedCellIsOverwrittenOnlyByThePersonsWord) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Type("5");
    s.Press(Qt::Key_Tab);
    r.Cell("A", 6, 1, 99_cur);
    constexpr const char* kTitle = "Warning: Entry Changed By Another Program";
    constexpr const char* kText =
        "Worksheet A, line 6 was changed by another program meanwhile.  Column 1 Salaries holds '99', you entered '5'. "
        " Select "
        "OK to store your entry, or Cancel to keep it in the row without storing it.";
    r.platform.Expect_Box(kTitle, kText, Answer::Cancel);
    s.Press(Qt::Key_Down);
    EXPECT_EQ(s.Cursor(), "6 Col_2");
    EXPECT_EQ(s.Shown(6, 1), "5");
    EXPECT_CELL("A", 6, 1, 99_cur);
    s.Press(Qt::Key_Down);
    EXPECT_EQ(s.Cursor(), "7 Col_2") << "asked and answered: the next leaving stores it";
    EXPECT_CELL("A", 6, 1, 5_cur);
    s.form.Undo();
    EXPECT_CELL("A", 6, 1, 99_cur);
}

TEST(EditOthers, ALineThatIsGoneIsToldAndDiscarded) {
    Report r(fy2016);
    Screen s("A5");
    s.Button("cmdAdd")->click();
    s.At(13, 2);
    s.Type("5");
    s.Press(Qt::Key_Tab);
    r.Execute("DELETE FROM A5 WHERE LineNum = 13;");
    r.platform.Expect_Box("Entry Not Stored", "The line is no longer in the worksheet.");
    s.Press(Qt::Key_Up);
    s.Press(Qt::Key_Escape);
    EXPECT_EQ(s.form.Model().Row_Of(13_cur), -1);
    EXPECT_TRUE(s.form.close());
}

TEST(EditOthers, ALineThatIsGoneIsReadAwayAsTheCursorComes) {
    Report r(fy2016);
    Screen s("A5");
    s.Button("cmdAdd")->click();
    s.At(12, 2);
    r.Execute("DELETE FROM A5 WHERE LineNum = 13;");
    s.At(13, 2);
    s.Type("5");
    QTest::qWait(20);
    EXPECT_EQ(s.form.Model().Row_Of(13_cur), -1);
    s.At(12, 2);
    s.Type("6");
    s.Press(Qt::Key_Up);
    EXPECT_CELL("A5", 12, 2, 6_cur);
}

TEST(EditOthers, LinesThatAreGoneAreReadAwayEachTime) {
    Report r(fy2016);
    Screen s("A5");
    std::vector<Currency> added;
    for (int i = 0; i < 2; ++i) {
        s.Button("cmdAdd")->click();
        added.push_back(s.form.Model().Line(s.grd.currentIndex().row()));
    }
    ASSERT_NE(added[0], added[1]);
    for (const Currency line : added) {
        s.At(12, 2);
        r.Execute("DELETE FROM A5 WHERE LineNum = " + line.To_Text() + ";");
        s.At(line, 2);
        EXPECT_TRUE(QTest::qWaitFor([&] { return s.form.Model().Row_Of(line) == -1; })) << line.To_Text();
    }
}

TEST(EditOthers, DeleteWithoutARowDoesNothing) {
    Report r(fy2016);
    Screen s("A6pC");
    ASSERT_EQ(s.form.Model().rowCount(), 0);
    s.Press(Qt::Key_Delete);
    s.Press(Qt::Key_Return);
    s.Press(Qt::Key_Escape);
    EXPECT_TRUE(s.told.empty());
    EXPECT_TRUE(r.platform.boxes.empty());
    EXPECT_EQ(s.changes, 0);
}

TEST(EditOthers, ATableThatIsGoneTakesNothing) {
    Report r(fy2016);
    Screen s("F");
    s.At(3, 1);
    r.Execute("DROP TABLE F;");
    s.At(5, 1);
    s.Type("6");
    s.Press(Qt::Key_F2);
    QTest::qWait(20);
    s.Press(Qt::Key_Down);
    s.form.grab();
    EXPECT_EQ(s.Editor(), nullptr);
    EXPECT_FALSE(s.told.empty());
    EXPECT_TRUE(s.form.close());
}

TEST(EditOthers, WhatFollowsARowMayFailAndTheRowIsStored) {
    Report r(fy2016);
    Screen s("S2");
    s.At(26, 1);
    s.Type("1");
    r.Execute("DROP TABLE CostCenters;");
    r.platform.Expect_Box_Starting("Error: Entry Not Stored", "");
    s.Press(Qt::Key_Tab);
    s.Press(Qt::Key_Tab);
    EXPECT_CELL("S2", 26, 1, "1");
    s.At(20, 1);
    s.Type("y");
    s.Press(Qt::Key_Tab);
    EXPECT_CELL("S2", 20, 1, "Y");
}

TEST(EditRows, WalkingOnStoresTheRow) {
    Report r(fy2016);
    Screen s("A");
    std::string next;
    QObject::connect(&s.form, &WorksheetForm::Open_Requested,
                     [&](FormMode, const QString& item) { next = item.toStdString(); });
    s.At(6, 1);
    s.Type("x");
    r.platform.Expect_Box_Starting("Invalid Non-Numeric Entry", "");
    s.Button("cmdNext")->click();
    EXPECT_EQ(next, "");
    s.Type("5");
    s.Button("cmdNext")->click();
    EXPECT_EQ(next, "A4");
    EXPECT_CELL("A", 6, 1, 5_cur);
}

TEST(EditCounty, IsStoredAsItsEntryIsLeft) {
    Report r(fy2016);
    Screen s("S3p1");
    auto* county = s.form.findChild<QLineEdit*>("tbCounty");
    ASSERT_NE(county, nullptr);
    EXPECT_FALSE(county->isReadOnly());
    county->setFocus();
    s.Type("Harlan");
    s.Press(Qt::Key_Return);
    EXPECT_CELL("S3p1", 0, "Description", "Harlan");
    EXPECT_EQ(s.told, std::vector<std::string>{"Worksheet S3p1: 1 cell stored."});
    EXPECT_EQ(s.changes, 1);
    s.form.Undo();
    EXPECT_CELL("S3p1", 0, "Description", Null);
    EXPECT_EQ(county->text(), "");
}

TEST(EditCounty, IsRefusedOnceWhereItIsTooLong) {
    Report r(fy2016);
    Screen s("S3p1");
    auto* county = s.form.findChild<QLineEdit*>("tbCounty");
    county->setFocus();
    s.Type(std::string(37, 'x').c_str());
    r.platform.Expect_Box_Starting("Invalid Length Entry", "You're attempting");
    s.grd.setFocus();
    EXPECT_EQ(county->text(), "");
    EXPECT_EQ(r.platform.boxes.size(), 1U);
    EXPECT_CELL("S3p1", 0, "Description", Null);
}

TEST(EditRows, RedoByItsKeys) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Type("1200");
    s.Press(Qt::Key_Return);
    EXPECT_CELL("A", 6, 1, 1200_cur);
    s.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_CELL("A", 6, 1, 0_cur);
    s.Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_EQ(s.Cursor(), "6 Col_1");
    s.form.Redo();
    EXPECT_EQ(s.told.back(), "There is nothing to do again.");
}

TEST(EditRows, FillDownTakesTheFirstRowOfTheSelection) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.Type("12");
    s.Press(Qt::Key_Right);
    s.Type("34");
    s.Press(Qt::Key_Return);
    s.At(6, 1);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down}) s.Press(key, Qt::ShiftModifier);
    s.form.Fill_Down();
    for (const int line : {6, 7, 8}) {
        EXPECT_CELL("A", line, 1, 12_cur);
        EXPECT_CELL("A", line, 2, 34_cur);
    }
    EXPECT_CELL("A", 9, 1, 0_cur);
    s.At(9, 2);
    s.form.Fill_Down();
    EXPECT_CELL("A", 9, 2, 34_cur);
    s.form.Undo();
    s.form.Undo();
    EXPECT_CELL("A", 7, 1, 0_cur);
    EXPECT_CELL("A", 6, 1, 12_cur);
}

}  // namespace tallmar
