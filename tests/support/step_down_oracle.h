// The step-down worked out on plain vectors, one cell at a time, to hold against what the report computes. It knows
// no statement and no table: charts, statistics, links, overrides and exclusions in; the cells of B and B-1 out.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tallmar::oracle {

// Line numbers in hundredths: 501 is 5.01. Amounts in ten-thousandths of a dollar.
using Line = int;
using Amount = std::optional<std::int64_t>;
using Statistic = std::optional<double>;

struct CostCenter {
    Line line = 0;
    bool generalService = false;
    bool accumulated = false;  // its statistic is accumulated cost
    std::optional<std::string> lineType = "S";
    Amount netExpenses = std::nullopt;  // column 10 of A; nothing: Null, or A has no such line
};

struct Override {
    Line row = 0;
    std::string column;  // "CC_500"
    double amount = 0;
};

struct Link {
    Line from = 0, to = 0;
};

struct Case {
    std::vector<CostCenter> chart;                         // in line order
    std::map<std::pair<Line, std::string>, Statistic> b1;  // every cell of B-1, lines 2900 to 3100 too
    std::vector<Override> overrides;                       // in the order in which they were made
    std::vector<Link> links;                               // one a recipient
    int agOption = 0;
};

struct Result {
    std::map<std::pair<Line, std::string>, Amount> b;  // NetExpenses, CC_, SubTotal, Total of every line and of 2900
    std::map<std::pair<Line, std::string>, Statistic> b1;
    std::vector<Override> overrides;
};

// The columns of B-1 from the first statistic on, in their order.
std::vector<std::string> B1_Columns(const std::vector<CostCenter>& chart);
// The columns of B from NetExpenses on.
std::vector<std::string> B_Columns(const std::vector<CostCenter>& chart);

Result Step_Down(const Case& given);

}  // namespace tallmar::oracle
