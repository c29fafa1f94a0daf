#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <new>

#include "db/database.h"
#include "db/db_fixture.h"
#include "support/short_wait.h"

namespace tallmar {
namespace {

class JobTest : public DbTest {
  protected:
    void SetUp() override {
        Make_Table(db, "A", {{"x", FieldType::Long}});
        Run("INSERT INTO A (x) VALUES (1)");
    }
    std::string Content() { return Rows(db, "A"); }
    // What another program sees in the file.
    std::string In_The_File() {
        Database other = DBEngine::OpenDatabase(path);
        return Rows(other, "A");
    }
};

TEST_F(JobTest, AJobReachesTheFileWhenItIsKept) {
    Job job(db);
    Run("INSERT INTO A (x) VALUES (2)");
    EXPECT_EQ(Content(), "1;2;");
    EXPECT_EQ(In_The_File(), "1;");
    job.Keep();
    EXPECT_EQ(In_The_File(), "1;2;");
    job.Keep();  // once is enough
    Run("INSERT INTO A (x) VALUES (3)");
    EXPECT_EQ(In_The_File(), "1;2;3;");
}

TEST_F(JobTest, AJobNotKeptLeavesNothing) {
    {
        const Job job(db);
        Run("INSERT INTO A (x) VALUES (2)");
        Make_Table(db, "B", {{"x", FieldType::Long}});
    }
    EXPECT_EQ(Content(), "1;");
    EXPECT_FALSE(db.TableDefs().Has("B"));
    EXPECT_EQ(In_The_File(), "1;");
    Run("INSERT INTO A (x) VALUES (3)");
    EXPECT_EQ(In_The_File(), "1;3;");
}

TEST_F(JobTest, AJobThatAnExceptionEndsIsTakenBack) {
    try {
        Job job(db);
        Run("INSERT INTO A (x) VALUES (2)");
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
    }
    EXPECT_EQ(Content(), "1;");
    EXPECT_EQ(In_The_File(), "1;");
    Run("INSERT INTO A (x) VALUES (3)");
    EXPECT_EQ(In_The_File(), "1;3;");
}

TEST_F(JobTest, WhatIsKeptBeforeAnExceptionStays) {
    try {
        Job job(db);
        Run("INSERT INTO A (x) VALUES (2)");
        job.Keep();
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
    }
    EXPECT_EQ(In_The_File(), "1;2;");
}

TEST_F(JobTest, WhatAnInnerJobKeepsReachesTheFileWithTheOuterOne) {
    Job outer(db);
    {
        Job inner(db);
        Run("INSERT INTO A (x) VALUES (2)");
        inner.Keep();
    }
    EXPECT_EQ(In_The_File(), "1;");
    outer.Keep();
    EXPECT_EQ(In_The_File(), "1;2;");
}

TEST_F(JobTest, AnInnerJobKeptGoesWithAnOuterOneThatIsNot) {
    {
        const Job outer(db);
        Job inner(db);
        Run("INSERT INTO A (x) VALUES (2)");
        inner.Keep();
    }
    EXPECT_EQ(Content(), "1;");
    EXPECT_EQ(In_The_File(), "1;");
}

TEST_F(JobTest, AnInnerJobNotKeptTakesItsOwnChangesBackAlone) {
    Job outer(db);
    Run("INSERT INTO A (x) VALUES (2)");
    {
        const Job inner(db);
        Run("INSERT INTO A (x) VALUES (3)");
        Make_Table(db, "B", {{"x", FieldType::Long}});
        Job innermost(db);
        Run("INSERT INTO A (x) VALUES (4)");
        innermost.Keep();
    }
    EXPECT_EQ(Content(), "1;2;");
    EXPECT_FALSE(db.TableDefs().Has("B"));
    Run("INSERT INTO A (x) VALUES (5)");
    outer.Keep();
    EXPECT_EQ(In_The_File(), "1;2;5;");
}

TEST_F(JobTest, AnExceptionOfAnInnerJobTakesBackThatJobAlone) {
    Job outer(db);
    try {
        const Job inner(db);
        Run("INSERT INTO A (x) VALUES (2)");
        Run("UPDATE Nowhere SET x = 1");
        FAIL();
    } catch (const DbError&) {
    }
    Run("INSERT INTO A (x) VALUES (3)");
    outer.Keep();
    EXPECT_EQ(In_The_File(), "1;3;");
}

// A recordset that was opened before goes on behind an inner job that is not kept.
TEST_F(JobTest, ARecordsetOutlivesAnInnerJobThatIsNotKept) {
    Run("INSERT INTO A (x) VALUES (2)");
    Job outer(db);
    Recordset rows = db.OpenRecordset("SELECT * FROM A ORDER BY x");
    {
        const Job inner(db);
        Run("UPDATE A SET x = x + 10");
    }
    EXPECT_EQ(rows["x"], Value(1));
    rows.MoveNext();
    EXPECT_EQ(rows["x"], Value(2));
    rows.Edit();
    rows.Fields("x").Set(Value(3));
    rows.Update();
    outer.Keep();
    EXPECT_EQ(In_The_File(), "1;3;");
}

TEST_F(JobTest, ATableMadeInAJobIsKnownToItsNextStatement) {
    Job job(db);
    Run("SELECT * INTO Copy FROM A");
    Run("INSERT INTO Copy (x) VALUES (7)");
    EXPECT_EQ(Rows(db, "Copy"), "1;7;");
    Run("DROP TABLE Copy");
    EXPECT_FALSE(db.TableDefs().Has("Copy"));
}

TEST_F(JobTest, AStatementThatFailsWithinAJobChangesNothing) {
    Run("CREATE UNIQUE INDEX ndx ON A (x)");
    Job job(db);
    Run("INSERT INTO A (x) VALUES (2)");
    EXPECT_EQ(Code_Of([&] { Run("UPDATE A SET x = 9"); }), DbErrorCode::DuplicateKey);
    EXPECT_EQ(Content(), "1;2;");
    job.Keep();
    EXPECT_EQ(In_The_File(), "1;2;");
}

TEST_F(JobTest, AFileClosedWithinAJobIsAsItWasBefore) {
    Job job(db);
    Run("INSERT INTO A (x) VALUES (2)");
    db.Close();
    EXPECT_EQ(Code_Of([&] { job.Keep(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(In_The_File(), "1;");
}

TEST_F(JobTest, AClosedFileHasNoJobs) {
    db.Close();
    EXPECT_EQ(Code_Of([&] { Job job(db); }), DbErrorCode::DatabaseClosed);
    Database never;
    EXPECT_EQ(Code_Of([&] { Job job(never); }), DbErrorCode::DatabaseClosed);
}

TEST_F(JobTest, AFileInUseIsSaidToBe) {
    const ShortWait wait;
    Job job(db);
    Run("INSERT INTO A (x) VALUES (2)");
    Database other = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Code_Of([&] { Job second(other); }), DbErrorCode::Locked);
    EXPECT_EQ(Code_Of([&] { other.Execute("INSERT INTO A (x) VALUES (3)"); }), DbErrorCode::Locked);
}

// What a process of its own finds: whether somebody holds a lock on the file. A forked one knows of its parent's files
// only by the system's locks, not by what the engine remembers.
bool Is_Locked(const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        const int file = ::open(path.c_str(), O_RDWR);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        ::_exit(file >= 0 && ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(JobTest, AJobKeepsItsLockThoughTheFileIsOpenedOnceMore) {
    EXPECT_FALSE(Is_Locked(path));
    Job job(db);
    Run("INSERT INTO A (x) VALUES (2)");
    EXPECT_TRUE(Is_Locked(path));
    EXPECT_EQ(In_The_File(), "1;");
    EXPECT_TRUE(Is_Locked(path));
    job.Keep();
    EXPECT_FALSE(Is_Locked(path));
}

// Whenever the kill comes, the file holds whole jobs only.
TEST_F(JobTest, KilledAtAnyMomentTheFileHoldsWholeJobs) {
    Make_Table(db, "B", {{"x", FieldType::Long}});
    Run("INSERT INTO B (x) VALUES (1)");
    db.Close();
    for (int round = 0; round < 25; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                Database mine = DBEngine::OpenDatabase(path);
                while (true) {
                    Job job(mine);
                    mine.Execute("UPDATE A SET x = x + 1");
                    mine.Execute("SELECT * INTO C FROM A");
                    mine.Execute("UPDATE B SET x = x + 1");
                    mine.Execute("DROP TABLE C");
                    job.Keep();
                }
            } catch (...) {
            }
            ::_exit(1);
        }
        ::usleep(static_cast<useconds_t>(5'000 + round * 1'300));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        db = DBEngine::OpenDatabase(path);
        EXPECT_EQ(Rows(db, "A"), Rows(db, "B"));
        EXPECT_FALSE(db.TableDefs().Has("C"));
        db.Close();
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
    }
}

// A kill in the middle of a job takes the file back, whatever of the job has reached the disk.
TEST_F(JobTest, AKilledJobLeavesTheFileAsItWas) {
    db.Close();
    Be_Killed_In_A_Job(path);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Content(), "1;");
    EXPECT_FALSE(db.TableDefs().Has("Big"));
    db.Close();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace tallmar
