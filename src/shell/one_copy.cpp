#include "shell/one_copy.h"

#include <QDir>
#include <QThread>
#include <string>

#include "common/platform.h"
#include "common/program.h"
#include "common/text.h"

namespace tallmar {

namespace {

constexpr std::string_view kTitle = "Attempt to Run Multiple Copies of {title}";
constexpr std::string_view kText =
    "A copy of {title} is already running.  Only one copy may be run at a time.  After leaving this message box, this "
    "copy of {title} will shut down.  Then, you may [1] use the already running copy, [2] shut down the already "
    "running copy and then restart it, or [3] call QVR for additional assistance.";

// A starting copy makes its file, locks it and writes who it is.
constexpr unsigned long kWriteTime = 300;  // milliseconds

std::string Titled(std::string_view text) {
    return Replace(text, "{title}", kProgramTitle);
}

}  // namespace

OneCopy::OneCopy(const QString& folder) : lock_(QDir(folder).filePath(QStringLiteral("tallmar1728.lock"))) {
    QDir().mkpath(folder);
    lock_.setStaleLockTime(0);  // a copy may run for weeks
    first_ = Take();
}

bool OneCopy::Take() {
    if (lock_.tryLock()) return true;
    if (lock_.error() != QLockFile::LockFailedError) return true;
    qint64 process = 0;
    QString host, program;
    if (!lock_.getLockInfo(&process, &host, &program)) QThread::msleep(kWriteTime);
    // The system itself keeps the file of a running copy from being removed: what can be removed is nobody's, also
    // where the computer has another name since, or the file is broken.
    return lock_.removeStaleLockFile() && lock_.tryLock();
}

void Tell_Second_Copy() {
    The_Platform().Message_Box(Titled(kText), kStop, Titled(kTitle));
}

}  // namespace tallmar
