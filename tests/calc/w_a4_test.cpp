#include "calc/w_a4.h"

#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetA4 : public ReportTest {
  protected:
    void SetUp() override { Begin(fy2016, {"A4"}); }
    static void Add_Entry(Currency line, const char* code, const char* up = "6", const char* down = "Null") {
        Add_Row("A4", "LineNum, Col_1, Col_3, Col_4, Col_6, Col_7",
                Sql(line, ", '", code, "', ", up, ", 100, ", down, ", 100"));
    }
    // Entries 1 to 29 and then hundredths, by their codes.
    static void Add_Entries(int count) {
        for (int i = 0; i < count; ++i) Cell("A4", Add_A4_Row(), "Explanation", Sql("entry ", i + 1));
    }
};

TEST_F(WorksheetA4, BeginsWithItsTotal) {
    EXPECT_EQ(Lines("A4"), "30");
    EXPECT_CELL("A4", 30, "Explanation", "TOTAL RECLASSIFICATIONS");
    EXPECT_CELL("A4", 30, 7, 0);
    Calc_A4();
    EXPECT_CELL("A4", 30, 4, 0);
}

TEST_F(WorksheetA4, TotalTakesEntriesBehindLine29) {
    Add_Entry(1_cur, "A");
    Add_Entry(29.01_cur, "B");
    Cell("A4", 29.01, 7, Null);
    Calc_A4();
    EXPECT_CELL("A4", 30, 4, 200);
    EXPECT_CELL("A4", 30, 7, 100);
}

TEST_F(WorksheetA4, SyncRefreshesNamesAfterARename) {
    Add_Entry(1_cur, "A", "6", "7");
    Sync_A4();
    EXPECT_CELL("A4", 1, 2, "Skilled Nursing Care");
    EXPECT_CELL("A4", 1, 5, "Physical Therapy");
    db.Execute("UPDATE CostCenters SET CCName = 'Nursing' WHERE LineNum = 6;");
    Sync_A4();
    EXPECT_CELL("A4", 1, 2, "Nursing");
}

TEST_F(WorksheetA4, SyncKeepsTheNameOfANumberThatLeftTheChart) {
    Add_Entry(1_cur, "A", "77", "78");
    Cell("A4", 1, 2, "Wound Care");
    Cell("A4", 1, 5, "Telehealth");
    Sync_A4();
    EXPECT_CELL("A4", 1, 2, "Wound Care");
    EXPECT_CELL("A4", 1, 5, "Telehealth");
}

TEST_F(WorksheetA4, SyncClearsASideWithoutACostCenter) {
    Add_Entry(1_cur, "A", "0", "7");
    Add_Entry(2_cur, "A", "6", "Null");
    Sync_A4();
    EXPECT_SHADED("A4", 1, 3);
    EXPECT_SHADED("A4", 1, 4);
    EXPECT_CELL("A4", 1, 7, 100);
    EXPECT_CELL("A4", 2, 4, 100);
    EXPECT_SHADED("A4", 2, 7);
    EXPECT_CELL("A4", 30, 4, 0);
}

TEST_F(WorksheetA4, AddGoesOnInHundredthsBehindLine29) {
    EXPECT_EQ(Add_A4_Row(), 1_cur);
    EXPECT_EQ(Add_A4_Row(), 2_cur);
    Add_Entries(27);
    EXPECT_EQ(Add_A4_Row(), 29.01_cur);
    EXPECT_EQ(Add_A4_Row(), 29.02_cur);
    EXPECT_CELL("A4", 29.02, 4, 0);
    EXPECT_SHADED("A4", 29.02, 3);
}

TEST_F(WorksheetA4, AddStopsBeforeTheTotal) {
    Add_Entry(29.99_cur, "A");
    try {
        Add_A4_Row();
        FAIL();
    } catch (const DbError& error) {
        EXPECT_EQ(error.Code(), DbErrorCode::DuplicateKey);
    }
    EXPECT_EQ(Lines("A4"), "29.99 30");
}

TEST_F(WorksheetA4, DeleteClosesTheGapAcrossLine29) {
    Add_Entries(31);
    Delete_A4_Row(2_cur);
    EXPECT_EQ(Lines("A4", "LineNum < 4"), "1 2 3");
    EXPECT_EQ(Lines("A4", "LineNum > 27"), "28 29 29.01 30");
    EXPECT_CELL("A4", 2, "Explanation", "entry 3");
    EXPECT_CELL("A4", 29, "Explanation", "entry 30");
    EXPECT_CELL("A4", 29.01, "Explanation", "entry 31");
    EXPECT_CELL("A4", 30, "Explanation", "TOTAL RECLASSIFICATIONS");
}

TEST_F(WorksheetA4, DeleteBehindLine29LeavesTheWholeLines) {
    Add_Entries(32);
    Delete_A4_Row(29.01_cur);
    EXPECT_EQ(Lines("A4", "LineNum > 27"), "28 29 29.01 29.02 30");
    EXPECT_CELL("A4", 29, "Explanation", "entry 29");
    EXPECT_CELL("A4", 29.01, "Explanation", "entry 31");
}

TEST_F(WorksheetA4, DeleteClosesTheGapWhateverTheOrderOfEntry) {
    Add_Entry(3_cur, "C");
    Add_Entry(2_cur, "B");
    Add_Entry(1_cur, "A");
    Delete_A4_Row(1_cur);
    EXPECT_EQ(Lines("A4"), "1 2 30");
    EXPECT_EQ(List("A4", 1), "B C -");
}

TEST_F(WorksheetA4, ClosingOrdersByCodeAndThenAsTheyStood) {
    Add_Entry(1_cur, "B", "6");
    Add_Entry(2_cur, "A", "7");
    Add_Entry(3_cur, "B", "8");
    Add_Entry(4_cur, "A", "9");
    Renumber_A4();
    EXPECT_EQ(Lines("A4"), "1 2 3 4 30");
    EXPECT_EQ(List("A4", 1), "A A B B -");
    EXPECT_EQ(List("A4", 3), "7 9 6 8 -");
}

TEST_F(WorksheetA4, ClosingDropsRowsWithoutACostCenter) {
    Add_Entry(1_cur, "A", "Null", "Null");
    Add_Entry(2_cur, "A", "Null", "7");
    Renumber_A4();
    EXPECT_EQ(Lines("A4"), "1 30");
    EXPECT_CELL("A4", 1, 6, 7);
}

TEST_F(WorksheetA4, ClosingNumbersBeyondLine29InHundredths) {
    Add_Entries(31);
    db.Execute("UPDATE A4 SET Col_1='B', Col_3=6 WHERE LineNum < 30;");
    Cell("A4", 29.02, 1, "A");
    Renumber_A4();
    EXPECT_EQ(Lines("A4", "LineNum > 27"), "28 29 29.01 29.02 30");
    EXPECT_CELL("A4", 1, "Explanation", "entry 31");
    EXPECT_CELL("A4", 29.02, "Explanation", "entry 30");
}

TEST_F(WorksheetA4, ClosingAnEmptyWorksheetChangesNothing) {
    Renumber_A4();
    EXPECT_EQ(Lines("A4"), "30");
}

}  // namespace
}  // namespace tallmar
