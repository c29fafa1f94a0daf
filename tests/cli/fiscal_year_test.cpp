// What the fiscal year asks of a report, as commands tell it.
#include "cli_test.h"

namespace tallmar {

namespace {

class FiscalYearCommands : public CliTest {
  protected:
    void New_Year(const char* start, const char* end) {
        Succeed({"new", crf, "--provider", "14-7100", "--start", start, "--end", end, "--name",
                 "Prairie Hearth Home Health"});
    }
};

}  // namespace

TEST_F(FiscalYearCommands, OnlyACommandThatChangesTheReportTellsWhatTheFormForbids) {
    New_Year("1/1/2000", "12/31/2000");
    Sql("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (12.01,12.01,'A')");
    Succeed({"info", crf});
    Succeed({"dump", crf, "Master"});
    const Ran ran = Run_Tallmar({"enter", crf}, "A,6,Col_5,1\n");
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(
        ran.err,
        "CMS Requirement: Cost centers 12, 13 and 14 are not allowed to be subscripted for cost reporting periods "
        "that span 10/1/2000.  Please remove the subscripted lines for cost centers 12, 13 and 14.\n");
}

}  // namespace tallmar
