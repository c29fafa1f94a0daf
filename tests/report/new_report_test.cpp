#include "report/new_report.h"

#include "catalogue.h"
#include "report/build_worksheet.h"
#include "support/report_test.h"
#include "support/size_limit.h"

namespace tallmar {

namespace {

std::string built;

// A family that notes its build and leaves a registered table of one line.
void Build_Plain(const Item& item) {
    built += (built.empty() ? "" : " ") + item.Name();
    db.Execute(Sql("CREATE TABLE ", item.Name(), " (LineNum Currency, CCName Text(40), Col_1 Text(40));"));
    db.Execute(Sql("INSERT INTO ", item.Name(), " (LineNum) VALUES (26);"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
void Build_Broken(const Item& item) {
    Build_Plain(item);
    db.Execute("SELECT Nothing \"here\";");
}
// The program's families, built plainly.
std::vector<WorksheetFamily> Plain_Families(std::string_view broken = "") {
    std::vector<WorksheetFamily> families(All_Families().begin(), All_Families().end());
    for (WorksheetFamily& family : families) family.build = family.items.Text() == broken ? Build_Broken : Build_Plain;
    return families;
}
const std::vector<WorksheetFamily> kEvery = Plain_Families();
const std::vector<WorksheetFamily> kBrokenS2 = Plain_Families("S2");
constexpr WorksheetFamily kOnlyA[] = {{"A", 4, Years::Always, true, Build_Plain}};

class NewReportTest : public ReportTest {
  protected:
    NewReportTest() { built.clear(); }
    bool Create(std::string_view name, std::string_view start = "10/1/2015") {
        NewReportEntries entries;
        entries.providerNumber = "147100";
        entries.fyStart = start;
        entries.facilityName = "Harbor Home Health";
        return Create_CRF(folder.File(name), entries);
    }
    void Expect_Replace() { platform.Expect_Box_Starting("Replace File?", "", Answer::Yes); }
};

}  // namespace

TEST_F(NewReportTest, WorksheetsAreBuiltInTheirOrder) {
    Install_Catalogue(kEvery);
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_EQ(built,
              "A Sp2 S2 S21 S3p1 S3p2 S3p3 S3p4 A4 A5 A6pA A6pB A6pC A7 B B1 Cp1 Cp3 Cp4 Cp5 Dp1 Dp2 D1 F F1 F2");
}

TEST_F(NewReportTest, YearsBeforeTheLimitsEndHaveA1ToA3AndA83) {
    Install_Catalogue(kEvery);
    ASSERT_TRUE(Create("Agency.CRF", "9/30/2000"));
    EXPECT_EQ(built,
              "A Sp2 S2 S3p1 S3p2 S3p3 S3p4 A1 A2 A3 A4 A5 A6pA A6pB A6pC A7 A83p1 A83p2 A83p3 A83p4 A83p5 B B1 Cp1 "
              "Cp3 Cp4 Cp5 Dp1 Dp2 D1 F F1 F2");
}

TEST_F(NewReportTest, DatesDecideToTheDay) {
    Install_Catalogue(kEvery);
    ASSERT_TRUE(Create("a.CRF", "10/1/2000"));
    EXPECT_FALSE(TableExists("A1", true));
    ASSERT_TRUE(Create("b.CRF", "9/30/2015"));
    EXPECT_FALSE(TableExists("S21", true));
    ASSERT_TRUE(Create("c.CRF", "10/1/2015"));
    EXPECT_TRUE(TableExists("S21", true));
}

TEST_F(NewReportTest, ReportIsOpenAndWhole) {
    Install_Catalogue(kEvery);
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, folder.File("Agency.CRF"));
    EXPECT_EQ(openReport.CRFDir, folder.Path());
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_EQ(openReport.FormNum, "1728");
    EXPECT_EQ(openReport.ProviderNumber, "14-7100");
    EXPECT_EQ(Read("SELECT ProviderName FROM Master;"), Value("Harbor Home Health"));
    EXPECT_EQ(Read("SELECT FYEnd FROM Master;"), Value(Date_Of(2016, 9, 30)));
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE Calc_Lvl=999 ORDER BY Item;"),
              "CostCenters DeletedCCs HeaderLines Log Worksheets");
    EXPECT_EQ(openReport.MsgLogPrefix, "");
    EXPECT_TRUE(TableExists("NewCRFErrLog", false));
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(NewReportTest, WindowHearsOfTheReport) {
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_EQ(platform.reportEvents, (std::vector{ReportEvent::Making, ReportEvent::Named, ReportEvent::Opened}));
    EXPECT_EQ(openReport.CRFPath, folder.File("Agency.CRF"));
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_FALSE(platform.busy);
    EXPECT_FALSE(platform.hourglass);
}

TEST_F(NewReportTest, WorksheetsThatNoFamilyBuildsAreLeftOut) {
    Install_Catalogue(kOnlyA);
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_EQ(built, "A");
    EXPECT_TRUE(platform.batches.empty());
}

TEST_F(NewReportTest, BrokenBuildIsListedAndTheOthersGoOn) {
    Install_Catalogue(kBrokenS2);
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_TRUE(TableExists("F2", true));
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].title, "The following messages were generated during the NewCRF process.");
    ASSERT_EQ(platform.batches[0].rows.size(), 1u);
    EXPECT_EQ(platform.batches[0].rows[0].level, "E");
    EXPECT_EQ(platform.batches[0].rows[0].form, "S2");
}

TEST_F(NewReportTest, RefusedEntriesCreateNothing) {
    NewReportEntries entries;
    entries.providerNumber = "14";
    platform.Expect_Box_Starting("Tallmar 1728", "You have entered an invalid Provider Number!");
    EXPECT_FALSE(Create_CRF(folder.File("Agency.CRF"), entries));
    EXPECT_TRUE(Files().empty());
}

void Fill_The_Disk(const Item&) {
    throw DbError(DbErrorCode::DiskFull, "Agency.CRF");
}

TEST_F(NewReportTest, DiskThatFillsWhileItIsAssembledIsASystemErrorAndLeavesTheOlderFile) {
    const std::string report = folder.File("Agency.CRF");
    Write(report, "older");
    static constexpr WorksheetFamily kFull[] = {{"Sp2", 0, Years::Always, true, Fill_The_Disk}};
    Install_Catalogue(kFull);
    platform.Expect_Box("System Error", "The disk is full: 'Agency.CRF'", Answer::Ok, kStop);
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Harbor Home Health";
    EXPECT_FALSE(Create_CRF(report, entries, {Date_Of(2015, 10, 1), Date_Of(2016, 9, 30)}));
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, "");
    EXPECT_EQ(Bytes(report), "older");
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(NewReportTest, AFileThatIsThereIsReplacedOnlyAfterTheQuestion) {
    Install_Catalogue(kEvery);
    ASSERT_TRUE(Create("Agency.CRF"));
    Report_Release();
    const std::string before = Bytes(folder.File("Agency.CRF"));
    const std::string text = "The file '" + folder.File("Agency.CRF") + "' exists already.  Do you want to replace it?";
    platform.Expect_Box("Replace File?", text, Answer::No);
    EXPECT_FALSE(Create("Agency.CRF"));
    EXPECT_TRUE(Bytes(folder.File("Agency.CRF")) == before);
    platform.Expect_Box("Replace File?", text, Answer::Yes);
    EXPECT_TRUE(Create("Agency.CRF", "10/1/2014"));
    EXPECT_EQ(openReport.FYStart, Date_Of(2014, 10, 1));
}

TEST_F(NewReportTest, CancelledDialogCreatesNothing) {
    platform.Reply_Save(std::nullopt);
    EXPECT_FALSE(Create_CRF(NewReportEntries{}, FiscalYear{}));
    ASSERT_EQ(platform.saveDialogs.size(), 1u);
    EXPECT_EQ(platform.saveDialogs[0].title, "Name New Cost Report File (CRF)");
    EXPECT_EQ(platform.saveDialogs[0].directory, "no-program-folder");
    EXPECT_EQ(platform.saveDialogs[0].filter, "Cost Report Files (*.CRF)|*.CRF");
}

TEST_F(NewReportTest, MissingFolderIsASystemErrorAndLeavesNothing) {
    platform.Expect_Box_Starting("System Error", "", Answer::Ok, kStop);
    EXPECT_FALSE(Create("nowhere/Agency.CRF"));
    EXPECT_TRUE(Files().empty());
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, "");
    EXPECT_EQ(platform.reportEvents.back(), ReportEvent::Closed);
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(NewReportTest, FailureLeavesAnOlderFileAsItWas) {
    Write(folder.File("Agency.CRF"), "precious");
    std::filesystem::permissions(folder.File("Agency.CRF"), std::filesystem::perms::owner_read);
    Expect_Replace();
    platform.Expect_Box_Starting("System Error", "");
    EXPECT_FALSE(Create("Agency.CRF"));
    EXPECT_EQ(Bytes(folder.File("Agency.CRF")), "precious");
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(NewReportTest, FullDiskLeavesAnOlderFileAsItWas) {
    Write(folder.File("Agency.CRF"), "precious");
    Expect_Replace();
    platform.Expect_Box_Starting("System Error", "", Answer::Ok, kStop);
    {
        const SizeLimit limit(16 * 1024);
        EXPECT_FALSE(Create("Agency.CRF"));
    }
    EXPECT_EQ(Bytes(folder.File("Agency.CRF")), "precious");
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_FALSE(Report_Is_Open());
}

TEST_F(NewReportTest, OlderFileIsReplacedWhole) {
    Write(folder.File("Agency.CRF"), "old");
    Expect_Replace();
    ASSERT_TRUE(Create("Agency.CRF"));
    Report_Release();
    EXPECT_TRUE(Report_Open(folder.File("Agency.CRF")));
}

TEST_F(NewReportTest, NothingIsOnTheDiskUntilTheReportIsWhole) {
    Install_Catalogue(kEvery);
    bool sawFile = false;
    platform.onEvents = [this, &sawFile] { sawFile = sawFile || !Files().empty(); };
    ASSERT_TRUE(Create("Agency.CRF"));
    EXPECT_FALSE(sawFile);
}

TEST_F(NewReportTest, RebuildDropsTheOldTableWithItsData) {
    Install_Catalogue(kOnlyA);
    ASSERT_TRUE(Create("Agency.CRF"));
    db.Execute("INSERT INTO A (LineNum) VALUES (7);");
    EXPECT_TRUE(Build_Worksheet("A"));
    EXPECT_EQ(Count("A"), 1);
    EXPECT_FALSE(Build_Worksheet("B"));
}

}  // namespace tallmar
