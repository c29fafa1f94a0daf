// Blocks of cells: what the clipboard holds, and what becomes of it in a form.
#include "screens/cell_block.h"

#include "report/open_report.h"
#include "screens/edit_history.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

// Pastes `text` with the cursor in the cell of `line` and `column`; the form shows the lines from there on.
BlockOutcome Paste(OpenForm& form, std::string_view text, std::vector<Currency> lines, std::string_view column) {
    std::vector<const GridColumn*> columns;
    const GridColumn* from = form.Find_Column(column);
    for (const GridColumn& shown : form.Columns()) {
        if (!shown.hidden && &shown >= from) columns.push_back(&shown);
    }
    return Enter_Block(form, Block_At(Parse_Clipboard(text), lines, columns));
}

std::vector<std::string> Told(const OpenForm& form, const BlockOutcome& outcome) {
    std::vector<std::string> told;
    for (const auto& row : Block_Messages(form, outcome)) told.push_back(row.level + " " + row.message);
    return told;
}

}  // namespace

TEST(Clipboard, RowsAndCells) {
    EXPECT_EQ(Parse_Clipboard("1\t2\r\n3\t4\r\n"), (ClipboardRows{{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(Parse_Clipboard("1\t2\n3\t4"), (ClipboardRows{{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(Parse_Clipboard("1\r2\r"), (ClipboardRows{{"1"}, {"2"}}));
    EXPECT_EQ(Parse_Clipboard("\t\n\n5"), (ClipboardRows{{"", ""}, {""}, {"5"}}));
    EXPECT_EQ(Parse_Clipboard("5\t"), (ClipboardRows{{"5", ""}}));
    EXPECT_EQ(Parse_Clipboard(""), ClipboardRows{});
    EXPECT_EQ(Parse_Clipboard(std::string_view("7\n\0x", 4)), ClipboardRows{{"7"}});
}

TEST(Clipboard, QuotedCells) {
    EXPECT_EQ(Parse_Clipboard("\"two\r\nlines\"\t\"a \"\"b\"\"\"\n9"),
              (ClipboardRows{{"two\r\nlines", "a \"b\""}, {"9"}}));
    EXPECT_EQ(Parse_Clipboard("\"\"\tx"), (ClipboardRows{{"", "x"}}));
    EXPECT_EQ(Parse_Clipboard("\"a\"\""), ClipboardRows{{"\"a\"\""}}) << "the quote is never closed";
    EXPECT_EQ(Parse_Clipboard("5\" pipe\t\"Kim\" Co"), (ClipboardRows{{"5\" pipe", "\"Kim\" Co"}}));
    EXPECT_EQ(Parse_Clipboard("\"open\t1\n2"), (ClipboardRows{{"\"open", "1"}, {"2"}}));
}

TEST(Paste, EntersRowsInTheOrderShown) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const BlockOutcome outcome = Paste(form, "$1,200\t(70)\r\n5\t6\r\n", {6_cur, 7_cur, 8_cur}, "1");
    EXPECT_EQ(outcome.cells, 4U);
    EXPECT_EQ(outcome.rows, 2U);
    EXPECT_TRUE(outcome.notes.empty());
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_CELL("A", 6, 2, -70_cur);
    EXPECT_CELL("A", 7, 1, 5_cur);
    EXPECT_CELL("A", 7, 2, 6_cur);
    EXPECT_CELL("A", 8, 1, 0_cur);
}

TEST(Paste, PassesOverHiddenColumns) {
    Report r(fy1999);
    OpenForm form(kEditA, "A");
    const BlockOutcome outcome = Paste(form, "11\t22", {6_cur}, "3");
    EXPECT_TRUE(outcome.notes.empty());
    EXPECT_CELL("A", 6, 3, 11_cur);
    EXPECT_CELL("A", 6, 5, 22_cur);
}

TEST(Paste, IsOneStepOfTheUndo) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    EditHistory history(form);
    {
        const EditHistory::OneStep step(history, "paste");
        Paste(form, "1\t2\n3\t4\n", {6_cur, 7_cur}, "1");
    }
    EXPECT_EQ(history.Undo().text, "Worksheet A: taken back: paste.");
    EXPECT_FALSE(history.Can_Undo());
    for (const int line : {6, 7}) {
        for (const int column : {1, 2}) EXPECT_CELL("A", line, column, 0_cur);
    }
}

TEST(Paste, TellsOfEachRefusedCellAndShowsNoBox) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const BlockOutcome outcome = Paste(form, "7\tx\t12.5\t1\t2\t9\n\n1\t\t3\n", {2_cur, 6_cur, 7_cur}, "1");
    EXPECT_EQ(outcome.cells, 4U);
    const std::vector<std::string> told = Told(form, outcome);
    EXPECT_EQ(told, (std::vector<std::string>{
                        "E Line 2, column 1 Salaries, '7': it is shaded on the form.",
                        "E Line 2, column 2 Employee Benefits, 'x': it is shaded on the form.",
                        "E Line 2, column 4 Contracted Purchased Services, '1': it is shaded on the form.",
                        "E Line 2, '9': There is no column here.",
                        "W 1 amount was rounded: 12.50 before, 13.00 after.",
                    }));
    EXPECT_CELL("A", 2, 3, 13_cur);
    EXPECT_CELL("A", 2, 5, 2_cur);
    EXPECT_CELL("A", 7, 1, 1_cur);
}

TEST(Paste, TakesATrialBalanceInAccountingFormat) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    Paste(form, "9\t9\t9\t9\t9", {6_cur}, "1");
    const BlockOutcome outcome = Paste(form,
                                       " $ 1,200.00 \t $ -   \t $ (500.00)\t\u2212"
                                       "70\t\u00A0$\u00A0(1,000)\u202F",
                                       {6_cur}, "1");
    EXPECT_FALSE(outcome.Has_Messages()) << Told(form, outcome).front();
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_CELL("A", 6, 2, 0_cur);
    EXPECT_CELL("A", 6, 3, -500_cur);
    EXPECT_CELL("A", 6, 4, -70_cur);
    EXPECT_CELL("A", 6, 5, -1000_cur);
}

TEST(Paste, RoundingsAreOneLineBehindTheRefusals) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const BlockOutcome outcome = Paste(form, "1,000.50\t12a\n(2.25)\t1,23,4\n3\t5%\n", {6_cur, 7_cur, 23.2_cur}, "1");
    EXPECT_EQ(Told(form, outcome), (std::vector<std::string>{
                                       "E Line 6, column 2 Employee Benefits, '12a': not a number.",
                                       "E Line 7, column 2 Employee Benefits, '1,23,4': not a number.",
                                       "E Line 23.20, column 2 Employee Benefits, '5%': not a number.",
                                       "W 2 amounts were rounded: 998.25 before, 999.00 after.",
                                   }));
    EXPECT_EQ(outcome.cells, 3U);
}

TEST(Paste, ALongTextOfManyLinesIsOneLineOfTheList) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const std::string text = "\"two\nlines " + std::string(60, 'x') + "\"";
    const BlockOutcome outcome = Paste(form, text, {6_cur}, "1");
    EXPECT_EQ(Told(form, outcome), (std::vector<std::string>{"E Line 6, column 1 Salaries, 'two lines " +
                                                             std::string(30, 'x') + "...': not a number."}));
}

TEST(Paste, RoundingsOfARowThatIsRefusedAreNotCounted) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    const Currency line = form.Add_Row({});
    const BlockOutcome outcome = Paste(form, "\tA\t\t1\t12.5", {line}, "Explanation");
    EXPECT_EQ(outcome.cells, 0U);
    EXPECT_EQ(outcome.rounded.count, 0U);
}

TEST(Paste, WhatACellHoldsAlreadyIsPassedOver) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    ASSERT_TRUE(Paste(form, "1200", {6_cur}, "1").notes.empty());
    // Line, group, name and amounts, as a copy of the row has them.
    const BlockOutcome outcome = Paste(form, "6\t600\tNursing\t1,200\t0\t", {6_cur}, "LineNum");
    EXPECT_EQ(outcome.cells, 1U);
    EXPECT_TRUE(outcome.notes.empty()) << Told(form, outcome).front();
    EXPECT_CELL("A", 6, "CCName", "Nursing");
    EXPECT_EQ(Paste(form, "6\t600\tNursing\t1200", {6_cur}, "LineNum").cells, 0U);
}

