#include "report/report_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include "catalogue.h"
#include "structure/edit_key.h"
#include "support/other_window.h"
#include "support/report_test.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kInUse = "Report In Use";
using Names = std::vector<std::string>;

// Takes the lock again and again, and counts how often somebody else was in at the same time.
class Contender : public FakePlatform {
  public:
    Answer Message_Box(std::string_view, int, std::string_view) override { return Answer::Ok; }

    static pid_t Start(const std::string& report, const std::string& room) {
        const pid_t process = ::fork();
        if (process == 0) ::_exit(Contender().Contend(report, room));
        return process;
    }

  private:
    int Contend(const std::string& report, const std::string& room) {
        keepsReportsOpen = true;
        int taken = 0;
        for (int round = 0; round < 100; ++round) {
            ReportLock lock;
            if (!lock.Take(report)) continue;
            ++taken;
            const int entered = ::open(room.c_str(), O_CREAT | O_EXCL | O_RDWR, 0600);
            if (entered < 0) return 1;
            ::close(entered);
            ::unlink(room.c_str());
        }
        return taken > 0 ? 0 : 2;
    }
};

class ReportLockTest : public ReportTest {
  protected:
    ReportLockTest() {
        platform.keepsReportsOpen = true;
        Install_Catalogue(All_Families());  // the other window has it, and would add what is missing
    }

    void Closed_Report(std::string_view name = "Agency.CRF") {
        New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), name);
        Report_Release();
    }
    void Expect_In_Use(const std::string& path) {
        platform.Expect_Box_Starting(kInUse, "The report " + path + " is open in another program [Tallmar 1728, user ",
                                     Answer::Ok, kStop);
    }

    const std::string report = folder.File("Agency.CRF");
    const std::string lock = report + ".lock";
};

}  // namespace

TEST_F(ReportLockTest, StandsBesideAnOpenReportAndGoesWithIt) {
    New_Report();
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Agency.CRF.lock"}));
    const std::string holder = Bytes(lock);
    EXPECT_TRUE(holder.starts_with("Tallmar 1728, user ")) << holder;
    EXPECT_TRUE(holder.ends_with(", process " + std::to_string(::getpid()) + "\n")) << holder;
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Files(), Names{"Agency.CRF"});

    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(fs::exists(lock));
    Report_Release();
    EXPECT_EQ(Files(), Names{"Agency.CRF"});

    ASSERT_TRUE(Report_Open(report));
    Forget_Report();
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, APlatformWithoutAWindowMakesNone) {
    platform.keepsReportsOpen = false;
    New_Report();
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, AReportOpenInAnotherWindowIsRefused) {
    Closed_Report();
    const std::string before = Bytes(report);
    OtherWindow other(report);
    const std::string holder = Bytes(lock);
    platform.Expect_Box(kInUse,
                        "The report " + report + " is open in another program [" + holder.substr(0, holder.size() - 1) +
                            "].  Nothing was changed.  Close the report there and try again.",
                        Answer::Ok, kStop);
    EXPECT_FALSE(Report_Open(report));
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, "");
    EXPECT_FALSE(platform.hourglass);
    EXPECT_EQ(platform.reportEvents.back(), ReportEvent::Closed);
    EXPECT_TRUE(Bytes(report) == before);
    EXPECT_EQ(Bytes(lock), holder);
    other.Close();
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
    EXPECT_TRUE(Report_Open(report));
}

// What a made-up lock file says reaches no terminal.
TEST_F(ReportLockTest, AHolderThatIsNoPlainTextIsNotNamed) {
    Closed_Report();
    for (const char* holder :
         {"Tallmar 1728\x1b[31m", "Tallmar 1728, user \x01", "Tallmar 1728\xff", "\tTallmar 1728"}) {
        Write(lock, holder);
        const int file = ::open(lock.c_str(), O_RDWR);
        ASSERT_EQ(::flock(file, LOCK_EX), 0);
        const bool ours = std::string_view(holder).starts_with("Tallmar");
        if (ours) {
            platform.Expect_Box(
                kInUse,
                "The report " + report +
                    " is open in another program.  Nothing was changed.  Close the report there and try "
                    "again.",
                Answer::Ok, kStop);
        }
        EXPECT_EQ(Report_Open(report), !ours) << "a file of somebody else's is no lock";
        Report_Release();
        ::close(file);
    }
}

