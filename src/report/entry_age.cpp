#include "report/entry_age.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <vector>

#include "common/format.h"
#include "common/platform.h"
#include "common/program.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "db/database.h"
#include "report/paths.h"

namespace tallmar {

namespace {

constexpr std::string_view kSection = "Calculation", kKey = "Uncalculated";
constexpr std::size_t kMostReports = 20;
constexpr std::string_view kTime = "h:nn AM/PM";

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return Sql(std::to_string(count), " ", count == 1 ? one : many);
}

std::string Absolute_Path(std::string_view path) {
    std::error_code error;
    return std::filesystem::absolute(Native_Path(path), error).lexically_normal().string();
}

// The reports that were left with entries that are not calculated, the latest first: one setting, a line each, "12
// /home/kim/report.CRF".
using LeftReports = std::vector<std::pair<std::string, std::size_t>>;

LeftReports Left_Reports() {
    LeftReports reports;
    std::istringstream lines(The_Platform().Get_Setting(kProgramTitle, kSection, kKey, ""));
    std::size_t count = 0;
    for (std::string path; lines >> count && lines.get() == ' ' && std::getline(lines, path);) {
        reports.emplace_back(path, count);
    }
    return reports;
}

void Store(const LeftReports& reports) {
    std::string lines;
    for (std::size_t i = 0; i < reports.size() && i < kMostReports; ++i) {
        lines += std::to_string(reports[i].second) + ' ' + reports[i].first + '\n';
    }
    The_Platform().Save_Setting(kProgramTitle, kSection, kKey, lines);
}

}  // namespace

void EntryAge::Report_Opened(const std::string& reportPath) {
    *this = {};
    if (!The_Platform().Keeps_Reports_Open()) return;
    const std::string path = Absolute_Path(reportPath);
    const LeftReports reports = Left_Reports();
    const auto found = std::ranges::find(reports, path, &LeftReports::value_type::first);
    if (found != reports.end()) remembered_ = found->second;
    kept_ = {path, remembered_};
}

void EntryAge::Cell_Stored(std::string_view table, Currency line, std::string_view field, const Value& before,
                           const Value& after) {
    if (before == after) return;
    const auto [cell, isNew] = cells_.try_emplace({{To_Upper(table), line}, To_Upper(field)}, before);
    if (!isNew && cell->second == after) cells_.erase(cell);
}

void EntryAge::Row_Added_Or_Removed(std::string_view table, Currency line) {
    const RowKey row{To_Upper(table), line};
    std::erase_if(cells_, [&](const auto& cell) { return cell.first.first == row; });
    if (!rows_.insert(row).second) rows_.erase(row);
}

bool EntryAge::Look_Elsewhere(Database& database) {
    if (!database.Changed_Elsewhere()) return false;
    elsewhere_ = true;
    return true;
}

void EntryAge::Calculated(Database& database, std::size_t messages) {
    // What others had stored was calculated as well.
    database.Changed_Elsewhere();
    auto kept = std::move(kept_);
    *this = {};
    kept_ = std::move(kept);
    calculation_ = {The_Platform().Now(), messages};
}

std::string EntryAge::Text() const {
    const std::string since = calculation_ || remembered_ > 0 ? "since the last calculation" : "since it was opened";
    if (Entries() > 0) {
        const std::string entries =
            Counted(Entries(), "entry ", "entries ") + (elsewhere_ ? "and another program's " : "");
        return entries + since + (since.ends_with("opened") ? ", not calculated" : "");
    }
    if (elsewhere_) return "Changed by another program " + since;
    if (calculation_) return "Calculated " + Format(calculation_->at, kTime);
    return "Not calculated since it was opened";
}

std::string EntryAge::Calculation_Text() const {
    if (!calculation_) return {};
    const std::size_t messages = calculation_->messages;
    return Sql("Calculated ", Format(calculation_->at, kTime), ", ",
               messages == 0 ? "no messages" : Counted(messages, "message", "messages"), ".");
}

void EntryAge::Remember(const std::string& reportPath) {
    if (reportPath.empty() || !The_Platform().Keeps_Reports_Open()) return;
    const std::pair now(Absolute_Path(reportPath), Entries());
    if (kept_ == now) return;
    LeftReports reports = Left_Reports();
    std::erase_if(reports, [&](const auto& report) { return report.first == now.first; });
    if (now.second > 0) reports.insert(reports.begin(), now);
    Store(reports);
    kept_ = now;
}

}  // namespace tallmar
