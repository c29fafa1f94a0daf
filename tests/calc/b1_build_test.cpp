#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "calc/b1_test.h"
#include "calc/stat_columns.h"
#include "calc/w_b1.h"
#include "common/platform.h"
#include "db/replay.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/store.h"
#include "support/allocation_report.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

using testing::ElementsAre;

TEST(BuildB1, ReconciliationColumnStandsBeforeItsAccumulatedCostColumn) {
    const AllocationReport report;
    EXPECT_THAT(Statistics_Of("B1"), ElementsAre("CC_100", "CC_200", "CC_300", "CC_400", "Recon_500", "CC_500"));
    for (const std::string& name : Statistics_Of("B1")) {
        EXPECT_EQ(db.TableDefs().Item("B1").Shape().Find_Field(name)->type, FieldType::Double);
    }
}

TEST(BuildB1, OneHalfOfTheLabelMakesNoAccumulatedCostColumn) {
    Report r(fy2016);
    r.Execute("UPDATE CostCenters SET StatLabel1 = '(Accum.', StatLabel2 = 'Hours)' WHERE LineNum = 1;");
    r.Execute("UPDATE CostCenters SET StatLabel1 = '(Hours', StatLabel2 = 'Cost)' WHERE LineNum = 2;");
    r.Build("B1");
    EXPECT_THAT(Statistics_Of("B1"), ElementsAre("CC_100", "CC_200", "CC_300", "CC_400", "Recon_500", "CC_500"));
}

TEST(BuildB1, AnOldTableThatCannotBeDeletedIsTheError) {
    const Report report(fy2016);
    ASSERT_TRUE(Finish_CRF());
    const std::string path = db.Path();
    db.Close();
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    db = DBEngine::OpenDatabase(path);
    try {
        Build_B1();
        FAIL();
    } catch (const DbError& error) {
        EXPECT_EQ(error.Code(), DbErrorCode::ReadOnly) << error.Description();
    }
}

TEST(BuildB1, FixedLinesAndTriangle) {
    const AllocationReport report;
    EXPECT_EQ(report.Cell("B1", 29_cur, "CCName"), Value("Total"));
    EXPECT_EQ(report.Cell("B1", 30_cur, "CCName"), Value("Cost to be Allocated per B"));
    EXPECT_EQ(report.Cell("B1", 31_cur, "CCName"), Value("Unit Cost Multiplier"));
    EXPECT_EQ(report.Cell("B1", 31_cur, "CCType"), Value("S"));
    EXPECT_EQ(report.Cell("B1", 31_cur, "LineType"), Value("N"));
    EXPECT_TRUE(report.Cell("B1", 2_cur, "CC_300").Is_Null());
    EXPECT_EQ(report.B1(3_cur, "CC_300"), 0);
    EXPECT_TRUE(report.Cell("B1", 4_cur, "Recon_500").Is_Null());
    EXPECT_EQ(report.B1(31_cur, "Recon_500"), 0);
}

TEST(BuildB1, BeginsBAndLinksAndOverridesAnew) {
    AllocationReport report;
    report.Link(1_cur, 2_cur);
    report.Override(6_cur, "CC_200", 4);
    db.Execute("UPDATE B SET CC_100 = 7;");
    db.TableDefs().Delete("B1");
    Build_B1();
    EXPECT_EQ(Rows_Of("StatLinks"), 0);
    EXPECT_EQ(Rows_Of("B1X"), 0);
    EXPECT_EQ(report.B(6_cur, "CC_100"), 0);
}

TEST(BuildB1, RegistersItsTablesAndCountsTheChart) {
    const AllocationReport report;
    for (const char* item : {"B", "B1", "B1X", "StatLinks"}) EXPECT_TRUE(TableExists(item, true)) << item;
    EXPECT_EQ(db.Read_Row("SELECT Calc_Lvl FROM Worksheets WHERE Item='B1';")[0].To_Long(), 5);
    EXPECT_EQ(db.Read_Row("SELECT Calc_Lvl FROM Worksheets WHERE Item='B1X';")[0].To_Long(), 999);
    const Row master = db.Read_Row("SELECT * FROM Master;");
    EXPECT_EQ(master["AllCCs"].To_Long(), 25);
    EXPECT_EQ(master["GenSvcCCs"].To_Long(), 5);
    EXPECT_EQ(master["CapitalCCs"].To_Long(), 2);
}

TEST(ShapeStats, FillsNullsAndClearsAboveTheOwnLine) {
    AllocationReport report;
    report.Statistic(2_cur, "CC_300", 8.5);
    report.Statistic(7_cur, "CC_300", Null);
    report.Statistic(8_cur, "CC_300", 2.5);
    report.Statistic(7_cur, "Recon_500", Null);
    ShapeStats("B1");
    EXPECT_TRUE(report.Cell("B1", 2_cur, "CC_300").Is_Null());
    EXPECT_EQ(report.B1(7_cur, "CC_300"), 0);
    EXPECT_EQ(report.B1(8_cur, "CC_300"), 2.5);
    EXPECT_EQ(report.B1(7_cur, "Recon_500"), 0);
}

TEST(StatLinks, CopyTheSourceBelowTheRecipientsLine) {
    AllocationReport report;
    report.Statistic(6_cur, "CC_100", 12.5);
    report.Statistic(23.2_cur, "CC_100", 3);
    report.Statistic(29_cur, "CC_100", 77);
    report.Link(1_cur, 2_cur);
    Apply_StatLinks();
    EXPECT_EQ(report.B1(6_cur, "CC_200"), 12.5);
    EXPECT_EQ(report.B1(23.2_cur, "CC_200"), 3);
    EXPECT_EQ(report.B1(2_cur, "CC_200"), 0);
    EXPECT_EQ(report.B1(29_cur, "CC_200"), 0);
}

TEST(StatLinks, AreTakenInTheOrderOfTheirRecipients) {
    AllocationReport report;
    report.Statistic(6_cur, "CC_100", 5);
    report.Link(2_cur, 3_cur);
    report.Link(1_cur, 2_cur);
    Apply_StatLinks();
    EXPECT_EQ(report.B1(6_cur, "CC_300"), 5);
}

TEST(StatLinks, OverridesWinOverTheLink) {
    AllocationReport report;
    report.Statistics({6_cur, 7_cur}, "CC_100", 5);
    report.Link(1_cur, 2_cur);
    report.Override(7_cur, "CC_200", 9.25);
    Apply_StatLinks();
    EXPECT_EQ(report.B1(6_cur, "CC_200"), 5);
    EXPECT_EQ(report.B1(7_cur, "CC_200"), 9.25);
}

TEST(StatLinks, OverridesOfALostColumnGoAtTheNextReplayOnly) {
    AllocationReport report;
    report.Override(6_cur, "CC_999", 5);
    report.Override(6_cur, "cc_200", 4);
    Apply_StatLinks();
    EXPECT_EQ(Rows_Of("B1X"), 2);
    EXPECT_EQ(report.B1(6_cur, "CC_200"), 0);
    report.Link(1_cur, 3_cur);
    Apply_StatLinks();
    EXPECT_EQ(Rows_Of("B1X"), 1);
    EXPECT_EQ(report.B1(6_cur, "CC_200"), 4);
}

}  // namespace
}  // namespace tallmar
