#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "common/atomic_file.h"
#include "common/db/file_error.h"
#include "common/db/open_file.h"
#include "common/db/page_seal.h"
#include "common/db/sqlite_error.h"

namespace tallmar {

using namespace db_detail;

namespace {

struct FreeImage {
    void operator()(unsigned char* image) const { sqlite3_free(image); }
};

// The whole database as the bytes of its file.
void Write_Image(Connection& connection, const std::string& path) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, FreeImage> image(sqlite3_serialize(connection.Handle(), "main", &size, 0));
    if (!image) throw DbError(DbErrorCode::OutOfMemory);
    Seal_File({image.get(), static_cast<std::size_t>(size)});
    try {
        Write_File_Atomically(path, {reinterpret_cast<const char*>(image.get()), static_cast<std::size_t>(size)});
    } catch (const std::system_error& error) {
        throw Write_Error(error.code().value(), path);
    }
}

// Found out now and not when the report is complete.
void Require_Folder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    struct stat info {};
    if (path.empty()) throw Write_Error(ENOENT, path);
    if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) throw Write_Error(EISDIR, path);
    if (::access(folder.c_str(), W_OK | X_OK) != 0) throw Write_Error(errno, path);
}

}  // namespace

// Texts compare by code page 1252 in every report file; other sort orders there are none.
Database DBEngine::CreateDatabase(const std::string& path, std::string_view) {
    Require_Folder(path);
    Database created;
    created.connection_ = Open_In_Memory(path);
    return created;
}

void DBEngine::Finish_Creation(Database& created) {
    Connection& connection = Access::Of(created);
    if (sqlite3_get_autocommit(connection.Handle()) == 0) {
        throw DbError(DbErrorCode::InvalidOperation, "a job is under way");
    }
    const auto replaced = Hold_File(connection.Path(), HoldFor::Replacing);
    Write_Image(connection, connection.Path());
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

// The copy is made and packed in memory: a kill leaves nothing behind.
void DBEngine::CompactDatabase(const std::string& from, const std::string& to) {
    const auto source = Open_File(from, OpenFor::Work);
    const auto copy = Open_In_Memory(to);
    const auto replaced = Hold_File(to, HoldFor::Replacing);
    Copy_Pages(*source, *copy);
    source->Close();
    copy->Run_Once("VACUUM");
    Write_Image(*copy, to);
}

void DBEngine::CopyDatabase(const std::string& from, const std::string& to) {
    const auto source = Hold_File(from, HoldFor::Reading);
    std::error_code ignored;
    const bool ontoItself = std::filesystem::equivalent(from, to, ignored);
    const auto replaced = ontoItself ? nullptr : Hold_File(to, HoldFor::Replacing);
    try {
        Copy_File_Atomically(from, to);
    } catch (const std::system_error& error) {
        throw Write_Error(error.code().value(), to);
    }
}

}  // namespace tallmar
