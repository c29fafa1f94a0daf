#include "structure/ag_option.h"

#include "calc/w_s2.h"
#include "report/chart.h"
#include "structure/cc_group.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

constexpr const char* kTables[] = {
    "CREATE TABLE A (LineNum Currency, CCNum Currency, CCGroup Integer, Col_1 Currency);",
    "CREATE TABLE A1 (LineNum Currency, Col_1 Currency);",
    "CREATE TABLE A4 (LineNum Currency, Col_3 Currency, Col_6 Currency);",
    "CREATE TABLE A5 (LineNum Currency, Col_4 Currency);",
    "CREATE TABLE B (LineNum Currency, CCNum Currency, CC_400 Currency, CC_500 Currency, Total Currency);",
    "CREATE TABLE B1 (LineNum Currency, CCNum Currency, Recon_500 Double, CC_500 Double);",
    "CREATE TABLE B1X (RowCCNum Currency, ColCCNum Text(8), Amount Double);",
    "CREATE TABLE StatLinks (FromCCNum Currency, ToCCNum Currency);",
    "CREATE TABLE S2 (LineNum Currency, Col_1 Text(40));",
};
constexpr std::pair<const char*, int> kItems[] = {{"A", 4},  {"A1", 0}, {"A4", 0},    {"A5", 3},         {"B", 0},
                                                  {"B1", 5}, {"S2", 0}, {"B1X", 999}, {"StatLinks", 999}};
constexpr const char* kRows[] = {
    "INSERT INTO A (LineNum, CCNum, CCGroup, Col_1) VALUES (5, 5, 500, 12.5);",
    "INSERT INTO A (LineNum, CCNum, CCGroup) VALUES (6, 6, 600);",
    "INSERT INTO A1 (LineNum) VALUES (5);",
    "INSERT INTO A4 (LineNum, Col_3, Col_6) VALUES (1, 5, 6);",
    "INSERT INTO A4 (LineNum, Col_3, Col_6) VALUES (2, 6, 5);",
    "INSERT INTO A4 (LineNum, Col_3, Col_6) VALUES (30, 5, 5);",
    "INSERT INTO A5 (LineNum, Col_4) VALUES (13, 5);",
    "INSERT INTO B (LineNum, CCNum, CC_500) VALUES (5, 5, 700);",
    "INSERT INTO B1 (LineNum, CCNum, Recon_500, CC_500) VALUES (5, 5, -700, 350);",
    "INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (5, \"CC_500\", 1);",
    "INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (5, 4);",
    "INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (3, 5);",
    "INSERT INTO S2 (LineNum) VALUES (26);",
};

class AgOptionTest : public ReportTest {
  protected:
    AgOptionTest() {
        openReport.FYEnd = Date_Of(2016, 9, 30);
        Empty_Database();
        Build_Worksheets();
        Build_CC();
        for (const char* statement : kTables) db.Execute(statement);
        for (const auto& [item, level] : kItems) Edit_Worksheets(item, "Make", level);
        for (const char* statement : kRows) db.Execute(statement);
    }
    void Choose(std::string_view option) {
        db.Execute(Sql("UPDATE S2 SET Col_1=", Quoted(option), " WHERE LineNum=26;"));
        Follow_AG_Option();
    }
    static bool Has_Field(std::string_view table, std::string_view field) {
        return db.TableDefs().Item(table).Shape().Find_Field(field) != nullptr;
    }
};

}  // namespace

TEST_F(AgOptionTest, EmptyAnswerIsOption0) {
    openReport.AGOption = 2;
    Load_AGOption();
    EXPECT_EQ(openReport.AGOption, 0);
    db.Execute("UPDATE S2 SET Col_1=\"1\" WHERE LineNum=26;");
    Load_AGOption();
    EXPECT_EQ(openReport.AGOption, 1);
    db.TableDefs().Delete("S2");
    Load_AGOption();
    EXPECT_EQ(openReport.AGOption, 0);
}

TEST_F(AgOptionTest, SplitMovesLine5To501Everywhere) {
    SplitAG();
    EXPECT_EQ(Column("SELECT LineNum FROM A ORDER BY LineNum;"), "5.01 6");
    EXPECT_EQ(Column("SELECT CCGroup FROM A ORDER BY LineNum;"), "501 600");
    EXPECT_EQ(Column("SELECT CCNum FROM A WHERE Col_1=12.5;"), "5.01");
    EXPECT_EQ(Column("SELECT LineNum FROM A1;"), "5.01");
    EXPECT_EQ(Column("SELECT Col_3 FROM A4 ORDER BY LineNum;"), "5.01 6 5");
    EXPECT_EQ(Column("SELECT Col_6 FROM A4 ORDER BY LineNum;"), "6 5.01 5");
    EXPECT_EQ(Column("SELECT Col_4 FROM A5;"), "5.01");
    EXPECT_EQ(Column("SELECT CC_501 FROM B WHERE LineNum=5.01 And CCNum=5.01;"), "700");
    EXPECT_FALSE(Has_Field("B", "CC_500"));
    EXPECT_EQ(Column("SELECT CC_501 FROM B1 WHERE LineNum=5.01 And CCNum=5.01;"), "350");
    EXPECT_EQ(Column("SELECT Recon_501 FROM B1;"), "-700");
    EXPECT_FALSE(Has_Field("B1", "Recon_500"));
    EXPECT_EQ(Column("SELECT ColCCNum FROM B1X WHERE RowCCNum=5.01;"), "CC_501");
    EXPECT_EQ(Column("SELECT FromCCNum FROM StatLinks;"), "5.01 3");
    EXPECT_EQ(Column("SELECT ToCCNum FROM StatLinks;"), "4 5.01");
    const Row chart = db.Read_Row("SELECT * FROM CostCenters WHERE LineNum=5.01;");
    EXPECT_EQ(chart["CCNum"], Value(5.01_cur));
    EXPECT_EQ(chart["LineType"], Value("U"));
    EXPECT_EQ(chart["CCGroup"], Value(501));
    EXPECT_EQ(CostCenterName(5_cur), "");
}

