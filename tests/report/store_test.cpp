#include "report/store.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <utility>

#include "support/report_test.h"
#include "support/size_limit.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kInvalid = "Error: Attempting to Open Invalid CRF file";

class StoreTest : public ReportTest {
  protected:
    std::string report = folder.File("Agency.CRF");

    void Closed_Report() {
        New_Report();
        Report_Release();
    }
    void Expect_Refusal(const std::string& path, const std::string& before) {
        platform.Expect_Box_Starting(kInvalid, "The file " + path, Answer::Ok, kStop);
        EXPECT_FALSE(Report_Open(path));
        EXPECT_FALSE(Report_Is_Open());
        EXPECT_EQ(openReport.CRFPath, "");
        EXPECT_FALSE(platform.hourglass);
        EXPECT_EQ(platform.reportEvents.back(), ReportEvent::Closed);
        if (!before.empty()) {
            EXPECT_EQ(Bytes(path), before);
        }
    }
};

}  // namespace

TEST_F(StoreTest, OpenTakesTheIdentityFromTheFile) {
    Closed_Report();
    openReport.ProviderName = openReport.ProviderNumber = openReport.FormNum = "";
    openReport.FYStart = openReport.FYEnd = Date{};
    openReport.HeaderLine1 = "old";
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(openReport.FormNum, "1728");
    EXPECT_EQ(openReport.ProviderNumber, "14-7100");
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1));
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 9, 30));
    EXPECT_EQ(openReport.HeaderLine1, "");
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_EQ(openReport.CRFDir, folder.Path());
}

TEST_F(StoreTest, EachFamilyLoadsItsAnswersWhenAReportIsOpened) {
    static int loads = 0;
    static constexpr auto kLoad = [] { ++loads; };
    static constexpr auto kNoTable = [](const Item&) {};
    static constexpr std::array kFamilies{
        WorksheetFamily{
            .items = "S2", .level = 0, .years = Years::Always, .inNewReport = false, .build = kNoTable, .load = kLoad},
        WorksheetFamily{.items = "A", .level = 0, .years = Years::Always, .inNewReport = false, .build = kNoTable}};
    Install_Catalogue(kFamilies);
    loads = 0;
    New_Report();
    EXPECT_EQ(loads, 1) << "a new report is open, too";
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(loads, 2);
}

TEST_F(StoreTest, WindowHearsOfTheOpening) {
    Closed_Report();
    platform.menusStale = 0;
    platform.reportEvents.clear();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(platform.reportEvents, (std::vector{ReportEvent::Opening, ReportEvent::Named, ReportEvent::Opened}));
    EXPECT_FALSE(openReport.ecrMayBeBuilt);
    EXPECT_EQ(platform.menusStale, 1);
    EXPECT_FALSE(platform.hourglass);
}

TEST_F(StoreTest, OpeningAndReleasingLeavesTheFileAsItWas) {
    Closed_Report();
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(Column("SELECT ProviderName FROM Master;"), "Harbor Home Health");
    Report_Release();
    EXPECT_EQ(Bytes(report), before);
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_EQ(openReport.CRFPath, "");
}

TEST_F(StoreTest, OpenRemembersTheFolder) {
    Closed_Report();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "Startup", "CRFLoc", "None"), folder.Path());
}

TEST_F(StoreTest, FloppyIsNotRemembered) {
    platform.Save_Setting("Tallmar 1728", "Startup", "CRFLoc", "C:\\Reports");
    for (const char* path : {"A:\\Agency.CRF", "b:\\Agency.CRF"}) {
        platform.Expect_Box_Starting(kInvalid, "");
        EXPECT_FALSE(Report_Open(path));
        EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "Startup", "CRFLoc", "None"), "C:\\Reports");
    }
    platform.Expect_Box_Starting(kInvalid, "");
    EXPECT_FALSE(Report_Open("d:\\Agency.CRF"));
    EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "Startup", "CRFLoc", "None"), "d:");
}

TEST_F(StoreTest, PathWithoutASeparatorHasTheRootOfC) {
    Take_Path("Agency.CRF");
    EXPECT_EQ(openReport.CRFDir, "C:\\");
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
}

