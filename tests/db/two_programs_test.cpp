// A report file that two programs are at: what is read is one state, and nothing that is written gets lost.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "db/change_mark.h"
#include "db/database.h"
#include "db/db_fixture.h"
#include "support/short_wait.h"

namespace tallmar {
namespace {

namespace fs = std::filesystem;

class TwoProgramsTest : public DbTest {
  protected:
    void SetUp() override {
        Make_Table(db, "A", {{"x", FieldType::Long}});
        Run("INSERT INTO A (x) VALUES (1)");
    }
    std::string In_The_File(const std::string& file) {
        Database other = DBEngine::OpenDatabase(file);
        return Rows(other, "A");
    }
};

TEST_F(TwoProgramsTest, AJobForReadingSeesOneState) {
    const ShortWait wait;
    Database other = DBEngine::OpenDatabase(path);
    {
        const Job reading(db, Job::Kind::Reading);
        EXPECT_EQ(Rows(db, "A"), "1;");
        // The other one may prepare its change, and gets the answer that it has to wait.
        EXPECT_EQ(Code_Of([&] { other.Execute("UPDATE A SET x = 2"); }), DbErrorCode::Locked);
        EXPECT_EQ(Rows(db, "A"), "1;");
    }
    other.Execute("UPDATE A SET x = 2");
    EXPECT_EQ(Rows(db, "A"), "2;");
}

// Within its time a statement waits, and then goes on.
TEST_F(TwoProgramsTest, AChangeWaitsForTheOtherToBeDone) {
    const ShortWait wait(20'000);
    db.Close();
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        Database other = DBEngine::OpenDatabase(path);
        Job job(other);
        other.Execute("UPDATE A SET x = x + 10");
        const bool told = ::write(ready[1], "r", 1) == 1;
        ::usleep(50'000);
        job.Keep();
        ::_exit(told ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    db = DBEngine::OpenDatabase(path);
    db.Execute("UPDATE A SET x = x + 1");
    EXPECT_EQ(Rows(db, "A"), "12;");
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(TwoProgramsTest, JobsForReadingDoNotHinderEachOther) {
    Database other = DBEngine::OpenDatabase(path);
    Job mine(db, Job::Kind::Reading);
    Job theirs(other, Job::Kind::Reading);
    EXPECT_EQ(Rows(db, "A"), Rows(other, "A"));
}

TEST_F(TwoProgramsTest, AReadOnlyFileHasJobsForReading) {
    db.Close();
    fs::permissions(path, fs::perms::owner_read);
    db = DBEngine::OpenDatabase(path);
    Job reading(db, Job::Kind::Reading);
    EXPECT_EQ(Rows(db, "A"), "1;");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(TwoProgramsTest, ACopyHoldsTheStateBeforeTheJobUnderWay) {
    Database other = DBEngine::OpenDatabase(path);
    Job job(other);
    other.Execute("UPDATE A SET x = 2");
    const std::string copy = folder.File("copy.CRF");
    // In a program of its own: closing a file ends all locks that a program has on it.
    const pid_t child = ::fork();
    if (child == 0) {
        const bool copied = Code_Of([&] { DBEngine::CopyDatabase(path, copy); }) == DbErrorCode{};
        ::_exit(copied ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    job.Keep();
    EXPECT_EQ(In_The_File(copy), "1;");
    EXPECT_EQ(In_The_File(path), "2;");
}

TEST_F(TwoProgramsTest, AFileWithAJobUnderWayIsNotReplaced) {
    const ShortWait wait;
    const std::string copy = folder.File("copy.CRF");
    DBEngine::CopyDatabase(path, copy);
    Job job(db);
    Run("UPDATE A SET x = 2");
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(copy, path); }), DbErrorCode::Locked);
    EXPECT_EQ(Code_Of([&] { DBEngine::CompactDatabase(path, path); }), DbErrorCode::Locked);
    Database created = DBEngine::CreateDatabase(path, "");
    EXPECT_EQ(Code_Of([&] { DBEngine::Finish_Creation(created); }), DbErrorCode::Locked);
    job.Keep();
    EXPECT_EQ(In_The_File(path), "2;");
}

// Whoever has a report open goes on with it while others pack it or give it other content: no change of his is lost.
TEST_F(TwoProgramsTest, APackedReportTakesTheChangesOfWhoHasItOpen) {
    Database other = DBEngine::OpenDatabase(path);
    DBEngine::CompactDatabase(path, path);
    EXPECT_EQ(Rows(other, "A"), "1;");
    other.Execute("UPDATE A SET x = 2");
    EXPECT_EQ(In_The_File(path), "2;");
    EXPECT_EQ(Rows(db, "A"), "2;");
}

TEST_F(TwoProgramsTest, AReportWithNewContentIsSeenByWhoHasItOpen) {
    Database other = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Rows(other, "A"), "1;");
    Database created = DBEngine::CreateDatabase(path, "");
    Make_Table(created, "A", {{"y", FieldType::Text, 20}, {"x", FieldType::Double}});
    created.Execute("INSERT INTO A VALUES ('new', 2.5)");
    DBEngine::Finish_Creation(created);
    EXPECT_TRUE(other.Changed_Elsewhere());
    EXPECT_EQ(Rows(other, "A"), "new|2.5;");
    // Without asking, too: a job looks at the tables again.
    Job job(db);
    EXPECT_EQ(Rows(db, "A"), "new|2.5;");
    Run("INSERT INTO A (y) VALUES ('newer')");
    job.Keep();
    EXPECT_EQ(Rows(other, "SELECT y FROM A"), "new;newer;");
}

TEST_F(TwoProgramsTest, AReportKeepsItsFileAndItsOwnerWhateverIsDoneToIt) {
    struct stat before {};
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
    }
    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    const std::string copy = folder.File("copy.CRF");
    DBEngine::CopyDatabase(path, copy);
    Database created = DBEngine::CreateDatabase(path, "");
    DBEngine::Finish_Creation(created);
    DBEngine::CopyDatabase(copy, path);
    DBEngine::CompactDatabase(path, path);
    DBEngine::RepairDatabase(path);
    struct stat after {};
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(after.st_mode, before.st_mode);
}

TEST_F(TwoProgramsTest, ANewCopyIsNoWiderThanItsSource) {
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    DBEngine::CopyDatabase(path, folder.File("private.CRF"));
    EXPECT_EQ(fs::status(folder.File("private.CRF")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(path, fs::perms::owner_read);
    DBEngine::CopyDatabase(path, folder.File("writable.CRF"));
    EXPECT_EQ(fs::status(folder.File("writable.CRF")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// Another program in the middle of writing the first page: what stands in it then is no reason to refuse the report.
TEST_F(TwoProgramsTest, AReportIsJudgedWhenTheOtherHasWritten) {
    constexpr off_t kPageCountAt = 28;
    db.Close();
    int tells[2];
    ASSERT_EQ(::pipe(tells), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* handle = nullptr;
        sqlite3_open(path.c_str(), &handle);
        const bool locked = sqlite3_exec(handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
        const int file = ::open(path.c_str(), O_RDWR);
        const char more[4] = {0, 1, 0, 0};
        char count[4];
        bool done = ::pread(file, count, sizeof count, kPageCountAt) == sizeof count &&
                    ::pwrite(file, more, sizeof more, kPageCountAt) == sizeof more && ::write(tells[1], "w", 1) == 1;
        ::usleep(200'000);
        done = done && ::pwrite(file, count, sizeof count, kPageCountAt) == sizeof count;
        ::_exit(locked && done ? 0 : 1);
    }
    char told = 0;
    ASSERT_EQ(::read(tells[0], &told, 1), 1);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Rows(db, "A"), "1;");
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    ::close(tells[0]);
    ::close(tells[1]);
}

TEST_F(TwoProgramsTest, AReadOnlyReportGetsNoOtherContent) {
    const std::string copy = folder.File("copy.CRF");
    DBEngine::CopyDatabase(path, copy);
    fs::permissions(copy, fs::perms::owner_read);
    const std::string before = Bytes_Of(copy);
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(path, copy); }), DbErrorCode::ReadOnly);
    EXPECT_EQ(Code_Of([&] { DBEngine::CompactDatabase(copy, copy); }), DbErrorCode::ReadOnly);
    EXPECT_TRUE(Bytes_Of(copy) == before);
}

// The journal of a killed job belongs to the old file and must never be played back into the new one.
TEST_F(TwoProgramsTest, AFileReplacedAfterAKillKeepsNothingOfTheOldOne) {
    db.Close();
    Be_Killed_In_A_Job(path);
    Database created = DBEngine::CreateDatabase(path, "");
    Make_Table(created, "A", {{"x", FieldType::Long}});
    created.Execute("INSERT INTO A (x) VALUES (7)");
    DBEngine::Finish_Creation(created);
    EXPECT_FALSE(fs::exists(path + "-journal"));
    EXPECT_EQ(In_The_File(path), "7;");
}

TEST_F(TwoProgramsTest, ACopyGoesOverWhatIsNoReport) {
    const std::string to = folder.File("to");
    Put_Bytes(to, "no report");
    DBEngine::CopyDatabase(path, to);
    EXPECT_EQ(In_The_File(to), "1;");
    DBEngine::CopyDatabase(path, path);
    EXPECT_EQ(In_The_File(path), "1;");
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(folder.File("none"), to); }), DbErrorCode::CannotOpen);
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(path, folder.File("no/where")); }), DbErrorCode::CannotOpen);
    EXPECT_EQ(In_The_File(to), "1;");
}

TEST_F(TwoProgramsTest, AChangeOfTheOtherIsTold) {
    Database other = DBEngine::OpenDatabase(path);
    EXPECT_FALSE(db.Changed_Elsewhere());
    Run("UPDATE A SET x = 2");
    EXPECT_FALSE(db.Changed_Elsewhere()) << "one's own";
    EXPECT_TRUE(other.Changed_Elsewhere());
    EXPECT_FALSE(other.Changed_Elsewhere()) << "told already";
    Rows(other, "A");
    EXPECT_FALSE(db.Changed_Elsewhere()) << "the other only read";
    other.Execute("UPDATE A SET x = 3");
    other.Execute("UPDATE A SET x = 4");
    EXPECT_TRUE(db.Changed_Elsewhere());
    EXPECT_FALSE(db.Changed_Elsewhere());
    EXPECT_EQ(Rows(db, "A"), "4;");
}

TEST_F(TwoProgramsTest, ATableThatTheOtherChangedIsReadAnew) {
    Rows(db, "A");
    Database other = DBEngine::OpenDatabase(path);
    TableDef table = other.TableDefs().Item("A");
    table.Fields_Append(table.CreateField("y", FieldType::Long));
    other.Execute("UPDATE A SET y = 7");
    EXPECT_TRUE(db.Changed_Elsewhere());
    EXPECT_EQ(Rows(db, "SELECT y FROM A"), "7;");
}

TEST_F(TwoProgramsTest, AChangeUnderWayIsToldWhenItIsDone) {
    Database other = DBEngine::OpenDatabase(path);
    {
        Job job(other);
        other.Execute("UPDATE A SET x = 2");
        EXPECT_FALSE(db.Changed_Elsewhere());
        job.Keep();
    }
    EXPECT_TRUE(db.Changed_Elsewhere());
    db.Close();
    EXPECT_EQ(Code_Of([&] { db.Changed_Elsewhere(); }), DbErrorCode::DatabaseClosed);
}

TEST_F(TwoProgramsTest, MarksAreEqualWhileNobodyWrites) {
    Database other = DBEngine::OpenDatabase(path);
    const ChangeMark before = Change_Mark(db);
    EXPECT_NE(before, ChangeMark{});
    Rows(db, "A");
    Rows(other, "A");
    EXPECT_EQ(Change_Mark(db), before) << "reading changes nothing";
    Run("UPDATE A SET x = 2");
    const ChangeMark own = Change_Mark(db);
    EXPECT_NE(own, before) << "one's own counts";
    other.Execute("UPDATE A SET x = 3");
    EXPECT_NE(Change_Mark(db), own);
    EXPECT_TRUE(db.Changed_Elsewhere()) << "to ask for a mark answers no other question";
    db.Close();
    EXPECT_EQ(Code_Of([&] { Change_Mark(db); }), DbErrorCode::DatabaseClosed);
}

}  // namespace
}  // namespace tallmar
