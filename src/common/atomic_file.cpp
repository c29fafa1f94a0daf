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

namespace tallmar {

namespace {

constexpr mode_t kNewFileMode = 0666;  // less the user's mask
constexpr mode_t kAnyWrite = 0222;
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
    return path + ".tmp";
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

// A file that stands at the path: its rights pass to the new one.
struct OldFile {
    bool exists = false;
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
    return {true, info.st_mode & 07777};
}

// Takes the temporary name for itself; a stale file under it is taken over, one in use is waited out by nobody.
FileHandle Named_Temporary(const std::string& path) {
    const std::string name = Temporary_Of(path);
    FileHandle file(::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kNewFileMode));
    if (file.Get() < 0) Fail(errno, path);
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) Fail(EBUSY, path);
    if (::ftruncate(file.Get(), 0) != 0) Fail(errno, path);
    return file;
}

// Gives a nameless file a name. False where the name is taken.
bool Link_To(int handle, const std::string& name, const std::string& path) {
    const std::string self = "/proc/self/fd/" + std::to_string(handle);
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno == EEXIST) return false;
    Fail(errno, path);
}

void Rename_Over(const std::string& path) {
    const std::string name = Temporary_Of(path);
    if (::rename(name.c_str(), path.c_str()) == 0) return;
    const int error = errno;
    ::unlink(name.c_str());
    Fail(error, path);
}

void Place_Nameless(const FileHandle& file, const std::string& path, bool replaces) {
    if (!replaces && Link_To(file.Get(), path, path)) return;
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) Fail(errno, path);
    if (!Link_To(file.Get(), Temporary_Of(path), path)) {
        Remove_Stale_Temporary(path);
        if (!Link_To(file.Get(), Temporary_Of(path), path)) Fail(EBUSY, path);
    }
    Rename_Over(path);
}

void Fill(const FileHandle& file, const std::string& path, const OldFile& old,
          const std::function<void(const FilePiece&)>& produce) {
    produce([&](std::string_view piece) { Write_All(file.Get(), piece, path); });
    if (old.exists && ::fchmod(file.Get(), old.mode) != 0) Fail(errno, path);
    if (::fsync(file.Get()) != 0) Fail(errno, path);
}

// Where the folder's file system knows no nameless files.
void Write_By_Name(const std::string& path, const OldFile& old, const std::function<void(const FilePiece&)>& produce) {
    const FileHandle file = Named_Temporary(path);
    try {
        Fill(file, path, old, produce);
    } catch (...) {
        ::unlink(Temporary_Of(path).c_str());
        throw;
    }
    Rename_Over(path);
}

}  // namespace

void Write_File_Atomically(const std::string& path, const std::function<void(const FilePiece&)>& produce) {
    const std::string target = Real_Target(path);
    const OldFile old = Look_At(target);
    const FileHandle nameless(::open(Holding_Folder(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileMode));
    if (nameless.Get() >= 0) {
        Fill(nameless, target, old, produce);
        Place_Nameless(nameless, target, old.exists);
    } else if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL) {
        Write_By_Name(target, old, produce);
    } else {
        Fail(errno, target);
    }
    Flush_Folder(target);
}

void Write_File_Atomically(const std::string& path, std::string_view bytes) {
    Write_File_Atomically(path, [&](const FilePiece& put) { put(bytes); });
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
    const std::string name = Temporary_Of(path);
    const FileHandle file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    if (file.Get() < 0 || ::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return;
    ::unlink(name.c_str());
}

}  // namespace tallmar
