#include "report/open_backup.h"

#include <filesystem>

#include "common/file_id.h"
#include "common/platform.h"
#include "db/database.h"
#include "report/backup.h"
#include "report/paths.h"
#include "report/replace.h"
#include "report/report_lock.h"
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
    if (!Report_Is_Free(path) || !Check_Report_Name(path, kFailedTitle)) return false;
    try {
        const std::string target = Native_Path(path);
        DBEngine::OpenCopy(backup).Close();  // a backup that is damaged takes the place of nothing
        if (Id_Of(target)) Keep_Backup_Of(target, backup);
        DBEngine::CopyDatabase(backup, target);
    } catch (const std::exception& error) {
        The_Platform().Message_Box(error.what(), kStop, kFailedTitle);
        return false;
    }
    return Report_Open(path);
}

}  // namespace tallmar
