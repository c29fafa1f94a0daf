// A report that has what the step-down needs and nothing more: the chart, A, B and B-1, in memory.
#pragma once

#include <string_view>
#include <vector>

#include "common/currency.h"
#include "common/value.h"
#include "support/report_fixture.h"
#include "support/step_down_oracle.h"

namespace tallmar {

class AllocationReport : public Report {
  public:
    // The chart of a new report of 2015/2016.
    AllocationReport();
    // A chart of one's own, with A's net expenses.
    explicit AllocationReport(const std::vector<oracle::CostCenter>& chart);

    // Column 10 of A.
    static void Net(Currency line, const Value& amount);
    static void Statistic(Currency line, std::string_view column, const Value& statistic);
    // The same statistic on several lines.
    static void Statistics(std::initializer_list<Currency> lines, std::string_view column, const Value& statistic);
    static void Override(Currency row, std::string_view column, double amount);
    static void Link(Currency from, Currency to);

    // A cell as a double. A Null, and a line that is missing, fail the test.
    static double B(Currency line, std::string_view column);
    static double B1(Currency line, std::string_view column);

  private:
    void Begin_Chart();
    static void Build_Allocation();
};

}  // namespace tallmar
