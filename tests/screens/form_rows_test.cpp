#include "screens/form_rows.h"

#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

TEST(FormRowsTest, HoldsTheRowsThatTheFormShows) {
    Report r(fy2016);
    const FormRows edit(kEditA, "A");
    const FormRows view(kViewA, "A");
    ASSERT_GT(edit.Count(), 20U);
    EXPECT_EQ(edit.Line(0), 1_cur);
    EXPECT_LT(edit.Line(edit.Count() - 1), 29_cur);
    EXPECT_EQ(view.Line(view.Count() - 1), 29_cur) << "a view has the total";
    for (std::size_t at = 1; at < view.Count(); ++at) EXPECT_LT(view.Line(at - 1), view.Line(at));
    EXPECT_EQ(view.At(view.Count() - 1)["CCName"], Value("Total"));
}

TEST(FormRowsTest, FindsALine) {
    Report r(fy2016);
    const FormRows rows(kEditA, "A");
    const auto at = rows.Find(5_cur);
    ASSERT_TRUE(at);
    EXPECT_EQ(rows.Line(*at), 5_cur);
    EXPECT_EQ(rows.Find(29_cur), std::nullopt);
    EXPECT_EQ(rows.Find(5.37_cur), std::nullopt);
}

TEST(FormRowsTest, ReloadsOneRowOrAll) {
    Report r(fy2016);
    FormRows rows(kEditA, "A");
    const std::size_t five = *rows.Find(5_cur);
    const std::size_t six = *rows.Find(6_cur);
    r.Cell("A", 5, 3, 1200_cur);
    r.Cell("A", 6, 3, 600_cur);
    EXPECT_EQ(rows.At(five)["Col_3"], Value(0_cur));
    rows.Reload_Row(five, db.Read_Row(Row_Query(kEditA, "A", 5_cur)));
    EXPECT_EQ(rows.At(five)["Col_3"], Value(1200_cur));
    EXPECT_EQ(rows.At(six)["Col_3"], Value(0_cur)) << "only the one row";
    rows.Reload();
    EXPECT_EQ(rows.At(six)["Col_3"], Value(600_cur));
}

TEST(FormRowsTest, ARowThatWentStaysUntilReload) {
    Report r(fy2016);
    FormRows rows(kEditA, "A");
    const std::size_t count = rows.Count();
    const std::size_t at = *rows.Find(5_cur);
    r.Execute("DELETE * FROM A WHERE LineNum = 5;");
    EXPECT_EQ(rows.Line(at), 5_cur);
    rows.Reload();
    EXPECT_EQ(rows.Count(), count - 1);
}

TEST(FormRowsTest, ATableWithoutLinesHasLineNought) {
    Report r(fy2016);
    FormRows rows(kEditA6pA, "A6pA");
    ASSERT_EQ(rows.Count(), 1U);
    EXPECT_EQ(rows.Line(0), Currency());
    EXPECT_EQ(rows.Find(Currency()), 0U);
    r.Execute("UPDATE A6pA SET Answer = 'Y';");
    rows.Reload();
    EXPECT_EQ(rows.At(0)["Answer"], Value("Y"));
}

TEST(FormRowsTest, ReadsTheTableOfAFormThatNamesOne) {
    Report r(fy2016);
    const FormRows rows(kViewCCs, "CCs");
    ASSERT_GT(rows.Count(), 20U);
    const auto general = rows.Find(5_cur);
    ASSERT_TRUE(general);
    EXPECT_EQ(rows.At(*general)["CCName"], Value("Administrative & General"));
    EXPECT_EQ(Form_Query(kViewCCs, "CCs"), "SELECT * FROM CostCenters ORDER BY LineNum;");
}

TEST(FormRowsTest, AnEmptyTableHasNoRows) {
    Report r(fy2016);
    r.Execute("DELETE * FROM A4;");
    const FormRows rows(kViewA4, "A4");
    EXPECT_EQ(rows.Count(), 0U);
}

TEST(HeaderLinesFormTest, StoresALineAndTheHeadOfThePageFollows) {
    Report r(fy2016);
    OpenForm form(kHeaderLines, "HeaderLines");
    const GridColumn* text = form.Find_Column("LineText");
    ASSERT_NE(text, nullptr);
    ASSERT_TRUE(form.Place_Cursor(2_cur));
    EXPECT_FALSE(form.Enter(*text, "  Draft of \"May\""));
    EXPECT_FALSE(form.Store_Row());
    EXPECT_EQ(openReport.HeaderLine2, "  Draft of \"May\"");
    EXPECT_EQ(openReport.HeaderLine1, "");
    EXPECT_FALSE(form.Place_Cursor(4_cur));
    ASSERT_TRUE(form.Place_Cursor(2_cur));
    EXPECT_FALSE(form.Enter(*text, "   "));
    EXPECT_FALSE(form.Store_Row());
    EXPECT_EQ(openReport.HeaderLine2, "");
}

TEST(HeaderLinesFormTest, SixtyCharactersAreTheMost) {
    Report r(fy2016);
    OpenForm form(kHeaderLines, "HeaderLines");
    const GridColumn& text = *form.Find_Column("LineText");
    ASSERT_TRUE(form.Place_Cursor(1_cur));
    EXPECT_FALSE(form.Enter(text, std::string(60, 'x')));
    const std::optional<Refusal> outcome = form.Enter(text, std::string(61, 'x'));
    EXPECT_TRUE(outcome);
    EXPECT_EQ(Text_Of(outcome), "The maximum length of a custom header line is 60 characters");
    EXPECT_FALSE(form.Store_Row());
    EXPECT_EQ(openReport.HeaderLine1, std::string(60, 'x')) << "the refused text left the cell as it was";
}

}  // namespace tallmar
