#include "screens/total_rows.h"

#include "common/worksheets.h"

namespace tallmar {

std::vector<bool> Total_Rows(const Item& item, const FormRows& rows) {
    std::vector<bool> totals(rows.Count());
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr) return totals;
    for (std::size_t i = 0; i < totals.size(); ++i) {
        totals[i] = Kind_Of(family->lines, rows.Line(i)) == LineKind::Total;
    }
    return totals;
}

}  // namespace tallmar
