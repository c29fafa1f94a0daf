#include "report/chart.h"

#include "report/master.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

class ChartTest : public ReportTest {
  protected:
    ChartTest() {
        Empty_Database();
        openReport.FYStart = Date_Of(2015, 10, 1);
        openReport.FYEnd = Date_Of(2016, 9, 30);
        Build_Worksheets();
        Build_Master();
    }
    void Split_Chart() {
        db.Execute("UPDATE CostCenters SET LineNum=5.01, CCNum=5.01, CCGroup=523, LineType=\"U\" WHERE LineNum=5;");
        for (const char* subline : {"5.02,'U',5.02,521", "5.03,'U',5.03,522"}) {
            db.Execute(
                Sql("INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,StatLabel1,StatLabel2) "
                    "VALUES (",
                    subline, ",'G','(Accumulated','Cost)');"));
        }
    }
};

}  // namespace

TEST_F(ChartTest, LinesInTheOrderOfTheForm) {
    Build_CC();
    EXPECT_EQ(Column("SELECT LineNum FROM CostCenters ORDER BY LineNum;"),
              "1 2 3 4 5 6 7 8 9 10 11 12 13 13.2 14 15 16 17 18 19 20 21 22 23 23.2");
    EXPECT_EQ(Count("CostCenters WHERE LineNum <> CCNum"), 0);
    EXPECT_EQ(Count("CostCenters WHERE CCGroup <> LineNum * 100"), 0);
    EXPECT_EQ(Count("CostCenters WHERE LineType <> 'S'"), 0);
    EXPECT_EQ(Column("SELECT LineNum FROM CostCenters WHERE CCType='G' ORDER BY LineNum;"), "1 2 3 4 5");
    EXPECT_EQ(Column("SELECT MaxLines FROM CostCenters ORDER BY LineNum;"),
              "19 19 19 9 0 0 0 0 0 0 0 9 9 9 9 9 9 9 9 9 9 9 9 9 9");
    EXPECT_EQ(Column("SELECT StatCode FROM CostCenters WHERE LineNum < 6 ORDER BY LineNum;"), "1 1 1 4 3");
}

TEST_F(ChartTest, GeneralServiceLinesCarryTheirLabels) {
    Build_CC();
    const Row row = db.Read_Row("SELECT * FROM CostCenters WHERE LineNum=4;");
    EXPECT_EQ(row["CCName"], Value("Transportation"));
    EXPECT_EQ(row["StatLabel1"], Value("(Mileage)"));
    EXPECT_EQ(row["StatLabel2"], Value(" "));
    EXPECT_EQ(row["ColLabel1"], Value("Trans-"));
    EXPECT_EQ(row["ColLabel2"], Value("portation"));
    EXPECT_EQ(row["ColLabel3"], Value(" "));
    EXPECT_TRUE(Read("SELECT StatLabel1 FROM CostCenters WHERE LineNum=6;").Is_Null());
}

TEST_F(ChartTest, VaccineLineComesWithYearsEndingOnItsDate) {
    openReport.FYEnd = Date_Of(2007, 1, 30);
    Build_CC();
    EXPECT_EQ(Count("CostCenters WHERE LineNum=13.2"), 0);
    db.TableDefs().Delete("CostCenters");
    db.TableDefs().Delete("DeletedCCs");
    openReport.FYEnd = Date_Of(2007, 1, 31);
    Build_CC();
    EXPECT_EQ(Read("SELECT MaxLines FROM CostCenters WHERE LineNum=13.2;"), Value(9));
}

TEST_F(ChartTest, HospiceIsKeptAside) {
    Build_CC();
    EXPECT_EQ(Count("DeletedCCs"), 1);
    const Row row = db.Read_Row("SELECT * FROM DeletedCCs;");
    EXPECT_EQ(row["LineNum"], Value(25_cur));
    EXPECT_EQ(row["CCGroup"], Value(2500));
    EXPECT_EQ(row["CCName"], Value("Hospice"));
    EXPECT_EQ(db.TableDefs().Item("DeletedCCs").Shape().fields, db.TableDefs().Item("CostCenters").Shape().fields);
}

TEST_F(ChartTest, BothTablesAreRegisteredAsInternal) {
    Build_CC();
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE Calc_Lvl=999 ORDER BY Item;"),
              "CostCenters DeletedCCs Worksheets");
}

TEST_F(ChartTest, NameOfALine) {
    Build_CC();
    EXPECT_EQ(CostCenterName(13.2_cur), "Cost of Administering Vaccines");
    EXPECT_EQ(CostCenterName(13.3_cur), "");
}

