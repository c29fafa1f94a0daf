#include "report/report_lock.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <thread>
#include <utility>

#include "common/file_id.h"
#include "common/platform.h"
#include "common/program.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSuffix = ".lock";
constexpr mode_t kForAll = 0666;
// Whoever only looks holds the lock for a moment.
constexpr int kTries = 10;
constexpr std::chrono::milliseconds kBetweenTries{5};

// Two spellings of one path have one lock.
std::string Lock_Name(const std::string& path) {
    std::error_code error;
    fs::path report = fs::absolute(Native_Path(path), error);
    if (!error) report = fs::weakly_canonical(report, error);
    return error ? std::string() : report.string() + std::string(kSuffix);
}

// "Tallmar 1728, user mary on desk-7, process 4711"
std::string This_Program() {
    const passwd* user = ::getpwuid(::geteuid());
    std::array<char, 256> machine{};
    ::gethostname(machine.data(), machine.size() - 1);
    return Sql(kProgramTitle, ", user ", user == nullptr ? "unknown" : user->pw_name, " on ", machine.data(),
               ", process ", static_cast<int>(::getpid()));
}

std::string Content(int file) {
    std::array<char, 400> text{};
    const ssize_t size = ::pread(file, text.data(), text.size(), 0);
    return size <= 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(size));
}

bool Is_Empty(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size == 0;
}
// A file of somebody else's that happens to have the name is not ours.
bool Is_Ours(int file) {
    return Is_Empty(file) || Begins_With(Content(file), kProgramTitle);
}

enum class Try { Locked, InUse, Without };

Try Lock(int file, int kind) {
    for (int tries = 1;; ++tries) {
        if (::flock(file, kind | LOCK_NB) == 0) return Try::Locked;
        if (errno != EWOULDBLOCK && errno != EINTR) return Try::Without;
        if (tries == kTries) return Try::InUse;
        std::this_thread::sleep_for(kBetweenTries);
    }
}

// Links are not followed, and a pipe of the name holds nobody up.
int Open_Lock(const std::string& name, bool make) {
    constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int file = make ? ::open(name.c_str(), kFlags | O_RDWR | O_CREAT, kForAll) : -1;
    return file >= 0 ? file : ::open(name.c_str(), kFlags | O_RDONLY);
}

void Write_Holder(int file) {
    const std::string holder = This_Program() + "\n";
    if (::ftruncate(file, 0) != 0) return;
    // Who cannot be named is only not named.
    [[maybe_unused]] const ssize_t written = ::pwrite(file, holder.data(), holder.size(), 0);
}

std::string Holder(int file) {
    std::string text = Content(file);
    text.resize(std::min(text.find_first_of("\r\n"), text.size()));
    const bool plain = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x20; });
    return plain && Is_Valid_Utf8(text) && Begins_With(text, kProgramTitle) ? text : std::string();
}

bool Refuse(const std::string& path, const std::string& holder) {
    The_Platform().Message_Box(
        Sql("The report ", path, " is open in another program", holder.empty() ? "" : " [" + holder + "]",
            ".  Nothing was changed.  Close the report there and try again."),
        kStop, "Report In Use");
    return false;
}

}  // namespace

bool ReportLock::Take(const std::string& path) {
    lock_ = {};
    if (!The_Platform().Keeps_Reports_Open()) return Report_Is_Free(path);
    const std::string name = Lock_Name(path);
    lock_ = FileLock(FileLock::kNone, name);
    if (name.empty() || openReport.lock.Name() == name) return true;
    for (;;) {
        const int file = Open_Lock(name, true);
        if (file < 0) return true;
        const Try tried = Is_Ours(file) ? Lock(file, LOCK_EX) : Try::Without;
        if (tried == Try::Locked && Still_Bears(file, name)) {
            Write_Holder(file);
            lock_ = FileLock(file, name);
            return true;
        }
        const std::string holder = Holder(file);
        if (tried == Try::Without && Is_Empty(file)) ::unlink(name.c_str());
        ::close(file);
        if (tried == Try::InUse) return Refuse(path, holder);
        if (tried == Try::Without) return true;
    }
}

void ReportLock::Keep() {
    if (!lock_.Is_Held() && openReport.lock.Name() == lock_.Name()) return;
    openReport.lock = std::move(lock_);
}

bool Report_Is_Free(const std::string& path) {
    const std::string name = Lock_Name(path);
    if (name.empty() || openReport.lock.Name() == name) return true;
    const int file = Open_Lock(name, false);
    if (file < 0) return true;
    const Try tried = Is_Ours(file) ? Lock(file, LOCK_SH) : Try::Without;
    const std::string holder = Holder(file);
    ::flock(file, LOCK_UN);
    ::close(file);
    return tried != Try::InUse || Refuse(path, holder);
}

}  // namespace tallmar
