// Edit forms in the main window: what a change, a calculation, a refused row and another program do to them.
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <functional>

#include "common/variant.h"
#include "screens/edit/edit_form.h"
#include "shell/shell_test.h"

namespace tallmar {
namespace {

class EditWindowsTest : public ShellTest {
  protected:
    EditForm& Edit(const char* item) {
        main->Forms().Open_Worksheet_Form(FormMode::Edit, item);
        return *qobject_cast<EditForm*>(main->Forms().Find_Form(item, FormMode::Edit));
    }
    static QModelIndex Cell(const EditForm& form, Currency line, std::string_view field) {
        return form.Model().index(form.Model().Row_Of(line), form.Model().Column_Of(field));
    }
    static void Enter(EditForm& form, Currency line, std::string_view field, const QString& text) {
        form.Entry_Grid().setCurrentIndex(Cell(form, line, field));
        EXPECT_TRUE(form.Entry_Grid().Enter_Text(Cell(form, line, field), text));
    }
    // A reclassification with a code and no explanation, which its row does not let go.
    EditForm& Form_With_Refused_Row() {
        EditForm& form = Edit("A4");
        form.findChild<QPushButton*>("cmdAdd")->click();
        form.findChild<QPushButton*>("cmdAdd")->click();
        Enter(form, 1_cur, "Col_1", "A");
        return form;
    }
    void Expect_Refusal() {
        boxes.Expect_Box("Error: Blank EXPLANATION Item",
                         "The EXPLANATION may not be left blank for the first reclassification in a given code.");
    }
    void Explain(EditForm& form) { Enter(form, 1_cur, "Explanation", "Insurance"); }
    static void Settle() { QCoreApplication::processEvents(); }
    BoxDriver boxes;
};

TEST_F(EditWindowsTest, EntryOfTheMenuOpensTheEditForm) {
    Make_Report(fy2016);
    Entry("mnuEditOpenA").trigger();
    const WorksheetForm* form = main->Forms().Find_Form("A", FormMode::Edit);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->objectName(), "frmEditA");
    EXPECT_EQ(form->windowTitle(), "Edit Worksheet A");
    EXPECT_TRUE(Entry("mnuEditPaste").isEnabled());
}

TEST_F(EditWindowsTest, FirstChangeClosesTheStaleViewOfTheWorksheetOnly) {
    Make_Report(fy2016);
    View("A");
    View("A5");
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "100");
    Settle();
    EXPECT_EQ(main->Forms().Find_Form("A", FormMode::View), nullptr);
    EXPECT_NE(main->Forms().Find_Form("A5", FormMode::View), nullptr);
}

// What the edit checks let through stands for the report as it was then.
TEST_F(EditWindowsTest, AnECRIsNotBuiltOfAReportThatBecameAnother) {
    const std::string path = Make_Report(fy2016);
    const auto expect_forbidden_by = [&](const char* step, const std::function<void()>& act) {
        openReport.ecrMayBeBuilt = true;
        act();
        EXPECT_FALSE(openReport.ecrMayBeBuilt) << step;
    };
    EditForm& form = Edit("A");
    expect_forbidden_by("a changed cell", [&] { Enter(form, 5_cur, "Col_1", "100"); });
    expect_forbidden_by("undo", [&] {
        form.Commit_Grid();
        openReport.ecrMayBeBuilt = true;
        form.Undo();
    });
    Entry("mnuEditClose").trigger();
    expect_forbidden_by("Save As", [&] { EXPECT_TRUE(Report_Save_As(folder.File("copy.CRF"))); });
    expect_forbidden_by("Open", [&] { EXPECT_TRUE(Report_Open(path)); });
    expect_forbidden_by("Close", [&] { EXPECT_TRUE(Report_Close()); });
    expect_forbidden_by("New", [&] { Make_Report(fy2016, "new.CRF"); });
}

TEST_F(EditWindowsTest, AViewFromTheMenuShowsTheRowUnderEdit) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "100");
    Entry("mnuViewOpenA").trigger();
    const WorksheetForm* view = main->Forms().Find_Form("A", FormMode::View);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Model().index(view->Model().Row_Of(5_cur), view->Model().Column_Of("Col_1")).data().toString(),
              "100");
    EXPECT_EQ(db.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")["Col_1"], Value(100_cur));
}

TEST_F(EditWindowsTest, ARefusedRowOpensNoViewOfIt) {
    Make_Report(fy2016);
    EditForm& form = Form_With_Refused_Row();
    Expect_Refusal();
    Entry("mnuViewOpenA4").trigger();
    EXPECT_EQ(main->Forms().Find_Form("A4", FormMode::View), nullptr);
    Entry("mnuViewOpenA5").trigger();
    EXPECT_NE(main->Forms().Find_Form("A5", FormMode::View), nullptr);
    Explain(form);
}

