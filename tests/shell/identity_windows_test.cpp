// The identity of the report entered on Worksheet S-2: which windows follow.
#include "common/variant.h"
#include "screens/edit/edit_form.h"
#include "shell/shell_test.h"

namespace tallmar {
namespace {

class IdentityWindowsTest : public ShellTest {
  protected:
    IdentityWindowsTest() { Make_Report(fy2016); }
    EditForm& Edit(const char* item) {
        main->Forms().Open_Worksheet_Form(FormMode::Edit, item);
        return *qobject_cast<EditForm*>(main->Forms().Find_Form(item, FormMode::Edit));
    }
    static QModelIndex Cell(const WorksheetForm& form, Currency line, std::string_view field) {
        return form.Model().index(form.Model().Row_Of(line), form.Model().Column_Of(field));
    }
    static std::string Shown(const WorksheetForm& form, Currency line, std::string_view field) {
        return Plain_Text(Cell(form, line, field).data().toString());
    }
    static bool Enter(EditForm& form, Currency line, std::string_view field, const QString& text) {
        form.Entry_Grid().setCurrentIndex(Cell(form, line, field));
        return form.Entry_Grid().Enter_Text(Cell(form, line, field), text);
    }
    static void Settle() { QCoreApplication::processEvents(); }
    BoxDriver boxes;
};

TEST_F(IdentityWindowsTest, TheOtherFormsCloseAndS2StaysWithTheIdentityOnIt) {
    View("A");
    Edit("A5");
    View("S2");
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 2_cur, "Col_1", "Harbor Home Health"));
    ASSERT_TRUE(Enter(form, 2_cur, "Col_2", "157200"));
    ASSERT_TRUE(form.Commit_Grid());
    Settle();
    EXPECT_EQ(main->Forms().Find_Form("A", FormMode::View), nullptr);
    EXPECT_EQ(main->Forms().Find_Form("A5", FormMode::Edit), nullptr);
    EXPECT_EQ(main->Forms().Find_Form("S2", FormMode::Edit), &form);
    EXPECT_EQ(Shown(form, 2_cur, "Col_2"), "15-7200");
    EXPECT_EQ(form.Grid().currentIndex(), Cell(form, 2_cur, "Col_2"));
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
}

TEST_F(IdentityWindowsTest, AnAnswerThatIsNotTheIdentityClosesNothing) {
    View("A");
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 2_cur, "Col_3", "7/1/1999"));
    ASSERT_TRUE(form.Commit_Grid());
    ASSERT_TRUE(Enter(form, 2_cur, "Col_1", "Prairie Home Health"));
    ASSERT_TRUE(form.Commit_Grid());
    Settle();
    EXPECT_NE(main->Forms().Find_Form("A", FormMode::View), nullptr);
}

TEST_F(IdentityWindowsTest, TheDatesMayChangeOneAfterTheOther) {
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 7_cur, "Col_1", "10/1/2016"));
    ASSERT_TRUE(Enter(form, 7_cur, "Col_2", "9/30/2017"));
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1)) << "until the row is left";
    ASSERT_TRUE(form.Commit_Grid());
    EXPECT_EQ(openReport.FYStart, Date_Of(2016, 10, 1));
    EXPECT_EQ(Shown(form, 7_cur, "Col_1"), "10/01/2016");
}

TEST_F(IdentityWindowsTest, ARowOfDatesOutOfSequenceIsHeld) {
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 7_cur, "Col_1", "10/1/2016"));
    boxes.Expect_Box("Error: Invalid Dates", "Invalid sequence of dates -- FY End preceeds FY Start.");
    EXPECT_FALSE(form.Commit_Grid());
    EXPECT_EQ(db.Read_Row("SELECT FYStart FROM Master;")[0], Value(Date_Of(2015, 10, 1)));
    form.Undo();
}

TEST_F(IdentityWindowsTest, AMovedYearHasItsMenusAndItsForms) {
    View("S21");
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 7_cur, "Col_1", "10/1/1998"));
    ASSERT_TRUE(Enter(form, 7_cur, "Col_2", "9/30/1999"));
    boxes.Expect_Box_Starting("Change of Fiscal Year", "The new fiscal year uses other worksheets: A-1", Answer::Yes);
    boxes.Expect_Box_Starting("Close form frmViewS21", "This process requires all forms to be closed.");
    ASSERT_TRUE(form.Commit_Grid());
    Settle();
    EXPECT_EQ(Open_Forms(), 1U);
    EXPECT_TRUE(Entry("mnuEditOpenA1").isEnabled());
    EXPECT_FALSE(Entry("mnuEditOpenS21").isEnabled());
    EXPECT_NE(View("A1"), nullptr);
    Run("mnuReportCalculate");
}

TEST_F(IdentityWindowsTest, AMoveThatIsNotConfirmedStaysInTheRow) {
    EditForm& form = Edit("S2");
    ASSERT_TRUE(Enter(form, 7_cur, "Col_1", "10/1/1998"));
    ASSERT_TRUE(Enter(form, 7_cur, "Col_2", "9/30/1999"));
    boxes.Expect_Box_Starting("Change of Fiscal Year", "The new fiscal year", Answer::No);
    EXPECT_FALSE(form.Commit_Grid());
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1));
    EXPECT_EQ(Shown(form, 7_cur, "Col_1"), "10/01/1998");
    form.Undo();
    EXPECT_EQ(Shown(form, 7_cur, "Col_1"), "10/1/2015");
}

}  // namespace
}  // namespace tallmar
