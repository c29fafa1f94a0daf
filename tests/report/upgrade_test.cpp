#include "report/upgrade.h"

#include "db/crf_header.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

void Build_Plain(const Item& item) {
    db.Execute(Sql("CREATE TABLE ", item.Name(), " (LineNum Currency, Col_1 Text(40));"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
constexpr WorksheetFamily kFamilies[] = {{"A1", 0, Years::CostLimits, true, Build_Plain},
                                         {"A2", 0, Years::CostLimits, false, Build_Plain},
                                         {"A83p1*", 0, Years::CostLimits, true, Build_Plain},
                                         {"S21", 0, Years::FromS21, true, Build_Plain}};

// Worksheets with a layout of their own, which may not be the present one.
bool layoutIsPresent = true;
bool Layout_Is_Present(const Item&) {
    return layoutIsPresent;
}
void Bring_Layout(const Item&) {
    layoutIsPresent = true;
}
void Fail_Layout(const Item&) {
    db.Execute("UPDATE NoSuchTable SET Col_1=0;");
}
constexpr WorksheetFamily kWithLayout[] = {{.items = "Cp3",
                                            .level = 0,
                                            .years = Years::Always,
                                            .inNewReport = true,
                                            .build = Build_Plain,
                                            .fits = Layout_Is_Present,
                                            .fit = Bring_Layout}};
constexpr WorksheetFamily kWithFailingLayout[] = {{.items = "Cp3",
                                                   .level = 0,
                                                   .years = Years::Always,
                                                   .inNewReport = true,
                                                   .build = Build_Plain,
                                                   .fits = Layout_Is_Present,
                                                   .fit = Fail_Layout}};

class UpgradeTest : public ReportTest {
  protected:
    UpgradeTest() { Install_Catalogue(kFamilies); }
    ~UpgradeTest() override { layoutIsPresent = true; }
    // The report moved to a year that starts then, behind the program's back, and opened again.
    void Reopen_With_Start(const char* start) {
        db.Execute(Sql("UPDATE Master SET FYStart=#", start, "#;"));
        Report_Release();
        ASSERT_TRUE(Report_Open(report));
    }
    static std::string Yearly() {
        return Column("SELECT Item FROM Worksheets WHERE Item Like \"A*\" Or Item=\"S21\" ORDER BY Item;");
    }
    std::string report = folder.File("Agency.CRF");
};

}  // namespace

TEST_F(UpgradeTest, ReportOfThePresentLayoutIsNotWrittenTo) {
    New_Report();
    Report_Release();
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_FALSE(CRF_Needs_Upgrade());
    EXPECT_FALSE(TableExists("JunkErrLog", false));
    Report_Release();
    EXPECT_EQ(Bytes(report), before);
}

TEST_F(UpgradeTest, OldWorksheetsGoWhenTheYearMovesOn) {
    New_Report(Date_Of(2000, 9, 30), Date_Of(2001, 9, 29));
    EXPECT_TRUE(TableExists("A1", true));
    EXPECT_TRUE(TableExists("A83p1", true));
    db.Execute("UPDATE Master SET FYStart=#10/1/2000#;");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_FALSE(TableExists("A1", false));
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE Item Like \"A*\";"), "");
    EXPECT_TRUE(TableExists("JunkErrLog", false));
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(UpgradeTest, S21ComesWhenItIsDue) {
    New_Report(Date_Of(2015, 9, 30), Date_Of(2016, 9, 29));
    EXPECT_FALSE(TableExists("S21", true));
    db.Execute("UPDATE Master SET FYStart=#10/1/2015#;");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(TableExists("S21", true));
}

TEST_F(UpgradeTest, RegistryIsRepaired) {
    New_Report();
    for (const char* item : {"O5h0", "O6p2h0"}) Edit_Worksheets(item, "Make", 3);
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    db.Execute("UPDATE Worksheets SET ItemName=\"S-21\" WHERE Item=\"S21\";");
    db.Execute("UPDATE Worksheets SET ItemName=Null WHERE Item=\"O5h0\";");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"O5h0\";"), Value(6));
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"O6p2h0\";"), Value(7));
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Worksheets\";"), Value(999));
    EXPECT_EQ(Read("SELECT ItemName FROM Worksheets WHERE Item=\"S21\";"), Value("S-2-1"));
    EXPECT_EQ(Read("SELECT ItemName FROM Worksheets WHERE Item=\"O5h0\";"), Value("O-5  Hospice-0"));
    EXPECT_FALSE(CRF_Needs_Upgrade());
}

