// What a worksheet family is, and how the one of an Item is found. New report, calculation, printing and the ECR walk
// worksheets through this table and never through a module's own header.
#pragma once

#include <span>

#include "common/item.h"

namespace tallmar {

struct FormDescription;  // screens/form_description.h

struct WorksheetFamily {
    ItemPattern items;  // tested in the order of the table
    int calcLevel;      // of the registry; 999 for a table that is no worksheet
    void (*build)(const Item&);
    void (*calc)(const Item&);    // null: nothing of its own to calculate
    const FormDescription* edit;  // null: no edit form
    const FormDescription* view;
    // Whether the table is laid out as the chart and the fiscal year ask for it, and what makes it so. Null: every
    // report's is alike, or it is made anew by the calculation.
    bool (*fits)(const Item&) = nullptr;
    void (*fit)(const Item&) = nullptr;
    // Reads what the open report keeps of its answers. Null: nothing.
    void (*load)() = nullptr;
};

// The catalogue is installed once, by main() or by a test. Requires static storage.
void Install_Catalogue(std::span<const WorksheetFamily> families);
std::span<const WorksheetFamily> Installed_Families();
// Null where no family has this item.
const WorksheetFamily* Find_Family(const Item& item);

}  // namespace tallmar