TEST_F(ChartTest, CountsFollowTheChart) {
    Build_CC();
    Store_CC_Counts();
    Row row = db.Read_Row("SELECT * FROM Master;");
    EXPECT_EQ(row["AllCCs"], Value(25));
    EXPECT_EQ(row["GenSvcCCs"], Value(5));
    EXPECT_EQ(row["CapitalCCs"], Value(2));
    EXPECT_EQ(row["EmpBenCCs"], Value(0));
    db.Execute("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (2.01,2.01,'G');");
    Store_CC_Counts();
    row = db.Read_Row("SELECT * FROM Master;");
    EXPECT_EQ(row["AllCCs"], Value(26));
    EXPECT_EQ(row["CapitalCCs"], Value(3));
}

TEST_F(ChartTest, NewChartFitsOption0AndNoOther) {
    Build_CC();
    openReport.AGOption = 0;
    EXPECT_EQ(CheckAGCostCenters(), "");
    openReport.AGOption = 1;
    EXPECT_EQ(CheckAGCostCenters(),
              "Worksheet S-2 line 26 specifies option 1.  This requires that Administrative & General cost centers "
              "5.01, 5.02, and 5.03 be defined, and that there are no other cost centers between 5.00 and 5.19. Also, "
              "these cost centers must use accumulated cost and have group codes 0523, 0521, and 0522 respectively.");
    openReport.AGOption = 2;
    EXPECT_EQ(CheckAGCostCenters(),
              "Worksheet S-2 line 26 does not specify a correct option, please correct on form S2.");
}

TEST_F(ChartTest, SplitChartFitsOption1) {
    Build_CC();
    Split_Chart();
    openReport.AGOption = 1;
    EXPECT_EQ(CheckAGCostCenters(), "");
    openReport.AGOption = 0;
    EXPECT_EQ(CheckAGCostCenters(),
              "Worksheet S-2 line 26 specifies option 0.  This requires that Administrative & General cost center "
              "5.00 be defined, and that it is the only cost center between 5.00 and 5.19. Also, cost center 5.00 must "
              "use accumulated cost and have group code 500.");
}

TEST_F(ChartTest, SublineWithoutAccumulatedCostDropsOutOfOption1) {
    Build_CC();
    Split_Chart();
    db.Execute("UPDATE CostCenters SET StatLabel1='(Square', StatLabel2='Feet)' WHERE LineNum=5.02;");
    openReport.AGOption = 1;
    EXPECT_TRUE(CheckAGCostCenters().starts_with("Worksheet S-2 line 26 specifies option 1."));
}

TEST_F(ChartTest, UpgradeOffersTelemedicineOnce) {
    Build_CC();
    EXPECT_FALSE(Chart_Needs_Upgrade());
    db.Execute("DELETE * FROM CostCenters WHERE LineNum=23.2;");
    EXPECT_TRUE(Chart_Needs_Upgrade());
    Upgrade_Chart();
    Upgrade_Chart();
    EXPECT_EQ(Column("SELECT LineNum FROM DeletedCCs ORDER BY LineNum;"), "23.2 25");
    EXPECT_EQ(Count("CostCenters WHERE LineNum=23.2"), 0);
}

TEST_F(ChartTest, UpgradeAddsTheVaccineLineAndCountsIt) {
    Build_CC();
    db.Execute("DELETE * FROM CostCenters WHERE LineNum=13.2;");
    Store_CC_Counts();
    ASSERT_EQ(Read("SELECT AllCCs FROM Master;"), Value(24));
    EXPECT_TRUE(Chart_Needs_Upgrade());
    Upgrade_Chart();
    EXPECT_EQ(Read("SELECT MaxLines FROM CostCenters WHERE LineNum=13.2;"), Value(0));
    EXPECT_EQ(Read("SELECT AllCCs FROM Master;"), Value(25));
    EXPECT_FALSE(Chart_Needs_Upgrade());
}

TEST_F(ChartTest, UpgradeLeavesTheVaccineLineToYearsThatHaveIt) {
    openReport.FYEnd = Date_Of(2007, 1, 30);
    Build_CC();
    EXPECT_FALSE(Chart_Needs_Upgrade());
    openReport.FYEnd = Date_Of(2007, 1, 31);
    EXPECT_TRUE(Chart_Needs_Upgrade());
}

TEST_F(ChartTest, SublinesOf12To14AreForbiddenAcrossTheLimitsEnd) {
    Build_CC();
    db.Execute("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (12.01,12.01,'A');");
    Tell_Forbidden_Sublines();
    openReport.FYStart = Date_Of(2000, 1, 1);
    openReport.FYEnd = Date_Of(2000, 9, 30);
    Tell_Forbidden_Sublines();
    openReport.FYEnd = Date_Of(2000, 10, 1);
    platform.Expect_Box("CMS Requirement",
                        "Cost centers 12, 13 and 14 are not allowed to be subscripted for cost reporting periods that "
                        "span 10/1/2000.  Please remove the subscripted lines for cost centers 12, 13 and 14.");
    Tell_Forbidden_Sublines();
    openReport.FYStart = Date_Of(2000, 10, 1);
    Tell_Forbidden_Sublines();
}

}  // namespace tallmar
