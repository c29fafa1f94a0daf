#include "report/upgrade.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

void Build_Plain(const Item& item) {
    db.Execute(Sql("CREATE TABLE ", item.Name(), " (LineNum Currency, Col_1 Text(40));"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
constexpr WorksheetFamily kFamilies[] = {{"A1", 0, Build_Plain, nullptr, nullptr, nullptr},
                                         {"A83p1", 0, Build_Plain, nullptr, nullptr, nullptr},
                                         {"S21", 0, Build_Plain, nullptr, nullptr, nullptr}};

bool slotIsDue = false;
bool Slot_Is_Due() {
    return slotIsDue;
}
void Run_Slot() {
    slotIsDue = false;
}
void Fail_Slot() {
    db.Execute("UPDATE NoSuchTable SET Col_1=0;");
}

class UpgradeTest : public ReportTest {
  protected:
    UpgradeTest() { Install_Catalogue(kFamilies); }
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
    EXPECT_EQ(MsgLogPrefix, "");
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

TEST_F(UpgradeTest, StepsOfWorksheetsRunWhenTheyAreDue) {
    New_Report();
    static constexpr UpgradeStep kSteps[] = {{"Cp3", Slot_Is_Due, Run_Slot}};
    Install_Upgrade_Steps(kSteps);
    slotIsDue = true;
    EXPECT_TRUE(CRF_Needs_Upgrade());
    Upgrade_CRF();
    EXPECT_FALSE(slotIsDue);
}

TEST_F(UpgradeTest, FailedStepIsListedAndTheOthersRun) {
    New_Report();
    static constexpr UpgradeStep kSteps[] = {{"Cp3", Slot_Is_Due, Fail_Slot}};
    Install_Upgrade_Steps(kSteps);
    slotIsDue = true;
    db.Execute("UPDATE Worksheets SET Calc_Lvl=0 WHERE Item=\"Worksheets\";");
    Upgrade_CRF();
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].rows[0].form, "Cp3");
    EXPECT_EQ(platform.batches[0].rows[0].level, "E");
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Worksheets\";"), Value(999));
    slotIsDue = false;
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
    EXPECT_TRUE(Report_Open(report));
}

}  // namespace tallmar
