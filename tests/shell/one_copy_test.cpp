#include "shell/one_copy.h"

#include <sys/wait.h>
#include <unistd.h>

#include <QFile>

#include "shell/dialog_test.h"
#include "support/temp_folder.h"

namespace tallmar {

namespace {

class OneCopyTest : public testing::Test {
  protected:
    // A copy in a process of its own; it is killed in the middle of its work.
    void Crash_A_Copy() const {
        const pid_t process = fork();
        if (process == 0) {
            const OneCopy copy(place);
            _exit(copy.Is_First() ? 7 : 1);
        }
        int status = 0;
        waitpid(process, &status, 0);
        ASSERT_EQ(WEXITSTATUS(status), 7);
    }
    void Leave_Behind(const QByteArray& contents) const {
        QDir().mkpath(place);
        QFile file(lock);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    TempFolder folder;
    QString place = QString::fromStdString(folder.File("data"));
    QString lock = place + "/tallmar1728.lock";
};

}  // namespace

TEST_F(OneCopyTest, SecondStartIsRefusedAndTheFirstUntouched) {
    const OneCopy first(place);
    ASSERT_TRUE(first.Is_First());
    EXPECT_FALSE(OneCopy(place).Is_First());
    EXPECT_TRUE(QFile::exists(lock));
    EXPECT_FALSE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, SecondProcessIsRefused) {
    const OneCopy first(place);
    const pid_t process = fork();
    if (process == 0) _exit(OneCopy(place).Is_First() ? 1 : 7);
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_FALSE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, PlaceIsFreeAfterTheFirstHasEnded) {
    { const OneCopy first(place); }
    EXPECT_TRUE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, PlaceOfACrashedCopyIsFree) {
    Crash_A_Copy();
    ASSERT_TRUE(QFile::exists(lock));
    EXPECT_TRUE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, BrokenFileDoesNotShutTheProgramOut) {
    Leave_Behind("");
    EXPECT_TRUE(OneCopy(place).Is_First());
    Leave_Behind("nonsense");
    EXPECT_TRUE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, FileFromBeforeTheComputerWasRenamedDoesNotShutTheProgramOut) {
    Leave_Behind("4711\ntallmar1728\nits-old-name\n\n\n");
    EXPECT_TRUE(OneCopy(place).Is_First());
}

TEST_F(OneCopyTest, FolderThatCannotBeWrittenLetsTheProgramRun) {
    const OneCopy copy(QStringLiteral("/proc/no-such-folder"));
    EXPECT_TRUE(copy.Is_First());
}

TEST(SecondCopy, IsToldToUseTheFirst) {
    FakePlatform platform;
    platform.Expect_Box(
        "Attempt to Run Multiple Copies of Tallmar 1728",
        "A copy of Tallmar 1728 is already running.  Only one copy may be run at a time.  After leaving this message "
        "box, this copy of Tallmar 1728 will shut down.  Then, you may [1] use the already running copy, [2] shut down "
        "the already running copy and then restart it, or [3] call QVR for additional assistance.",
        Answer::Ok, kStop);
    Tell_Second_Copy();
}

}  // namespace tallmar
