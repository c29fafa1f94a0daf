#include "report/registry.h"

#include "report/message_log.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

class RegistryTest : public ReportTest {
  protected:
    RegistryTest() {
        Empty_Database();
        Build_Worksheets();
    }
    Value Of(std::string_view item, std::string_view field) {
        return Read(Sql("SELECT ", field, " FROM Worksheets WHERE Item=", Quoted(item), ";"));
    }
};

const Date kStart = Date_Of({2016, 11, 15, 10, 30, 0});
const Date kLater = Date_Of({2016, 11, 15, 10, 30, 10});

}  // namespace

TEST_F(RegistryTest, FirstRowIsTheRegistrysOwn) {
    EXPECT_EQ(Count("Worksheets"), 1);
    EXPECT_EQ(Of("Worksheets", "Calc_Lvl"), Value(999));
    EXPECT_EQ(Of("Worksheets", "CalcErrs"), Value(0));
    EXPECT_EQ(Of("Worksheets", "ReCalc"), Value(false));
    EXPECT_TRUE(Of("Worksheets", "ItemName").Is_Null());
    for (const char* stamp : {"MakeDate", "ChngDate", "SaveDate", "CalcDate", "KillDate", "PrntDate"}) {
        EXPECT_EQ(Of("Worksheets", stamp), Value(kStart)) << stamp;
    }
}

TEST_F(RegistryTest, MakeAddsARowWithItsDisplayName) {
    Edit_Worksheets("K4p2h0", "Make", 5);
    EXPECT_EQ(Of("K4p2h0", "ItemName"), Value("K-4  Hospice-0  Part-2"));
    EXPECT_EQ(Of("K4p2h0", "Calc_Lvl"), Value(5));
    EXPECT_EQ(Of("K4p2h0", "ReCalc"), Value(true));
    EXPECT_EQ(Of("K4p2h0", "CalcErrs"), Value(0));
    for (const char* stamp : {"MakeDate", "ChngDate", "SaveDate"}) EXPECT_EQ(Of("K4p2h0", stamp), Value(kStart));
    for (const char* stamp : {"CalcDate", "KillDate", "PrntDate"}) EXPECT_EQ(Of("K4p2h0", stamp), Value(Date{}));
}

TEST_F(RegistryTest, MakeRevivesAKilledWorksheetAndKeepsWhatItWas) {
    Edit_Worksheets("A4", "Make", 0);
    platform.Advance(10);
    Edit_Worksheets("A4", "Calc", 2);
    Edit_Worksheets("A4", "Prnt");
    Edit_Worksheets("A4", "Kill");
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE KillDate > MakeDate;"), "A4");
    platform.Advance(10);
    Edit_Worksheets("A4", "Make", 0);
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE Item=\"A4\" And KillDate <= MakeDate;"), "A4");
    EXPECT_EQ(Of("A4", "KillDate"), Value(kLater));
    EXPECT_EQ(Of("A4", "CalcDate"), Value(kLater));
    EXPECT_EQ(Of("A4", "PrntDate"), Value(Date{}));
    EXPECT_EQ(Of("A4", "CalcErrs"), Value(0));
    EXPECT_EQ(Count("Worksheets"), 2);
}

TEST_F(RegistryTest, StampOfAnUnknownItemBeepsAndWritesNothing) {
    openReport.ecrMayBeBuilt = true;
    for (const char* action : {"Chng", "Save", "Calc", "Prnt", "Kill", "Other"}) Edit_Worksheets("A", action, 1);
    EXPECT_EQ(platform.beeps, 6);
    EXPECT_EQ(Count("Worksheets"), 1);
    EXPECT_TRUE(openReport.ecrMayBeBuilt);
}

TEST_F(RegistryTest, EachStampWritesItsOwnDate) {
    Edit_Worksheets("A", "Make", 4);
    db.Execute("UPDATE Worksheets SET ReCalc=0 WHERE Item=\"A\";");
    platform.Advance(10);
    Edit_Worksheets("A", "Save");
    EXPECT_EQ(Of("A", "SaveDate"), Value(kLater));
    EXPECT_EQ(Of("A", "ChngDate"), Value(kStart));
    EXPECT_EQ(Of("A", "ReCalc"), Value(false));
    Edit_Worksheets("A", "Chng");
    EXPECT_EQ(Of("A", "ChngDate"), Value(kLater));
    EXPECT_EQ(Of("A", "ReCalc"), Value(true));
    Edit_Worksheets("A", "Prnt");
    EXPECT_EQ(Of("A", "PrntDate"), Value(kLater));
    EXPECT_EQ(Of("A", "KillDate"), Value(Date{}));
}

TEST_F(RegistryTest, CalcTellsWhetherErrorsStandAndStopsTheSubmission) {
    openReport.ecrMayBeBuilt = true;
    Edit_Worksheets("A", "Make", 4);
    EXPECT_TRUE(openReport.ecrMayBeBuilt);
    Edit_Worksheets("A", "Calc", 3);
    EXPECT_EQ(Of("A", "CalcErrs"), Value(3));
    EXPECT_EQ(Of("A", "ReCalc"), Value(true));
    Edit_Worksheets("A", "Calc", 0);
    EXPECT_EQ(Of("A", "ReCalc"), Value(false));
    EXPECT_FALSE(openReport.ecrMayBeBuilt);
}

