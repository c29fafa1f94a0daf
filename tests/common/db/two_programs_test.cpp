// A report file that two programs are at: what is read is one state, and nothing that is written gets lost.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "common/db/database.h"
#include "common/db/db_fixture.h"

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
    Database other = DBEngine::OpenDatabase(path);
    Job reading(db, Job::Kind::Reading);
    EXPECT_EQ(Rows(db, "A"), "1;");
    // The other one may prepare its change, and is told that it has to wait.
    EXPECT_EQ(Code_Of([&] { other.Execute("UPDATE A SET x = 2"); }), DbErrorCode::Locked);
    EXPECT_EQ(Rows(db, "A"), "1;");
    reading.Commit();
    other.Execute("UPDATE A SET x = 2");
    EXPECT_EQ(Rows(db, "A"), "2;");
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
    job.Commit();
    EXPECT_EQ(In_The_File(copy), "1;");
    EXPECT_EQ(In_The_File(path), "2;");
}

TEST_F(TwoProgramsTest, AFileWithAJobUnderWayIsNotReplaced) {
    const std::string copy = folder.File("copy.CRF");
    DBEngine::CopyDatabase(path, copy);
    Job job(db);
    Run("UPDATE A SET x = 2");
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(copy, path); }), DbErrorCode::Locked);
    EXPECT_EQ(Code_Of([&] { DBEngine::CompactDatabase(path, path); }), DbErrorCode::Locked);
    Database created = DBEngine::CreateDatabase(path, "");
    EXPECT_EQ(Code_Of([&] { DBEngine::Finish_Creation(created); }), DbErrorCode::Locked);
    job.Commit();
    EXPECT_EQ(In_The_File(path), "2;");
}

TEST_F(TwoProgramsTest, AReplacedFileTakesNoChangeOfWhoHasTheOldOne) {
    Database other = DBEngine::OpenDatabase(path);
    DBEngine::CompactDatabase(path, path);
    EXPECT_EQ(Code_Of([&] { other.Execute("UPDATE A SET x = 2"); }), DbErrorCode::Locked);
    EXPECT_EQ(In_The_File(path), "1;");
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
        job.Commit();
    }
    EXPECT_TRUE(db.Changed_Elsewhere());
    db.Close();
    EXPECT_EQ(Code_Of([&] { db.Changed_Elsewhere(); }), DbErrorCode::DatabaseClosed);
}

}  // namespace
}  // namespace tallmar