TEST_F(StoreTest, BackslashesNameTheSameFile) {
    Closed_Report();
    std::string path = report;
    std::ranges::replace(path, '/', '\\');
    ASSERT_TRUE(Report_Open(path));
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_EQ(openReport.CRFPath, path);
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(StoreTest, DialogOpensTheChosenReport) {
    Closed_Report();
    platform.Reply_Open(report);
    EXPECT_TRUE(Report_Open_Dialog());
    ASSERT_EQ(platform.openDialogs.size(), 1u);
    EXPECT_EQ(platform.openDialogs[0].title, "Open An Existing CRF");
    EXPECT_EQ(platform.openDialogs[0].fileName, "no-program-folder\\*.CRF");
    EXPECT_EQ(platform.openDialogs[0].defaultExtension, ".CRF");
    EXPECT_EQ(platform.openDialogs[0].filter, "Cost Report Files (*.CRF)|*.CRF");
}

TEST_F(StoreTest, CancelledDialogIsNoError) {
    platform.Reply_Open(std::nullopt);
    EXPECT_FALSE(Report_Open_Dialog());
    EXPECT_TRUE(platform.boxes.empty());
}

// What the window had heard of as the dialog came up.
struct DialogWatch : FakePlatform {
    std::vector<ReportEvent> before;
    std::optional<std::string> Open_File(const FileDialog& dialog) override {
        before = reportEvents;
        return FakePlatform::Open_File(dialog);
    }
};

TEST_F(StoreTest, WindowHearsOfTheDialogAndOfItsCancelling) {
    New_Report();
    for (const bool isOpen : {true, false}) {
        if (!isOpen) Report_Release();
        DialogWatch watch;
        watch.Reply_Open(std::nullopt);
        EXPECT_FALSE(Report_Open_Dialog());
        EXPECT_EQ(watch.before, std::vector{ReportEvent::Opening});
        EXPECT_EQ(watch.reportEvents, (std::vector{ReportEvent::Opening, ReportEvent::NotChosen}));
    }
}

TEST_F(StoreTest, FormsThatStayOpenKeepTheReport) {
    New_Report();
    platform.closeFormsCancelled = true;
    EXPECT_FALSE(Report_Open(folder.File("Other.CRF")));
    EXPECT_FALSE(Report_Open_Dialog());
    EXPECT_TRUE(platform.openDialogs.empty());
    EXPECT_FALSE(Report_Close());
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, report);
    EXPECT_FALSE(platform.busy);
    EXPECT_FALSE(platform.hourglass);
}

TEST_F(StoreTest, ForeignFileIsRefusedAndUntouched) {
    Write(report, "no report at all");
    Expect_Refusal(report, "no report at all");
}

TEST_F(StoreTest, DamagedFileIsRefusedAndUntouched) {
    Closed_Report();
    std::string bytes = Bytes(report);
    ASSERT_GT(bytes.size(), 8192u);
    std::fill(bytes.begin() + 4096, bytes.begin() + 8192, '\xff');
    Write(report, bytes);
    Expect_Refusal(report, bytes);
}

TEST_F(StoreTest, CutFileIsRefusedAndUntouched) {
    Closed_Report();
    const std::string bytes = Bytes(report).substr(0, 5000);
    Write(report, bytes);
    Expect_Refusal(report, bytes);
}

TEST_F(StoreTest, MissingFileAndFolderAreRefused) {
    Expect_Refusal(report, "");
    EXPECT_TRUE(Files().empty());
    Expect_Refusal(folder.Path(), "");
}

TEST_F(StoreTest, FileWithoutMasterIsRefused) {
    New_Report();
    db.Execute("DELETE * FROM Master;");
    Report_Release();
    Expect_Refusal(report, Bytes(report));
    EXPECT_EQ(platform.boxes.back().text,
              "The file " + report + " cannot be opened as a Cost Report File.  It has no Master record.");
}

TEST_F(StoreTest, OtherFormIsRefusedWithItsName) {
    New_Report();
    db.Execute("UPDATE Master SET FormNum=\"2552\";");
    Report_Release();
    const std::string before = Bytes(report);
    platform.beeps = 0;
    platform.Expect_Box(kInvalid,
                        "You are presently running Tallmar 1728.  This program is for use only in producing CMS 1728 "
                        "Cost Reports.  You have just attempted to open a CRF file (Agency.CRF) containing data for a "
                        "CMS 2552 Cost Report.  Your request is being aborted.  Select OK to proceed.",
                        Answer::Ok, kStop);
    EXPECT_FALSE(Report_Open(report));
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_EQ(Bytes(report), before);
    EXPECT_FALSE(Report_Is_Open());
}

TEST_F(StoreTest, RefusedOpenLeavesNoReportOpen) {
    New_Report();
    Expect_Refusal(folder.File("Missing.CRF"), "");
}

