// The sample reports, made by the command line as a person makes them there.
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "screens/cell_batch.h"
#include "support/report_fixture.h"

namespace tallmar {

struct Sample {
    const char* name;         // its folder
    const char *start, *end;  // as they are keyed
    const FiscalYear& year;
    friend std::ostream& operator<<(std::ostream& out, const Sample& sample) { return out << sample.name; }
};
// One of each period.
std::span<const Sample> Samples();

// Runs a command of the command line; a failure fails the test. What it printed.
std::string Run_Tallmar(const std::vector<std::string>& args);
// The report without a cell entered, closed.
void Make_Empty_Sample(const Sample& sample, const std::string& path);
// With all cells entered, and calculated.
void Make_Sample(const Sample& sample, const std::string& path);
std::string Cells_File(const Sample& sample);
std::vector<CellText> Cells_Of(const Sample& sample);

}  // namespace tallmar
