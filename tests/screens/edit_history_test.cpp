// What a form stored is taken back step by step.
#include "screens/edit_history.h"

#include <optional>

#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

// Enters one cell and leaves the row, as the grid does.
std::string Key(OpenForm& form, Currency line, std::string_view column, std::string_view text) {
    if (!form.Place_Cursor(line)) return "no such line";
    std::optional<Refusal> refusal = form.Enter(*form.Find_Column(column), text);
    if (!refusal) refusal = form.Store_Row();
    if (refusal) form.Discard_Row();
    form.Follow_Changes();
    return refusal ? refusal->title : "stored";
}

std::int64_t Rows_Of(std::string_view table) {
    return db.Read_Row("SELECT Count(*) AS Cnt FROM " + std::string(table) + ";")["Cnt"].To_Long();
}

}  // namespace

TEST(Undo, PutsBackARowAsItWas) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    EXPECT_FALSE(history.Can_Undo());
    ASSERT_TRUE(form.Place_Cursor(6_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("1"), "1200"));
    ASSERT_FALSE(form.Enter(*form.Find_Column("5"), "(70)"));
    EXPECT_FALSE(history.Can_Undo()) << "nothing is stored yet";
    EXPECT_TRUE(form.Has_Entries());
    ASSERT_FALSE(form.Store_Row());
    EXPECT_FALSE(form.Has_Entries());
    ASSERT_EQ(Key(form, 7_cur, "1", "5"), kStored);

    UndoOutcome undone = history.Undo();
    EXPECT_EQ(undone.line, 7_cur);
    EXPECT_EQ(undone.text, "Worksheet A, line 7: 1 cell taken back.");
    EXPECT_CELL("A", 7, 1, 0_cur);
    EXPECT_CELL("A", 6, 1, 1200_cur);
    undone = history.Undo();
    EXPECT_EQ(undone.text, "Worksheet A, line 6: 2 cells taken back.");
    EXPECT_TRUE(undone.kept.empty());
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_CELL("A", 6, 5, 0_cur);
    EXPECT_FALSE(history.Can_Undo());
}

TEST(Undo, PutsBackNull) {
    Report r(fy2016);
    OpenForm form(kEditS2, "S2");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 1_cur, "1", "418 Old Mill Road"), kStored);
    history.Undo();
    EXPECT_CELL("S2", 1, 1, Null);
}

TEST(Undo, WhatWasTypedAgainIsNoStep) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 6_cur, "1", "0"), kStored);
    EXPECT_FALSE(history.Can_Undo());
}

TEST(Undo, KeepsWhatChangedSince) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    ASSERT_TRUE(form.Place_Cursor(6_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("1"), "1200"));
    ASSERT_FALSE(form.Enter(*form.Find_Column("5"), "70"));
    ASSERT_FALSE(form.Store_Row());
    r.Cell("A", 6, 5, 99_cur);
    const UndoOutcome undone = history.Undo();
    EXPECT_EQ(undone.text, "Worksheet A, line 6: 1 cell taken back.");
    ASSERT_EQ(undone.kept.size(), 1U);
    EXPECT_EQ(undone.kept.front(), "Worksheet A, line 6, column 5 Other Costs: changed since then and kept.");
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_CELL("A", 6, 5, 99_cur);
}

TEST(Undo, TellsOfALineThatIsGone) {
    Report r(fy2016);
    OpenForm form(kEditF, "F");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 5_cur, "1", "7"), kStored);
    r.Execute("DELETE FROM F WHERE LineNum = 5;");
    const UndoOutcome undone = history.Undo();
    EXPECT_EQ(undone.text, "Worksheet F, line 5: nothing taken back.");
    EXPECT_EQ(undone.kept, std::vector<std::string>{"Worksheet F, line 5 is no longer there."});
    EXPECT_FALSE(history.Can_Undo());
}

TEST(Undo, ACalculationLeavesTheHistory) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 6_cur, "1", "1200"), kStored);
    r.Calc();
    EXPECT_TRUE(history.Undo().kept.empty());
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_CELL("A", 6, 6, 1200_cur) << "computed cells wait for the next calculation";
}

TEST(Undo, TakesARowBackThatAddMade) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    EditHistory history(form);
    EXPECT_EQ(form.Add_Row({}), 1_cur);
    EXPECT_EQ(form.Add_Row(1_cur), 2_cur);
    ASSERT_EQ(Key(form, 1_cur, "Explanation", "Insurance"), kStored);
    ASSERT_EQ(Key(form, 1_cur, "3", "5"), kStored);
    EXPECT_CELL("A4", 1, 2, "Administrative & General");
    EXPECT_EQ(history.Undo().text, "Worksheet A4, line 1: 1 cell taken back.") << "the name beside it is not counted";
    EXPECT_CELL("A4", 1, 2, Null);
    history.Undo();
    EXPECT_EQ(history.Undo().text, "Worksheet A4: taken back: line 2 added.");
    EXPECT_EQ(history.Undo().line, 1_cur);
    EXPECT_EQ(Rows_Of("A4"), 1);
}

