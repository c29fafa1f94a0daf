#include "golden/golden_report.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "cli/cli.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

const fs::path kFolder = fs::path(TALLMAR_SOURCE_DIR) / "tests" / "golden";

// The value of `name=value` or `name='value'` in a report.sh.
std::string Setting(const std::string& text, const std::string& name) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(name + "=")) continue;
        std::string value = line.substr(name.size() + 1);
        if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'')
            value = value.substr(1, value.size() - 2);
        return value;
    }
    throw std::runtime_error("report.sh says no " + name);
}

void Must_Run(const std::vector<std::string>& args, const std::string& in = {}) {
    const CommandRun run = Run_Command(args, in);
    if (run.status != kExitDone) throw std::runtime_error(args[0] + " failed:\n" + run.err);
}

void Enter_If_There(const std::string& name, const std::string& file, const std::string& path) {
    const std::string cells = Golden_File(name, file);
    if (fs::exists(cells)) Must_Run({"enter", path, cells});
}

}  // namespace

CommandRun Run_Command(const std::vector<std::string>& args, const std::string& in) {
    std::istringstream input(in);
    std::ostringstream out, err;
    const int status = Run_Command_Line(args, input, out, err);
    return {status, out.str(), err.str()};
}

std::vector<std::string> Golden_Names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        if (fs::exists(entry.path() / "report.sh")) names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string Golden_File(const std::string& name, const std::string& file) {
    return (kFolder / name / file).string();
}

std::string Read_File(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

void Make_New_Golden_Report(const std::string& name, const std::string& path) {
    const std::string identity = Read_File(Golden_File(name, "report.sh"));
    Must_Run({"new", path, "--provider", Setting(identity, "provider"), "--start", Setting(identity, "start"), "--end",
              Setting(identity, "end"), "--name", Setting(identity, "name")});
}

void Make_Golden_Report(const std::string& name, const std::string& path) {
    Make_New_Golden_Report(name, path);
    Enter_If_There(name, "option.cells", path);
    const std::string chart = Golden_File(name, "chart.sql");
    if (fs::exists(chart)) Must_Run({"sql", path, "-"}, Read_File(chart));
    Must_Run({"enter", path, Golden_File(name, "input.cells")});
}

}  // namespace tallmar
