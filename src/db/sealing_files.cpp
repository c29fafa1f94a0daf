// The system's own files under SQLite, but for two things: a page of a report is sealed on its way to the disk, and
// what the system refuses once a change is in the file is no failure of the change. SQLite would report it as one.
#include <sqlite3.h>

#include <algorithm>
#include <new>

#include "db/page_seal.h"

namespace tallmar::db_detail {

namespace {

struct SealingFile {
    sqlite3_file base;
    sqlite3_file* real;
    std::uint32_t pageSize;  // 0: as far as is known its pages have no room for a seal
    int lock;
    sqlite3_int64 size;  // known while the file is locked, when nobody else changes it; else kUnknown
    FileTroubles troubles;
};
constexpr sqlite3_int64 kUnknown = -1;

SealingFile& Of(sqlite3_file* file) {
    return *reinterpret_cast<SealingFile*>(file);
}

// SQLite's methods of the file beneath, each called with that file.
template <auto method, class... Arguments>
int Pass_On(sqlite3_file* file, Arguments... arguments) {
    sqlite3_file* real = Of(file).real;
    return (real->pMethods->*method)(real, arguments...);
}

int Read_File(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
    const int result = Pass_On<&sqlite3_io_methods::xRead>(file, bytes, count, at);
    if (result != SQLITE_OK && result != SQLITE_IOERR_SHORT_READ) Of(file).troubles.read = true;
    if (result == SQLITE_OK && at == 0) {
        Of(file).pageSize =
            Sealed_Page_Size({static_cast<const unsigned char*>(bytes), static_cast<std::size_t>(count)});
    }
    return result;
}

// The page is sealed where SQLite keeps it, so that what it has in memory is what the file holds.
int Write_File(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    const std::span<unsigned char> page{static_cast<unsigned char*>(const_cast<void*>(bytes)),
                                        static_cast<std::size_t>(count)};
    std::uint32_t& pageSize = Of(file).pageSize;
    if (at == 0) pageSize = Sealed_Page_Size(page);
    if (pageSize != 0 && page.size() == pageSize && at % pageSize == 0) {
        Seal_Page(page, static_cast<std::uint32_t>(at / pageSize) + 1);
    }
    const int result = Pass_On<&sqlite3_io_methods::xWrite>(file, bytes, count, at);
    sqlite3_int64& size = Of(file).size;
    if (size != kUnknown) size = result == SQLITE_OK ? std::max(size, at + count) : kUnknown;
    return result;
}

// What is too long is cut off after the change that makes it so.
int Truncate_File(sqlite3_file* file, sqlite3_int64 size) {
    SealingFile& sealing = Of(file);
    sealing.troubles.shorten = Pass_On<&sqlite3_io_methods::xTruncate>(file, size) != SQLITE_OK;
    if (!sealing.troubles.shorten && sealing.size != kUnknown) sealing.size = size;
    return SQLITE_OK;
}

int Size_Of_File(sqlite3_file* file, sqlite3_int64* size) {
    SealingFile& sealing = Of(file);
    const int result = Pass_On<&sqlite3_io_methods::xFileSize>(file, size);
    if (result != SQLITE_OK) {
        if (sealing.size == kUnknown) return result;
        *size = sealing.size;
    } else if (sealing.lock != SQLITE_LOCK_NONE) {
        sealing.size = *size;
    }
    return SQLITE_OK;
}

int Lock_File(sqlite3_file* file, int lock) {
    const int result = Pass_On<&sqlite3_io_methods::xLock>(file, lock);
    if (result == SQLITE_OK) Of(file).lock = std::max(Of(file).lock, lock);
    return result;
}

// A lock that the system does not take back goes at the latest when the file is closed.
int Unlock_File(sqlite3_file* file, int lock) {
    Pass_On<&sqlite3_io_methods::xUnlock>(file, lock);
    Of(file).lock = std::min(Of(file).lock, lock);
    if (lock == SQLITE_LOCK_NONE) Of(file).size = kUnknown;
    return SQLITE_OK;
}

// Without shared memory: a report is never written through a log.
constexpr sqlite3_io_methods kMethods = {
    .iVersion = 1,
    .xClose = Pass_On<&sqlite3_io_methods::xClose>,
    .xRead = Read_File,
    .xWrite = Write_File,
    .xTruncate = Truncate_File,
    .xSync = Pass_On<&sqlite3_io_methods::xSync, int>,
    .xFileSize = Size_Of_File,
    .xLock = Lock_File,
    .xUnlock = Unlock_File,
    .xCheckReservedLock = Pass_On<&sqlite3_io_methods::xCheckReservedLock, int*>,
    .xFileControl = Pass_On<&sqlite3_io_methods::xFileControl, int, void*>,
    .xSectorSize = Pass_On<&sqlite3_io_methods::xSectorSize>,
    .xDeviceCharacteristics = Pass_On<&sqlite3_io_methods::xDeviceCharacteristics>,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

struct SealingVfs {
    sqlite3_vfs base{};
    sqlite3_vfs* real = nullptr;
};

int Open_File(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    sqlite3_vfs* real = reinterpret_cast<SealingVfs*>(vfs)->real;
    // Journals and the like are the system's alone.
    if ((flags & SQLITE_OPEN_MAIN_DB) == 0) return real->xOpen(real, name, file, flags, outFlags);
    auto* sealing = new (file) SealingFile{};
    sealing->size = kUnknown;
    sealing->real = reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(SealingFile));
    const int result = real->xOpen(real, name, sealing->real, flags, outFlags);
    // Where this stays null SQLite does not close the file.
    if (sealing->real->pMethods != nullptr) sealing->base.pMethods = &kMethods;
    return result;
}

// The deletion of a journal is what completes a change: gone is gone, though the folder be not on the disk yet.
int Delete_File(sqlite3_vfs* vfs, const char* name, int flushesFolder) {
    sqlite3_vfs* real = reinterpret_cast<SealingVfs*>(vfs)->real;
    const int result = real->xDelete(real, name, flushesFolder);
    return result == SQLITE_IOERR_DIR_FSYNC ? SQLITE_OK : result;
}

}  // namespace

FileTroubles Troubles_Of(sqlite3* handle) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file != nullptr && file->pMethods == &kMethods ? Of(file).troubles : FileTroubles{};
}

const char* Sealing_Files() {
    static SealingVfs sealing;
    sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
    if (real == sealing.real) return sealing.base.zName;
    if (sealing.real != nullptr) sqlite3_vfs_unregister(&sealing.base);
    sealing = {*real, real};
    sealing.base.szOsFile += static_cast<int>(sizeof(SealingFile));
    sealing.base.zName = "sealing";
    sealing.base.pNext = nullptr;
    sealing.base.xOpen = Open_File;
    sealing.base.xDelete = Delete_File;
    sqlite3_vfs_register(&sealing.base, 0);
    return sealing.base.zName;
}

}  // namespace tallmar::db_detail
