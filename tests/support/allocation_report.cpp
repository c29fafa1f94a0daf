#include "support/allocation_report.h"

#include <gtest/gtest.h>

#include "calc/w_a.h"
#include "calc/w_b1.h"
#include "common/dates.h"
#include "common/sql_text.h"
#include "report/chart.h"
#include "report/master.h"
#include "report/open_report.h"
#include "report/registry.h"

namespace tallmar {

namespace {

Currency Number_Of(oracle::Line line) {
    return Currency::From_Scaled(std::int64_t{line} * (Currency::kScale / 100));
}

std::string Insert_Cost_Center(const oracle::CostCenter& cc) {
    const Currency line = Number_Of(cc.line);
    const Value lineType = cc.lineType ? Value(*cc.lineType) : Value{};
    return Sql("INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,CCName,StatLabel1,StatLabel2) VALUES (",
               line, ",", lineType, ",", line, ",", cc.line, cc.generalService ? ",'G'" : ",'A'", ",'Line'",
               cc.accumulated ? ",'(Accumulated','Cost)');" : ",'(Square','Feet)');");
}

}  // namespace

AllocationReport::AllocationReport() {
    Open();
    Build();
}

AllocationReport::AllocationReport(const std::vector<oracle::CostCenter>& chart) {
    Open();
    db.Execute("DELETE * FROM CostCenters;");
    for (const oracle::CostCenter& cc : chart) db.Execute(Insert_Cost_Center(cc));
    Build();
    for (const oracle::CostCenter& cc : chart) {
        Net(Number_Of(cc.line), cc.netExpenses ? Value(Currency::From_Scaled(*cc.netExpenses)) : Value{});
    }
}

AllocationReport::~AllocationReport() {
    openReport = {};
}

void AllocationReport::Open() {
    openReport = {};
    openReport.FYStart = Date_Of(2015, 10, 1);
    openReport.FYEnd = Date_Of(2016, 9, 30);
    openReport.FormNum = "1728";
    openReport.ProviderNumber = "14-7100";
    openReport.ProviderName = "Tallmar Home Care";
    db = DBEngine::CreateDatabase(folder_.File("Report.CRF"), ";LANGID=0x0409;CP=1252;COUNTRY=0");
    Build_Worksheets();
    Build_Master();
    Build_CC();
}

void AllocationReport::Build() {
    Build_A();
    Build_B1();
}

void AllocationReport::Net(Currency line, const Value& amount) {
    db.Execute(Sql("UPDATE A SET Col_10 = ", amount, " WHERE LineNum = ", line, ";"));
}

void AllocationReport::Statistic(Currency line, std::string_view column, const Value& statistic) {
    db.Execute(Sql("UPDATE B1 SET ", column, " = ", statistic, " WHERE LineNum = ", line, ";"));
}

void AllocationReport::Statistics(std::initializer_list<Currency> lines, std::string_view column,
                                  const Value& statistic) {
    for (const Currency line : lines) Statistic(line, column, statistic);
}

void AllocationReport::Override(Currency row, std::string_view column, double amount) {
    db.Execute(Sql("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (", row, ",'", column, "',", amount, ");"));
}

void AllocationReport::Link(Currency from, Currency to) {
    db.Execute(Sql("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (", from, ",", to, ");"));
}

Value AllocationReport::Cell(std::string_view table, Currency line, std::string_view column) const {
    const Row row = db.Read_Row(Sql("SELECT ", column, " FROM ", table, " WHERE LineNum = ", line, ";"));
    EXPECT_TRUE(row) << table << " has no such line";
    return row ? row[0] : Value{};
}

double AllocationReport::B(Currency line, std::string_view column) const {
    const Value cell = Cell("B", line, column);
    EXPECT_FALSE(cell.Is_Null()) << column;
    return cell.Is_Null() ? 0 : cell.To_Double();
}

double AllocationReport::B1(Currency line, std::string_view column) const {
    const Value cell = Cell("B1", line, column);
    EXPECT_FALSE(cell.Is_Null()) << column;
    return cell.Is_Null() ? 0 : cell.To_Double();
}

}  // namespace tallmar