TEST_F(EditWindowsTest, RecalculateStoresTheRowAndOpensTheView) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "1200");
    form.findChild<QPushButton*>("cmdRecalculate")->click();
    Settle();
    const WorksheetForm* view = main->Forms().Find_Form("A", FormMode::View);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Model().index(view->Model().Row_Of(5_cur), view->Model().Column_Of("Col_6")).data().toString(),
              "1,200");
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(form.Grid().currentIndex(), Cell(form, 5_cur, "Col_1"));
}

TEST_F(EditWindowsTest, ViewOpensAtTheLineOfTheEditForm) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 12_cur, "Col_2", "1200");
    form.findChild<QPushButton*>("cmdRecalculate")->click();
    Settle();
    const WorksheetForm* view = main->Forms().Find_Form("A", FormMode::View);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Model().Line(view->Grid().currentIndex().row()), 12_cur);
    EXPECT_EQ(view->Model().Column(view->Grid().currentIndex().column()).field, "Col_2");
}

TEST_F(EditWindowsTest, EditFormOpensAtTheLineOfItsViewAndStaysWhereItWasLeft) {
    Make_Report(fy2016);
    WorksheetForm* view = View("A");
    const auto open_edit_at = [&](Currency line) {
        view->Grid().setCurrentIndex(view->Model().index(view->Model().Row_Of(line), view->Model().Column_Of("Col_1")));
        view->findChild<QPushButton*>("cmdOpenEdit")->click();
        const WorksheetForm* edit = main->Forms().Find_Form("A", FormMode::Edit);
        return edit->Model().Line(edit->Grid().currentIndex().row());
    };
    EXPECT_EQ(open_edit_at(8_cur), 8_cur);
    EXPECT_EQ(open_edit_at(5_cur), 8_cur) << "it was open: its cursor is its own";
}

TEST_F(EditWindowsTest, WalkKeepsAFormThatTookAnEntry) {
    Make_Report(fy2016);
    Edit("A");
    const auto next = [this] {
        main->Forms().Active()->findChild<QPushButton*>("cmdNext")->click();
        Settle();
    };
    next();
    next();
    EXPECT_EQ(Open_Forms(), 2U);
    auto& a5 = *qobject_cast<EditForm*>(main->Forms().Active());
    ASSERT_EQ(a5.Worksheet().Name(), "A5");
    Enter(a5, 1_cur, "Col_2", "40");
    next();
    EXPECT_NE(main->Forms().Find_Form("A5", FormMode::Edit), nullptr);
    EXPECT_EQ(Open_Forms(), 3U);
}

