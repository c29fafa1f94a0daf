#include "calc/w_s3.h"

#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetS3 : public ReportTest {
  protected:
    static void Add_Codes(Currency line, const char* msa, const char* cbsa) {
        Add_Row("S3p3", "LineNum, Col_1, Col_2", Sql(line, ",", msa, ",", cbsa));
    }
    // C Part III as far as S-3 Part III works on it.
    static void Add_Drug_Lines(const char* ratio, int charges) {
        TableDef table = db.CreateTableDef("Cp3");
        table.Fields_Append(table.CreateField("LineNum", FieldType::Currency));
        table.Fields_Append(table.CreateField("Col_4", FieldType::Double));
        table.Fields_Append(table.CreateField("Col_6", FieldType::Currency));
        table.Fields_Append(table.CreateField("Col_9", FieldType::Currency));
        db.TableDefs().Append(table);
        for (const char* line : {"15", "16", "16.2"}) {
            Add_Row("Cp3", "LineNum, Col_4, Col_6, Col_9", Sql(line, ",", ratio, ",", charges, ",-1"));
        }
        Edit_Worksheets("Cp3", "Make", 6);
    }
};

TEST_F(WorksheetS3, PartOneShadesByLine) {
    Begin(fy2016, {"S3p1"});
    EXPECT_EQ(Lines("S3p1"), "0 1 2 3 4 5 6 7 8 9 10 10.01 10.02");
    EXPECT_EQ(Lines("S3p1", "Col_1 Is Null"), "0 7 10 10.01 10.02");
    EXPECT_EQ(Lines("S3p1", "Col_2 Is Null"), "0 7 8 9");
    EXPECT_EQ(Lines("S3p1", "Col_3 Is Null"), "0 10 10.01 10.02");
    EXPECT_EQ(Lines("S3p1", "Col_6 Is Null"), "0 8 9");
    EXPECT_SHADED("S3p1", 0, "Description");
}

TEST_F(WorksheetS3, PartOneTotalsVisitsOfLinesOneToSeven) {
    Begin(fy2016, {"S3p1"});
    Cell("S3p1", 0, 1, 1000);
    Cell("S3p1", 1, 1, 10);
    Cell("S3p1", 6, 1, 5);
    Cell("S3p1", 7, 3, 7);
    Cell("S3p1", 1, 5, 22);
    Cell("S3p1", 9, 5, 500);
    Calc_S3p1();
    EXPECT_CELL("S3p1", 8, 1, 15);
    EXPECT_CELL("S3p1", 8, 3, 7);
    EXPECT_CELL("S3p1", 8, 5, 22);
    EXPECT_SHADED("S3p1", 8, 2);
}

TEST_F(WorksheetS3, CensusOfSplitLinesIsClearedFromOctober2000On) {
    Begin(Year("10/1/2000", "9/30/2001"), {"S3p1"});
    for (const Currency line : {10_cur, 10.01_cur, 10.02_cur}) Cell("S3p1", line, 2, 8);
    Calc_S3p1();
    EXPECT_EQ(List("S3p1", 2, "LineNum >= 10"), "8 0 0");
}

TEST_F(WorksheetS3, SplitPeriodKeepsTheCensusAsTyped) {
    Begin(Year("7/1/2000", "6/30/2001"), {"S3p1"});
    for (const Currency line : {10.01_cur, 10.02_cur}) {
        Cell("S3p1", line, 2, 8);
        Cell("S3p1", line, 6, 1);
    }
    Calc_S3p1();
    EXPECT_EQ(List("S3p1", 2, "LineNum > 10"), "8 8");
    EXPECT_EQ(List("S3p1", 6, "LineNum > 10"), "1 1");
}

TEST_F(WorksheetS3, PartTwoAddsStaffAndContract) {
    Begin(fy2016, {"S3p2"});
    Cell("S3p2", 0, 1, 40);
    Cell("S3p2", 11, 1, 1.5);
    Cell("S3p2", 11, 2, 0.25);
    Cell("S3p2", 27, 1, Null);
    Cell("S3p2", 27, 2, 2);
    Calc_S3p2();
    EXPECT_CELL("S3p2", 11, 3, 1.75);
    EXPECT_CELL("S3p2", 27, 3, 2);
    EXPECT_SHADED("S3p2", 0, 3);
    EXPECT_SHADED("S3p2", 26, "Description");
}

TEST_F(WorksheetS3, PartTwoReadsANullAsZeroInEitherColumn) {
    Begin(fy2016, {"S3p2"});
    Cell("S3p2", 12, 1, 3);
    Cell("S3p2", 12, 2, Null);
    Calc_S3p2();
    EXPECT_CELL("S3p2", 12, 3, 3);
}

TEST_F(WorksheetS3, LongestStaffLabelIsWhole) {
    Begin(fy2016, {"S3p2"});
    EXPECT_CELL("S3p2", 11, "Description", "Administrator & Assistant Administrator(s)");
}

