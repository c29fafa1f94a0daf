// One golden report: a folder of tests/golden with the identity, the cells and the worked tables of a whole report.
//
//     report.sh      provider, start, end, name, as the samples have them
//     option.cells   cells that come before the chart changes (not every report)
//     chart.sql      the change of the chart, one statement a line (not every report)
//     input.cells    what the preparer keys
//     tables.json    the dump after calculation, times masked
//     new.json       the dump of the report just made, before a cell is keyed (one report for each set of worksheets)
//     WORKED.md      which of its figures were derived by hand, and how
#pragma once

#include <string>
#include <vector>

namespace tallmar {

struct CommandRun {
    int status;
    std::string out, err;
};

// A command of `tallmar`, run in this process.
CommandRun Run_Command(const std::vector<std::string>& args, const std::string& in = {});

// The names of the golden reports, in order.
std::vector<std::string> Golden_Names();
// The path of a file in the folder of the report `name`.
std::string Golden_File(const std::string& name, const std::string& file);
// The whole file; throws std::runtime_error where it cannot be read.
std::string Read_File(const std::string& path);

// The report at `path` as it is made, with nothing keyed. A command that refuses it throws std::runtime_error.
void Make_New_Golden_Report(const std::string& name, const std::string& path);
// Makes and fills the report at `path`, in the preparer's order: new, enter, the chart, enter. A command that refuses
// anything throws std::runtime_error with what it said.
void Make_Golden_Report(const std::string& name, const std::string& path);

}  // namespace tallmar
