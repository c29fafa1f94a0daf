// What a worksheet family is: facts alone, which every folder above reads. New report, calculation, menus, printing and
// the ECR walk worksheets through this table and never through a module's own header. What a folder adds to a family,
// such as its forms, is in a table of that folder.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/dates.h"
#include "common/item.h"
#include "common/lines.h"

namespace tallmar {

// The fiscal years that have a worksheet, by the day on which they start.
enum class Years : std::uint8_t {
    Always,
    CostLimits,  // before 10/1/2000
    FromS21,     // from 10/1/2015 on
};
bool Year_Has(Years years, Date start);
// The years of the worksheet were over when this one started. One that a report still holds is left as it is.
bool Have_Ended(Years years, Date start);

struct WorksheetFamily {
    ItemPattern items;
    int level;  // of the registry, in which the calculation takes the worksheets; 999 for a table behind another
    Years years;
    bool inNewReport;  // false: what is entered brings it, or another worksheet's build
    void (*build)(const Item&);
    void (*calc)(const Item&) = nullptr;   // null: nothing of its own to calculate
    std::span<const FixedRow> lines = {};  // the form's own; others come from the chart and from what is keyed
    // Whether the table is laid out as the chart and the fiscal year ask for it, and what makes it so: of a worksheet
    // that follows them with what is keyed in it. Null: no such layout, or the calculation makes it again.
    bool (*fits)(const Item&) = nullptr;
    void (*fit)(const Item&) = nullptr;
    // Reads what the open report keeps of its answers. Null: nothing.
    void (*load)() = nullptr;
};

// The catalogue is installed once, by main() or by a test. Requires static storage. The order of the rows is the order
// of building, and no pattern matches an item of another row.
void Install_Catalogue(std::span<const WorksheetFamily> families);
std::span<const WorksheetFamily> Families();
// What is before the open places of a pattern: "A83p1" of "A83p1*". A new report builds a family by it.
std::string_view Stem_Of(const ItemPattern& items);
// Null where no family has this item.
const WorksheetFamily* Find_Family(const Item& item);
// The same whatever the case of its letters: a table of a file may be called "a1".
const WorksheetFamily* Find_Family_In_Any_Case(std::string_view item);

}  // namespace tallmar