TEST(Paste, RowsBeyondTheLastAreRefusedWhereTheFormHasNoAdd) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    const BlockOutcome outcome = Paste(form, "1\n2\n\n", {12_cur}, "1");
    EXPECT_EQ(
        Told(form, outcome),
        (std::vector<std::string>{"E Column 1 Salaries, '2': There is no row here, and the worksheet takes no more."}));
}

TEST(Paste, RowsBeyondTheLastAreAddedWhereTheFormAddsThem) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    EditHistory history(form);
    BlockOutcome outcome;
    {
        const EditHistory::OneStep step(history, "paste");
        outcome = Paste(form, "Insurance\tA\t\t1\t100\nInterest\tB\t\t2\t50\n", {}, "Explanation");
    }
    EXPECT_TRUE(outcome.notes.empty()) << Told(form, outcome).front();
    EXPECT_CELL("A4", 1, 3, 1_cur);
    EXPECT_CELL("A4", 2, "Explanation", "Interest");
    EXPECT_CELL("A4", 2, 4, 50_cur);
    history.Undo();
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4;"), Value(1));
}

TEST(Paste, ARowThatItsFormHoldsIsRefusedWhole) {
    Report r(fy2016);
    OpenForm form(kEditA4, "A4");
    const Currency line = form.Add_Row({});
    const BlockOutcome outcome = Paste(form, "\tA\t\t1", {line}, "Explanation");
    EXPECT_EQ(outcome.cells, 0U);
    const std::vector<std::string> told = Told(form, outcome);
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(
        told[0],
        "E Line 1, column 1 Code, 'A': The EXPLANATION may not be left blank for the first reclassification in a given "
        "code.");
    EXPECT_CELL("A4", 1, 1, Null);
    EXPECT_FALSE(form.Has_Entries());
}

TEST(Paste, QuestionsRefuseTheCellWithTheirText) {
    Report r(fy2016);
    OpenForm form(kEditB1, "B1");
    const BlockOutcome outcome = Paste(form, "40", {6_cur}, "CC_500");
    ASSERT_EQ(outcome.notes.size(), 1U);
    EXPECT_TRUE(outcome.notes.front().reason.starts_with("The statistic you just modified belongs to a cost center"));
    EXPECT_CELL("B1", 6, "CC_500", 0.0);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM B1X;"), Value(0));

    OpenForm answers(kEditS2, "S2");
    const BlockOutcome option = Paste(answers, "1", {26_cur}, "1");
    ASSERT_EQ(option.notes.size(), 1U);
    EXPECT_EQ(option.notes.front().reason, "This answer changes other worksheets.  Please enter it by itself.");
    EXPECT_EQ(r.platform.formClosings, 0);
}

TEST(Paste, BlanksClear) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    Paste(form, "1\t2", {6_cur}, "1");
    const BlockOutcome outcome = Paste(form, "\t\t", {6_cur}, "1");
    EXPECT_EQ(outcome.cells, 2U);
    EXPECT_TRUE(outcome.notes.empty());
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_CELL("A", 6, 2, 0_cur);
}

}  // namespace tallmar
