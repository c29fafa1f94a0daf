// Cost centers of a small chart, and what B-1 holds of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/open_report.h"
#include "support/allocation_report.h"

namespace tallmar {

using oracle::CostCenter;

inline constexpr std::int64_t kDollar = 10'000;

inline CostCenter General_Service(oracle::Line line, std::int64_t dollars = 0) {
    return {.line = line, .generalService = true, .netExpenses = dollars * kDollar};
}
inline CostCenter Accumulated(oracle::Line line, std::int64_t dollars = 0) {
    return {.line = line, .generalService = true, .accumulated = true, .netExpenses = dollars * kDollar};
}
inline CostCenter Other(oracle::Line line, std::int64_t dollars = 0) {
    return {.line = line, .netExpenses = dollars * kDollar};
}

inline std::vector<std::string> Statistics_Of(std::string_view table) {
    std::vector<std::string> names;
    const TableDef def = db.TableDefs().Item(table);
    for (std::size_t i = 5; i < def.Shape().fields.size(); ++i) names.push_back(def.Shape().fields[i].name);
    return names;
}

inline std::int64_t Rows_Of(std::string_view table) {
    return db.Read_Row("SELECT Count(*) AS Cnt FROM " + std::string(table) + ";")["Cnt"].To_Long();
}

}  // namespace tallmar