TEST(Undo, BringsARemovedLineBackAndMovesTheOthers) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    EditHistory history(form);
    for (int i = 0; i < 3; ++i) form.Add_Row({});
    for (const auto& [line, text] : {std::pair{1_cur, "one"}, {2_cur, "two"}, {3_cur, "three"}}) {
        ASSERT_EQ(Key(form, line, "Explanation", text), kStored);
    }
    form.Remove_Row(2_cur);
    EXPECT_CELL("A4", 2, "Explanation", "three");
    EXPECT_EQ(history.Undo().text, "Worksheet A4: taken back: line 2 removed.");
    EXPECT_CELL("A4", 1, "Explanation", "one");
    EXPECT_CELL("A4", 2, "Explanation", "two");
    EXPECT_CELL("A4", 3, "Explanation", "three");
    EXPECT_CELL("A4", 2, 4, 0_cur);
    EXPECT_EQ(Rows_Of("A4"), 4);
}

TEST(Undo, LeavesMovedLinesThatChangedSince) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    EditHistory history(form);
    for (int i = 0; i < 3; ++i) form.Add_Row({});
    ASSERT_EQ(Key(form, 3_cur, "Explanation", "three"), kStored);
    form.Remove_Row(2_cur);
    r.Cell("A4", 2, "Explanation", "from elsewhere");
    const UndoOutcome undone = history.Undo();
    EXPECT_EQ(undone.text, "Worksheet A4, line 2: nothing taken back.");
    EXPECT_EQ(undone.kept, std::vector<std::string>{"Worksheet A4, line 2: changed since then and kept."});
    EXPECT_EQ(Rows_Of("A4"), 3);
}

TEST(Undo, TheFormsOwnLineIsNoStepOfDelete) {
    Report r(fy2016);
    OpenForm form(kEditA5, "A5");
    EditHistory history(form);
    form.Remove_Row(3_cur);
    EXPECT_FALSE(history.Can_Undo());
}

TEST(Undo, AddAndDeleteOfEveryFormGoBack) {
    struct Case {
        const char* item;
        const FormDescription& form;
        Currency current;
    };
    for (const auto& [item, description, current] :
         {Case{"A4", kEditA4, {}}, Case{"A5", kEditA5, 13_cur}, Case{"A6pB", kEditA6pB, 1_cur},
          Case{"A6pC", kEditA6pC, 1_cur}, Case{"S3p3", kEditS3p3, {}}, Case{"D1", kEditD1, 3.5_cur},
          Case{"F1", kEditF1, 6_cur}, Case{"F2", kEditF2, 5_cur}}) {
        Report r(fy2016);
        OpenForm form(description, item);
        EditHistory history(form);
        const TableState before = Read_State(item, description.where);
        const Currency line = form.Add_Row(current);
        const TableState added = Read_State(item, description.where);
        ASSERT_EQ(added.rows.size(), before.rows.size() + 1) << item;
        form.Remove_Row(line);
        EXPECT_TRUE(Difference(before, Read_State(item, description.where)).rows.empty()) << item;
        history.Undo();
        EXPECT_TRUE(Difference(added, Read_State(item, description.where)).rows.empty()) << item;
        history.Undo();
        EXPECT_TRUE(Difference(before, Read_State(item, description.where)).rows.empty()) << item;
        history.Redo();
        EXPECT_TRUE(Difference(added, Read_State(item, description.where)).rows.empty()) << item;
        history.Redo();
        EXPECT_TRUE(Difference(before, Read_State(item, description.where)).rows.empty()) << item;
        EXPECT_FALSE(history.Can_Redo()) << item;
    }
}

TEST(Undo, TheSplitOfLineFiveFollowsBack) {
    Report r(fy2016);
    OpenForm form(kEditS2, "S2");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 26_cur, "1", "1"), kStored);
    EXPECT_EQ(r.platform.formClosings, 1);
    EXPECT_CELL("CostCenters", 5.01, "LineType", "U");
    EXPECT_EQ(openReport.AGOption, 1);
    history.Undo();
    EXPECT_EQ(r.platform.formClosings, 2);
    EXPECT_CELL("S2", 26, 1, Null);
    EXPECT_CELL("CostCenters", 5, "LineType", "S");
    EXPECT_EQ(openReport.AGOption, 0);
}

TEST(Undo, TheSplitStaysWhereFormsAreToStayOpen) {
    Report r(fy2016);
    OpenForm form(kEditS2, "S2");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 26_cur, "1", "1"), kStored);
    r.platform.closeFormsCancelled = true;
    EXPECT_EQ(history.Undo().text, "Worksheet S2, line 26: nothing taken back.");
    EXPECT_CELL("S2", 26, 1, "1");
}

namespace {

// A-G is spread on accumulated cost: column CC_500 warns.
constexpr const char* kExclusion =
    "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center";

}  // namespace

