#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "common/atomic_file.h"
#include "common/file_id.h"
#include "db/database.h"
#include "db/file_error.h"
#include "db/open_file.h"
#include "db/page_seal.h"
#include "db/side_files.h"
#include "db/sqlite_error.h"

namespace tallmar {

using namespace db_detail;

namespace {

struct FreeImage {
    void operator()(unsigned char* image) const { sqlite3_free(image); }
};

bool Is_In_Memory(Connection& connection) {
    const char* file = sqlite3_db_filename(connection.Handle(), "main");
    return file == nullptr || *file == '\0';
}

std::string Memory_Image(Connection& connection) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, FreeImage> bytes(sqlite3_serialize(connection.Handle(), "main", &size, 0));
    if (!bytes) throw DbError(DbErrorCode::OutOfMemory);
    Seal_File({bytes.get(), static_cast<std::size_t>(size)});
    return {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)};
}

// With the seals that it has. SQLite's own image of a file has zeros for a page that cannot be read.
std::string File_Image(Connection& connection) {
    constexpr sqlite3_int64 kPiece = 1 << 20;
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(connection.Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    const auto require = [&](bool done) {
        if (!done) throw DbError(DbErrorCode::DiskError, connection.Path());
    };
    require(file != nullptr && file->pMethods != nullptr && file->pMethods->xFileSize(file, &size) == SQLITE_OK);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    for (sqlite3_int64 at = 0; at < size; at += kPiece) {
        const int count = static_cast<int>(std::min(kPiece, size - at));
        require(file->pMethods->xRead(file, bytes.data() + at, count, at) == SQLITE_OK);
    }
    return bytes;
}

// The whole database as the bytes of its file. What is in a file is held still.
std::string Image_Of(Connection& connection) {
    return Is_In_Memory(connection) ? Memory_Image(connection) : File_Image(connection);
}

// The engine keeps its journal beside the report, under its name and a suffix, and takes no longer paths.
constexpr std::size_t kLongestSuffix = std::string_view("-journal").size();
constexpr std::size_t kLongestName = 255, kLongestPath = 512;

// Found out now and not when the report is complete.
void Require_Place(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    struct stat info {};
    if (path.empty()) throw Write_Error(ENOENT, path);
    if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) throw Write_Error(EISDIR, path);
    if (::access(folder.c_str(), W_OK | X_OK) != 0) throw Write_Error(errno, path);
    if (!DBEngine::Has_Room_For_Journal(path)) throw Write_Error(ENAMETOOLONG, path);
}

// What is at the path where content is to go.
struct Target {
    enum class Kind : std::uint8_t { Nothing, NoReport, Report } kind = Kind::Nothing;
    std::shared_ptr<Connection> report;
};

Target Look_At_Target(const std::string& path) {
    struct stat info {};
    const bool isThere = ::stat(path.c_str(), &info) == 0 || errno != ENOENT;
    auto report = isThere ? Open_For_Replacing(path) : nullptr;
    if (report) return {Target::Kind::Report, std::move(report)};
    // The engine would take it for the new report's own, and roll it back into it.
    if (::access(Journal_Path(path).c_str(), F_OK) == 0) throw DbError(DbErrorCode::CannotOpen, Journal_Path(path));
    return {isThere ? Target::Kind::NoReport : Target::Kind::Nothing, nullptr};
}

// False where there is a file of the name.
bool Create_File(std::string_view content, const std::string& path, unsigned mode) {
    try {
        return Create_File_Atomically(path, content, mode);
    } catch (const std::system_error& error) {
        throw Write_Error(error.code().value(), path);
    }
}

bool Replace_What_Is_No_Report(std::string_view content, const std::string& path) {
    try {
        return Replace_File_Atomically(path, content,
                                       [&] { return Look_At_Target(path).kind == Target::Kind::NoReport; });
    } catch (const std::system_error& error) {
        throw Write_Error(error.code().value(), path);
    }
}

// Inside the file, in one transaction: programs that have it open go on with it.
void Pack(Connection& report) {
    if (report.Is_Read_Only()) throw DbError(DbErrorCode::ReadOnly, report.Path());
    // Packing attaches a database in memory, which no statement of a report may.
    const int most = sqlite3_limit(report.Handle(), SQLITE_LIMIT_ATTACHED, 1);
    try {
        report.Run_Once("VACUUM");
    } catch (const DbError&) {
        sqlite3_limit(report.Handle(), SQLITE_LIMIT_ATTACHED, most);
        throw;
    }
    sqlite3_limit(report.Handle(), SQLITE_LIMIT_ATTACHED, most);
    // As long as before: nothing was won.
    if (Troubles_Of(report.Handle()).shorten) throw DbError(DbErrorCode::DiskError, report.Path());
}