TEST_F(EditWindowsTest, StoredRowIsToldAndUndoneFromTheMenu) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "100");
    ASSERT_TRUE(form.Commit_Grid());
    EXPECT_FALSE(main->statusBar()->currentMessage().isEmpty());
    EXPECT_EQ(db.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")[0].To_Currency(), 100_cur);
    Entry("mnuEditUndo").trigger();
    EXPECT_NE(Nz_Double(db.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")[0]), 100);
}

TEST_F(EditWindowsTest, CtrlSStoresTheRowsAndSaysSo) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "100");
    Entry("mnuReportStore").trigger();
    EXPECT_EQ(db.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")[0].To_Currency(), 100_cur);
    EXPECT_EQ(main->statusBar()->currentMessage(), "Everything is stored.");
    EXPECT_EQ(form.Grid().currentIndex(), Cell(form, 5_cur, "Col_1"));
}

TEST_F(EditWindowsTest, WhatWasTakenBackIsDoneAgainFromTheMenu) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    Enter(form, 5_cur, "Col_1", "100");
    ASSERT_TRUE(form.Commit_Grid());
    Entry("mnuEditUndo").trigger();
    Entry("mnuEditRedo").trigger();
    EXPECT_EQ(db.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")[0].To_Currency(), 100_cur);
    EXPECT_EQ(main->statusBar()->currentMessage(), "Worksheet A, line 5: 1 cell done again.");
    Entry("mnuEditRedo").trigger();
    EXPECT_EQ(main->statusBar()->currentMessage(), "There is nothing to do again.");
}

TEST_F(EditWindowsTest, RefusedRowStopsTheClosingOfAllForms) {
    Make_Report(fy2016);
    View("A");
    EditForm& form = Form_With_Refused_Row();
    boxes.Expect_Box_Starting("Close form frmViewA", "This process requires");
    Expect_Refusal();
    EXPECT_TRUE(The_Platform().Close_All_Forms()) << "as if cancelled";
    EXPECT_EQ(Open_Forms(), 2U);
    Explain(form);
}

TEST_F(EditWindowsTest, RefusedRowKeepsTheReportOpen) {
    Make_Report(fy2016);
    EditForm& form = Form_With_Refused_Row();
    boxes.Expect_Box_Starting("Close form frmEditA4", "This process requires");
    Expect_Refusal();
    Entry("mnuReportClose").trigger();
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(Open_Forms(), 1U);
    Explain(form);
}

TEST_F(EditWindowsTest, RefusedRowKeepsTheProgramRunning) {
    Make_Report(fy2016);
    EditForm& form = Form_With_Refused_Row();
    Expect_Refusal();
    Entry("mnuReportExit").trigger();
    EXPECT_TRUE(main->isVisible());
    EXPECT_TRUE(Report_Is_Open());
    Explain(form);
    boxes.Expect_Box("Rows Not Stored", "Worksheet A-4: row 1 has no cost center and was dropped.");
    Entry("mnuReportExit").trigger();
    EXPECT_FALSE(main->isVisible());
}

TEST_F(EditWindowsTest, ExitStoresTheRowUnderEdit) {
    const std::string path = Make_Report(fy2016);
    Enter(Edit("A"), 5_cur, "Col_1", "4300");
    Entry("mnuReportExit").trigger();
    Database file = DBEngine::OpenDatabase(path);
    EXPECT_EQ(file.Read_Row("SELECT Col_1 FROM A WHERE LineNum = 5;")[0].To_Currency(), 4300_cur);
    file.Close();
}

TEST_F(EditWindowsTest, RefusedRowStopsTheCalculation) {
    Make_Report(fy2016);
    EditForm& form = Form_With_Refused_Row();
    Expect_Refusal();
    Entry("mnuReportCalculate").trigger();
    EXPECT_TRUE(Entry("mnuReportCalculate").isEnabled());
    EXPECT_TRUE(db.Read_Row("SELECT Col_1 FROM A4 WHERE LineNum = 1;")[0].Is_Null());
    Explain(form);
}

TEST_F(EditWindowsTest, CloseAllEditsClosesThemWithoutAQuestion) {
    Make_Report(fy2016);
    View("A");
    Edit("A");
    Edit("A5");
    Entry("mnuEditClose").trigger();
    EXPECT_EQ(Open_Forms(), 1U);
}

TEST_F(EditWindowsTest, CloseButtonClosesTheWindow) {
    Make_Report(fy2016);
    Edit("A").findChild<QPushButton*>("cmdClose")->click();
    Settle();
    EXPECT_EQ(Open_Forms(), 0U);
}

TEST_F(EditWindowsTest, WhatAnotherProgramChangedIsReadAgain) {
    const std::string path = Make_Report(fy2016);
    const EditForm& form = Edit("A");
    main->Look_For_Changes();
    Database other = DBEngine::OpenDatabase(path);
    other.Execute("UPDATE A SET Col_1 = 777 WHERE LineNum = 5;");
    other.Close();
    EXPECT_NE(Cell(form, 5_cur, "Col_1").data().toString(), "777");
    main->Look_For_Changes();
    EXPECT_EQ(Cell(form, 5_cur, "Col_1").data().toString(), "777");
    EXPECT_EQ(main->statusBar()->currentMessage(),
              "Another program has changed the report: its worksheets were read again.");
}

TEST_F(EditWindowsTest, OwnChangesAreNoNews) {
    Make_Report(fy2016);
    EditForm& form = Edit("A");
    main->Look_For_Changes();
    Enter(form, 5_cur, "Col_1", "100");
    ASSERT_TRUE(form.Commit_Grid());
    const QString told = main->statusBar()->currentMessage();
    main->Look_For_Changes();
    EXPECT_EQ(main->statusBar()->currentMessage(), told);
}

TEST_F(EditWindowsTest, ChangedIdentityReloadsS2AndClosesTheOthers) {
    Make_Report(fy2016);
    const EditForm& s2 = Edit("S2");
    View("A");
    db.Execute("UPDATE S2 SET Col_1 = \"Another Agency\" WHERE LineNum = 2;");
    main->Forms().Identity_Changed();
    EXPECT_EQ(Open_Forms(), 1U);
    EXPECT_EQ(Cell(s2, 2_cur, "Col_1").data().toString(), "Another Agency");
}

}  // namespace
}  // namespace tallmar
