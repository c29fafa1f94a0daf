#include "report/close_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>

#include "common/file_id.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kScratchTables[] = {"CalcAllErrLog", "Log",     "NewCRFErrLog",
                                               "NewMSAErrLog",  "tblTemp", "ImportASCII"};

std::string Temporary_File() {
    return Real_Folder(openReport.CRFPath, openReport.CRFDir) + "/" + std::string(kTemporaryName);
}

bool May_Be_Removed(const std::string& file, const fs::path& folder) {
    struct stat own {
    }, around{};
    if (::stat(file.c_str(), &own) != 0 || ::stat(folder.c_str(), &around) != 0) return false;
    return May_Remove_Name(::geteuid(), own, around);
}

// A second name for the report while it is compacted, so that its data keeps a name if somebody takes the first one
// away. Where there can be no such link there is none: the report itself is never without its name.
class SecondName {
  public:
    SecondName(std::string report, std::string name) : report_(std::move(report)), name_(std::move(name)) {
        std::error_code error;
        const std::string file = fs::canonical(report_, error).string();
        if (error || !May_Be_Removed(file, fs::path(name_).parent_path())) return;
        if (::link(file.c_str(), name_.c_str()) == 0) id_ = Id_Of_Entry(name_);
    }
    ~SecondName() {
        if (Is_There() && Id_Of(report_) == id_) ::unlink(name_.c_str());
    }
    SecondName(const SecondName&) = delete;
    SecondName& operator=(const SecondName&) = delete;

    bool Is_There() const { return id_ && Id_Of_Entry(name_) == id_; }
    // Gives the report its first name back.
    void Restore() const { [[maybe_unused]] const int result = ::link(name_.c_str(), report_.c_str()); }

  private:
    std::string report_, name_;
    std::optional<FileId> id_;  // nothing: no link was made
};

void End_In_Distress() {
    The_Platform().Message_Box(Sql("PLEASE CALL QVR NOW, UNABLE TO COMPACT CRF AND UNABLE TO RENAME QVRTemp BACK TO ",
                                   openReport.CRFPath, "."),
                               kStop, "CRITICAL ERROR");
    The_Platform().End_Program();
}

void Keep_First_Name(const std::string& report, const SecondName& second) {
    if (Id_Of(report) || !second.Is_There()) return;
    second.Restore();
    if (!Id_Of(report)) End_In_Distress();
}

void Compact(const std::string& report) {
    const std::string name = Temporary_File();
    // Without the folder of the second name the report stays as it is.
    if (const std::string folder = fs::path(name).parent_path().string(); !Id_Of(folder)) {
        throw DbError(DbErrorCode::CannotOpen, folder);
    }
    const SecondName second(report, name);
    The_Platform().Do_Events();
    try {
        DBEngine::CompactDatabase(report, report);
    } catch (const DbError&) {
        Keep_First_Name(report, second);
        throw;
    }
    Keep_First_Name(report, second);
}

bool Same_Content(const std::string& one, const std::string& other) {
    std::error_code error;
    if (!fs::is_regular_file(fs::symlink_status(one, error))) return false;
    if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
    std::ifstream a(one, std::ios::binary), b(other, std::ios::binary);
    using Bytes = std::istreambuf_iterator<char>;
    return a && b && std::equal(Bytes(a), Bytes(), Bytes(b), Bytes()) && !a.bad() && !b.bad();
}

}  // namespace

bool May_Remove_Name(uid_t user, const struct stat& file, const struct stat& folder) {
    return (folder.st_mode & S_ISVTX) == 0 || user == 0 || user == folder.st_uid || user == file.st_uid;
}

void Drop_Temporary_File(Leftover what) {
    const std::string temporary = Temporary_File();
    const std::string report = Native_Path(openReport.CRFPath);
    const auto id = Id_Of_Entry(temporary);
    std::error_code ignored;
    // The report itself may have the temporary file's name.
    if (!id || fs::weakly_canonical(temporary, ignored) == fs::weakly_canonical(report, ignored)) return;
    const bool isLink = id == Id_Of(report);
    if (isLink || (what == Leftover::LinkOrCopy && Same_Content(temporary, report))) fs::remove(temporary, ignored);
}

std::string Close_File() {
    Platform& window = The_Platform();
    const std::string report = Native_Path(openReport.CRFPath);
    std::string trouble;
    const auto attempt = [&](auto step) {
        try {
            step();
        } catch (const DbError& error) {  // the file stays as it is
            if (trouble.empty()) trouble = error.Description();
        }
    };
    window.Progress(Sql(" Repairing ", openReport.CRFPath));
    const bool readOnly = db.Is_Open() && db.Is_Read_Only();
    if (db.Is_Open()) db.Close();
    Drop_Temporary_File(Leftover::LinkOrCopy);
    attempt([&] { DBEngine::RepairDatabase(report); });
    window.Do_Events();
    window.Progress(Sql(" Compacting ", openReport.CRFPath));
    for (const std::string_view table : kScratchTables) {
        try {
            db.TableDefs().Delete(table);
        } catch (const DbError&) {  // the handle is closed: the tables survive
        }
    }
    attempt([&] {
        if (readOnly) throw DbError(DbErrorCode::ReadOnly, report);
        Compact(report);
        trouble.clear();  // what kept it from being repaired first has passed
    });
    return trouble;
}

}  // namespace tallmar
