#include "calc/w_b.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc/w_b1.h"
#include "common/platform.h"
#include "report/open_report.h"
#include "support/allocation_report.h"

namespace tallmar {
namespace {

using oracle::CostCenter;
using testing::ElementsAre;

CostCenter General_Service(oracle::Line line) {
    return {.line = line, .generalService = true};
}

std::vector<std::string> Fields_From(std::string_view table, std::size_t first) {
    std::vector<std::string> names;
    const TableDef def = db.TableDefs().Item(table);
    for (std::size_t i = first; i < def.Shape().fields.size(); ++i) names.push_back(def.Shape().fields[i].name);
    return names;
}

TEST(BuildB, ColumnsOfTheChartStandAroundTheSubTotal) {
    const AllocationReport report;
    EXPECT_THAT(Fields_From("B", 0),
                ElementsAre("LineNum", "CCNum", "CCName", "CCType", "LineType", "NetExpenses", "CC_100", "CC_200",
                            "CC_300", "CC_400", "SubTotal", "CC_500", "Total"));
    const TableDef b = db.TableDefs().Item("B");
    for (const FieldDef& field : b.Shape().fields) {
        const bool text = field.name == "CCName" || field.name == "CCType" || field.name == "LineType";
        EXPECT_EQ(field.type, text ? FieldType::Text : FieldType::Currency) << field.name;
    }
}

TEST(BuildB, SublinesGiveColumnsByLineNumber) {
    const AllocationReport report(
        {General_Service(100), General_Service(101), General_Service(501), General_Service(510), {.line = 600}});
    EXPECT_THAT(Fields_From("B", 5),
                ElementsAre("NetExpenses", "CC_100", "CC_101", "SubTotal", "CC_501", "CC_510", "Total"));
}

TEST(BuildB, CellsAreNullAboveTheOwnLineAndZeroFromIt) {
    const AllocationReport report;
    EXPECT_TRUE(report.Cell("B", 2_cur, "CC_300").Is_Null());
    EXPECT_EQ(report.B(3_cur, "CC_300"), 0);
    EXPECT_EQ(report.B(13.2_cur, "CC_300"), 0);
    EXPECT_EQ(report.B(29_cur, "CC_300"), 0);
    EXPECT_TRUE(report.Cell("B", 4_cur, "SubTotal").Is_Null());
    EXPECT_EQ(report.B(5_cur, "SubTotal"), 0);
    EXPECT_TRUE(report.Cell("B", 5_cur, "Total").Is_Null());
    EXPECT_EQ(report.B(6_cur, "Total"), 0);
    EXPECT_EQ(report.B(1_cur, "NetExpenses"), 0);
}

TEST(BuildB, TotalLineHasNoCostCenterNumber) {
    const AllocationReport report;
    EXPECT_EQ(report.Cell("B", 29_cur, "CCName"), Value("TOTAL"));
    EXPECT_EQ(report.Cell("B", 29_cur, "LineType"), Value("T"));
    EXPECT_TRUE(report.Cell("B", 29_cur, "CCNum").Is_Null());
}

TEST(BuildB, ChartWithoutCapitalLinesIsReported) {
    AllocationReport report;
    db.Execute("DELETE * FROM CostCenters WHERE LineNum < 5;");
    db.Execute("UPDATE CostCenters SET CCType='A';");
    db.TableDefs().Delete("B");
    report.platform.Expect_Box("Error: Worksheet B",
                               "PROBLEM in Build_B: No records found with CCType='G' and CCNum < 5.", Answer::Ok,
                               kExclamation);
    Build_B();
    EXPECT_EQ(report.platform.beeps, 1);
    EXPECT_THAT(Fields_From("B", 5), ElementsAre("NetExpenses", "SubTotal", "Total"));
}

// The columns of line 5 are looked for behind the last capital line: behind the first record where there is none.
TEST(BuildB, LineFiveAheadOfEveryCapitalLineGetsNoColumn) {
    AllocationReport report;
    db.Execute("DELETE * FROM CostCenters WHERE LineNum < 5;");
    db.TableDefs().Delete("B");
    report.platform.Expect_Box_Starting("Error: Worksheet B", "PROBLEM in Build_B");
    EXPECT_THROW(Build_B(), DbError);
    EXPECT_THAT(Fields_From("B", 5), ElementsAre("NetExpenses", "SubTotal", "Total"));
}

TEST(BuildB, IsRegisteredAtLevelZero) {
    const AllocationReport report;
    const Row row = db.Read_Row("SELECT Calc_Lvl, ItemName FROM Worksheets WHERE Item = 'B';");
    EXPECT_EQ(row["Calc_Lvl"].To_Long(), 0);
    EXPECT_EQ(row["ItemName"], Value("B"));
}

TEST(BuildB, SecondBuildBesideTheTableFails) {
    const AllocationReport report;
    EXPECT_THROW(Build_B(), DbError);
}

}  // namespace
}  // namespace tallmar
