#include "report/backup.h"

#include "support/report_test.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

class BackupTest : public ReportTest {
  protected:
    BackupTest() {
        platform.dataFolder = data.Path();
        New_Report();
        Report_Release();
    }
    std::vector<fs::path> Backups() const {
        std::vector<fs::path> paths;
        for (const auto& entry : fs::recursive_directory_iterator(data.Path())) {
            if (entry.is_regular_file()) paths.push_back(entry.path());
        }
        std::ranges::sort(paths);
        return paths;
    }
    TempFolder data;
    std::string report = folder.File("Agency.CRF");
};

}  // namespace

TEST_F(BackupTest, FirstChangeKeepsTheReportAsItWasOpened) {
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(Backups().empty());
    Keep_Backup();
    db.Execute("UPDATE Master SET ProviderName=\"Changed\";");
    Keep_Backup();
    ASSERT_EQ(Backups().size(), 1u);
    EXPECT_EQ(Bytes(Backups()[0].string()), before);
}

TEST_F(BackupTest, NewestFiveOfAReportStay) {
    for (int i = 0; i < 7; ++i) {
        platform.Advance(3600);
        ASSERT_TRUE(Report_Open(report));
        Keep_Backup();
        Report_Release();
    }
    const auto kept = Backups();
    ASSERT_EQ(kept.size(), 5u);
    EXPECT_EQ(kept.front().filename(), "2016-11-15 133000.CRF");
    EXPECT_EQ(kept.back().filename(), "2016-11-15 173000.CRF");
}

TEST_F(BackupTest, ReportsOfOneNameKeepTheirBackupsApart) {
    fs::create_directory(folder.File("other"));
    fs::copy_file(report, folder.File("other/Agency.CRF"));
    for (const std::string& path : {report, folder.File("other/Agency.CRF")}) {
        ASSERT_TRUE(Report_Open(path));
        Keep_Backup();
        Report_Release();
    }
    ASSERT_EQ(Backups().size(), 2u);
    EXPECT_NE(Backups()[0].parent_path(), Backups()[1].parent_path());
}

TEST_F(BackupTest, NewReportNeedsNone) {
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "Second.CRF");
    Keep_Backup();
    EXPECT_TRUE(Backups().empty());
}

TEST_F(BackupTest, WithoutADataFolderNothingIsKept) {
    platform.dataFolder.clear();
    ASSERT_TRUE(Report_Open(report));
    Keep_Backup();
    EXPECT_TRUE(Backups().empty());
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(BackupTest, FolderThatCannotBeMadeDoesNotStopTheWork) {
    Write(data.File("blocked"), "");
    platform.dataFolder = data.File("blocked");
    ASSERT_TRUE(Report_Open(report));
    Keep_Backup();
    EXPECT_TRUE(platform.boxes.empty());
}

}  // namespace tallmar
