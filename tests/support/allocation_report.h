// A report that has what the step-down needs and nothing more: the chart, A, B and B-1, in memory.
#pragma once

#include <string_view>
#include <vector>

#include "common/currency.h"
#include "common/value.h"
#include "support/fake_platform.h"
#include "support/step_down_oracle.h"
#include "support/temp_folder.h"

namespace tallmar {

class AllocationReport {
  public:
    // The chart of a new report of 2015/2016.
    AllocationReport();
    // A chart of one's own, with A's net expenses.
    explicit AllocationReport(const std::vector<oracle::CostCenter>& chart);
    ~AllocationReport();
    AllocationReport(const AllocationReport&) = delete;
    AllocationReport& operator=(const AllocationReport&) = delete;

    // Column 10 of A.
    void Net(Currency line, const Value& amount);
    void Statistic(Currency line, std::string_view column, const Value& statistic);
    // The same statistic on several lines.
    void Statistics(std::initializer_list<Currency> lines, std::string_view column, const Value& statistic);
    void Override(Currency row, std::string_view column, double amount);
    void Link(Currency from, Currency to);

    // A cell as a double. A Null, and a line that is missing, fail the test.
    double B(Currency line, std::string_view column) const;
    double B1(Currency line, std::string_view column) const;
    Value Cell(std::string_view table, Currency line, std::string_view column) const;

    FakePlatform platform;

  private:
    void Open();
    void Build();

    TempFolder folder_;
};

}  // namespace tallmar
