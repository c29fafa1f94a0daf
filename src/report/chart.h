// The chart of cost centers: CostCenters, and DeletedCCs for those not in use.
#pragma once

#include <string>

#include "common/currency.h"

namespace tallmar {

// Both tables with their fixed rows. Needs FYEnd.
void Build_CC();
// The name of a line; empty where the chart has no such line.
std::string CostCenterName(Currency lineNum);
// Compares the chart with S-2 line 26 (AGOption). Empty where they agree, else what the form demands.
std::string CheckAGCostCenters();
// AllCCs, GenSvcCCs, CapitalCCs and EmpBenCCs of Master from the chart: after B-1 is built and after each change.
void Store_CC_Counts();
// Revises the chart of an older report, lines 23.2 and 13.2, and the counts. The worksheets follow by WorksheetFamily's
// `fit`.
void Upgrade_Chart();
bool Chart_Needs_Upgrade();
// Reports sublines of 12 to 14 where the fiscal year spans 10/1/2000, which the form forbids.
void Tell_Forbidden_Sublines();

}  // namespace tallmar
