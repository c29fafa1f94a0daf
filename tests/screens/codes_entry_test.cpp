// The MSA and CBSA codes of S-3 Part III, and the worksheets of C Part II that come and go with them.
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/edit_history.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr const char* kRemoveTitle = "Remove Code";
constexpr int kAsk = kYesNo + kQuestion + kDefaultButton2;

std::string Remove_Text(const char* code) {
    return std::string("The visits and limits of code ") + code +
           " on C Part II will be removed.  Do you wish to continue?";
}

// Two codes, the first with visits.
struct ReportWithVisits : Report {
    explicit ReportWithVisits(const FiscalYear& year) : Report(year) {
        EXPECT_EQ(Answer_To("S3p3", "29", "1", "40"), kStored);
        EXPECT_EQ(Answer_To("S3p3", "29.01", "2", "16580"), kStored);
        EXPECT_EQ(Answer_To("Cp2m0040", "1", "5", "120"), kStored);
    }
};

}  // namespace

TEST(Codes, OfAnMSAMayHaveLetters) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "Ab12"), kStored);
    EXPECT_CELL("S3p3", 29, 1, "Ab12");
    EXPECT_TRUE(TableExists("Cp2mAB12", true));
    EXPECT_EQ(Answer_To("Cp2mAB12", "1", "5", "120"), kStored);
    r.Calc();
    EXPECT_CELL("Cp2mAB12", 7, 5, 120.0);
    EXPECT_EQ(Answer_To("S3p3", "29.01", "1", "1E05"), kStored);
    EXPECT_TRUE(TableExists("Cp2m1E05", true));
    EXPECT_EQ(Title_Of("S3p3", "29", "1", "A-12"), "Invalid Non-Numeric Entry");
    EXPECT_EQ(Title_Of("S3p3", "29", "1", "ABCDE"), "Invalid Length Entry");
    EXPECT_EQ(Title_Of("S3p3", "29", "2", "AB123"), "Invalid Non-Numeric Entry");
}

TEST(Codes, AreListedOnce) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "16"), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29.01", "1", "0016"), "Duplicate Code: The code 0016 is already listed.");
    EXPECT_EQ(Answer_To("S3p3", "29.01", "1", "16"), "Duplicate Code: The code 0016 is already listed.");
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "0016"), kStored) << "its own line";
    EXPECT_EQ(Answer_To("S3p3", "29.01", "2", "00016"), kStored) << "a CBSA is another list";
    EXPECT_EQ(Answer_To("S3p3", "29.02", "1", ""), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29.03", "1", ""), kStored) << "blanks are no codes";
    const std::vector<CellText> cells{{"S3p3", "29.04", "1", "1600"}, {"S3p3", "29.05", "1", "1600"}};
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    EXPECT_FALSE(outcomes[0]);
    EXPECT_EQ(Text_Of(outcomes[1]), "The code 1600 is already listed.");
}

TEST(Codes, WithFiguresAskBeforeTheyAreReplaced) {
    ReportWithVisits r(fy2016);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("0040"), Answer::No, kAsk);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), "Remove Code: " + Remove_Text("0040"));
    EXPECT_CELL("S3p3", 29, 1, "40");
    EXPECT_CELL("Cp2m0040", 1, 5, 120.0);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("0040"), Answer::No, kAsk);
    EXPECT_NE(Answer_To("S3p3", "29", "1", ""), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "0040"), kStored) << "the same code";
    EXPECT_CELL("Cp2m0040", 1, 5, 120.0);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("0040"), Answer::Yes, kAsk);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    EXPECT_FALSE(TableExists("Cp2m0040", true));
    EXPECT_TRUE(TableExists("Cp2m1600", true));
}

TEST(Codes, WithoutFiguresGoWithoutAQuestion) {
    ReportWithVisits r(fy2016);
    r.Calc();
    EXPECT_EQ(Answer_To("S3p3", "29.01", "2", "28100"), kStored) << "computed cells are no figures of the person";
    EXPECT_FALSE(TableExists("Cp2c16580", true));
}

TEST(Codes, ALimitAloneIsAFigureToo) {
    Report r(fy1999);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    EXPECT_EQ(Answer_To("Cp2m1600", "8", "4", "98.45"), kStored);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("1600"), Answer::No, kAsk);
    EXPECT_NE(Answer_To("S3p3", "29", "1", "1700"), kStored);
}

TEST(Codes, AreAskedForBeforeTheirLineIsDeleted) {
    ReportWithVisits r(fy2016);
    OpenForm form(kEditS3p3, "S3p3");
    EditHistory history(form);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("0040"), Answer::No, kAsk);
    EXPECT_FALSE(form.Remove_Row(29_cur));
    EXPECT_CELL("Cp2m0040", 1, 5, 120.0);
    EXPECT_TRUE(form.Remove_Row(29.01_cur)) << "nothing is typed for it";
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("0040"), Answer::Yes, kAsk);
    EXPECT_TRUE(form.Remove_Row(29_cur));
    EXPECT_FALSE(TableExists("Cp2m0040", true));
    history.Undo();
    EXPECT_CELL("Cp2m0040", 1, 5, 120.0);
}

TEST(Codes, AnUndoThatRemovesFiguresAsks) {
    ReportWithVisits r(fy2016);
    OpenForm form(kEditS3p3, "S3p3");
    EditHistory history(form);
    ASSERT_TRUE(form.Place_Cursor(29.01_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("2"), "28100"));
    ASSERT_FALSE(form.Store_Row());
    form.Follow_Changes();
    ASSERT_EQ(Answer_To("Cp2c28100", "2", "6", "70"), kStored);
    r.platform.Expect_Box(kRemoveTitle, Remove_Text("28100"), Answer::No, kAsk);
    EXPECT_EQ(history.Undo().text, "Worksheet S3p3, line 29.01: nothing taken back.");
    EXPECT_CELL("Cp2c28100", 2, 6, 70.0);
}

}  // namespace tallmar
