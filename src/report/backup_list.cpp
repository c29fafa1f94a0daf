#include "report/backup_list.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "common/dates.h"
#include "common/platform.h"
#include "common/text.h"
#include "report/backup.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kStamp = "####-##-## ######";
constexpr std::size_t kFingerprint = 17;  // with the hyphen before it

// Of "000012 2016-11-15 103000.CRF", or without the number; 0 where it is no date.
Date Taken(const std::string& name) {
    for (std::size_t at = 0; at + kStamp.size() <= name.size(); ++at) {
        const std::string_view stamp = std::string_view(name).substr(at, kStamp.size());
        if (!Like(stamp, kStamp)) continue;
        const auto part = [&](std::size_t from, std::size_t count) {
            return std::stoi(std::string(stamp.substr(from, count)));
        };
        const CivilDate taken{part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(13, 2), part(15, 2)};
        const bool isTime = taken.hour < 24 && taken.minute < 60 && taken.second < 60;
        if (isTime && Is_Real_Date(taken.year, taken.month, taken.day)) return Date_Of(taken);
    }
    return {};
}

// Where it is not written down the folder has the report's name.
std::string Report_Of(const fs::path& folder) {
    std::string report;
    std::ifstream file(folder / kBackupReportFile, std::ios::binary);
    if (std::getline(file, report) && !report.empty()) return report;
    const std::string name = folder.filename().string();
    return name.substr(0, name.size() - std::min(name.size(), kFingerprint)) + ".CRF";
}

void Add_Backups_In(const fs::path& folder, std::vector<KeptBackup>& backups) {
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().extension() != ".CRF" || !entry.is_regular_file(ignored)) continue;
        const std::string name = entry.path().filename().string();
        backups.push_back(
            {entry.path().string(), Report_Of(folder), Taken(name), Backup_Number(name), entry.file_size(ignored)});
    }
}

}  // namespace

std::vector<KeptBackup> Kept_Backups() {
    std::vector<KeptBackup> backups;
    if (The_Platform().Data_Folder().empty()) return backups;
    std::error_code ignored;
    for (const fs::directory_entry& folder :
         fs::directory_iterator(fs::path(The_Platform().Data_Folder()) / "backups", ignored)) {
        if (folder.is_directory(ignored)) Add_Backups_In(folder.path(), backups);
    }
    std::ranges::sort(backups, [](const KeptBackup& a, const KeptBackup& b) {
        return std::tie(b.number, b.taken, b.path) < std::tie(a.number, a.taken, a.path);
    });
    return backups;
}

bool Has_Backup(const std::string& path) {
    const std::string whole = fs::absolute(Native_Path(path)).lexically_normal().string();
    return std::ranges::any_of(Kept_Backups(), [&](const KeptBackup& kept) { return kept.report == whole; });
}

}  // namespace tallmar
