#include "report/backup.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "common/format.h"
#include "common/platform.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBackupsKept = 5;

bool isExpected = false;

// Reports of one name in different folders keep their backups apart.
std::string Fingerprint(const std::string& text) {
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(hash >> shift) & 15u];
    return digits;
}

fs::path Backup_Folder(const fs::path& report) {
    return fs::path(The_Platform().Data_Folder()) / "backups" /
           (report.stem().string() + "-" + Fingerprint(fs::absolute(report).lexically_normal().string()));
}

void Drop_Oldest(const fs::path& folder) {
    std::vector<fs::path> kept;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".CRF") kept.push_back(entry.path());
    }
    std::ranges::sort(kept);
    for (std::size_t i = 0; i + kBackupsKept < kept.size(); ++i) fs::remove(kept[i]);
}

}  // namespace

void Keep_Backup() {
    if (!isExpected) return;
    isExpected = false;
    if (The_Platform().Data_Folder().empty()) return;
    try {
        const fs::path report = Native_Path(CRFPath);
        const fs::path folder = Backup_Folder(report);
        fs::create_directories(folder);
        const std::string stamp = Format(Value(The_Platform().Now()), "yyyy-mm-dd hhnnss");
        fs::path backup = folder / (stamp + ".CRF");
        for (int next = 2; fs::exists(backup); ++next) backup = folder / (stamp + "-" + std::to_string(next) + ".CRF");
        DBEngine::CopyDatabase(report.string(), backup.string());
        Drop_Oldest(folder);
    } catch (const std::exception&) {  // no room for a backup is no reason to stop the work
    }
}

void Expect_Backup() {
    isExpected = true;
}

void Forget_Backup() {
    isExpected = false;
}

}  // namespace tallmar
