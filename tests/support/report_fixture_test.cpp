#include "support/report_fixture.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "report/open_report.h"

namespace tallmar {

TEST(ReportFixtureTest, ANewReportHasItsIdentityAndItsWorksheets) {
    Report r(fy2016);
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1));
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 9, 30));
    EXPECT_EQ(r.Read("SELECT ProviderNumber FROM Master;"), Value("14-7100"));
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item = \"S21\";").To_Long(), 1);
    EXPECT_CELL("A", 5, "CCName", r.Read("SELECT CCName FROM CostCenters WHERE LineNum = 5;"));
}

TEST(ReportFixtureTest, TheYearDecidesOnTheWorksheets) {
    {
        Report r(fy1999);
        EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item = \"A1\";").To_Long(), 1);
        EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item = \"S21\";").To_Long(), 0);
    }
    Report r(fy2000);
    EXPECT_EQ(r.Read("SELECT FYStart FROM Master;"), Value(Date_Of(2000, 1, 1)));
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Worksheets WHERE Item = \"S21\";").To_Long(), 0);
}

TEST(ReportFixtureTest, CellsAreWrittenAndReadByLineAndColumn) {
    Report r(fy2016);
    r.Cell("A", 5, 3, 1200);
    EXPECT_CELL("A", 5, 3, 1200);
    r.Cell("A", 5, 3, 87.4);
    EXPECT_CELL("A", 5, 3, 87.40);
    EXPECT_EQ(r.Cell("A", 5.0, "Col_3"), Value(87.4_cur));
    r.Cell("A", 5, 3, Null);
    EXPECT_CELL("A", 5, 3, Null);
    r.Cell("S2", 2, 1, "The \"Good\" Agency");
    EXPECT_CELL("S2", 2, 1, "The \"Good\" Agency");
}

TEST(ReportFixtureTest, ACellThatDiffersIsNamedWithBothValues) {
    Report r(fy2016);
    r.Cell("A", 5, 3, 1200);
    EXPECT_STREQ(Cell_Is("A", 5, 3, 1200.01).message(), "A line 5 Col_3 is 1200, expected 1200.01");
    EXPECT_STREQ(Cell_Is("A", 5, 3, Null).message(), "A line 5 Col_3 is 1200, expected Null");
    EXPECT_STREQ(Cell_Is("A", 99, 3, 1).message(), "A line 99 Col_3: no such row");
    EXPECT_NONFATAL_FAILURE(r.Cell("A", 99, 3, 1), "A line 99 Col_3: 0 rows");
    EXPECT_THROW(r.Cell("A", 5, "Col_99", 1), DbError);
}

TEST(ReportFixtureTest, CalcReachesTheTrialBalance) {
    Report r(fy2016);
    r.Cell("A", 5, 1, 1000);
    r.Cell("A", 5, 3, 200);
    r.Calc("A");
    EXPECT_CELL("A", 5, 6, 1200);
}

TEST(ReportFixtureTest, TheWholeCalculationRunsInTheChain) {
    Report r(fy2016);
    r.Cell("A", 5, 1, 1000);
    r.Calc();
    EXPECT_CELL("A", 29, 10, 1000);
    EXPECT_FALSE(r.platform.progress.empty());
}

TEST(ReportFixtureTest, AMessageOfTheCalculationFailsTheTest) {
    Report r(fy2016);
    r.Execute("DROP TABLE A7;");
    EXPECT_NONFATAL_FAILURE(r.Calc(), "the calculation has messages:\n  E A7: ");
    const auto messages = r.Calc_With_Messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].form, "A7");
    EXPECT_NONFATAL_FAILURE(r.Calc("Z9"), "Z9 has no calculation");
}

TEST(ReportFixtureTest, NothingIsLeftOpenBehindIt) {
    std::string path;
    {
        const Report r(fy2016);
        path = openReport.CRFPath;
        EXPECT_TRUE(db.Is_Open());
        EXPECT_FALSE(std::filesystem::exists(path)) << "the report lives in memory";
    }
    EXPECT_FALSE(db.Is_Open());
    EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace tallmar
