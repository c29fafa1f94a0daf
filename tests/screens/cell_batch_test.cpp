// What a list of cells is entered as, whatever its order.
#include "screens/cell_batch.h"

#include "report/open_report.h"
#include "screens/entry_test.h"

namespace tallmar {

namespace {

// The lists with which a report is componentized and filled in one go, in either numbering.
void Expect_Stored(const std::vector<CellText>& cells) {
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        EXPECT_FALSE(outcomes[i]) << cells[i].item << " " << cells[i].line << ": " << Text_Of(outcomes[i]);
    }
}

}  // namespace

TEST(CellBatch, LineFiveIsFoundWhereTheOptionMovesIt) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"A", "5", "1", "700"},
                                      {"B1", "5", "CC_100", "40"},
                                      {"B1", "7", "CC_500", "0"},
                                      {"A5", "1", "4", "5"},
                                      {"A4", "1", "Explanation", "Rent"},
                                      {"A4", "1", "1", "A"},
                                      {"A4", "1", "3", "5.00"},
                                      {"A4", "1", "4", "10"},
                                      {"A6pB", "1", "1", "5"},
                                      {"F1", "5", "1", "300"},
                                      {"A5", "5.5", "2", "1"},
                                      {"S2", "26", "1", "1"}};
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        EXPECT_EQ(!outcomes[i], cells[i].line != "5.5") << i << ": " << Text_Of(outcomes[i]);
    }
    EXPECT_CELL("A", 5.01, 1, 700_cur);
    EXPECT_CELL("B1", 5.01, "CC_100", 40.0);
    EXPECT_CELL("A5", 1, 4, 5.01_cur);
    EXPECT_CELL("A4", 1, 3, 5.01_cur);
    EXPECT_CELL("A6pB", 1, 1, 5.01_cur);
    EXPECT_CELL("F1", 5, 1, 300_cur);
    // The same list again gives the same.
    Expect_Stored({{"A", "5", "1", "800"}, {"S2", "26", "1", "1"}});
    EXPECT_CELL("A", 5.01, 1, 800_cur);
    // And back.
    Expect_Stored({{"A", "5.01", "1", "900"}, {"A5", "1", "4", "5.01"}, {"S2", "26", "1", "0"}});
    EXPECT_CELL("A", 5, 1, 900_cur);
    EXPECT_CELL("A5", 1, 4, 5_cur);
}

TEST(CellBatch, AListWithBothNumbersKeepsThemApart) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"A", "5", "1", "100"}, {"A", "5.01", "1", "700"}, {"S2", "26", "1", "1"}};
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    EXPECT_EQ(Text_Of(outcomes[0]), "Worksheet A, line 5 does not exist and cannot be added.");
    EXPECT_FALSE(outcomes[1]);
    EXPECT_CELL("A", 5.01, 1, 700_cur);
}

TEST(CellBatch, WithoutAnAnswerOnLine26NumbersAreTheChartsOwn) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S2", "26", "1", "1"), kStored);
    EXPECT_EQ(Title_Of("A", "5", "1", "100"), "Unknown Line");
}

TEST(CellBatch, AnAnswerThatSteersCountsWithItsLastValue) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"S2", "29", "1", "Y"}, {"S2", "29.01", "1", "Office"}, {"S2", "29", "1", "N"}};
    const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(cells);
    EXPECT_FALSE(outcomes[0]);
    EXPECT_EQ(Title_Of(outcomes[1]), kShut);
    EXPECT_CELL("S2", 29, 1, "N");
}

TEST(CellBatch, TheListenerHearsOfEachCellBeforeItsBoxes) {
    Report r(fy2016);
    std::vector<std::string> heard;
    const BatchListener listener{.cell = [&](std::size_t at) { heard.push_back(std::to_string(at)); },
                                 .dropped = [&](std::string_view text) { heard.emplace_back(text); }};
    r.platform.Expect_Box_Starting("Too Specific Numeric Entry", "You're attempting to enter invalid data ['2.5'].");
    const std::vector<CellText> cells{
        {"A5", "1", "2", "2.5"}, {"A4", "1", "Explanation", "Move"}, {"A4", "1", "1", "A"}, {"A4", "1", "4", "100"}};
    Enter_Cells(cells, listener);
    EXPECT_EQ(heard, (std::vector<std::string>{"1", "2", "3",
                                               "Worksheet A-4: row 1 has no cost center and was dropped.", "0"}));
}

TEST(CellBatch, AnAmountWithoutItsCostCenterIsTold) {
    Report r(fy2016);
    std::vector<std::string> dropped;
    const BatchListener listener{.cell = {}, .dropped = [&](std::string_view text) { dropped.emplace_back(text); }};
    const std::vector<CellText> cells{{"A4", "1", "Explanation", "Move"},
                                      {"A4", "1", "1", "A"},
                                      {"A4", "1", "3", "6"},
                                      {"A4", "1", "4", "100"},
                                      {"A4", "1", "7", "60"}};
    Enter_Cells(cells, listener);
    EXPECT_EQ(dropped, std::vector<std::string>{"Worksheet A-4: row 1: the amount 60 has no cost center and was "
                                                "dropped."});
    EXPECT_CELL("A4", 1, 4, 100_cur);
    EXPECT_CELL("A4", 1, 7, Null);
    dropped.clear();
    const std::vector<CellText> emptied{{"A4", "1", "3", ""}};
    Enter_Cells(emptied, listener);
    EXPECT_EQ(dropped, std::vector<std::string>{"Worksheet A-4: row 1 has no cost center and was dropped."});
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4 WHERE LineNum < 30;"), Value(0));
}

TEST(CellBatch, ATextThatTheElectronicReportCannotCarryIsRefused) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A", "6", "CCName", "日本 Physio 日"),
              "Invalid Character Entry: You're attempting to enter invalid data ['日本 Physio 日'].  The electronic "
              "report cannot carry these characters: '日', '本'.  Your entry or modification is being discarded.  "
              "Select OK to continue.");
    EXPECT_CELL("A", 6, "CCName", "Skilled Nursing Care");
    for (const char* item : {"S2", "S21"}) {
        EXPECT_EQ(Title_Of(item, item == std::string("S2") ? "1" : "15", "1", "Łódź"), "Invalid Character Entry");
    }
    EXPECT_EQ(Title_Of("S3p1", "0", "Description", "Ω"), "Invalid Character Entry");
    EXPECT_EQ(Answer_To("A", "6", "CCName", "Café “Ž” – 50 €"), kStored);
}

}  // namespace tallmar