TEST(Undo, TakesBackWhatACheckWroteElsewhere) {
    Report r(fy2016);
    OpenForm form(kEditB1, "B1");
    EditHistory history(form);
    r.platform.Expect_Box_Starting(kExclusion, "The statistic you just modified");
    ASSERT_EQ(Key(form, 6_cur, "CC_500", "40"), kStored);
    EXPECT_EQ(Rows_Of("B1X"), 1);
    EXPECT_CELL("B1", 6, "CC_500", 40.0);
    history.Undo();
    EXPECT_EQ(Rows_Of("B1X"), 0);
    EXPECT_CELL("B1", 6, "CC_500", 0.0);
}

TEST(Undo, ARowGivenUpLeavesNothingElsewhere) {
    Report r(fy2016);
    OpenForm form(kEditB1, "B1");
    EditHistory history(form);
    r.platform.Expect_Box_Starting(kExclusion, "The statistic you just modified");
    ASSERT_TRUE(form.Place_Cursor(6_cur));
    ASSERT_FALSE(form.Enter(*form.Find_Column("CC_500"), "40"));
    EXPECT_EQ(Rows_Of("B1X"), 1);
    form.Discard_Row();
    EXPECT_EQ(Rows_Of("B1X"), 0);
    EXPECT_FALSE(history.Can_Undo());
}

TEST(Undo, ACodeComesBackWithWhatWasKeyedForIt) {
    Report r(fy1999);
    OpenForm form(kEditS3p3, "S3p3");
    EditHistory history(form);
    const Currency line = form.Add_Row({});
    ASSERT_EQ(Key(form, line, "1", "1600"), kStored);
    ASSERT_EQ(Title_Of("Cp2m1600", "1", "5", "44"), "");
    EXPECT_CELL("Cp2m1600", 1, 5, 44_cur);
    r.platform.Expect_Box_Starting("Remove Code", "The visits and limits of code 1600", Answer::Yes);
    form.Remove_Row(line);
    EXPECT_FALSE(db.TableDefs().Has("Cp2m1600"));
    history.Undo();
    ASSERT_TRUE(db.TableDefs().Has("Cp2m1600"));
    EXPECT_CELL("S3p3", line, 1, "1600");
    EXPECT_CELL("Cp2m1600", 1, 5, 44_cur);
    EXPECT_CELL("Cp4", 23.01, "MSA_Code", "1600");
    r.platform.Expect_Box_Starting("Remove Code", "The visits and limits of code 1600", Answer::Yes);
    history.Undo();
    EXPECT_FALSE(db.TableDefs().Has("Cp2m1600"));
    history.Redo();
    ASSERT_TRUE(db.TableDefs().Has("Cp2m1600"));
    EXPECT_CELL("S3p3", line, 1, "1600");
    history.Redo();
    EXPECT_FALSE(db.TableDefs().Has("Cp2m1600")) << "the line was removed once more";
    history.Undo();
    EXPECT_CELL("S3p3", line, 1, "1600");
}

TEST(Redo, PutsInAgainWhatWasTakenBack) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    EXPECT_FALSE(history.Can_Redo());
    ASSERT_EQ(Key(form, 6_cur, "1", "1200"), kStored);
    ASSERT_EQ(Key(form, 7_cur, "1", "5"), kStored);
    history.Undo();
    history.Undo();
    UndoOutcome again = history.Redo();
    EXPECT_EQ(again.line, 6_cur);
    EXPECT_EQ(again.text, "Worksheet A, line 6: 1 cell done again.");
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_CELL("A", 7, 1, 0_cur);
    history.Redo();
    EXPECT_CELL("A", 7, 1, 5_cur);
    EXPECT_FALSE(history.Can_Redo());
    history.Undo();
    EXPECT_CELL("A", 7, 1, 0_cur) << "what was done again can be taken back again";
    EXPECT_CELL("A", 6, 1, 1200_cur);
}

TEST(Redo, EndsWithTheNextEntry) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 6_cur, "1", "1200"), kStored);
    history.Undo();
    ASSERT_TRUE(history.Can_Redo());
    ASSERT_EQ(Key(form, 6_cur, "2", "7"), kStored);
    EXPECT_FALSE(history.Can_Redo());
}

TEST(Redo, KeepsWhatChangedSince) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    ASSERT_EQ(Key(form, 6_cur, "1", "1200"), kStored);
    history.Undo();
    r.Cell("A", 6, 1, 99_cur);
    const UndoOutcome again = history.Redo();
    EXPECT_EQ(again.text, "Worksheet A, line 6: nothing done again.");
    ASSERT_EQ(again.kept.size(), 1U);
    EXPECT_CELL("A", 6, 1, 99_cur);
}

TEST(Redo, BringsBackWhatACheckWroteElsewhere) {
    Report r(fy2016);
    OpenForm form(kEditB1, "B1");
    EditHistory history(form);
    r.platform.Expect_Box_Starting(kExclusion, "The statistic you just modified");
    ASSERT_EQ(Key(form, 6_cur, "CC_500", "40"), kStored);
    history.Undo();
    EXPECT_EQ(Rows_Of("B1X"), 0);
    history.Redo();
    EXPECT_EQ(Rows_Of("B1X"), 1);
    EXPECT_CELL("B1", 6, "CC_500", 40.0);
    history.Undo();
    EXPECT_EQ(Rows_Of("B1X"), 0);
}

}  // namespace tallmar
