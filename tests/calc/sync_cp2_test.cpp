#include "calc/sync_cp2.h"

#include <gtest/gtest.h>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

void List_Code(Report& report, const char* line, const char* column, const char* code) {
    report.Execute(Sql("DELETE * FROM S3p3 WHERE LineNum = ", line, ";"));
    report.Execute(Sql("INSERT INTO S3p3 (LineNum, ", column, ") VALUES (", line, ",\"", code, "\");"));
}

}  // namespace

TEST(SyncCp2Test, ACalculationBuildsTheInstanceOfAListedCode) {
    Report r(fy2016);
    List_Code(r, "29", "Col_2", "16580");
    r.Calc();
    EXPECT_TRUE(TableExists("Cp2c16580", true));
    EXPECT_EQ(r.Cell("Cp2c16580", 1, "Description"), Value("Skilled Nursing"));
}

TEST(SyncCp2Test, ShortCodesArePadded) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "160");
    Sync_Cp2();
    EXPECT_TRUE(TableExists("Cp2m0160", true));
}

TEST(SyncCp2Test, CodesKeepTheOrderOfTheirLinesThoseOfMSAsFirst) {
    Report r(fy1999);
    List_Code(r, "29.01", "Col_2", "54321");
    List_Code(r, "29.03", "Col_1", "123");
    List_Code(r, "29.02", "Col_1", "1234");
    List_Code(r, "29", "Col_2", "345");
    Sync_Cp2();
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "MSA_Code"), Value("1234"));
    EXPECT_EQ(r.Cell("Cp4", 23.02_cur, "MSA_Code"), Value("0123"));
    EXPECT_EQ(r.Cell("Cp4", 23.03_cur, "MSA_Code"), Value("00345"));
    EXPECT_EQ(r.Cell("Cp4", 23.04_cur, "MSA_Code"), Value("54321"));
}

TEST(SyncCp2Test, ACodeThatIsRemovedDropsItsInstanceAndWhatWasTypedInIt) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "1400");
    Sync_Cp2();
    r.Execute("UPDATE Cp2m1400 SET Col_5 = 12 WHERE LineNum = 1;");
    r.Execute("DELETE * FROM S3p3 WHERE LineNum = 29;");
    Sync_Cp2();
    EXPECT_FALSE(TableExists("Cp2m1400", true));
    List_Code(r, "29", "Col_1", "1400");
    Sync_Cp2();
    EXPECT_EQ(r.Cell("Cp2m1400", 1, "Col_5"), Value(0.0));
}

TEST(SyncCp2Test, LinesOfPartIVKeepWhatWasTypedWithTheirCode) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "1400");
    List_Code(r, "29.01", "Col_1", "1600");
    Sync_Cp2();
    r.Execute("UPDATE Cp4 SET Col_1 = 7, Col_2 = 100 WHERE LineNum = 23.02;");
    r.Execute("DELETE * FROM S3p3 WHERE LineNum = 29;");
    Sync_Cp2();
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "MSA_Code"), Value("1600"));
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "Col_1"), Value(7_cur));
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "Col_2"), Value(100_cur));
}

TEST(SyncCp2Test, WithoutPartIVOrTheListOfCodesNothingIsBuilt) {
    for (const char* missing : {"Cp4", "S3p3"}) {
        Report r(fy1999);
        List_Code(r, "29", "Col_1", "1400");
        Drop_Worksheet(missing);
        Sync_Cp2();
        EXPECT_FALSE(db.TableDefs().Has("Cp2m1400")) << missing;
    }
}

TEST(SyncCp2Test, APartIVThatLeftTheRegistryIsDroppedAndNotUsed) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "1400");
    r.Execute("DELETE * FROM Worksheets WHERE Item = 'Cp4';");
    Sync_Cp2();
    EXPECT_FALSE(db.TableDefs().Has("Cp4"));
    EXPECT_FALSE(db.TableDefs().Has("Cp2m1400"));
}

TEST(SyncCp2Test, LinesAreNeverDoubled) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "1400");
    Sync_Cp2();
    Sync_Cp2();
    EXPECT_EQ(r.Read("SELECT Count(*) AS Cnt FROM Cp4 WHERE Int(LineNum) = 23;"), Value(1));
}

TEST(SyncCp2Test, APeriodWithoutLimitsKeepsItsLinesByPosition) {
    Report r(fy2016);
    List_Code(r, "29", "Col_2", "16580");
    r.Calc();
    EXPECT_TRUE(r.Cell("Cp4", 23.01_cur, "MSA_Code").Is_Null());
    r.Calc();
    EXPECT_TRUE(r.Cell("Cp4", 23.01_cur, "MSA_Code").Is_Null());
    EXPECT_EQ(r.Read("SELECT Count(*) AS Cnt FROM Cp4 WHERE Int(LineNum) = 23;"), Value(1));
}

TEST(SyncCp2Test, ALineOfARebuiltPartIVKeepsWhatIsTypedWithItsShortCode) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "160");
    Sync_Cp2();
    r.Build("Cp4");
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "MSA_Code"), Value("0160"));
    r.Cell("Cp4", 23.01_cur, "Col_1", 7);
    r.Calc();
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "Col_1"), Value(7_cur));
}

TEST(SyncCp2Test, ACodeThatCanNameNoTableIsReportedAndKeepsNoOtherOut) {
    Report r(fy1999);
    List_Code(r, "29", "Col_1", "1'4");
    List_Code(r, "29.01", "Col_1", "1600");
    const auto messages = r.Calc_With_Messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].form, "Cp2m1'4");
    EXPECT_TRUE(TableExists("Cp2m1600", true));
    EXPECT_EQ(r.Cell("Cp4", 23.02_cur, "MSA_Code"), Value("1600"));
}

TEST(SyncCp2Test, MSAsStandBeforeCBSAsAndACodeListedTwiceHasOneLine) {
    Report r(fy1999);
    r.Execute("INSERT INTO S3p3 (LineNum, Col_1, Col_2) VALUES (29, \"160\", \"16580\");");
    r.Execute("INSERT INTO S3p3 (LineNum, Col_1, Col_2) VALUES (29.01, \"0160\", \"\");");
    r.Execute("INSERT INTO S3p3 (LineNum, Col_1) VALUES (29.02, \"1400\");");
    r.Calc();
    EXPECT_EQ(r.Cell("Cp4", 23.01_cur, "MSA_Code"), Value("0160"));
    EXPECT_EQ(r.Cell("Cp4", 23.02_cur, "MSA_Code"), Value("1400"));
    EXPECT_EQ(r.Cell("Cp4", 23.03_cur, "MSA_Code"), Value("16580"));
    EXPECT_EQ(r.Cell("Cp4", 23.03_cur, "Description"), Value("Per Beneficiary cost Limitation for CBSA:"));
    EXPECT_EQ(r.Read("SELECT Count(*) AS Cnt FROM Cp4 WHERE Int(LineNum) = 23;"), Value(3));
    // As typed, "160" has no four characters.
    EXPECT_EQ(r.Cell("S3p3", 28, "Col_1"), Value("2"));
}

}  // namespace tallmar
