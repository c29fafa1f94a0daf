#include "shell/journeys/sample.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>

#include "cli/cli.h"
#include "common/csv.h"

namespace tallmar {

namespace {

constexpr std::array kSamples{
    Sample{"fy1999", "10/1/1998", "9/30/1999", fy1999},
    Sample{"fy2000", "1/1/2000", "12/31/2000", fy2000},
    Sample{"fy2016", "10/1/2015", "9/30/2016", fy2016},
};

}  // namespace

std::span<const Sample> Samples() {
    return kSamples;
}

std::string Run_Tallmar(const std::vector<std::string>& args) {
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(Run_Command_Line(args, in, out, err), kExitDone) << args.front() << ": " << err.str();
    return out.str();
}

void Make_Empty_Sample(const Sample& sample, const std::string& path) {
    Run_Tallmar({"new", path, "--provider", "14-7100", "--start", sample.start, "--end", sample.end, "--name",
                 "Prairie Hearth Home Health"});
}

void Make_Sample(const Sample& sample, const std::string& path) {
    Make_Empty_Sample(sample, path);
    Run_Tallmar({"enter", path, Cells_File(sample)});
    Run_Tallmar({"calc", path});
}

std::string Cells_File(const Sample& sample) {
    return std::string(TALLMAR_SOURCE_DIR "/samples/") + sample.name + "/cells.csv";
}

std::vector<CellText> Cells_Of(const Sample& sample) {
    std::ifstream file(Cells_File(sample));
    CsvReader reader(file);
    std::vector<CellText> cells;
    while (const auto record = reader.Next()) {
        const auto& f = record->fields;
        if (f[0] != "Item") cells.push_back({f[0], f[1], f[2], f[3]});
    }
    return cells;
}

}  // namespace tallmar
