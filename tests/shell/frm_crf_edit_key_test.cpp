#include "shell/frm_crf_edit_key.h"

#include <QLineEdit>
#include <QPushButton>

#include "report/open_report.h"
#include "report/store.h"
#include "shell/dialog_test.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

class EditKeyFormTest : public testing::Test {
  protected:
    EditKeyFormTest() { Open(*form); }
    QLineEdit& Entry(const char* name) const { return Child<QLineEdit>(*form, name); }
    std::string Entered(const char* name) const { return Entry(name).text().toStdString(); }
    void Enter(const char* name, const char* text) const {
        Entry(name).setFocus();
        Entry(name).selectAll();
        Type(text);
    }
    void Click(const char* name) const {
        QTest::mouseClick(&Child<QPushButton>(*form, name), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    std::string Stored_Number() const { return report.Read("SELECT ProviderNumber FROM Master;").To_Text(); }

    Report report{fy2016};
    TempFolder folder;
    int changes = 0;
    bool saveAsEnabled = true;
    DialogPtr form = Make_CRF_Edit_Key(nullptr, [this] {
        ++changes;
        saveAsEnabled = Child<QPushButton>(*form, "cmdSaveAs").isEnabled();
    });
};

}  // namespace

TEST_F(EditKeyFormTest, ShowsThePresentIdentity) {
    EXPECT_EQ(form->objectName(), "frmCRFEditKey");
    EXPECT_EQ(Entered("txtProviderNum"), "14-7100");
    EXPECT_EQ(Entered("txtFYStart"), "10/1/2015");
    EXPECT_EQ(Entered("txtFYEnd"), "9/30/2016");
    EXPECT_EQ(Entered("txtFacilityName"), "Prairie Home Health");
}

TEST_F(EditKeyFormTest, SaveWritesMasterAndS2AndTellsTheWindow) {
    Enter("txtProviderNum", "157200");
    Enter("txtFYStart", "1/1/2016");
    Enter("txtFYEnd", "12/31/2016");
    Enter("txtFacilityName", "Harbor \"Home\" Health");
    Press(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(Stored_Number(), "15-7200");
    EXPECT_EQ(report.Read("SELECT FYEnd FROM Master;"), Value(Date_Of(2016, 12, 31)));
    EXPECT_CELL("S2", 2, 1, "Harbor \"Home\" Health");
    EXPECT_CELL("S2", 2, 2, "15-7200");
    EXPECT_CELL("S2", 7, 1, "01/01/2016");
    EXPECT_CELL("S2", 7, 2, "12/31/2016");
    EXPECT_EQ(openReport.FYStart, Date_Of(2016, 1, 1));
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(saveAsEnabled);
    EXPECT_GT(report.platform.menusStale, 0);
}

TEST_F(EditKeyFormTest, RefusedEntryIsReturnedToAndNothingIsSaved) {
    report.platform.Expect_Box("Error: Invalid Dates", "Invalid sequence of dates -- FY End preceeds FY Start.");
    Enter("txtProviderNum", "157200");
    Enter("txtFYEnd", "9/30/2015");
    Click("cmdSave");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &Entry("txtFYEnd"));
    EXPECT_EQ(Entry("txtFYEnd").selectedText(), "9/30/2015");
    EXPECT_EQ(Entered("txtProviderNum"), "15-7200");
    EXPECT_EQ(Stored_Number(), "14-7100");
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(Child<QPushButton>(*form, "cmdSaveAs").isEnabled());
}

TEST_F(EditKeyFormTest, LeavingABadProviderNumberTells) {
    report.platform.Expect_Box("Tallmar 1728",
                               "You have entered an invalid Provider Number!\rProvider number must be 6 digits and "
                               "non-alpha numeric!");
    Enter("txtProviderNum", "14710");
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Entry("txtProviderNum"));
}

TEST_F(EditKeyFormTest, LeavingTheStartFillsAnEmptyEndWithAWholeYear) {
    Enter("txtFYEnd", "");
    Press(Qt::Key_Delete);
    Enter("txtFYStart", "7/1/2015");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Entered("txtFYEnd"), "6/30/2016");
}

TEST_F(EditKeyFormTest, SaveAsChangesACopy) {
    ASSERT_TRUE(Finish_CRF());
    const std::string first = openReport.CRFPath;
    report.platform.Reply_Save(folder.File("Copy.CRF"));
    Enter("txtProviderNum", "157200");
    Click("cmdSaveAs");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(openReport.CRFPath, folder.File("Copy.CRF"));
    EXPECT_EQ(Stored_Number(), "15-7200");
    EXPECT_CELL("S2", 2, 2, "15-7200");
    EXPECT_EQ(changes, 1);
    ASSERT_EQ(report.platform.saveDialogs.size(), 1U);
    EXPECT_EQ(report.platform.saveDialogs[0].title, "Save Cost Report File As ...");
    ASSERT_TRUE(Report_Open(first));
    EXPECT_EQ(Stored_Number(), "14-7100");
}

TEST_F(EditKeyFormTest, SaveAsChecksBeforeItAsksForTheFile) {
    report.platform.Expect_Box_Starting("Error: Invalid Facility Name", "Facility Name must be at least 8 characters.");
    Enter("txtFacilityName", "Short");
    Click("cmdSaveAs");
    EXPECT_TRUE(report.platform.saveDialogs.empty());
    EXPECT_EQ(QApplication::focusWidget(), &Entry("txtFacilityName"));
}

TEST_F(EditKeyFormTest, CancelledSaveAsKeepsTheForm) {
    report.platform.Reply_Save(std::nullopt);
    Enter("txtProviderNum", "157200");
    Click("cmdSaveAs");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Stored_Number(), "14-7100");
}

TEST_F(EditKeyFormTest, FailedSaveAsLeavesTheFirstFileAsItWas) {
    report.platform.Reply_Save(folder.File("no such folder/Copy.CRF"));
    report.platform.Expect_Box(
        "Error: Save As Request Failed",
        "PROBLEM Encountered: Your Save As request failed and was not able to be accomplished.  Your original CRF file "
        "has not been altered.  Hit OK to continue running Tallmar.",
        Answer::Ok, kStop);
    ASSERT_TRUE(Finish_CRF());
    const std::string first = openReport.CRFPath;
    Enter("txtProviderNum", "157200");
    Click("cmdSaveAs");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(openReport.CRFPath, first);
    EXPECT_EQ(Stored_Number(), "14-7100");
}

TEST_F(EditKeyFormTest, CancelChangesNothing) {
    Enter("txtProviderNum", "157200");
    Click("cmdCancel");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored_Number(), "14-7100");
    EXPECT_EQ(openReport.ProviderNumber, "14-7100");
}

TEST_F(EditKeyFormTest, EngineErrorIsToldAndTheFormStays) {
    report.Execute("DROP TABLE S2;");
    report.platform.Expect_Box_Starting("System Error", "");
    Click("cmdSave");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(changes, 0);
}

}  // namespace tallmar
