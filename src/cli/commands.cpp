#include "cli/commands.h"

#include <array>

namespace tallmar {

namespace {

using Args = CommandArguments;

constexpr ArgumentSpec Text(std::string_view name, std::string_view help, bool required, std::string Args::*member) {
    return {name, help, required, member, nullptr, nullptr};
}

constexpr std::array kNew{
    Text("--provider", "Provider number, 14-7100", true, &Args::provider),
    Text("--start", "First day of the fiscal year, m/d/yyyy", true, &Args::start),
    Text("--end", "Last day of the fiscal year; a year less a day after the start where it is left out", false,
         &Args::end),
    Text("--name", "Name of the facility, 8 to 36 characters", true, &Args::name),
};
constexpr std::array kInfo{ArgumentSpec{"--json", "As one JSON object", false, nullptr, nullptr, &Args::json}};
constexpr std::array kSql{
    Text("STATEMENT", "One statement, or - for one a line from standard input", true, &Args::statement)};
constexpr std::array kDump{ArgumentSpec{"TABLE", "Only these tables", false, nullptr, &Args::tables, nullptr}};
constexpr std::array kEnter{
    Text("CELLS", "A CSV file of Item,LineNum,Column,Value; standard input where it is left out", false, &Args::cells)};
constexpr std::array kSaveAs{
    Text("NEW", "The copy's path; before a file there is replaced it is asked", true, &Args::target)};

constexpr std::array kCommands{
    Command{"new", "Make a new report", kNew, Run_New},
    Command{"info", "Identity, dates, counts and the registry of worksheets", kInfo, Run_Info},
    Command{"sql", "Run a statement of the report's SQL dialect", kSql, Run_Sql},
    Command{"dump", "The whole report as JSON", kDump, Run_Dump},
    Command{"enter", "Key cells into worksheets", kEnter, Run_Enter},
    Command{"calc", "Calculate the whole report", {}, Run_Calc},
    Command{"save-as", "Copy the report to another file", kSaveAs, Run_Save_As},
    Command{"compact", "Repair and compact the file", {}, Run_Compact},
};

}  // namespace

std::span<const Command> All_Commands() {
    return kCommands;
}

}  // namespace tallmar