TEST_F(StoreTest, CloseOnAFullDiskLeavesTheFileUncompacted) {
    New_Report();
    const std::string before = Bytes(report);
    ASSERT_GT(before.size(), 16u * 1024);
    {
        const SizeLimit limit(16 * 1024);
        EXPECT_TRUE(Report_Close());
    }
    EXPECT_EQ(Bytes(report), before);
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(StoreTest, CloseRepairsCompactsAndClearsTheWindow) {
    New_Report();
    db.Execute("CREATE TABLE Big (t Memo);");
    db.Execute(Sql("INSERT INTO Big (t) VALUES (\"", std::string(200'000, 'x'), "\");"));
    db.Execute("DROP TABLE Big;");
    const auto before = fs::file_size(report);
    platform.progress.clear();
    EXPECT_TRUE(Report_Close());
    EXPECT_LT(fs::file_size(report), before);
    EXPECT_EQ(platform.progress, (std::vector<std::string>{" Repairing " + report, " Compacting " + report, ""}));
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_EQ(openReport.CRFPath, "");
    EXPECT_EQ(platform.reportEvents.back(), ReportEvent::Closed);
    EXPECT_FALSE(platform.busy);
    EXPECT_FALSE(platform.hourglass);
    EXPECT_THROW(db.TableDefs().Refresh(), DbError);
}

TEST_F(StoreTest, ScratchTablesSurviveTheClose) {
    New_Report();
    EXPECT_TRUE(Report_Close());
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(TableExists("Log", true));
    EXPECT_TRUE(TableExists("NewCRFErrLog", false));
}

TEST_F(StoreTest, StaleTemporaryFileIsDeletedAtTheNextClose) {
    for (const bool isLink : {true, false}) {
        New_Report();
        Report_Release();
        if (isLink) {
            fs::create_hard_link(report, folder.File("QVRTemp.CRF"));
        } else {
            fs::copy_file(report, folder.File("QVRTemp.CRF"));
        }
        ASSERT_TRUE(Report_Open(report));
        EXPECT_TRUE(Report_Close());
        EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"}) << isLink;
        EXPECT_TRUE(Report_Open(report));
        Report_Release();
        fs::remove(report);
    }
}

TEST_F(StoreTest, StaleSecondNameIsDeletedAtTheNextRelease) {
    Closed_Report();
    fs::create_hard_link(report, folder.File("QVRTemp.CRF"));
    ASSERT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

// The temporary name may be that of somebody's file, the last copy of another report for one.
TEST_F(StoreTest, ForeignFileOfTheTemporaryNameStaysAndTheReportIsCompacted) {
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "Other.CRF");
    db.Execute("UPDATE Master SET ProviderName=\"Other\";");
    Report_Release();
    fs::rename(folder.File("Other.CRF"), folder.File("QVRTemp.CRF"));
    const std::string foreign = Bytes(folder.File("QVRTemp.CRF"));
    New_Report();
    db.Execute("CREATE TABLE Big (t Memo);");
    db.Execute(Sql("INSERT INTO Big (t) VALUES (\"", std::string(200'000, 'x'), "\");"));
    db.Execute("DROP TABLE Big;");
    const auto before = fs::file_size(report);
    EXPECT_TRUE(Report_Close());
    EXPECT_LT(fs::file_size(report), before);
    EXPECT_TRUE(Bytes(folder.File("QVRTemp.CRF")) == foreign);
    ASSERT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_EQ(Files(), (std::vector<std::string>{"Agency.CRF", "QVRTemp.CRF"}));
}

TEST_F(StoreTest, CopyOfTheReportUnderTheTemporaryNameStaysWhereNothingIsClosed) {
    Closed_Report();
    fs::copy_file(report, folder.File("QVRTemp.CRF"));
    ASSERT_TRUE(Report_Open(report));
    Report_Release();
    EXPECT_EQ(Files(), (std::vector<std::string>{"Agency.CRF", "QVRTemp.CRF"}));
}

// What the user does while the report is compacted under its second name.
struct SecondNameWatch : FakePlatform {
    explicit SecondNameWatch(std::string name) : name_(std::move(name)) {}
    std::function<void()> action;
    void Do_Events() override {
        if (fs::exists(name_) && action) std::exchange(action, nullptr)();
    }

  private:
    std::string name_;
};

TEST_F(StoreTest, ReportThatVanishesWhileItIsCompactedComesBack) {
    New_Report();
    const std::string before = Bytes(report);
    SecondNameWatch watch(folder.File("QVRTemp.CRF"));
    watch.action = [&] { fs::remove(report); };
    EXPECT_TRUE(Report_Close());
    EXPECT_FALSE(watch.action) << "the second name was never there";
    EXPECT_TRUE(Bytes(report) == before);
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_TRUE(watch.boxes.empty());
}

TEST_F(StoreTest, ReportThatCannotComeBackEndsTheProgram) {
    New_Report();
    fs::create_directory(folder.File("other"));
    const std::string copy = folder.File("other/Copy.CRF");
    ASSERT_TRUE(Report_Save_As(copy));
    const std::string before = Bytes(copy);
    SecondNameWatch watch(folder.File("QVRTemp.CRF"));
    watch.action = [&] { fs::remove_all(folder.File("other")); };
    watch.Expect_Box("CRITICAL ERROR",
                     "PLEASE CALL QVR NOW, UNABLE TO COMPACT CRF AND UNABLE TO RENAME QVRTemp BACK TO " + copy + ".",
                     Answer::Ok, kStop);
    EXPECT_THROW(Report_Close(), ProgramEnded);
    EXPECT_TRUE(Bytes(folder.File("QVRTemp.CRF")) == before);
    Forget_Report();
}

TEST_F(StoreTest, AnotherFileThatTookTheReportsNameTakesNothingElse) {
    New_Report();
    const std::string before = Bytes(report);
    SecondNameWatch watch(folder.File("QVRTemp.CRF"));
    watch.action = [&] {
        fs::remove(report);
        Write(report, "somebody's");
    };
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Bytes(report), "somebody's");
    EXPECT_TRUE(Bytes(folder.File("QVRTemp.CRF")) == before);
}

TEST_F(StoreTest, TemporaryFileStaysWhileTheReportDoesNotOpen) {
    Write(report, "damaged");
    Write(folder.File("QVRTemp.CRF"), "perhaps the only good copy");
    Expect_Refusal(report, "damaged");
    Report_Release();
    EXPECT_EQ(Bytes(folder.File("QVRTemp.CRF")), "perhaps the only good copy");
}

TEST_F(StoreTest, TemporaryFileStandsInTheOldFolderAfterSaveAs) {
    New_Report();
    fs::create_directory(folder.File("other"));
    ASSERT_TRUE(Report_Save_As(folder.File("other/Copy.CRF")));
    Write(folder.File("other/QVRTemp.CRF"), "not ours");
    bool wasThere = false;
    platform.onEvents = [&] { wasThere = wasThere || fs::exists(folder.File("QVRTemp.CRF")); };
    EXPECT_TRUE(Report_Close());
    EXPECT_TRUE(wasThere);
    EXPECT_FALSE(fs::exists(folder.File("QVRTemp.CRF")));
    EXPECT_EQ(Bytes(folder.File("other/QVRTemp.CRF")), "not ours");
    EXPECT_TRUE(Report_Open(folder.File("other/Copy.CRF")));
}

TEST_F(StoreTest, CloseWithoutItsFolderLeavesTheFileUncompacted) {
    fs::create_directory(folder.File("gone"));
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "gone/Agency.CRF");
    ASSERT_TRUE(Report_Save_As(report));
    fs::remove_all(folder.File("gone"));
    const std::string before = Bytes(report);
    EXPECT_TRUE(Report_Close());
    EXPECT_TRUE(Bytes(report) == before);
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(StoreTest, CloseOfAVanishedReportSaysNothing) {
    fs::create_directory(folder.File("gone"));
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "gone/Agency.CRF");
    fs::remove_all(folder.File("gone"));
    EXPECT_TRUE(Report_Close());
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_TRUE(Files().empty());
}

TEST_F(StoreTest, ReadOnlyFileIsOpenedAndClosedUnchanged) {
    Closed_Report();
    fs::permissions(report, fs::perms::owner_read);
    const std::string before = Bytes(report);
    ASSERT_TRUE(Report_Open(report));
    EXPECT_TRUE(Report_Close());
    EXPECT_EQ(Bytes(report), before);
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    EXPECT_EQ(fs::status(report).permissions(), fs::perms::owner_read);
}

TEST_F(StoreTest, ReportNamedAsTheTemporaryFileSurvivesItsClose) {
    Closed_Report();
    fs::rename(report, folder.File("QVRTemp.CRF"));
    ASSERT_TRUE(Report_Open(folder.File("QVRTemp.CRF")));
    EXPECT_TRUE(Report_Close());
    ASSERT_TRUE(Report_Open(folder.File("QVRTemp.CRF")));
    Report_Release();
    EXPECT_EQ(Files(), std::vector<std::string>{"QVRTemp.CRF"});
}

TEST_F(StoreTest, ReleaseWithoutAReportDoesNothing) {
    Report_Release();
    EXPECT_TRUE(platform.reportEvents.empty());
}

// The child is killed at its n-th step of the close, for every n until it comes through.
TEST_F(StoreTest, KilledCloseLeavesAGoodReportAndNothingBesideItAfterTheNext) {
    New_Report();
    Report_Release();
    bool killed = true;
    for (int n = 1; killed; ++n) {
        ASSERT_LT(n, 100);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            int step = 0;
            if (!Report_Open(report)) _exit(2);
            platform.onEvents = [&] {
                if (++step == n) kill(getpid(), SIGKILL);
            };
            _exit(Report_Close() ? 0 : 3);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        killed = WIFSIGNALED(status);
        ASSERT_TRUE(killed || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << n;
        ASSERT_TRUE(Report_Open(report)) << n;
        EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
        Report_Release();
        EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"}) << n;
    }
}

}  // namespace tallmar
