#include "db/side_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>
#include <string_view>

#include "common/db_error.h"

namespace tallmar::db_detail {

namespace {

enum class Allowed : std::uint8_t { Nothing, RegularFile };

struct SideFile {
    std::string_view suffix;
    Allowed allowed;
};
constexpr std::string_view kJournal = "-journal";
constexpr SideFile kSideFiles[] = {
    {kJournal, Allowed::RegularFile},
    {".tmp", Allowed::RegularFile},
    // SQLite would take a write-ahead log for the newer half of the file.
    {"-wal", Allowed::Nothing},
    {"-shm", Allowed::Nothing},
};

using Magic = std::array<char, 8>;
constexpr Magic kJournalMagic{'\xd9', '\xd5', '\x05', '\xf9', '\x20', '\xa1', '\x63', '\xd7'};
constexpr Magic kNoMagic{};

[[noreturn]] void Refuse(const std::string& path, std::string_view suffix, std::string_view trouble) {
    const std::string name = path.substr(path.rfind('/') + 1) + std::string(suffix);
    throw DbError(DbErrorCode::CannotOpen, path, "'" + name + "' beside it " + std::string(trouble));
}

bool Exists(const std::string& path, const SideFile& side) {
    struct stat info {};
    if (::lstat((path + std::string(side.suffix)).c_str(), &info) != 0) return false;
    if (!S_ISREG(info.st_mode)) Refuse(path, side.suffix, "is not a regular file");
    if (side.allowed == Allowed::Nothing) Refuse(path, side.suffix, "does not belong to a report");
    return true;
}

class ReadOnlyFile {
  public:
    // Never waits, whatever the name has come to mean since it was looked at.
    explicit ReadOnlyFile(const std::string& path)
        : handle_(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)) {}
    ~ReadOnlyFile() {
        if (handle_ >= 0) ::close(handle_);
    }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;

    bool Is_Open() const { return handle_ >= 0; }
    off_t Size() const {
        struct stat info {};
        return ::fstat(handle_, &info) == 0 && S_ISREG(info.st_mode) ? info.st_size : -1;
    }
    // The bytes that are there; fewer than asked for at the end.
    std::size_t Read(std::span<char> bytes, off_t at) const {
        const ssize_t count = ::pread(handle_, bytes.data(), bytes.size(), at);
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

  private:
    int handle_;
};

Journal Kind_Of(const std::string& path) {
    const ReadOnlyFile journal(path + std::string(kJournal));
    if (!journal.Is_Open() && errno == ENOENT) return Journal::None;  // its job has just ended
    const off_t size = journal.Is_Open() ? journal.Size() : -1;
    if (size < 0) Refuse(path, kJournal, "cannot be read");
    // SQLite writes zeros first, and the magic over them when all is safe on the disk; that may be cut off, too.
    Magic start{};
    journal.Read(start, 0);
    const auto end = std::ranges::mismatch(start, kJournalMagic).in1;
    if (end == start.begin() && start == kNoMagic) return Journal::Stale;
    if (end == start.begin() || std::any_of(end, start.end(), [](char c) { return c != 0; })) {
        Refuse(path, kJournal, "is not a journal of this report");
    }
    // Before such an end is the name of a file that SQLite deletes after the rolling back. Jobs over several files have
    // one, and a report is never part of them.
    Magic last{};
    if (journal.Read(last, size - static_cast<off_t>(last.size())) == last.size() && last == kJournalMagic) {
        Refuse(path, kJournal, "asks for another file to be deleted");
    }
    return Journal::Hot;
}

}  // namespace

std::string Journal_Path(const std::string& path) {
    return path + std::string(kJournal);
}

Journal Check_Side_Files(const std::string& path) {
    bool hasJournal = false;
    for (const SideFile& side : kSideFiles) {
        if (Exists(path, side) && side.suffix == kJournal) hasJournal = true;
    }
    return hasJournal ? Kind_Of(path) : Journal::None;
}

}  // namespace tallmar::db_detail
