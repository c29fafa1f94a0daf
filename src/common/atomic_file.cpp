#include "common/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <system_error>
#include <utility>
#include <vector>

#include "common/file_id.h"

namespace tallmar {

namespace {

constexpr mode_t kAnyWrite = 0222;
constexpr mode_t kGroupRights = 0070;
constexpr std::size_t kCopyPiece = 1 << 20;

[[noreturn]] void Fail(int error, const std::string& path) {
    throw std::system_error(error, std::generic_category(), path);
}

class FileHandle {
  public:
    explicit FileHandle(int handle) : handle_(handle) {}
    ~FileHandle() {
        if (handle_ >= 0) ::close(handle_);
    }
    FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    FileHandle& operator=(FileHandle&&) = delete;
    int Get() const { return handle_; }

  private:
    int handle_;
};

std::string Temporary_Of(const std::string& path) {
    return path + ".tallmar";
}

std::string Holding_Folder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Where a link points, so that the link itself stays.
std::string Real_Target(const std::string& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char* resolved = ::realpath(path.c_str(), nullptr);
    if (resolved == nullptr) Fail(errno, path);
    std::string target(resolved);
    std::free(resolved);
    return target;
}

void Write_All(int handle, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(handle, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            Fail(errno, path);
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Flush_Folder(const std::string& path) {
    const FileHandle folder(::open(Holding_Folder(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Get() >= 0) ::fsync(folder.Get());
}

// A file that is at the path: its rights pass to the new one.
struct OldFile {
    bool exists = false;
    uid_t owner = 0;
    gid_t group = 0;
    mode_t mode = 0;
};
OldFile Look_At(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT) return {};
        Fail(errno, path);
    }
    if (S_ISDIR(info.st_mode)) Fail(EISDIR, path);
    if (!S_ISREG(info.st_mode)) Fail(EINVAL, path);
    if ((info.st_mode & kAnyWrite) == 0 || ::access(path.c_str(), W_OK) != 0) Fail(EACCES, path);
    return {true, info.st_uid, info.st_gid, info.st_mode & 07777};
}

// What a killed program left under the temporary name goes; false where a living one is at it.
bool Remove_Stale(const std::string& name) {
    const FileHandle file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file.Get() < 0) return errno == ENOENT;
    struct stat info {};
    if (::fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return false;
    return !Still_Bears(file.Get(), name) || ::unlink(name.c_str()) == 0;
}

// The temporary file under its name, locked. The name keeps others from replacing the same file.
FileHandle Named_Temporary(const std::string& path, mode_t mode) {
    const std::string name = Temporary_Of(path);
    for (int tries = 1; tries <= 2; ++tries) {
        FileHandle file(::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (file.Get() >= 0) {
            if (::flock(file.Get(), LOCK_EX | LOCK_NB) == 0 && Still_Bears(file.Get(), name)) return file;
            Fail(EBUSY, path);
        }
        if (errno != EEXIST) Fail(errno, path);
        if (!Remove_Stale(name)) break;
    }
    Fail(EBUSY, path);
}

// Gives a nameless file a name. False where the name is taken.
bool Link_To(int handle, const std::string& name, const std::string& path) {
    const std::string self = "/proc/self/fd/" + std::to_string(handle);
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno == EEXIST) return false;
    Fail(errno, path);
}

// The temporary name of a file that is being placed; it goes with the value unless the file was placed.
class TemporaryName {
  public:
    explicit TemporaryName(const std::string& path) : path_(path), name_(Temporary_Of(path)) {}
    ~TemporaryName() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;

    void Rename_Over() {
        if (::rename(name_.c_str(), path_.c_str()) != 0) Fail(errno, path_);
        name_.clear();
    }
    // False where the path has a file.
    bool Rename_To_New() {
        if (::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, path_.c_str(), RENAME_NOREPLACE) == 0) {
            name_.clear();
            return true;
        }
        if (errno == EEXIST) return false;
        if (errno != EINVAL && errno != ENOSYS) Fail(errno, path_);
        // A file system without such a step: another program that makes this file holds the temporary name first.
        if (::access(path_.c_str(), F_OK) == 0) return false;
        Rename_Over();
        return true;
    }

  private:
    std::string path_, name_;
};

using Content = std::function<void(const FilePiece&)>;

void Fill(const FileHandle& file, const std::string& path, const OldFile& old, const Content& produce) {
    produce([&](std::string_view piece) { Write_All(file.Get(), piece, path); });
    if (old.exists) {
        // Who may not give a file away gives it to its group at least; another group gets no rights at it.
        const bool grouped = ::fchown(file.Get(), old.owner, old.group) == 0 ||
                             ::fchown(file.Get(), static_cast<uid_t>(-1), old.group) == 0;
        if (::fchmod(file.Get(), grouped ? old.mode : old.mode & ~kGroupRights) != 0) Fail(errno, path);
    }
    if (::fsync(file.Get()) != 0) Fail(errno, path);
}

bool Knows_No_Nameless_Files(int error) {
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
}

// How a filled file takes the path's name. Exactly one of the two is asked for.
struct Placing {
    bool onlyNew = false;
    const std::function<bool()>* mayReplace = nullptr;  // of an old file; null: it may be
};

bool Place(TemporaryName& temporary, const Placing& placing) {
    if (placing.onlyNew) return temporary.Rename_To_New();
    if (placing.mayReplace != nullptr && !(*placing.mayReplace)()) return false;
    temporary.Rename_Over();
    return true;
}

bool Place_Nameless(const FileHandle& file, const std::string& path, bool replaces, const Placing& placing) {
    if (!replaces && Link_To(file.Get(), path, path)) return true;
    if (placing.onlyNew) return false;
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) Fail(errno, path);
    const std::string name = Temporary_Of(path);
    if (!Link_To(file.Get(), name, path) && (!Remove_Stale(name) || !Link_To(file.Get(), name, path))) {
        Fail(EBUSY, path);
    }
    TemporaryName temporary(path);
    return Place(temporary, placing);
}

bool Write_File(const std::string& path, mode_t mode, const Content& produce, const Placing& placing) {
    const std::string target = Real_Target(path);
    const OldFile old = Look_At(target);
    if (placing.onlyNew && old.exists) return false;
    const FileHandle nameless(::open(Holding_Folder(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
    bool placed = false;
    if (nameless.Get() >= 0) {
        Fill(nameless, target, old, produce);
        placed = Place_Nameless(nameless, target, old.exists, placing);
    } else if (Knows_No_Nameless_Files(errno)) {
        const FileHandle named = Named_Temporary(target, mode);
        TemporaryName temporary(target);
        Fill(named, target, old, produce);
        placed = Place(temporary, placing);
    } else {
        Fail(errno, target);
    }
    if (placed) Flush_Folder(target);
    return placed;
}

Content Whole(std::string_view bytes) {
    return [bytes](const FilePiece& put) { put(bytes); };
}

}  // namespace

void Write_File_Atomically(const std::string& path, const std::function<void(const FilePiece&)>& produce) {
    Write_File(path, kUsualMode, produce, {});
}

void Write_File_Atomically(const std::string& path, std::string_view bytes) {
    Write_File(path, kUsualMode, Whole(bytes), {});
}

bool Replace_File_Atomically(const std::string& path, std::string_view bytes, const std::function<bool()>& mayReplace) {
    return Write_File(path, kUsualMode, Whole(bytes), {.onlyNew = false, .mayReplace = &mayReplace});
}

bool Create_File_Atomically(const std::string& path, std::string_view bytes, unsigned mode) {
    return Write_File(path, mode, Whole(bytes), {.onlyNew = true, .mayReplace = nullptr});
}

void Copy_File_Atomically(const std::string& from, const std::string& to) {
    const FileHandle source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (source.Get() < 0) Fail(errno, from);
    Write_File_Atomically(to, [&](const FilePiece& put) {
        std::vector<char> piece(kCopyPiece);
        while (true) {
            const ssize_t count = ::read(source.Get(), piece.data(), piece.size());
            if (count == 0) return;
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) Fail(errno, from);
            put({piece.data(), static_cast<std::size_t>(count)});
        }
    });
}

void Remove_Stale_Temporary(const std::string& path) {
    Remove_Stale(Temporary_Of(path));
}

}  // namespace tallmar
