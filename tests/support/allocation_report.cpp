#include "support/allocation_report.h"

#include <gtest/gtest.h>

#include "calc/w_a.h"
#include "calc/w_b1.h"
#include "common/sql_text.h"
#include "report/master.h"

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
    Begin_Chart();
    Build_Allocation();
}

AllocationReport::AllocationReport(const std::vector<oracle::CostCenter>& chart) {
    Begin_Chart();
    Execute("DELETE * FROM CostCenters;");
    for (const oracle::CostCenter& cc : chart) Execute(Insert_Cost_Center(cc));
    Build_Allocation();
    for (const oracle::CostCenter& cc : chart) {
        Net(Number_Of(cc.line), cc.netExpenses ? Value(Currency::From_Scaled(*cc.netExpenses)) : Value{});
    }
}

void AllocationReport::Begin_Chart() {
    Begin(fy2016);
    Build_Master();
}

void AllocationReport::Build_Allocation() {
    Build_A();
    Build_B1();
}

void AllocationReport::Net(Currency line, const Value& amount) {
    Cell("A", line, 10, amount);
}

void AllocationReport::Statistic(Currency line, std::string_view column, const Value& statistic) {
    Cell("B1", line, column, statistic);
}

void AllocationReport::Statistics(std::initializer_list<Currency> lines, std::string_view column,
                                  const Value& statistic) {
    for (const Currency line : lines) Statistic(line, column, statistic);
}

void AllocationReport::Override(Currency row, std::string_view column, double amount) {
    Add_Row("B1X", "RowCCNum, ColCCNum, Amount", Sql(row, ",'", column, "',", amount));
}

void AllocationReport::Link(Currency from, Currency to) {
    Add_Row("StatLinks", "FromCCNum, ToCCNum", Sql(from, ",", to));
}

double AllocationReport::B(Currency line, std::string_view column) {
    const Value cell = Cell("B", line, column);
    EXPECT_FALSE(cell.Is_Null()) << column;
    return cell.Is_Null() ? 0 : cell.To_Double();
}

double AllocationReport::B1(Currency line, std::string_view column) {
    const Value cell = Cell("B1", line, column);
    EXPECT_FALSE(cell.Is_Null()) << column;
    return cell.Is_Null() ? 0 : cell.To_Double();
}

}  // namespace tallmar
