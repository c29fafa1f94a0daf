#include "shell/frm_create_new_crf.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <filesystem>

#include "catalogue.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/store.h"
#include "shell/dialog_test.h"
#include "support/temp_folder.h"

namespace tallmar {

namespace {

constexpr std::string_view kSixDigits =
    "You have entered an invalid Provider Number!\rProvider number must be 6 numeric digits.";

// The file that the person chooses; the form is hidden while the report is made.
class Desktop : public FakePlatform {
  public:
    void Notify(ReportEvent event) override {
        FakePlatform::Notify(event);
        if (event == ReportEvent::Making) Hide_Create_New_CRF();
    }
};

class CreateNewTest : public testing::Test {
  protected:
    CreateNewTest() {
        Install_Catalogue(All_Families());
        Open(*form);
    }
    ~CreateNewTest() override {
        if (Report_Is_Open()) Report_Release();
    }
    QLineEdit& Entry(const char* name) const { return Child<QLineEdit>(*form, name); }
    std::string Entered(const char* name) const { return Entry(name).text().toStdString(); }
    // Over what stands in the entry.
    static void Key_In(const char* text) {
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        Type(text);
    }
    // As a person goes through the form, with Tab behind each entry but the last.
    void Fill(const char* provider, const char* start, const char* end, const char* name) const {
        Entry("txtProviderNum").setFocus();
        for (const char* text : {provider, start, end}) {
            Key_In(text);
            Press(Qt::Key_Tab);
        }
        Key_In(name);
    }
    // The focus is back in the entry, with all that was keyed selected, and nothing was made.
    void Expect_Returned_To(const char* name) const {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
        EXPECT_EQ(Entry(name).selectedText(), Entry(name).text());
        EXPECT_TRUE(form->isVisible());
        EXPECT_TRUE(platform.saveDialogs.empty());
    }

    TempFolder folder;
    Desktop platform;
    DialogPtr form = Make_Create_New_CRF(nullptr);
};

}  // namespace

TEST_F(CreateNewTest, BeginsInTheProviderNumberOfForm1728) {
    EXPECT_EQ(form->objectName(), "frmCreateNewCRF");
    EXPECT_EQ(Entered("txtFormNum"), "1728");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtProviderNum");
}

TEST_F(CreateNewTest, EnterMakesTheReportAndOpensIt) {
    platform.Reply_Save(folder.File("New.CRF"));
    Fill("147100", "10/1/15", "9/30/16", "Harbor Home Health");
    Press(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(Entered("txtProviderNum"), "14-7100");
    ASSERT_TRUE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, folder.File("New.CRF"));
    EXPECT_EQ(openReport.ProviderNumber, "14-7100");
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 9, 30));
    EXPECT_FALSE(platform.busy);
    ASSERT_EQ(platform.saveDialogs.size(), 1U);
    EXPECT_EQ(platform.saveDialogs[0].title, "Name New Cost Report File (CRF)");
}

TEST_F(CreateNewTest, ProviderNumberIsRewrittenHoweverItsHyphensStand) {
    for (const char* keyed : {"147100", "14-7100", "1-4-7-1-0-0"}) {
        platform.Expect_Box_Starting("Error: Invalid Facility Name", "Facility Name must be at least 8");
        Fill(keyed, "10/1/15", "9/30/16", "Short");
        Press(Qt::Key_Return);
        EXPECT_EQ(Entered("txtProviderNum"), "14-7100");
    }
}

TEST_F(CreateNewTest, ProviderNumberOfOtherThanSixDigitsIsRefused) {
    for (const char* keyed : {"14710", "1471000", "14710A", "HO1234", ""}) {
        platform.Expect_Box("Tallmar 1728", kSixDigits, Answer::Ok, kOkOnly);
        Fill(keyed, "10/1/15", "9/30/16", "Harbor Home Health");
        Press(Qt::Key_Return);
        EXPECT_EQ(Entered("txtProviderNum"), keyed);
        Expect_Returned_To("txtProviderNum");
    }
    EXPECT_EQ(platform.beeps, 5);
}