TEST_F(WorksheetS3, PartThreeCountsCodesAsTyped) {
    Begin(fy2016, {"S3p3"});
    EXPECT_CELL("S3p3", 28, 1, "0");
    Add_Codes(29_cur, "'1234'", "'12345'");
    Add_Codes(29.01_cur, "'123'", "'54321'");
    Add_Codes(29.02_cur, "Null", "'4321'");
    Calc_S3p3();
    EXPECT_CELL("S3p3", 28, 1, "1");
    EXPECT_CELL("S3p3", 28, 2, "2");
}

TEST_F(WorksheetS3, DrugCostRoundsHalvesToEven) {
    Begin(fy2016, {"S3p3"});
    Add_Drug_Lines("0.5", 5);
    Calc_S3p3();
    EXPECT_EQ(List("Cp3", 9), "-1 2 -1");
}

TEST_F(WorksheetS3, DrugLineBeginsWithPeriodsThatEndInJuly2006) {
    Begin(Year("8/1/2005", "7/30/2006"), {"S3p3"});
    Add_Drug_Lines("0.5", 7);
    Calc_S3p3();
    EXPECT_EQ(List("Cp3", 9), "-1 -1 -1");
}

TEST_F(WorksheetS3, VaccineLineIsCostedInPeriodsThatBeginByJuly2006) {
    Begin(Year("7/1/2006", "6/30/2007"), {"S3p3"});
    Add_Drug_Lines("0.5", 7);
    Calc_S3p3();
    EXPECT_EQ(List("Cp3", 9), "-1 4 4");
}

TEST_F(WorksheetS3, VaccineLineIsLeftInPeriodsThatBeginLater) {
    Begin(Year("7/2/2006", "6/30/2007"), {"S3p3"});
    Add_Drug_Lines("Null", 7);
    Calc_S3p3();
    EXPECT_EQ(List("Cp3", 9), "-1 0 -1");
}

TEST_F(WorksheetS3, PartFourTotalsVisitsAndCharges) {
    Begin(fy2016, {"S3p4"});
    for (int line = 30; line <= 43; ++line) {
        if (line != 42) Cell("S3p4", Currency(line), 2, line);
    }
    Cell("S3p4", 47, 2, 1000);
    Calc_S3p4();
    EXPECT_CELL("S3p4", 42, 2, 30 + 32 + 34 + 36 + 38 + 40);
    EXPECT_CELL("S3p4", 44, 2, 31 + 33 + 35 + 37 + 39 + 41 + 43);
    EXPECT_CELL("S3p4", 42, 7, 210);
    EXPECT_CELL("S3p4", 47, 7, 1000);
    EXPECT_CELL("S3p4", 46, 7, 0);
}

TEST_F(WorksheetS3, PartFourTotalsEveryColumnOfVisitsAndCharges) {
    Begin(fy2016, {"S3p4"});
    int factor = 1;
    for (const char* column : {"Col_1", "Col_2", "Col_3", "Col_4", "Col_5", "Col_6"}) {
        for (int line = 30; line <= 43; ++line) {
            if (line != 42) Cell("S3p4", Currency(line), column, factor * line);
        }
        ++factor;
    }
    Calc_S3p4();
    factor = 1;
    for (const char* column : {"Col_1", "Col_2", "Col_3", "Col_4", "Col_5", "Col_6"}) {
        EXPECT_CELL("S3p4", 42, column, factor * 210) << column;  // 30 + 32 + ... + 40
        EXPECT_CELL("S3p4", 44, column, factor * 259) << column;  // 31 + 33 + ... + 43
        ++factor;
    }
    EXPECT_CELL("S3p4", 42, 7, 21 * 210);
    EXPECT_CELL("S3p4", 44, 7, 21 * 259);
}

TEST_F(WorksheetS3, PartFourHasNoRowTotalOverANullInAnUnguardedColumn) {
    Begin(fy2016, {"S3p4"});
    Cell("S3p4", 30, 1, Null);
    Cell("S3p4", 30, 4, 6);
    Cell("S3p4", 31, 2, Null);
    Cell("S3p4", 31, 4, 6);
    Calc_S3p4();
    EXPECT_CELL("S3p4", 30, 7, 6);
    EXPECT_SHADED("S3p4", 31, 7);
}

TEST_F(WorksheetS3, PartFourKeepsANullTotalNull) {
    Begin(fy2016, {"S3p4"});
    db.Execute("UPDATE S3p4 SET Col_3 = Null;");
    Calc_S3p4();
    EXPECT_SHADED("S3p4", 42, 3);
    EXPECT_SHADED("S3p4", 44, 3);
    EXPECT_CELL("S3p4", 42, 7, 0);
}

}  // namespace
}  // namespace tallmar