TEST_F(RegistryTest, InternalTableGetsNoNameAndARebuildKeepsAnOldOne) {
    Edit_Worksheets("B1X", "Make", 999);
    EXPECT_TRUE(Of("B1X", "ItemName").Is_Null());
    db.Execute("UPDATE Worksheets SET ItemName=\"Overrides\" WHERE Item=\"B1X\";");
    Edit_Worksheets("B1X", "Make", 999);
    EXPECT_EQ(Of("B1X", "ItemName"), Value("Overrides"));
}

TEST_F(RegistryTest, OneRowATable) {
    EXPECT_THROW(db.Execute("INSERT INTO Worksheets (Item) VALUES (\"worksheets\");"), DbError);
    EXPECT_THROW(db.Execute("INSERT INTO Worksheets (Item) VALUES (Null);"), DbError);
}

TEST_F(RegistryTest, TableIsFoundWithoutRegardToCase) {
    db.Execute("CREATE TABLE A4 (LineNum Currency);");
    Edit_Worksheets("A4", "Make", 0);
    EXPECT_TRUE(TableExists("a4", true));
    EXPECT_TRUE(TableExists("A4", false));
    EXPECT_FALSE(TableExists("A5", true));
}

TEST_F(RegistryTest, UnregisteredTableIsAnOrphanAndGoes) {
    db.Execute("CREATE TABLE A4 (LineNum Currency);");
    EXPECT_TRUE(TableExists("A4", false));
    EXPECT_FALSE(TableExists("A4", true));
    EXPECT_FALSE(TableExists("A4", false));
}

TEST_F(RegistryTest, FieldsOfARecordsetAreFoundWithoutRegardToCase) {
    const Recordset worksheets = db.OpenRecordset("Worksheets");
    EXPECT_TRUE(Field_Exists(worksheets, "calc_lvl"));
    EXPECT_FALSE(Field_Exists(worksheets, "Calc"));
}

TEST(WorksheetNameTest, NamesAreSpelledFromTheLetters) {
    const FakePlatform platform;
    EXPECT_EQ(WorksheetName("A"), "A");
    EXPECT_EQ(WorksheetName("A83p1"), "A-83  Part-1");
    EXPECT_EQ(WorksheetName("A83p1O"), "A-83 Occupational  Part-1");
    EXPECT_EQ(WorksheetName("A83p5P"), "A-83 Physical  Part-5");
    EXPECT_EQ(WorksheetName("A83p2S"), "A-83 Speech  Part-2");
    EXPECT_EQ(WorksheetName("A83p2R"), "A-83 Respiratory  Part-2");
    EXPECT_EQ(WorksheetName("A6pA"), "A-6  Part-A");
    EXPECT_EQ(WorksheetName("S3p2"), "S-3  Part-2");
    EXPECT_EQ(WorksheetName("S21"), "S-2-1");
    EXPECT_EQ(WorksheetName("S2"), "S-2");
    EXPECT_EQ(WorksheetName("Sp2"), "S  Part-2");
    EXPECT_EQ(WorksheetName("D1"), "D-1");
    EXPECT_EQ(WorksheetName("Dp1"), "D  Part-1");
    EXPECT_EQ(WorksheetName("Cp2m1234"), "C  Part-2  MSA-1234");
    EXPECT_EQ(WorksheetName("Cp2c12345"), "C  Part-2  CBSA-12345");
    EXPECT_EQ(WorksheetName("Kh0"), "K  Hospice-0");
    EXPECT_EQ(WorksheetName("K4p2h0"), "K-4  Hospice-0  Part-2");
    EXPECT_EQ(WorksheetName("O6p2h3"), "O-6  Hospice-3  Part-2");
    EXPECT_EQ(WorksheetName("S5p1h9"), "S-5  Hospice-9  Part-1");
    EXPECT_EQ(WorksheetName("Bh1"), "B  HHA-1");
    EXPECT_EQ(WorksheetName("Bf2r3"), "B  RHC-3");
    EXPECT_EQ(WorksheetName("Ct18A"), "C  Title-XVIII  Part-A");
    EXPECT_EQ(WorksheetName("Ct19N"), "C  Title-XIX  NF");
    EXPECT_EQ(WorksheetName("Ct05B"), "C  Title-V  Part-B");
    EXPECT_EQ(WorksheetName("ES"), "E  SNF");
    EXPECT_EQ(WorksheetName("DS"), "D  SNF");
    EXPECT_EQ(WorksheetName("ANS"), "A Speech  NF");
    EXPECT_EQ(WorksheetName("AAB"), "A  Part-B");
}

TEST(WorksheetNameTest, CodeOfACbsaTakesOneCharacterMore) {
    const FakePlatform platform;
    EXPECT_EQ(WorksheetName("Cp2c12345BA"), "C  Part-2  CBSA-12345  Part-A");
}

TEST(WorksheetNameTest, UnknownLetterIsReportedAndPassedOver) {
    FakePlatform platform;
    platform.Expect_Box("", "Unknown Worksheet name (Axp1), please call QVR.", Answer::Ok, kStop);
    EXPECT_EQ(WorksheetName("Axp1"), "A  Part-1");
}

}  // namespace tallmar
