#include "screens/year_rules.h"

#include <algorithm>
#include <array>

#include "common/dates.h"
#include "common/worksheets.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

bool Ends_With_Limits() {
    return openReport.FYEnd < kCostLimitsEnd;
}
bool Starts_After_Limits() {
    return openReport.FYStart >= kCostLimitsEnd;
}

// A worksheet that every report has and some years do not use: the lists that leave it out then.
struct UnusedWorksheet {
    ItemPattern items;
    bool (*unused)();
    WorksheetList list;
    FormMode mode;
};
constexpr std::array kUnused{
    UnusedWorksheet{"S3p4", Ends_With_Limits, WorksheetList::Walk, FormMode::Edit},
    UnusedWorksheet{"S3p4", Ends_With_Limits, WorksheetList::Menus, FormMode::Edit},
    UnusedWorksheet{"S3p4", Ends_With_Limits, WorksheetList::Menus, FormMode::View},
    UnusedWorksheet{"Cp4", Starts_After_Limits, WorksheetList::Walk, FormMode::Edit},
    UnusedWorksheet{"Cp4", Starts_After_Limits, WorksheetList::Menus, FormMode::Edit},
};

}  // namespace

bool Year_Leaves_Out(WorksheetList list, FormMode mode, const Item& item) {
    const WorksheetFamily* family = Find_Family(item);
    if (list == WorksheetList::Walk && family != nullptr && Have_Ended(family->years, openReport.FYStart)) return true;
    return std::ranges::any_of(kUnused, [&](const UnusedWorksheet& rule) {
        return rule.list == list && rule.mode == mode && rule.items.Matches(item.Name()) && rule.unused();
    });
}

}  // namespace tallmar
