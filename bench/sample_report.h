// Reports for the benchmarks, filled with the figures of a sample agency.
#pragma once

#include "support/report_fixture.h"

namespace tallmar {

// Types the cells of samples/<year> into the report, as the command line does. Throws where one is refused.
void Fill_Sample(Report& report, const std::string& year);
// Puts a chart of `general` general service cost centers among `lines` lines in place of the report's own, and builds
// A (calculated), B and B-1 anew with expenses and statistics on each line. Lines are those of the form and sublines of
// them. Requires general from 5 to 75 and lines from general + 18 on.
void Use_Wide_Chart(Report& report, int general, int lines);

}  // namespace tallmar
