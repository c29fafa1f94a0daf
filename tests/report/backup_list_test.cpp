#include "report/backup_list.h"

#include "report/backup.h"
#include "report/open_backup.h"
#include "support/report_test.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

class BackupListTest : public ReportTest {
  protected:
    BackupListTest() { platform.dataFolder = data.Path(); }
    // A backup under the name that it has on disk, of a report whose path is written down beside it.
    std::string Keep(const std::string& folderName, const std::string& name, const std::string& of = {}) {
        const fs::path place = fs::path(data.Path()) / "backups" / folderName;
        fs::create_directories(place);
        if (!of.empty()) Write((place / "report.txt").string(), of + "\n");
        const std::string path = (place / name).string();
        Write(path, "12345");
        return path;
    }
    TempFolder data;
    std::string report = folder.File("Agency.CRF");
};

}  // namespace

TEST_F(BackupListTest, NewestOfAllReportsComesFirst) {
    EXPECT_TRUE(Kept_Backups().empty());
    Keep("Agency-0123456789abcdef", "2016-11-15 103000.CRF");
    Keep("Other-0123456789abcdef", "000002 2016-11-14 090000.CRF", "/home/pat/Other.CRF");
    Keep("Other-0123456789abcdef", "000001 2016-11-16 093015.CRF", "/home/pat/Other.CRF");
    Keep("Other-0123456789abcdef", "notes.txt");
    Keep("x", "9999-99-99 999999.CRF");
    const std::vector<KeptBackup> kept = Kept_Backups();
    ASSERT_EQ(kept.size(), 4U);
    EXPECT_EQ(kept[3].taken, Date{}) << "no date";
    EXPECT_EQ(kept[0].report, "/home/pat/Other.CRF");
    EXPECT_EQ(kept[0].taken, Date_Of({2016, 11, 14, 9, 0, 0})) << "the number counts, not the clock";
    EXPECT_EQ(kept[0].size, 5U);
    EXPECT_EQ(kept[1].taken, Date_Of({2016, 11, 16, 9, 30, 15}));
    EXPECT_EQ(kept[2].report, "Agency.CRF") << "from before the path was written down";
    EXPECT_EQ(kept[2].taken, Date_Of({2016, 11, 15, 10, 30, 0}));
}

TEST_F(BackupListTest, WhatIsKeptBeforeAChangeIsListed) {
    New_Report();
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    Keep_Backup();
    const std::vector<KeptBackup> kept = Kept_Backups();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(fs::path(kept[0].report).filename(), "Agency.CRF");
    EXPECT_EQ(kept[0].taken, platform.Now());
    EXPECT_EQ(kept[0].size, fs::file_size(kept[0].path));
}

TEST_F(BackupListTest, CopyIsOpenedAndTheBackupStaysAsItIs) {
    New_Report();
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    Keep_Backup();
    db.Execute("UPDATE Master SET ProviderName = \"Changed\";");
    const std::string backup = Kept_Backups().front().path;
    const std::string before = Bytes(backup), copy = folder.File("Agency (backup).CRF");
    ASSERT_TRUE(Open_Copy_Of_Backup(backup, copy));
    EXPECT_EQ(openReport.CRFPath, copy);
    EXPECT_NE(openReport.ProviderName, "Changed");
    Keep_Backup();
    db.Execute("UPDATE Master SET ProviderName = \"Later\";");
    Report_Close();
    EXPECT_EQ(Bytes(backup), before);
    EXPECT_TRUE(Report_Open(report));
    EXPECT_EQ(openReport.ProviderName, "Changed") << "the report itself is as it was left";
}

TEST_F(BackupListTest, BackupIsNoPlaceForItsCopy) {
    const std::string backup = Keep("Agency-0123456789abcdef", "2016-11-15 103000.CRF");
    platform.Expect_Box("Error: Backup Not Opened", "A backup is never changed.  Give its copy another name.");
    EXPECT_FALSE(Open_Copy_Of_Backup(backup, backup));
    EXPECT_EQ(Bytes(backup), "12345");
}

TEST_F(BackupListTest, BackupThatIsBrokenOrGoneIsToldAndReplacesNothing) {
    New_Report();
    Report_Close();
    const std::string before = Bytes(report);
    const std::string backup = Keep("Agency-0123456789abcdef", "2016-11-15 103000.CRF");
    platform.Expect_Box_Starting("Error: Backup Not Opened", "The file '" + backup);
    EXPECT_FALSE(Open_Copy_Of_Backup(backup, report));
    EXPECT_EQ(Bytes(backup), "12345");
    fs::remove(backup);
    platform.Expect_Box_Starting("Error: Backup Not Opened", "The file '" + backup);
    EXPECT_FALSE(Open_Copy_Of_Backup(backup, report));
    EXPECT_EQ(Bytes(report), before);
}

TEST_F(BackupListTest, WhatACopyReplacesIsKeptAndTheBackupStaysThoughItIsTheOldest) {
    New_Report();
    Report_Release();
    for (int i = 1; i <= 5; ++i) {
        ASSERT_TRUE(Report_Open(report));
        Keep_Backup();
        db.Execute(Sql("UPDATE Master SET ProviderName = \"State ", i, "\";"));
        Report_Release();
    }
    const std::string oldest = Kept_Backups().back().path;
    ASSERT_TRUE(Open_Copy_Of_Backup(oldest, report));
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
    EXPECT_TRUE(fs::exists(oldest));
    Report_Release();
    ASSERT_TRUE(Open_Copy_Of_Backup(Kept_Backups().front().path, folder.File("before.CRF")));
    EXPECT_EQ(openReport.ProviderName, "State 5");
}

TEST_F(BackupListTest, BoxOfADamagedReportNamesItsBackups) {
    platform.keepsReportsOpen = true;
    Write(report, "no report");
    const std::string hint = "Backups of it are kept.  Select Report File, Open a Backup to open a copy of one.";
    const auto told = [&] {
        EXPECT_FALSE(Report_Open(report));
        return platform.boxes.back().text;
    };
    platform.Expect_Box_Starting("Error: Attempting to Open Invalid CRF file", "The file " + report);
    EXPECT_EQ(told().find(hint), std::string::npos);
    Keep("Agency-0123456789abcdef", "000001 2016-11-15 103000.CRF", report);
    platform.Expect_Box_Starting("Error: Attempting to Open Invalid CRF file", "The file " + report);
    EXPECT_NE(told().find(hint), std::string::npos);
}

}  // namespace tallmar