TEST_F(CreateNewTest, StartThatIsNoDateIsRefused) {
    platform.Expect_Box("Error: Invalid Fiscal Year Start Date", "Fiscal Year Start date is not a valid date.",
                        Answer::Ok, kExclamation);
    platform.Expect_Box("Error: Invalid Fiscal Year Start Date",
                        "Fiscal Year Start date is not a valid date.  Please (re-)enter one.", Answer::Ok,
                        kExclamation);
    Entry("txtFYStart").setFocus();
    Type("13/45/15");
    Press(Qt::Key_Tab);
    Expect_Returned_To("txtFYStart");
    Fill("147100", "13/45/15", "9/30/16", "Harbor Home Health");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFYStart");
}

TEST_F(CreateNewTest, EndThatIsNoDateIsRefused) {
    platform.Expect_Box("Error: Invalid Fiscal Year End Date", "Fiscal Year End date is not a valid date.", Answer::Ok,
                        kExclamation);
    platform.Expect_Box("Error: Invalid Fiscal Year End Date",
                        "Fiscal Year End date is not a valid date.  Please (re-)enter one.", Answer::Ok, kExclamation);
    Entry("txtFYEnd").setFocus();
    Type("September");
    Press(Qt::Key_Tab);
    Expect_Returned_To("txtFYEnd");
    Fill("147100", "10/1/15", "September", "Harbor Home Health");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFYEnd");
}

TEST_F(CreateNewTest, BoxOfATextComesOnceAndHoldsNobody) {
    platform.Expect_Box_Starting("Error: Invalid Fiscal Year Start Date", "Fiscal Year Start date is not");
    Entry("txtFYStart").setFocus();
    Type("soon");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtFYEnd");
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    platform.Expect_Box_Starting("Error: Invalid Fiscal Year Start Date", "Fiscal Year Start date is not");
    Type("sooner");
    Press(Qt::Key_Tab);
    EXPECT_EQ(platform.boxes.size(), 2U);
}

TEST_F(CreateNewTest, LeavingTheStartFillsAnEmptyEnd) {
    Entry("txtFYStart").setFocus();
    Key_In("10/1/15");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Entered("txtFYEnd"), "9/30/16");
}

TEST_F(CreateNewTest, LeavingTheStartKeepsAnEndThatStands) {
    Entry("txtFYEnd").setText("6/30/16");
    Entry("txtFYStart").setFocus();
    Type("10/1/15");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Entered("txtFYEnd"), "6/30/16");
}