TEST_F(UpgradeTest, MissingDisplayNamesAreAdded) {
    New_Report();
    db.TableDefs().Item("Worksheets").Fields_Delete("ItemName");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Read("SELECT ItemName FROM Worksheets WHERE Item=\"S21\";"), Value("S-2-1"));
    EXPECT_TRUE(Read("SELECT ItemName FROM Worksheets WHERE Item=\"Log\";").Is_Null());
    EXPECT_EQ(db.TableDefs().Item("Worksheets").Shape().Find_Field("ItemName")->size, 100);
}

TEST_F(UpgradeTest, ALayoutIsBroughtUpToDateWhenItIsNotThePresentOne) {
    Install_Catalogue(kWithLayout);
    New_Report();
    EXPECT_FALSE(CRF_Needs_Upgrade());
    layoutIsPresent = false;
    EXPECT_TRUE(CRF_Needs_Upgrade());
    Upgrade_CRF();
    EXPECT_TRUE(layoutIsPresent);
}

TEST_F(UpgradeTest, FailedStepIsListedAndTheOthersRun) {
    Install_Catalogue(kWithFailingLayout);
    New_Report();
    layoutIsPresent = false;
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    Upgrade_CRF();
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].rows[0].form, "Cp3");
    EXPECT_EQ(platform.batches[0].rows[0].level, "E");
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Worksheets\";"), Value(999));
}

TEST_F(UpgradeTest, AYearThatMovesBackGetsItsWorksheets) {
    New_Report(Date_Of(2000, 10, 1), Date_Of(2001, 9, 30));
    EXPECT_EQ(Yearly(), "");
    Reopen_With_Start("9/30/2000");
    EXPECT_EQ(Yearly(), "A1 A83p1");
    EXPECT_FALSE(CRF_Needs_Upgrade());
}

TEST_F(UpgradeTest, S21GoesFromAYearBeforeIt) {
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30));
    EXPECT_EQ(Yearly(), "S21");
    Reopen_With_Start("9/30/2015");
    EXPECT_EQ(Yearly(), "");
    EXPECT_FALSE(TableExists("S21", false));
}

TEST_F(UpgradeTest, OldWorksheetsWithoutARowInTheRegistryGoToo) {
    New_Report();
    for (const char* table : {"A1", "a2", "A83p1P", "A8"})
        db.Execute(Sql("CREATE TABLE ", table, " (LineNum Currency);"));
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    for (const char* table : {"A1", "A2", "A83p1P"}) EXPECT_FALSE(TableExists(table, false)) << table;
    EXPECT_TRUE(TableExists("A8", false)) << "no worksheet of another year";
}

TEST_F(UpgradeTest, ATableWithoutARowInTheRegistryIsMadeAnewWhereTheYearHasIt) {
    New_Report(Date_Of(2000, 9, 30), Date_Of(2001, 9, 29));
    db.Execute("INSERT INTO A1 (LineNum) VALUES (5);");
    db.Execute("DELETE FROM Worksheets WHERE Item=\"A1\";");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(TableExists("A1", true));
    EXPECT_EQ(Count("A1"), 0);
}

TEST_F(UpgradeTest, AReportWithoutItsDatesKeepsItsWorksheets) {
    New_Report();
    db.Execute("UPDATE Master SET FYStart=Null;");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Yearly(), "S21");
}