TEST_F(AgOptionTest, UnsplitIsTheWayBack) {
    SplitAG();
    UnsplitAG();
    EXPECT_EQ(Column("SELECT LineNum FROM A ORDER BY LineNum;"), "5 6");
    EXPECT_EQ(Column("SELECT CCGroup FROM A ORDER BY LineNum;"), "500 600");
    EXPECT_EQ(Column("SELECT Col_3 FROM A4 ORDER BY LineNum;"), "5 6 5");
    EXPECT_EQ(Column("SELECT CC_500 FROM B WHERE CCNum=5;"), "700");
    EXPECT_EQ(Column("SELECT Recon_500 FROM B1;"), "-700");
    EXPECT_EQ(Column("SELECT ColCCNum FROM B1X WHERE RowCCNum=5;"), "CC_500");
    EXPECT_EQ(Column("SELECT ToCCNum FROM StatLinks;"), "4 5");
    const Row chart = db.Read_Row("SELECT * FROM CostCenters WHERE LineNum=5;");
    EXPECT_EQ(chart["LineType"], Value("S"));
    EXPECT_EQ(chart["CCGroup"], Value(500));
}

TEST_F(AgOptionTest, UnsplitKeepsTheOtherSublines) {
    SplitAG();
    TableDef b = db.TableDefs().Item("B");
    b.Fields_Append(b.CreateField("CC_502", FieldType::Currency));
    db.Execute("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (5.02,5.02,'G');");
    UnsplitAG();
    EXPECT_TRUE(Has_Field("B", "CC_502"));
    EXPECT_EQ(Count("CostCenters WHERE LineNum=5.02"), 1);
}

TEST_F(AgOptionTest, KilledWorksheetIsLeftAlone) {
    platform.Advance(10);
    Edit_Worksheets("A1", "Kill");
    SplitAG();
    EXPECT_EQ(Column("SELECT LineNum FROM A1;"), "5");
}

TEST_F(AgOptionTest, WhatWasExchangedBeforeAnErrorStaysExchanged) {
    db.TableDefs().Delete("B1");
    EXPECT_THROW(SplitAG(), DbError);
    EXPECT_EQ(Column("SELECT LineNum FROM A ORDER BY LineNum;"), "5.01 6");
    EXPECT_EQ(Column("SELECT LineNum FROM CostCenters WHERE Int(LineNum)=5;"), "5");
}

TEST_F(AgOptionTest, Option1MakesLine5A501) {
    Choose("1");
    EXPECT_EQ(openReport.AGOption, 1);
    EXPECT_EQ(Column("SELECT LineNum FROM CostCenters WHERE Int(LineNum)=5;"), "5.01");
    EXPECT_EQ(Column("SELECT LineNum FROM A ORDER BY LineNum;"), "5.01 6");
    Choose("1");
    EXPECT_EQ(Column("SELECT LineNum FROM A ORDER BY LineNum;"), "5.01 6");
}

TEST_F(AgOptionTest, Option0TakesItBack) {
    Choose("1");
    Choose("0");
    EXPECT_EQ(openReport.AGOption, 0);
    EXPECT_EQ(Column("SELECT LineNum FROM CostCenters WHERE Int(LineNum)=5;"), "5");
    Choose("0");
    EXPECT_EQ(Column("SELECT CCGroup FROM CostCenters WHERE LineNum=5;"), "500");
}

TEST_F(AgOptionTest, GroupsOfTheSublines) {
    EXPECT_EQ(CCGroupFor(5.02_cur), 502);
    EXPECT_EQ(CCGroupFor(23.2_cur), 2320);
    db.Execute("UPDATE S2 SET Col_1=\"1\" WHERE LineNum=26;");
    EXPECT_EQ(CCGroupFor(5.01_cur), 501);
    EXPECT_EQ(CCGroupFor(5.02_cur), 521);
    EXPECT_EQ(CCGroupFor(5.03_cur), 522);
    EXPECT_EQ(CCGroupFor(5.04_cur), 524);
    EXPECT_EQ(CCGroupFor(5_cur), 520);
    EXPECT_EQ(CCGroupFor(6_cur), 600);
}

}  // namespace tallmar
