#include "report/open_backup.h"

#include <filesystem>

#include "common/db/database.h"
#include "common/platform.h"
#include "report/paths.h"
#include "report/store.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFailedTitle = "Error: Backup Not Opened";

bool Is_Same_File(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return fs::equivalent(Native_Path(a), Native_Path(b), ignored);
}

}  // namespace

bool Open_Copy_Of_Backup(const std::string& backup, const std::string& path) {
    if (Is_Same_File(backup, path)) {
        The_Platform().Message_Box("A backup is never changed.  Give its copy another name.", kExclamation,
                                   kFailedTitle);
        return false;
    }
    if (Report_Is_Open() && !Report_Close()) return false;
    try {
        DBEngine::CopyDatabase(backup, Native_Path(path));
    } catch (const std::exception& error) {
        The_Platform().Message_Box(error.what(), kStop, kFailedTitle);
        return false;
    }
    return Report_Open(path);
}

}  // namespace tallmar