// Without the seals of another file: those of the file that takes the pages would not go with them.
std::shared_ptr<Connection> Packed_Copy(Connection& content, const std::string& path) {
    auto copy = Open_In_Memory(path);
    Copy_Pages(content, *copy);
    Pack(*copy);
    return copy;
}

// The content becomes that of the file at `path`. Other programs may have a report open that is there: it is changed as
// they change it, in one transaction inside the file, and only what is no report is replaced as a file.
void Put_Content(Connection& content, const std::string& path, unsigned mode) {
    constexpr int kTries = 3;  // somebody may make or delete a file of the name meanwhile
    for (int tries = 1; tries <= kTries; ++tries) {
        const Target target = Look_At_Target(path);
        if (target.report) {
            if (target.report->Is_Read_Only()) throw DbError(DbErrorCode::ReadOnly, path);
            if (Is_In_Memory(content)) return Copy_Pages(content, *target.report);
            return Copy_Pages(*Packed_Copy(content, path), *target.report);
        }
        const std::string image = Image_Of(content);
        const bool placed = target.kind == Target::Kind::Nothing ? Create_File(image, path, mode)
                                                                 : Replace_What_Is_No_Report(image, path);
        if (placed) return;
    }
    throw DbError(DbErrorCode::Locked, path);
}

// As much of the rights of `path` as a new file may have that its maker is to change.
unsigned Rights_Of(const std::string& path) {
    constexpr unsigned kOwners = 0600;
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? (info.st_mode & kUsualMode) | kOwners : kOwners;
}

}  // namespace

bool DBEngine::Has_Room_For_Journal(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return !error && whole.native().size() + kLongestSuffix <= kLongestPath &&
           whole.filename().native().size() + kLongestSuffix <= kLongestName;
}

// Texts compare by code page 1252 in every report file; other sort orders there are none.
Database DBEngine::CreateDatabase(const std::string& path, std::string_view) {
    Require_Place(path);
    Database created;
    created.connection_ = Open_In_Memory(path);
    return created;
}

void DBEngine::Finish_Creation(Database& created) {
    Connection& connection = Access::Of(created);
    if (sqlite3_get_autocommit(connection.Handle()) == 0) {
        throw DbError(DbErrorCode::InvalidOperation, "a job is under way");
    }
    Put_Content(connection, connection.Path(), kUsualMode);
    connection.Close();
}

Database DBEngine::OpenDatabase(const std::string& path) {
    Database opened;
    opened.connection_ = Open_File(path, OpenFor::Work);
    return opened;
}

Database DBEngine::OpenCopy(const std::string& path) {
    Database opened;
    opened.connection_ = Open_File(path, OpenFor::Copy);
    return opened;
}

// Opening rebuilds a damaged index, which is all that can be mended.
void DBEngine::RepairDatabase(const std::string& path) {
    const auto connection = Open_File(path, OpenFor::Work);
    if (connection->Has_Rebuilt_Index() && connection->Is_Read_Only()) throw DbError(DbErrorCode::ReadOnly, path);
}

void DBEngine::CompactDatabase(const std::string& from, const std::string& to) {
    const auto source = Open_File(from, OpenFor::Work);
    const auto same = Id_Of(from);
    if (same && same == Id_Of(to)) return Pack(*source);
    const auto copy = Packed_Copy(*source, to);
    source->Close();
    Put_Content(*copy, to, Rights_Of(from));
}

void DBEngine::CopyDatabase(const std::string& from, const std::string& to) {
    Require_Place(to);
    const auto same = Id_Of(from);
    if (same && same == Id_Of(to)) return;
    const auto source = Hold_For_Reading(from);
    Put_Content(*source, to, Rights_Of(from));
}

bool DBEngine::CopyToNewFile(const std::string& from, const std::string& to) {
    Require_Place(to);
    const auto source = Hold_For_Reading(from);
    return Look_At_Target(to).kind == Target::Kind::Nothing && Create_File(Image_Of(*source), to, Rights_Of(from));
}

}  // namespace tallmar
