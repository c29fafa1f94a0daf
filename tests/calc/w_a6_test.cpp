#include "calc/w_a6.h"

#include "calc/w_a7.h"
#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetA6 : public ReportTest {
  protected:
    void SetUp() override { Begin(fy2016, {"A6pA", "A6pB", "A6pC"}); }
    static void Add_Relation(int line, const char* symbol) {
        Add_Row("A6pC", "LineNum, Col_1", Sql(line, ", '", symbol, "'"));
    }
};

TEST_F(WorksheetA6, PartABeginsWithNo) {
    const Row row = db.Read_Row("SELECT * FROM A6pA;");
    EXPECT_EQ(row["Answer"], Value("N"));
    EXPECT_EQ(row["Question"],
              Value("Are there any costs included in Worksheet A which resulted from transactions with "
                    "related organizations?"));
}

TEST_F(WorksheetA6, ShadedCellsOfPartBGiveZero) {
    EXPECT_EQ(Lines("A6pB"), "4");
    EXPECT_SHADED("A6pB", 4, 4);
    Add_Row("A6pB", "LineNum", "1");
    Add_Row("A6pB", "LineNum, Col_4, Col_5", "2, 1000, 400");
    Add_Row("A6pB", "LineNum, Col_5", "3, 25");
    Calc_A6pB();
    EXPECT_EQ(List("A6pB", 6), "0 600 -25 575");
    EXPECT_CELL("A6pB", 4, 4, 1000);
    EXPECT_CELL("A6pB", 4, 5, 425);
}

TEST_F(WorksheetA6, PartBWithoutLinesTotalsZero) {
    Calc_A6pB();
    EXPECT_CELL("A6pB", 4, 4, 0);
    EXPECT_CELL("A6pB", 4, 6, 0);
}

TEST_F(WorksheetA6, AnswerNoKeepsPartsBAndC) {
    Add_Row("A6pB", "LineNum, Col_4, Col_5", "1, 1000, 400");
    Add_Relation(1, "A");
    Calc_A6pB();
    EXPECT_CELL("A6pB", 4, 6, 600);
    EXPECT_EQ(Lines("A6pC"), "1");
}

TEST_F(WorksheetA6, PartCMakesRoomForALine) {
    EXPECT_EQ(Add_A6pC_Row(0_cur), 1_cur);
    EXPECT_CELL("A6pC", 1, 4, 0);
    EXPECT_CELL("A6pC", 1, 5, 0);
    Cell("A6pC", 1, 1, "A");
    Add_Relation(2, "B");
    Add_Relation(3, "C");
    EXPECT_EQ(Add_A6pC_Row(1_cur), 2_cur);
    EXPECT_EQ(Lines("A6pC"), "1 2 3 4");
    EXPECT_EQ(List("A6pC", 1), "A - B C");
}

TEST_F(WorksheetA6, PartCClosesTheGapWhateverTheOrderOfEntry) {
    Add_Relation(3, "C");
    Add_Relation(2, "B");
    Add_Relation(1, "A");
    Delete_A6pC_Row(1_cur);
    EXPECT_EQ(Lines("A6pC"), "1 2");
    EXPECT_EQ(List("A6pC", 1), "B C");
}

class WorksheetA7 : public ReportTest {
  protected:
    void SetUp() override { Begin(fy2016, {"A7"}); }
};

TEST_F(WorksheetA7, DonationsCountInTheBalancesAndHaveNoTotal) {
    Cell("A7", 1, 1, 1000);
    Cell("A7", 1, 2, 200);
    Cell("A7", 1, 3, 30);
    Cell("A7", 1, 5, 4);
    Cell("A7", 6, 3, 50000);
    Calc_A7();
    EXPECT_CELL("A7", 1, 4, 230);
    EXPECT_CELL("A7", 1, 6, 1226);
    EXPECT_CELL("A7", 7, 3, 0);
    EXPECT_CELL("A7", 7, 4, 50230);
    EXPECT_CELL("A7", 7, 6, 51226);
}

TEST_F(WorksheetA7, ShadedCellsCountAsZero) {
    db.Execute("UPDATE A7 SET Col_1=Null, Col_2=Null, Col_3=Null, Col_5=Null WHERE LineNum < 7;");
    Calc_A7();
    EXPECT_EQ(List("A7", 6), "0 0 0 0 0 0 0");
    EXPECT_CELL("A7", 7, 1, 0);
}

}  // namespace
}  // namespace tallmar