TEST_F(CreateNewTest, GoingToAButtonChecksNothing) {
    Entry("txtFYStart").setFocus();
    Type("soon");
    QTest::mouseClick(&Child<QPushButton>(*form, "cmdCancel"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(CreateNewTest, LeavingTheWindowChecksNothing) {
    Entry("txtFYStart").setFocus();
    Type("soon");
    QLineEdit elsewhere;
    Open(elsewhere);
    QCoreApplication::processEvents();
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(CreateNewTest, ClickOnCreateShowsOneBoxOnly) {
    Fill("147100", "10/1/15", "9/30/16", "Harbor Home Health");
    Entry("txtFYStart").setFocus();
    Entry("txtFYStart").selectAll();
    Type("soon");
    platform.Expect_Box_Starting("Error: Invalid Fiscal Year Start Date",
                                 "Fiscal Year Start date is not a valid date.  ");
    QTest::mouseClick(&Child<QPushButton>(*form, "cmdCreate"), Qt::LeftButton);
    QCoreApplication::processEvents();
    Expect_Returned_To("txtFYStart");
    EXPECT_EQ(platform.boxes.size(), 1U);
}

TEST_F(CreateNewTest, EndBeforeTheStartIsRefused) {
    platform.Expect_Box("Error: Invalid Dates", "Invalid sequence of dates -- FY End preceeds FY Start.", Answer::Ok,
                        kExclamation);
    Fill("147100", "10/1/15", "10/1/15", "Harbor Home Health");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFYEnd");
}

TEST_F(CreateNewTest, LongYearIsAskedForAndNoReturnsToTheEntry) {
    constexpr std::string_view kTitle = "Warning: Dates Span More Than One Fiscal Year";
    constexpr std::string_view kText =
        "The F/Y Start and F/Y End dates entered span more than one fiscal year.  Click on the 'Yes' button to verify "
        "that this is what you intended.  Or, click on the 'No' button to return to the form to alter one or both of "
        "the dates.";
    platform.Expect_Box(kTitle, kText, Answer::No, kYesNo | kExclamation);
    Fill("147100", "1/1/16", "1/1/17", "Harbor Home Health");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFYEnd");

    platform.Expect_Box(kTitle, kText, Answer::Yes, kYesNo | kExclamation);
    platform.Reply_Save(std::nullopt);
    Press(Qt::Key_Return);
    EXPECT_EQ(platform.saveDialogs.size(), 1U);
}

TEST_F(CreateNewTest, WholeLeapYearPasses) {
    platform.Reply_Save(std::nullopt);
    Fill("147100", "1/1/16", "12/31/16", "Harbor Home Health");
    Press(Qt::Key_Return);
    EXPECT_EQ(platform.saveDialogs.size(), 1U);
}

TEST_F(CreateNewTest, ShortAndLongNamesAreRefused) {
    platform.Expect_Box("Error: Invalid Facility Name",
                        "Facility Name must be at least 8 characters.  Please (re-)enter.", Answer::Ok, kExclamation);
    Fill("147100", "10/1/15", "9/30/16", "Seven 7");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFacilityName");
    platform.Expect_Box_Starting("Error: Invalid Facility Name", "Facility Name must be at most 36 characters.");
    Type("A name of thirty-seven characters ...");
    Press(Qt::Key_Return);
    Expect_Returned_To("txtFacilityName");
}

TEST_F(CreateNewTest, CancelledFileDialogLeavesTheFormAndNothingElse) {
    platform.Reply_Save(std::nullopt);
    Fill("147100", "10/1/15", "9/30/16", "Harbor Home Health");
    Press(Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(CreateNewTest, ReportThatCannotBeMadeLeavesTheEntries) {
    platform.Reply_Save(folder.File("no such folder/New.CRF"));
    platform.Expect_Box_Starting("System Error", "");
    Fill("147100", "10/1/15", "9/30/16", "Harbor Home Health");
    Press(Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Entered("txtFacilityName"), "Harbor Home Health");
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_FALSE(platform.busy);
}

TEST_F(CreateNewTest, EscLeavesNothing) {
    Fill("147100", "10/1/15", "9/30/16", "Harbor Home Health");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(platform.boxes.empty());
}

TEST(CreateNew, StandsModallyUntilTheReportIsMadeThoughTheJobHidesIt) {
    const TempFolder folder;
    Desktop platform;
    Install_Catalogue(All_Families());
    platform.Reply_Save(folder.File("no such folder/New.CRF"));
    platform.Expect_Box_Starting("System Error", "");
    platform.Reply_Save(folder.File("New.CRF"));
    When_Modal([](QDialog& form) {
        for (const char* text : {"147100", "10/1/15", "", "Harbor Home Health"}) {
            Type(text);
            if (*text != 'H') Press(Qt::Key_Tab);
        }
        QTest::keyClick(&form, Qt::Key_Return);
        EXPECT_TRUE(form.isVisible());
        QTest::keyClick(&form, Qt::Key_Return);
    });
    EXPECT_TRUE(Show_Create_New_CRF(nullptr));
    EXPECT_TRUE(Report_Is_Open());
    Report_Release();
}

TEST(CreateNew, GivenUpByEsc) {
    FakePlatform platform;
    When_Modal([](QDialog&) { Press(Qt::Key_Escape); });
    EXPECT_FALSE(Show_Create_New_CRF(nullptr));
}

}  // namespace tallmar
