#include "report/close_file.h"

#include <filesystem>

#include "common/atomic_file.h"
#include "common/db/sql_text.h"
#include "common/platform.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kScratchTables[] = {"CalcAllErrLog", "Log",     "NewCRFErrLog",
                                               "NewMSAErrLog",  "tblTemp", "ImportASCII"};

fs::path Temporary_File() {
    return fs::path(Real_Folder(CRFPath, CRFDir) + "/QVRTemp.CRF");
}

// The report itself may bear the temporary file's name.
bool Is_Report(const fs::path& temporary) {
    std::error_code ignored;
    return fs::weakly_canonical(temporary, ignored) == fs::weakly_canonical(Native_Path(CRFPath), ignored);
}

bool Opens_Well(const std::string& path) {
    try {
        DBEngine::OpenDatabase(path).Close();
        return true;
    } catch (const DbError&) {
        return false;
    }
}

bool May_Be_Replaced(const std::string& path) {
    constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return !error && (status.permissions() & kAnyWrite) != fs::perms::none;
}

// A second name for the report, so that its data has a name at every moment; a copy where the disk knows no links.
void Make_Temporary_File(const std::string& report, const fs::path& temporary) {
    std::error_code error;
    fs::create_hard_link(fs::canonical(report), temporary, error);
    if (error) Copy_File_Atomically(report, temporary.string());
}

void Compact(const std::string& report) {
    const fs::path temporary = Temporary_File();
    if (Is_Report(temporary)) return;
    std::error_code ignored;
    try {
        Make_Temporary_File(report, temporary);
        // Both names mean the same data; this one cannot be taken by another report in the folder meanwhile.
        DBEngine::CompactDatabase(report, report);
    } catch (const std::exception&) {  // the file stays as it was
    }
    if (fs::exists(report, ignored)) {
        fs::remove(temporary, ignored);
        return;
    }
    if (!fs::exists(temporary, ignored)) return;
    fs::rename(temporary, report, ignored);
    if (fs::exists(report, ignored)) return;
    The_Platform().Message_Box(
        Sql("PLEASE CALL QVR NOW, UNABLE TO COMPACT CRF AND UNABLE TO RENAME QVRTemp BACK TO ", CRFPath, "."), kStop,
        "CRITICAL ERROR");
    The_Platform().End_Program();
}

}  // namespace

void Drop_Temporary_File() {
    std::error_code ignored;
    const fs::path temporary = Temporary_File();
    if (!Is_Report(temporary)) fs::remove(temporary, ignored);
    Remove_Stale_Temporary(Native_Path(CRFPath));
}

void Close_File() {
    Platform& window = The_Platform();
    const std::string report = Native_Path(CRFPath);
    window.Progress(Sql(" Repairing ", CRFPath));
    const bool readOnly = db.Is_Open() && db.Is_Read_Only();
    if (db.Is_Open()) db.Close();
    if (Opens_Well(report)) Drop_Temporary_File();
    try {
        DBEngine::RepairDatabase(report);
    } catch (const std::exception&) {  // what cannot be repaired stays as it is
    }
    window.Do_Events();
    window.Progress(Sql(" Compacting ", CRFPath));
    for (const std::string_view table : kScratchTables) {
        try {
            db.TableDefs().Delete(table);
        } catch (const DbError&) {  // the handle is closed: the tables survive
        }
    }
    if (!readOnly && May_Be_Replaced(report)) Compact(report);
}

}  // namespace tallmar
