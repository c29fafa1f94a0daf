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
            if (entry.is_regular_file() && entry.path().extension() == ".CRF") paths.push_back(entry.path());
        }
        std::ranges::sort(paths);
        return paths;
    }
    void Change() {
        ASSERT_TRUE(Report_Open(report));
        Keep_Backup();
        Report_Release();
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
        Change();
    }
    const auto kept = Backups();
    ASSERT_EQ(kept.size(), 5u);
    EXPECT_EQ(kept.front().filename(), "000003 2016-11-15 133000.CRF");
    EXPECT_EQ(kept.back().filename(), "000007 2016-11-15 173000.CRF");
}

// Numbers tell which is newer, and not a clock that somebody sets.
TEST_F(BackupTest, AClockThatIsSetBackDropsNoNewBackup) {
    platform.Set_Now(Date_Of(2099, 1, 1));
    for (int i = 0; i < 5; ++i) Change();
    platform.Set_Now(Date_Of(2017, 3, 1));
    Change();
    const auto kept = Backups();
    ASSERT_EQ(kept.size(), 5u);
    EXPECT_EQ(kept.back().filename(), "000006 2017-03-01 000000.CRF");
}

TEST_F(BackupTest, BackupsFromBeforeTheyWereNumberedAreTheOldest) {
    Change();
    const fs::path folderOfReport = Backups()[0].parent_path();
    for (int day = 1; day <= 5; ++day) {
        Write((folderOfReport / ("2015-01-0" + std::to_string(day) + " 120000.CRF")).string(), "old");
    }
    Change();
    const auto kept = Backups();
    ASSERT_EQ(kept.size(), 5u);
    EXPECT_EQ(kept[1].filename().string().substr(0, 7), "000002 ");
    EXPECT_EQ(kept[2].filename(), "2015-01-03 120000.CRF");
}

TEST_F(BackupTest, OnlyTheUserLooksIntoThem) {
    fs::permissions(report, fs::perms::owner_all | fs::perms::group_read | fs::perms::others_read);
    Change();
    const fs::path backup = Backups().at(0);
    EXPECT_EQ(fs::status(backup).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(backup.parent_path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(data.File("backups")).permissions(), fs::perms::owner_all);
}

TEST_F(BackupTest, EachFolderNamesItsReport) {
    Change();
    EXPECT_EQ(Bytes((Backups().at(0).parent_path() / "report.txt").string()), report + "\n");
}

TEST_F(BackupTest, WhatIsReplacedIsKeptWhateverItIs) {
    const std::string old = Bytes(report), text = folder.File("text.CRF");
    New_Report();  // over the older one
    ASSERT_EQ(Backups().size(), 1u);
    EXPECT_TRUE(Bytes(Backups()[0].string()) == old);
    Write(text, "no report");
    ASSERT_TRUE(Report_Save_As(text));
    ASSERT_EQ(Backups().size(), 2u);
    EXPECT_EQ(Bytes(Backups()[1].string()), "no report");
    ASSERT_TRUE(Report_Save_As(text)) << "onto itself";
    EXPECT_EQ(Backups().size(), 2u);
}

// Of folders that other reports have filled.
class BackupLimits : public BackupTest {
  protected:
    // A folder of the backups `numbers`, of a report at `path`.
    void Fill(const std::string& name, std::initializer_list<long> numbers, const std::string& path,
              std::uintmax_t bytes = 10) {
        const fs::path made = fs::path(data.Path()) / "backups" / name;
        fs::create_directories(made);
        Write((made / "report.txt").string(), path + "\n");
        for (const long number : numbers) {
            const fs::path file = made / (std::to_string(number) + " 2016-01-01 120000.CRF");
            Write(file.string(), "x");
            fs::resize_file(file, bytes);  // sparse: the disk does not feel it
        }
    }
    bool Has(const std::string& name) const { return fs::exists(data.File("backups/" + name)); }
};

TEST_F(BackupLimits, ReportsThatAreGoneLoseTheirsFirstThenTheOldest) {
    Fill("gone", {9}, folder.File("Gone.CRF"), 100'000'000);
    Fill("oldest", {1, 2}, report, 150'000'000);
    Fill("newer", {3, 4}, report, 150'000'000);
    Change();
    EXPECT_FALSE(Has("gone"));
    EXPECT_FALSE(Has("oldest"));
    EXPECT_TRUE(Has("newer"));
    EXPECT_EQ(Backups().size(), 3u) << "the report's own is the newest";
}

TEST_F(BackupLimits, TwoHundredFoldersStay) {
    for (int i = 1; i <= 202; ++i) Fill("report-" + std::to_string(i), {i}, report);
    Change();
    EXPECT_FALSE(Has("report-1"));
    EXPECT_FALSE(Has("report-3"));
    EXPECT_TRUE(Has("report-4"));
    EXPECT_EQ(std::distance(fs::directory_iterator(data.File("backups")), {}), 200);
}

TEST_F(BackupLimits, ALargeReportKeepsItsNewestAndFilesOfOthersStay) {
    Change();
    const fs::path own = Backups().at(0).parent_path();
    Fill(own.filename().string(), {2, 3}, report, 400'000'000);
    Fill("gone", {4}, folder.File("Gone.CRF"));
    Write(data.File("backups/gone/notes.txt"), "mine");
    Change();
    EXPECT_EQ(Bytes(data.File("backups/gone/notes.txt")), "mine");
    EXPECT_TRUE(fs::exists(own));
    EXPECT_EQ(fs::exists(own / "000005 2016-11-15 103000.CRF"), true);
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
