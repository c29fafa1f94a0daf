#include "report/file_lock.h"

#include <sys/file.h>
#include <unistd.h>

#include <utility>

#include "common/file_id.h"

namespace tallmar {

FileLock::FileLock(int file, std::string name) : file_(file), name_(std::move(name)) {}

FileLock::FileLock(FileLock&& other) noexcept
    : file_(std::exchange(other.file_, kNone)), name_(std::exchange(other.name_, {})) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    if (this == &other) return *this;
    Release();
    file_ = std::exchange(other.file_, kNone);
    name_ = std::exchange(other.name_, {});
    return *this;
}

void FileLock::Release() {
    if (!Is_Held()) return;
    // Unlinked while it is locked: whoever waits for it finds that the name has gone, and starts over.
    if (Still_Bears(file_, name_)) ::unlink(name_.c_str());
    ::flock(file_, LOCK_UN);
    ::close(std::exchange(file_, kNone));
}

}  // namespace tallmar
