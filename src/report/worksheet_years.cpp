#include "report/worksheet_years.h"

#include <algorithm>
#include <array>

#include "common/dates.h"
#include "common/item.h"
#include "common/text.h"

namespace tallmar {

namespace {

bool Has_Cost_Limits(Date start) {
    return start < kCostLimitsEnd;
}
bool Has_S21(Date start) {
    return start >= kS21From;
}

struct YearlyWorksheet {
    ItemPattern items;
    std::string_view title;
    bool (*has)(Date start);
};
constexpr std::array kYearly{
    YearlyWorksheet{"A1", "A-1", Has_Cost_Limits}, YearlyWorksheet{"A2", "A-2", Has_Cost_Limits},
    YearlyWorksheet{"A3", "A-3", Has_Cost_Limits}, YearlyWorksheet{"A83*", "A-8-3", Has_Cost_Limits},
    YearlyWorksheet{"S21", "S-2-1", Has_S21},
};

constexpr std::array<std::string_view, 9> kBuilt{"A1", "A2", "A3", "A83p1", "A83p2", "A83p3", "A83p4", "A83p5", "S21"};

void Add_Title(std::string& list, std::string_view title) {
    if (!list.empty()) list += ", ";
    list += title;
}

}  // namespace

bool Year_Has(std::string_view item, Date start) {
    const std::string name = To_Upper(item);
    const auto yearly = std::ranges::find_if(kYearly, [&](const YearlyWorksheet& w) { return w.items.Matches(name); });
    return yearly == kYearly.end() || yearly->has(start);
}

std::span<const std::string_view> Yearly_Worksheets() {
    return kBuilt;
}

YearMove Move_Year(Date from, Date to) {
    YearMove move;
    for (const YearlyWorksheet& worksheet : kYearly) {
        if (worksheet.has(from) == worksheet.has(to)) continue;
        Add_Title(worksheet.has(to) ? move.added : move.removed, worksheet.title);
    }
    return move;
}

}  // namespace tallmar
