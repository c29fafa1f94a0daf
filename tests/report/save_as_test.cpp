#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <utility>

#include "report/store.h"
#include "support/report_test.h"
#include "support/size_limit.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

class SaveAsTest : public ReportTest {
  protected:
    std::string report = folder.File("Agency.CRF");

    void Closed_Report() {
        New_Report();
        Report_Release();
    }
};

}  // namespace

TEST_F(SaveAsTest, SaveAsGoesOnWithTheCopy) {
    New_Report();
    fs::create_directory(folder.File("other"));
    const std::string copy = folder.File("other/Copy.CRF");
    ASSERT_TRUE(Report_Save_As(copy));
    EXPECT_EQ(openReport.CRFPath, copy);
    EXPECT_EQ(openReport.CRFTitle, "Copy.CRF");
    EXPECT_EQ(openReport.CRFDir, folder.Path());
    EXPECT_EQ(platform.reportEvents.back(), ReportEvent::Named);
    db.Execute("UPDATE Master SET ProviderName=\"Changed\";");
    Report_Release();
    ASSERT_TRUE(Report_Open(report));
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
    Report_Release();
    ASSERT_TRUE(Report_Open(copy));
    EXPECT_EQ(openReport.ProviderName, "Changed");
}

TEST_F(SaveAsTest, SaveAsOverAnotherReportReplacesIt) {
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "Other.CRF");
    db.Execute("UPDATE Master SET ProviderName=\"Other\";");
    Report_Release();
    New_Report();
    ASSERT_TRUE(Report_Save_As(folder.File("Other.CRF")));
    EXPECT_EQ(Column("SELECT ProviderName FROM Master;"), "Harbor Home Health");
}

TEST_F(SaveAsTest, SaveAsToItsOwnNameSucceeds) {
    New_Report();
    const std::string before = Bytes(report);
    EXPECT_TRUE(Report_Save_As(report));
    EXPECT_EQ(openReport.CRFPath, report);
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(Bytes(report), before);
}

TEST_F(SaveAsTest, FailedSaveAsKeepsTheFirstFileOpen) {
    New_Report();
    platform.Expect_Box("Error: Save As Request Failed",
                        "PROBLEM Encountered: Your Save As request failed and was not able to be accomplished.  Your "
                        "original CRF file has not been altered.  Hit OK to continue running Tallmar.",
                        Answer::Ok, kStop);
    platform.beeps = 0;
    EXPECT_FALSE(Report_Save_As(folder.File("nowhere/Copy.CRF")));
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_EQ(openReport.CRFPath, report);
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_EQ(Column("SELECT ProviderName FROM Master;"), "Harbor Home Health");
}

TEST_F(SaveAsTest, SaveAsOverAReadOnlyFileFailsAndLeavesIt) {
    New_Report();
    const std::string target = folder.File("Target.CRF");
    Write(target, "precious");
    fs::permissions(target, fs::perms::owner_read);
    platform.Expect_Box_Starting("Error: Save As Request Failed", "");
    EXPECT_FALSE(Report_Save_As(target));
    EXPECT_EQ(Bytes(target), "precious");
    EXPECT_EQ(openReport.CRFPath, report);
}

TEST_F(SaveAsTest, SaveAsOnAFullDiskFailsAndLeavesBothFiles) {
    New_Report();
    const std::string before = Bytes(report);
    Write(folder.File("Target.CRF"), "precious");
    platform.Expect_Box_Starting("Error: Save As Request Failed", "");
    {
        const SizeLimit limit(16 * 1024);
        EXPECT_FALSE(Report_Save_As(folder.File("Target.CRF")));
    }
    EXPECT_EQ(Bytes(folder.File("Target.CRF")), "precious");
    EXPECT_EQ(openReport.CRFPath, report);
    Report_Release();
    EXPECT_EQ(Bytes(report), before);
    EXPECT_EQ(Files(), (std::vector<std::string>{"Agency.CRF", "Target.CRF"}));
}

TEST_F(SaveAsTest, SaveAsDialogMayBeCancelled) {
    New_Report();
    platform.Reply_Save(std::nullopt);
    EXPECT_FALSE(Report_Save_As_Dialog());
    EXPECT_EQ(platform.saveDialogs[0].title, "Save Cost Report File As ...");
    EXPECT_EQ(openReport.CRFPath, report);
}

}  // namespace tallmar