TEST_F(ReportLockTest, AKilledWindowHoldsNobodyUp) {
    Closed_Report();
    OtherWindow other(report);
    other.Kill();
    ASSERT_TRUE(fs::exists(lock)) << "the small file stays";
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(Bytes(lock).ends_with(", process " + std::to_string(::getpid()) + "\n"));
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, IsHeldByOneHoweverManyWantIt) {
    std::vector<pid_t> contenders;
    for (int i = 0; i < 4; ++i) contenders.push_back(Contender::Start(report, folder.File("room")));
    for (const pid_t process : contenders) {
        int status = -1;
        ::waitpid(process, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Files(), Names{});
}

TEST_F(ReportLockTest, TheOpenReportCanBeOpenedAgain) {
    New_Report();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(fs::exists(lock));
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, AnotherReportTakesTheLockAlong) {
    Closed_Report();
    Closed_Report("Second.CRF");
    ASSERT_TRUE(Report_Open(report));
    ASSERT_TRUE(Report_Open(folder.File("Second.CRF")));
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Second.CRF", "Second.CRF.lock"}));
}

TEST_F(ReportLockTest, ARefusedFileLeavesNone) {
    Write(report, "no report");
    platform.Expect_Box_Starting("Error: Attempting to Open Invalid CRF file", "The file " + report);
    EXPECT_FALSE(Report_Open(report));
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, SaveAsMovesTheLock) {
    New_Report();
    ASSERT_TRUE(Report_Save_As(folder.File("Copy.CRF")));
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Copy.CRF", "Copy.CRF.lock"}));
    ASSERT_TRUE(Report_Save_As(folder.File("Copy.CRF"))) << "onto itself";
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Copy.CRF", "Copy.CRF.lock"}));
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Copy.CRF"}));
}

TEST_F(ReportLockTest, AFailedSaveAsKeepsTheLockOfTheOpenReport) {
    New_Report();
    fs::create_directory(folder.File("Copy.CRF"));
    platform.Expect_Box_Starting("Error: Save As Request Failed", "PROBLEM Encountered");
    EXPECT_FALSE(Report_Save_As(folder.File("Copy.CRF")));
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Agency.CRF.lock", "Copy.CRF"}));
}

TEST_F(ReportLockTest, SaveAsOntoAReportInUseIsRefused) {
    const std::string copy = folder.File("Copy.CRF");
    Closed_Report("Copy.CRF");
    const std::string before = Bytes(copy);
    OtherWindow other(copy);
    New_Report();
    Expect_In_Use(copy);
    EXPECT_FALSE(Report_Save_As(copy));
    NewReportEntries entries = Load_Edit_Key();
    entries.facilityName = "Meadow Home Health";
    Expect_In_Use(copy);
    EXPECT_FALSE(Save_Edit_Key_As(entries, copy));
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, report);
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
    EXPECT_TRUE(fs::exists(lock));
    EXPECT_TRUE(Bytes(copy) == before);
    other.Close();
    EXPECT_TRUE(Save_Edit_Key_As(entries, copy));
    EXPECT_EQ(Files(), (Names{"Agency.CRF", "Copy.CRF", "Copy.CRF.lock"}));
}

TEST_F(ReportLockTest, ANewReportDoesNotReplaceOneInUse) {
    Closed_Report();
    const std::string before = Bytes(report);
    OtherWindow other(report);
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Meadow Home Health";
    Expect_In_Use(report);
    EXPECT_FALSE(Create_CRF(report, entries, {Date_Of(2015, 10, 1), Date_Of(2016, 9, 30)}));
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(Bytes(report) == before);
}

TEST_F(ReportLockTest, AFailedCreationLeavesNone) {
    fs::create_directory(report);
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Meadow Home Health";
    platform.Expect_Box_Starting("System Error", "");
    EXPECT_FALSE(Create_CRF(report, entries, {Date_Of(2015, 10, 1), Date_Of(2016, 9, 30)}));
    EXPECT_EQ(Files(), Names{"Agency.CRF"});
}

TEST_F(ReportLockTest, TwoSpellingsAreOneReport) {
    Closed_Report();
    fs::create_directory(folder.File("sub"));
    fs::create_symlink(report, folder.File("Link.CRF"));
    OtherWindow other(report);
    const Names spellings{folder.File("sub/../Agency.CRF"), folder.File("Link.CRF"), folder.Path() + "\\Agency.CRF",
                          fs::relative(report).string()};
    for (const std::string& spelling : spellings) {
        Expect_In_Use(spelling);
        EXPECT_FALSE(Report_Open(spelling)) << spelling;
    }
}

TEST_F(ReportLockTest, WithoutALockTheReportOpensAllTheSame) {
    Closed_Report();
    fs::create_directory(lock);
    EXPECT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_TRUE(fs::is_directory(lock));
    fs::remove(lock);

    // What is somebody else's stays as it is.
    Write(lock, "My notes on the locks of the agency's doors");
    EXPECT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_EQ(Bytes(lock), "My notes on the locks of the agency's doors");
    fs::remove(lock);
    Write(folder.File("notes"), "");
    fs::create_symlink(folder.File("notes"), lock);
    EXPECT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_EQ(Bytes(folder.File("notes")), "");
    EXPECT_TRUE(fs::is_symlink(lock));
}

TEST_F(ReportLockTest, WhoeverChangesTheReportAsksFirst) {
    Closed_Report();
    platform.keepsReportsOpen = false;
    EXPECT_TRUE(Report_Is_Free(report));
    {
        OtherWindow other(report);
        Expect_In_Use(report);
        EXPECT_FALSE(Report_Is_Free(report));
        EXPECT_TRUE(Report_Open(report)) << "reading goes on";
        Report_Release();
        other.Kill();
    }
    EXPECT_TRUE(Report_Is_Free(report)) << "a file that nobody holds says nothing";
    EXPECT_TRUE(fs::exists(lock)) << "and is left to the next window";
}

}  // namespace tallmar
