#include "report/build_worksheet.h"

#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/step.h"

namespace tallmar {

bool Build_Worksheet(const Item& item) {
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr || family->build == nullptr) return false;
    TableDefs tables = db.TableDefs();
    if (tables.Has(item.Name())) tables.Delete(item.Name());
    family->build(item);
    return true;
}

bool Build_Worksheet_Reported(const Item& item) {
    bool built = false;
    return Run_Step(item, [&] { built = Build_Worksheet(item); }) && built;
}

}  // namespace tallmar
