#include "report/backup.h"

#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <utility>
#include <vector>

#include "common/atomic_file.h"
#include "common/format.h"
#include "common/platform.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBackupsKept = 5;  // of a report
constexpr std::size_t kMostFolders = 200;
constexpr std::uintmax_t kMostBytes = 500'000'000;
constexpr int kNumberWidth = 6;
constexpr mode_t kOwnersFolder = 0700, kOwnersFile = 0600;

struct Backup {
    long number = 0;  // 0: from before they were numbered
    fs::path path;
    std::uintmax_t size = 0;
    friend auto operator<=>(const Backup& a, const Backup& b) {
        return std::tie(a.number, a.path) <=> std::tie(b.number, b.path);
    }
    friend bool operator==(const Backup&, const Backup&) = default;
};

// The backups of one report, the oldest first.
struct BackupFolder {
    fs::path path;
    std::vector<Backup> backups;
    bool reportIsGone = false;

    std::uintmax_t Size() const {
        std::uintmax_t size = 0;
        for (const Backup& backup : backups) size += backup.size;
        return size;
    }
    long Newest() const { return backups.empty() ? 0 : backups.back().number; }
};

// Reports of one name in different folders keep their backups apart.
std::string Fingerprint(const std::string& text) {
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(hash >> shift) & 15u];
    return digits;
}

fs::path Whole_Path(const fs::path& report) {
    return fs::absolute(report).lexically_normal();
}

fs::path Root_Folder() {
    return fs::path(The_Platform().Data_Folder()) / "backups";
}

fs::path Folder_For(const fs::path& report) {
    return Root_Folder() / (report.stem().string() + "-" + Fingerprint(Whole_Path(report).string()));
}

BackupFolder Look_Into(const fs::path& path) {
    BackupFolder folder{.path = path, .backups = {}, .reportIsGone = false};
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        if (entry.path().extension() != ".CRF" || !entry.is_regular_file()) continue;
        folder.backups.push_back({Backup_Number(entry.path().filename().string()), entry.path(), entry.file_size()});
    }
    std::ranges::sort(folder.backups);
    std::string report;
    std::ifstream file(path / kBackupReportFile, std::ios::binary);
    std::error_code error;
    folder.reportIsGone = std::getline(file, report) && !fs::exists(report, error) && !error;
    return folder;
}

std::vector<BackupFolder> All_Folders() {
    std::vector<BackupFolder> folders;
    for (const fs::directory_entry& entry : fs::directory_iterator(Root_Folder())) {
        if (entry.is_directory()) folders.push_back(Look_Into(entry.path()));
    }
    return folders;
}

void Remove(const Backup& backup) {
    std::error_code ignored;
    fs::remove(backup.path, ignored);
}

void Remove(const BackupFolder& folder) {
    for (const Backup& backup : folder.backups) Remove(backup);
    std::error_code ignored;
    fs::remove(folder.path / kBackupReportFile, ignored);
    fs::remove(folder.path, ignored);  // what is not ours stays, and the folder with it
}

// Of a report all but the newest five, and then of all reports what is too much.
void Drop_Surplus(const fs::path& current, const fs::path& spared) {
    std::vector<BackupFolder> folders = All_Folders();
    std::uintmax_t bytes = 0;
    for (BackupFolder& folder : folders) {
        const std::size_t surplus = folder.backups.size() - std::min(folder.backups.size(), kBackupsKept);
        for (std::size_t i = 0; folder.path == current && i < surplus; ++i) {
            if (folder.backups[i].path != spared) Remove(folder.backups[i]);
        }
        bytes += folder.Size();
    }
    std::ranges::sort(folders, [](const BackupFolder& a, const BackupFolder& b) {
        return std::make_tuple(!a.reportIsGone, a.Newest()) < std::make_tuple(!b.reportIsGone, b.Newest());
    });
    std::size_t count = folders.size();
    for (const BackupFolder& folder : folders) {
        if (bytes <= kMostBytes && count <= kMostFolders) return;
        if (folder.path == current || folder.path == spared.parent_path()) continue;
        Remove(folder);
        bytes -= folder.Size();
        --count;
    }
}

void Make_Folder(const fs::path& folder) {
    fs::create_directories(folder.parent_path().parent_path());
    for (const fs::path& path : {folder.parent_path(), folder}) {
        ::mkdir(path.c_str(), kOwnersFolder);
        fs::permissions(path, fs::perms::owner_all);
    }
}

fs::path Next_Backup(const fs::path& folder) {
    long newest = 0;
    for (const BackupFolder& other : All_Folders()) newest = std::max(newest, other.Newest());
    std::ostringstream name;
    name << std::setfill('0') << std::setw(kNumberWidth) << newest + 1 << ' '
         << Format(Value(The_Platform().Now()), "yyyy-mm-dd hhnnss") << ".CRF";
    return folder / name.str();
}

// False where another program has just taken the name.
bool Copy_To(const std::string& file, const std::string& backup) {
    try {
        return DBEngine::CopyToNewFile(file, backup);
    } catch (const DbError& error) {
        if (error.Code() != DbErrorCode::NotADatabase) throw;
        Copy_File_Atomically(file, backup);
        return true;
    }
}

}  // namespace

long Backup_Number(const std::string& name) {
    long number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc() && end != name.data() + name.size() && *end == ' ' ? number : 0;
}

void Keep_Backup() {
    if (!std::exchange(openReport.backupIsDue, false)) return;
    Keep_Backup_Of(Native_Path(openReport.CRFPath));
}

void Keep_Backup_Of(const std::string& path, const std::string& spared) {
    if (The_Platform().Data_Folder().empty()) return;
    try {
        const fs::path folder = Folder_For(path);
        Make_Folder(folder);
        Write_File_Atomically((folder / kBackupReportFile).string(), Whole_Path(path).string() + "\n");
        fs::path backup = Next_Backup(folder);
        while (!Copy_To(path, backup.string())) backup = Next_Backup(folder);
        for (const fs::path& file : {backup, folder / kBackupReportFile}) ::chmod(file.c_str(), kOwnersFile);
        Drop_Surplus(folder, spared);
    } catch (const std::exception&) {  // no room for a backup is no reason to stop the work
    }
}

}  // namespace tallmar
