#include "db/file_check.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "db/crf_header.h"
#include "db/file_error.h"
#include "db/side_files.h"

namespace tallmar::db_detail {

namespace {

using Header = std::array<unsigned char, 100>;

// Places in the header of an SQLite file.
constexpr std::string_view kMagic{"SQLite format 3\0", 16};
constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kWriteVersionAt = 18, kReadVersionAt = 19;
constexpr unsigned char kRollbackJournal = 1;
constexpr std::size_t kChangeCounterAt = 24, kPageCountAt = 28, kUserVersionAt = 60, kApplicationIdAt = 68,
                      kValidForAt = 92;
constexpr mode_t kAnyWrite = 0222;

std::uint32_t Number_At(const Header& header, std::size_t place) {
    return std::uint32_t{header[place]} << 24 | std::uint32_t{header[place + 1]} << 16 |
           std::uint32_t{header[place + 2]} << 8 | std::uint32_t{header[place + 3]};
}

std::uint64_t Page_Size(const Header& header) {
    const unsigned size = unsigned{header[kPageSizeAt]} << 8 | header[kPageSizeAt + 1];
    return size == 1 ? 65536 : size;
}

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

bool Is_Rollback_File(const Header& header) {
    const std::uint64_t pageSize = Page_Size(header);
    return header[kWriteVersionAt] == kRollbackJournal && header[kReadVersionAt] == kRollbackJournal &&
           pageSize >= 512 && (pageSize & (pageSize - 1)) == 0;
}

// It may be longer than its pages: a change that makes it shorter is complete before SQLite cuts off the rest. Under
// one of several names that may as well be a change that was cut off, with its journal beside another name.
bool Is_Whole(const Header& header, std::uint64_t size, bool mayBeLonger) {
    const std::uint64_t pageSize = Page_Size(header);
    const std::uint64_t pages = Number_At(header, kPageCountAt);
    const bool counted = pages > 0 && Number_At(header, kChangeCounterAt) == Number_At(header, kValidForAt);
    if (size % pageSize != 0) return false;
    return !counted || size == pages * pageSize || (mayBeLonger && size > pages * pageSize);
}

}  // namespace

FileCheck Check_File(const std::string& path) {
    const auto refuse = [&](int error) { throw Open_Error(error, path); };
    const std::unique_ptr<char, FreeText> real(::realpath(path.c_str(), nullptr));
    if (!real) refuse(errno);
    FileCheck check;
    check.path = real.get();
    struct stat info {};
    if (::stat(check.path.c_str(), &info) != 0) refuse(errno);
    if (S_ISDIR(info.st_mode)) refuse(EISDIR);
    if (!S_ISREG(info.st_mode)) refuse(EINVAL);
    if (::access(check.path.c_str(), R_OK) != 0) refuse(errno);
    check.readOnly = (info.st_mode & kAnyWrite) == 0 || ::access(check.path.c_str(), W_OK) != 0;
    check.hasOtherNames = info.st_nlink > 1;
    check.hotJournal = Check_Side_Files(check.path) == Journal::Hot;
    return check;
}

HeldStill::HeldStill(sqlite3* handle) {
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
    if (file_ == nullptr || file_->pMethods == nullptr) return;
    isHeld_ = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED) == SQLITE_OK;
    int reserved = 0;
    hasWriter_ = isHeld_ && file_->pMethods->xCheckReservedLock(file_, &reserved) == SQLITE_OK && reserved != 0;
}

HeldStill::~HeldStill() {
    if (isHeld_) file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
}

// Through SQLite's own handle: a second one, when it is closed, would end the locks that this process has on the file.
void Check_Header(sqlite3* handle, const FileCheck& check, const std::string& path) {
    const auto refuse = [&](DbErrorCode code) { throw DbError(code, path); };
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    Header header{};
    if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || file == nullptr ||
        file->pMethods == nullptr || file->pMethods->xFileSize(file, &size) != SQLITE_OK) {
        refuse(DbErrorCode::DiskError);
    }
    if (static_cast<std::size_t>(size) < header.size()) refuse(DbErrorCode::NotADatabase);
    if (file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) != SQLITE_OK) {
        refuse(DbErrorCode::DiskError);
    }
    if (std::memcmp(header.data(), kMagic.data(), kMagic.size()) != 0) refuse(DbErrorCode::NotADatabase);
    if (check.hotJournal) return;
    if (!Is_Rollback_File(header) || !Is_Whole(header, static_cast<std::uint64_t>(size), !check.hasOtherNames) ||
        Number_At(header, kApplicationIdAt) != kCrfApplicationId) {
        refuse(DbErrorCode::NotADatabase);
    }
    const auto layout = static_cast<std::int32_t>(Number_At(header, kUserVersionAt));
    if (layout < 1) refuse(DbErrorCode::NotADatabase);
    if (layout > kCrfLayout) refuse(DbErrorCode::NewerLayout);
}

}  // namespace tallmar::db_detail