TEST_F(UpgradeTest, ForbiddenSublinesAreToldOnceAnOpeningAndNotToAReader) {
    New_Report(Date_Of(2000, 1, 1), Date_Of(2000, 12, 31));
    db.Execute("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (12.01,12.01,'A');");
    // A step is due as well: the box comes all the same.
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    Report_Release();
    platform.Expect_Box_Starting("CMS Requirement", "Cost centers 12, 13 and 14 are not allowed to be subscripted");
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(platform.batches.empty());
    Report_Release();
    EXPECT_TRUE(Report_Open(report, OpenFor::Reading));
}

TEST_F(UpgradeTest, ReadOnlyReportIsOpenedAsItIs) {
    New_Report();
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    Report_Release();
    std::filesystem::permissions(report, std::filesystem::perms::owner_read);
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Bytes(report), before);
}

TEST_F(UpgradeTest, UpgradedReportKeepsABackup) {
    const TempFolder data;
    platform.dataFolder = data.Path();
    New_Report();
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(std::filesystem::exists(data.File("backups")));
}

TEST_F(UpgradeTest, OlderFileStaysBesideTheReportAsItWas) {
    New_Report();
    db.Execute("DELETE * FROM CostCenters WHERE LineNum=23.2;");
    Report_Release();
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Bytes(folder.File("Agency.before-upgrade.CRF")), before);
    EXPECT_EQ(Count("DeletedCCs WHERE LineNum=23.2"), 1);
    EXPECT_EQ(Files(), (std::vector<std::string>{"Agency.CRF", "Agency.before-upgrade.CRF"}));
}

TEST_F(UpgradeTest, AnOlderFileKeptFromBeforeIsNeverReplaced) {
    std::vector<std::string> before;
    for (int i = 0; i < 3; ++i) {
        New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "Agency.CRF");
        db.Execute(Sql("UPDATE Master SET ProviderName=\"Agency ", i, "\";"));
        db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
        Report_Release();
        before.push_back(Bytes(report));
        ASSERT_TRUE(Report_Open(report));
        Report_Release();
    }
    EXPECT_TRUE(Bytes(folder.File("Agency.before-upgrade.CRF")) == before[0]);
    EXPECT_TRUE(Bytes(folder.File("Agency.before-upgrade (2).CRF")) == before[1]);
    EXPECT_TRUE(Bytes(folder.File("Agency.before-upgrade (3).CRF")) == before[2]);
}

TEST_F(UpgradeTest, WhoOnlyReadsSeesThePresentLayoutAndChangesNothing) {
    const TempFolder data;
    platform.dataFolder = data.Path();
    New_Report();
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    db.TableDefs().Item("Worksheets").Fields_Delete("ItemName");
    Report_Release();
    for (const bool readOnly : {false, true}) {
        if (readOnly) std::filesystem::permissions(report, std::filesystem::perms::owner_read);
        const std::string before = Bytes(report);
        ASSERT_TRUE(Report_Open(report, OpenFor::Reading));
        EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Worksheets\";"), Value(999));
        EXPECT_EQ(Read("SELECT ItemName FROM Worksheets WHERE Item=\"S21\";"), Value("S-2-1"));
        EXPECT_EQ(db.Path(), report);
        Report_Release();
        EXPECT_TRUE(Bytes(report) == before);
        EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    }
    EXPECT_FALSE(std::filesystem::exists(data.File("backups")));
    EXPECT_TRUE(platform.batches.empty());
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(UpgradeTest, NewerLayoutIsRefused) {
    New_Report();
    Report_Release();
    std::string bytes = Bytes(report);
    bytes[63] = static_cast<char>(kCrfLayout + 1);  // the layout's place in the file's head
    Write(report, bytes);
    platform.Expect_Box_Starting("Error: Attempting to Open Invalid CRF file", "The file " + report);
    EXPECT_FALSE(Report_Open(report));
    EXPECT_EQ(Bytes(report), bytes);
}

TEST_F(UpgradeTest, ReportWithoutItsRegistryIsOpenedAsItIs) {
    New_Report();
    db.TableDefs().Delete("Worksheets");
    Report_Release();
    const std::string before = Bytes(report);
    EXPECT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_TRUE(Bytes(report) == before);
    EXPECT_TRUE(platform.batches.empty());
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

}  // namespace tallmar
