#include "calc/w_a5.h"

#include "support/report_test.h"

namespace tallmar {
namespace {

constexpr const char* kUserLines = "LineNum >= 13 And LineNum < 21";

class WorksheetA5 : public ReportTest {
  protected:
    void Begin_A5(const FiscalYear& year) { Begin(year, {"A5", "A6pB"}); }
    static void Add_Line(Currency line) { Add_Row("A5", "LineNum, Description", Sql(line, ",'", line, "'")); }
    // The limitation worksheet of a therapy, as far as A-5 reads it.
    static void Add_Limitation(const char* item, double amount) {
        TableDef table = db.CreateTableDef(item);
        table.Fields_Append(table.CreateField("LineNum", FieldType::Currency));
        table.Fields_Append(table.CreateField("Col_1", FieldType::Double));
        db.TableDefs().Append(table);
        Add_Row(item, "LineNum, Col_1", Sql("49,", amount));
        Edit_Worksheets(item, "Make", 2);
    }
};

TEST_F(WorksheetA5, FixedLines) {
    Begin_A5(fy2016);
    EXPECT_EQ(Lines("A5"), "1 2 3 4 5 6 7 8 9 10 10.1 10.2 11 12 21");
    EXPECT_EQ(List("A5", 1), "B B B A A-6 B B A A A-8-3 A-8-3 A-8-3 A A -");
    EXPECT_CELL("A5", 7, "Description", "Income from imposition of of interest, finance, or penalty charges");
    EXPECT_CELL("A5", 10.2, 3, "Speech Pathology");
    EXPECT_CELL("A5", 10.2, 4, 9);
    EXPECT_CELL("A5", 21, 2, 0);
    EXPECT_SHADED("A5", 1, 4);
}

TEST_F(WorksheetA5, LineFiveIsTheRelatedOrganizationTotalReversed) {
    Begin_A5(fy2016);
    Cell("A6pB", 4, 6, 125);
    Cell("A5", 1, 2, -25);
    Calc_A5();
    EXPECT_CELL("A5", 5, 2, -125);
    EXPECT_CELL("A5", 21, 2, -150);
}

TEST_F(WorksheetA5, ShadedRelatedOrganizationTotalIsZero) {
    Begin_A5(fy2016);
    Cell("A6pB", 4, 6, Null);
    Cell("A5", 5, 2, 9);
    Calc_A5();
    EXPECT_CELL("A5", 5, 2, 0);
}

TEST_F(WorksheetA5, TherapyLimitationEndsInOctober2000) {
    Begin_A5(Year("10/1/2000", "9/30/2001"));
    Add_Limitation("A83p5P", 100);
    Cell("A5", 10, 2, 1);
    Cell("A5", 10.1, 2, 2);
    Cell("A5", 10.2, 2, 3);
    Calc_A5();
    EXPECT_EQ(List("A5", 2, "Int(LineNum)=10"), "0 0 0");
}

TEST_F(WorksheetA5, TherapyLimitationComesReversedFromItsLetter) {
    Begin_A5(Year("9/30/2000", "9/29/2001"));
    Add_Limitation("A83p5P", 100);
    Add_Limitation("A83p5O", 20.5);
    Add_Limitation("A83p5S", -3);
    Calc_A5();
    EXPECT_EQ(List("A5", 2, "Int(LineNum)=10"), "-100 -20.5 3");
    EXPECT_CELL("A5", 21, 2, -117.5);
}

TEST_F(WorksheetA5, TherapyWithoutALimitationWorksheetIsZero) {
    Begin_A5(fy1999);
    Cell("A5", 10, 2, 1);
    Calc_A5();
    EXPECT_CELL("A5", 10, 2, 0);
}

TEST_F(WorksheetA5, LimitationTableWithoutItsRegistryRowIsDroppedAndNotUsed) {
    Begin_A5(fy1999);
    Add_Limitation("A83p5P", 100);
    db.Execute("DELETE * FROM Worksheets WHERE Item = 'A83p5P';");
    Calc_A5();
    EXPECT_CELL("A5", 10, 2, 0);
    EXPECT_FALSE(db.TableDefs().Has("A83p5P"));
}

TEST_F(WorksheetA5, FirstUserLineIs13) {
    Begin_A5(fy2016);
    EXPECT_EQ(Add_A5_Row(12_cur), 13_cur);
    EXPECT_EQ(Add_A5_Row(12_cur), 13.01_cur);
    EXPECT_EQ(Lines("A5", kUserLines), "13 13.01");
}

TEST_F(WorksheetA5, AddMovesTheLinesInItsWay) {
    Begin_A5(fy2016);
    for (const Currency line : {13_cur, 13.01_cur, 13.02_cur, 13.05_cur, 14_cur}) Add_Line(line);
    EXPECT_EQ(Add_A5_Row(13_cur), 13.01_cur);
    EXPECT_EQ(Lines("A5", kUserLines), "13 13.01 13.02 13.03 13.05 14");
    EXPECT_EQ(List("A5", "Description", kUserLines), "13 - 13.01 13.02 13.05 14");
}

TEST_F(WorksheetA5, AddTakesAFreeLineWithoutMovingOthers) {
    Begin_A5(fy2016);
    for (const Currency line : {13_cur, 14_cur}) Add_Line(line);
    EXPECT_EQ(Add_A5_Row(13_cur), 13.01_cur);
    EXPECT_EQ(List("A5", "Description", kUserLines), "13 - 14");
}

TEST_F(WorksheetA5, AddNeverReachesTheTotal) {
    Begin_A5(fy2016);
    for (const Currency line : {20.98_cur, 20.99_cur}) Add_Line(line);
    EXPECT_THROW(Add_A5_Row(20.98_cur), DbError);
    EXPECT_THROW(Add_A5_Row(20.99_cur), DbError);
    EXPECT_EQ(Lines("A5", "LineNum > 12"), "20.98 20.99 21");
}

TEST_F(WorksheetA5, DeleteClosesUp) {
    Begin_A5(fy2016);
    for (const Currency line : {13.02_cur, 13.01_cur, 13_cur}) Add_Line(line);
    Delete_A5_Row(13_cur);
    EXPECT_EQ(Lines("A5", "LineNum > 12"), "13 13.01 21");
    EXPECT_EQ(List("A5", "Description", kUserLines), "13.01 13.02");
}

TEST_F(WorksheetA5, FormLinesAreNotDeleted) {
    Begin_A5(fy2016);
    Delete_A5_Row(12_cur);
    Delete_A5_Row(21_cur);
    EXPECT_EQ(Lines("A5", "LineNum > 11"), "12 21");
}

}  // namespace
}  // namespace tallmar
