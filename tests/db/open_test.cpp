// Files that are opened, made, compacted and repaired; and those that are refused and stay as they are.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <random>

#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

namespace fs = std::filesystem;

class OpenTest : public DbTest {
  protected:
    void SetUp() override {
        Job job(db);
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency},
                    {"Label", FieldType::Text, 40},
                    {"Hours", FieldType::Double},
                    {"Made", FieldType::Date}});
        Run("CREATE UNIQUE INDEX ndx ON A (LineNum)");
        for (int i = 1; i <= 200; ++i) {
            const std::string line = std::to_string(i);
            Run("INSERT INTO A VALUES (" + line + ", 'line " + line + "', " + line + ".5, #10/1/2015 8:05:00#)");
        }
        job.Keep();
        dump = Dump(db);
        db.Close();
        bytes = Bytes_Of(path);
    }
    std::ptrdiff_t Entries() const { return std::distance(fs::directory_iterator(folder.Path()), {}); }

    // The file of these bytes is refused and untouched, and nothing stands beside it.
    void Expect_Refused(const std::string& content, DbErrorCode code, const std::string& what) {
        Put_Bytes(path, content);
        EXPECT_EQ(Code_Of([&] { DBEngine::OpenDatabase(path); }), code) << what;
        EXPECT_EQ(Bytes_Of(path) == content, true) << what;
        EXPECT_EQ(Entries(), 1) << what;
    }
    std::string Changed(std::size_t place, std::string_view piece) const {
        std::string content = bytes;
        return content.replace(place, piece.size(), piece);
    }
    // A report file that somebody's own statement has been at.
    std::string With_Statement(const char* sql) {
        const std::string other = folder.File("other.CRF");
        Put_Bytes(other, bytes);
        sqlite3* handle = nullptr;
        sqlite3_open(other.c_str(), &handle);
        const auto compare = [](void*, int, const void*, int, const void*) { return 0; };
        sqlite3_create_collation(handle, "TEXT1252", SQLITE_UTF8, nullptr, compare);
        EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
        sqlite3_close(handle);
        const std::string content = Bytes_Of(other);
        fs::remove(other);
        return content;
    }

    std::string dump, bytes;
};

TEST_F(OpenTest, AReportFileOpensAsItWasLeft) {
    db = DBEngine::OpenDatabase(path);
    EXPECT_TRUE(db.Is_Open());
    EXPECT_FALSE(db.Is_Read_Only());
    EXPECT_EQ(db.Path(), path);
    EXPECT_EQ(Dump(db), dump);
    db.Close();
    EXPECT_FALSE(db.Is_Open());
    EXPECT_EQ(Bytes_Of(path) == bytes, true);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, WhatIsNoReportFileIsRefused) {
    Expect_Refused("", DbErrorCode::NotADatabase, "empty");
    Expect_Refused("short", DbErrorCode::NotADatabase, "short");
    Expect_Refused(std::string(8192, 'x'), DbErrorCode::NotADatabase, "a text");
    Expect_Refused(std::string(8192, '\0'), DbErrorCode::NotADatabase, "zeros");
    Expect_Refused(Changed(18, std::string_view("\2\2", 2)), DbErrorCode::NotADatabase, "write-ahead log");
    Expect_Refused(Changed(68, "ABCD"), DbErrorCode::NotADatabase, "another program's");
    Expect_Refused(Changed(60, std::string_view("\0\0\0\0", 4)), DbErrorCode::NotADatabase, "no layout");
    Expect_Refused(bytes.substr(0, bytes.size() - 4096), DbErrorCode::NotADatabase, "cut short");
    Expect_Refused(bytes.substr(0, 4096), DbErrorCode::NotADatabase, "one page");
}

TEST_F(OpenTest, ANewerLayoutHasItsOwnWords) {
    Expect_Refused(Changed(60, std::string_view("\0\0\0\2", 4)), DbErrorCode::NewerLayout, "newer");
    EXPECT_EQ(
        Error_Of([&] { DBEngine::OpenDatabase(path); }).find("newer version of this program") != std::string::npos,
        true);
}

TEST_F(OpenTest, AFileWithMoreThanTablesOfOursIsRefused) {
    const char* const foreign[] = {
        "CREATE VIEW v AS SELECT * FROM A",
        "CREATE TRIGGER t AFTER UPDATE ON A BEGIN DELETE FROM A; END",
        "CREATE TABLE x (y)",
        "CREATE TABLE x (y INTEGER PRIMARY KEY)",
        "CREATE TABLE \"x\"(\"y\" LONG INT DEFAULT 5)",
        "CREATE TABLE \"x\"(\"y\" LONG INT CHECK (y > abs(random())))",
        "CREATE TABLE \"x\"(\"y\" LONG INT UNIQUE)",
        "CREATE TABLE \"x\"(\"y\" TEXT(5))",
        "CREATE TABLE \"x\"(\"rowid\" LONG INT)",
        "CREATE TABLE \"x\"(\"y\" LONG INT, \"z\" LONG INT AS (y + 1))",
        "CREATE INDEX other ON A (Label)",
        "CREATE INDEX \"A!part\" ON A (Label) WHERE Label > 'm'",
        "CREATE INDEX \"A!upper\" ON A (upper(Label))",
        "CREATE TABLE \"x\"(\"y\" LONG INT PRIMARY KEY) WITHOUT ROWID",
        "ANALYZE",
        "CREATE VIRTUAL TABLE f USING fts5(a)",
    };
    for (const char* sql : foreign) Expect_Refused(With_Statement(sql), DbErrorCode::NotADatabase, sql);
}

TEST_F(OpenTest, AFileWithoutWritePermissionOpensReadOnly) {
    fs::permissions(path, fs::perms::owner_read);
    db = DBEngine::OpenDatabase(path);
    EXPECT_TRUE(db.Is_Read_Only());
    EXPECT_EQ(Dump(db), dump);
    EXPECT_EQ(Code_Of([&] { Run("DELETE * FROM A"); }), DbErrorCode::ReadOnly);
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Code_Of([&] { rs.Edit(); }), DbErrorCode::ReadOnly);
    EXPECT_EQ(Code_Of([&] { Make_Table(db, "B", {{"x", FieldType::Long}}); }), DbErrorCode::ReadOnly);
    db.Close();
    EXPECT_EQ(Bytes_Of(path) == bytes, true);
}

// Cut anywhere, a file is refused and untouched. Page ends are the dangerous places.
TEST_F(OpenTest, AFileCutAnywhereIsRefused) {
    for (std::size_t size = 0; size < bytes.size(); size += size % 4096 == 0 ? 1 : 1365) {
        Expect_Refused(bytes.substr(0, size), DbErrorCode::NotADatabase, "cut at " + std::to_string(size));
    }
}

// A flipped byte is found, or it stands where it changes only a value or nothing at all; it never crashes.
TEST_F(OpenTest, AFileWithAFlippedByteIsRefusedOrReadWithoutHarm) {
    std::mt19937 random(94);
    int refused = 0;
    for (int round = 0; round < 400; ++round) {
        const std::size_t place = round < 100 ? static_cast<std::size_t>(round) : random() % bytes.size();
        std::string content = bytes;
        content[place] = static_cast<char>(content[place] ^ static_cast<char>(1 + random() % 255));
        Put_Bytes(path, content);
        bool rebuilt = false;
        try {
            Database opened = DBEngine::OpenDatabase(path);
            rebuilt = opened.Has_Rebuilt_Index();
            Dump(opened);
        } catch (const DbError& error) {
            EXPECT_TRUE(error.Code() == DbErrorCode::NotADatabase || error.Code() == DbErrorCode::NewerLayout)
                << "byte " << place << ": " << error.Description();
            ++refused;
        }
        EXPECT_EQ(Bytes_Of(path) != content, rebuilt) << "byte " << place;
        EXPECT_EQ(Entries(), 1) << "byte " << place;
    }
    EXPECT_GT(refused, 50);
}

TEST_F(OpenTest, ValuesThatNoFieldHasReadAsNull) {
    Put_Bytes(path, With_Statement("UPDATE A SET Hours = 9e999, Made = -1e300 WHERE rowid = 1;"
                                   "UPDATE A SET Hours = 'text', Made = 'text', Label = x'ff00ff' WHERE rowid = 2;"
                                   "DELETE FROM A WHERE rowid > 2"));
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Rows(db, "SELECT Hours, Made FROM A WHERE LineNum = 1"), "-|-;");
    EXPECT_EQ(db.Read_Row("SELECT Hours FROM A WHERE LineNum = 2")["Hours"], Value(0.0));
    EXPECT_EQ(db.Read_Row("SELECT Label FROM A WHERE LineNum = 2")["Label"].To_Text().size(), 3u);
}

// A full disk, as a limit on what a process may write shows it. In a child: the limit is the process's.
TEST_F(OpenTest, ACreationOnAFullDiskLeavesWhatIsThere) {
    const std::string fresh = folder.File("New.CRF");
    for (const std::string& target : {path, fresh}) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Database created = DBEngine::CreateDatabase(target, "");
            Make_Table(created, "A", {{"x", FieldType::Long}});
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit most{5000, 5000};
            ::setrlimit(RLIMIT_FSIZE, &most);
            // Inside a file the engine only knows that it cannot write.
            const DbErrorCode code = Code_Of([&] { DBEngine::Finish_Creation(created); });
            ::_exit(code == DbErrorCode::DiskFull || (target == path && code == DbErrorCode::DiskError) ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(Bytes_Of(path) == bytes, true);
        EXPECT_EQ(Entries(), 1);
    }
}

TEST_F(OpenTest, LeftoversOfAKilledProgramAreRemoved) {
    Put_Bytes(path + "-journal", std::string(512, '\0'));
    Put_Bytes(path + ".tallmar", bytes);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Dump(db), dump);
    EXPECT_EQ(Entries(), 1);
    db.Close();
    Put_Bytes(path + "-journal", "");
    DBEngine::OpenDatabase(path).Close();
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, AFileBesideTheReportThatIsSomebodysStays) {
    Put_Bytes(path + ".tmp", "precious");
    DBEngine::OpenDatabase(path).Close();
    DBEngine::CompactDatabase(path, path);
    EXPECT_EQ(Bytes_Of(path + ".tmp"), "precious");
}

TEST_F(OpenTest, ACreatedFileIsNotThereBeforeItIsFinished) {
    const std::string made = folder.File("New.CRF");
    Database created = DBEngine::CreateDatabase(made, ";LANGID=0x0409;CP=1252;COUNTRY=0");
    EXPECT_EQ(created.Path(), made);
    Make_Table(created, "A", {{"x", FieldType::Long}});
    created.Execute("INSERT INTO A (x) VALUES (1)");
    EXPECT_EQ(Entries(), 1);
    DBEngine::Finish_Creation(created);
    EXPECT_FALSE(created.Is_Open());
    EXPECT_EQ(Entries(), 2);
    Database opened = DBEngine::OpenDatabase(made);
    EXPECT_EQ(Rows(opened, "A"), "1;");
}

TEST_F(OpenTest, ACreationReplacesAFileOnlyWhenItIsFinished) {
    Database created = DBEngine::CreateDatabase(path, "");
    EXPECT_EQ(Bytes_Of(path) == bytes, true);
    DBEngine::Finish_Creation(created);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(db.TableDefs().Count(), 0);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, ACreationWithoutAFolderFailsAtOnce) {
    EXPECT_EQ(Code_Of([&] { DBEngine::CreateDatabase(folder.File("none/New.CRF"), ""); }), DbErrorCode::CannotOpen);
    EXPECT_EQ(Code_Of([&] { DBEngine::CreateDatabase(folder.Path(), ""); }), DbErrorCode::CannotOpen);
}

TEST_F(OpenTest, ACompactedFileHoldsTheSameAndLessOfNothing) {
    db = DBEngine::OpenDatabase(path);
    Run("SELECT A.* INTO Big FROM A");
    for (int i = 0; i < 6; ++i) Run("INSERT INTO Big (LineNum, Label) SELECT LineNum, Label FROM Big");
    Run("DROP TABLE Big");
    Run("DELETE * FROM A WHERE LineNum Between 50 And 150");
    const std::string before = Dump(db);
    db.Close();
    const std::string large = Bytes_Of(path);
    const std::string to = folder.File("Packed.CRF");
    DBEngine::CompactDatabase(path, to);
    EXPECT_EQ(Bytes_Of(path) == large, true);
    EXPECT_LT(fs::file_size(to), fs::file_size(path) / 4);
    EXPECT_EQ(Entries(), 2);
    db = DBEngine::OpenDatabase(to);
    EXPECT_EQ(Dump(db), before);
}

TEST_F(OpenTest, ANameWithoutRoomForTheJournalIsRefused) {
    const std::string longest = folder.File(std::string(243, 'x') + ".CRF");
    DBEngine::CopyDatabase(path, longest);
    Database opened = DBEngine::OpenDatabase(longest);
    opened.Execute("DELETE * FROM A");
    opened.Close();
    const std::string tooLong = folder.File(std::string(244, 'x') + ".CRF");
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(path, tooLong); }), DbErrorCode::CannotOpen);
    EXPECT_EQ(Code_Of([&] { DBEngine::CreateDatabase(tooLong, ""); }), DbErrorCode::CannotOpen);
    std::string deep = folder.Path();
    while (deep.size() < 480) fs::create_directory(deep += "/" + std::string(20, 'd'));
    deep += "/" + std::string(512 - 8 - deep.size(), 'x');
    EXPECT_EQ(deep.size(), 505u);
    EXPECT_EQ(Code_Of([&] { DBEngine::CopyDatabase(path, deep); }), DbErrorCode::CannotOpen);
    deep.pop_back();
    DBEngine::CopyDatabase(path, deep);
    DBEngine::OpenDatabase(deep).Execute("DELETE * FROM A");
    EXPECT_EQ(Entries(), 3);
}

// The engine would play it back into the new report.
TEST_F(OpenTest, NoReportIsPlacedBesideAJournalOfAnother) {
    const std::string made = folder.File("New.CRF");
    Put_Bytes(made + "-journal", "of a report that has gone");
    EXPECT_EQ(Error_Of([&] { DBEngine::CopyDatabase(path, made); }),
              "The file '" + made + "-journal' cannot be opened");
    EXPECT_FALSE(fs::exists(made));
    EXPECT_EQ(Bytes_Of(made + "-journal"), "of a report that has gone");
}

TEST_F(OpenTest, ABadFileIsNotCompacted) {
    Put_Bytes(path, "no report");
    const std::string to = folder.File("Packed.CRF");
    EXPECT_EQ(Code_Of([&] { DBEngine::CompactDatabase(path, to); }), DbErrorCode::NotADatabase);
    EXPECT_FALSE(fs::exists(to));
    EXPECT_EQ(Code_Of([&] { DBEngine::CompactDatabase(folder.File("none"), to); }), DbErrorCode::CannotOpen);
}

TEST_F(OpenTest, ASoundFileIsLeftAsItIsByRepair) {
    DBEngine::RepairDatabase(path);
    EXPECT_EQ(Bytes_Of(path) == bytes, true);
    EXPECT_EQ(Code_Of([&] { DBEngine::RepairDatabase(folder.File("none")); }), DbErrorCode::CannotOpen);
}

constexpr const char* kDoubled = "INSERT INTO A (LineNum) VALUES (5)";

// The rows are all there, and no index finds them.
constexpr const char* kEmptyIndex =
    "PRAGMA writable_schema = ON;"
    "CREATE TABLE keep AS SELECT sql FROM sqlite_schema WHERE name = 'A!ndx';"
    "UPDATE sqlite_schema SET sql = 'CREATE UNIQUE INDEX \"A!ndx\" ON \"A\"(\"LineNum\") WHERE 0' WHERE name = "
    "'A!ndx';"
    "PRAGMA writable_schema = RESET;"
    "REINDEX;"
    "PRAGMA writable_schema = ON;"
    "UPDATE sqlite_schema SET sql = (SELECT sql FROM keep) WHERE name = 'A!ndx';"
    "DROP TABLE keep;"
    "PRAGMA writable_schema = RESET;";

TEST_F(OpenTest, AnIndexThatLostItsRowsIsRebuiltInTheFile) {
    Put_Bytes(path, With_Statement(kEmptyIndex));
    db = DBEngine::OpenDatabase(path);
    EXPECT_TRUE(db.Has_Rebuilt_Index());
    EXPECT_EQ(Dump(db), dump);
    EXPECT_EQ(Rows(db, "SELECT Label FROM A WHERE LineNum = 7"), "line 7;");
    EXPECT_EQ(Code_Of([&] { Run(kDoubled); }), DbErrorCode::DuplicateKey);
    Reopen();
    EXPECT_FALSE(db.Has_Rebuilt_Index());
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, OfAFileThatIsReadOnlyTheIndexIsRebuiltInACopy) {
    const std::string broken = With_Statement(kEmptyIndex);
    Put_Bytes(path, broken);
    fs::permissions(path, fs::perms::owner_read);
    db = DBEngine::OpenDatabase(path);
    EXPECT_TRUE(db.Has_Rebuilt_Index());
    EXPECT_TRUE(db.Is_Read_Only());
    EXPECT_EQ(Dump(db), dump);
    EXPECT_EQ(Rows(db, "SELECT Label FROM A WHERE LineNum = 7"), "line 7;");
    EXPECT_EQ(Code_Of([&] { Run("DELETE * FROM A"); }), DbErrorCode::ReadOnly);
    EXPECT_EQ(Code_Of([&] { DBEngine::RepairDatabase(path); }), DbErrorCode::ReadOnly);
    EXPECT_EQ(Bytes_Of(path) == broken, true);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, AnIndexOverRowsThatAreDoubledCannotBeRebuilt) {
    const std::string broken =
        With_Statement((std::string(kEmptyIndex) + "INSERT INTO A (LineNum) VALUES (50000)").c_str());
    Expect_Refused(broken, DbErrorCode::NotADatabase, "doubled rows");
}

TEST_F(OpenTest, ACopyIsChangedWithoutItsFile) {
    Database copy = DBEngine::OpenCopy(path);
    EXPECT_EQ(copy.Path(), path);
    EXPECT_FALSE(copy.Is_Read_Only());
    EXPECT_FALSE(copy.Has_Rebuilt_Index());
    EXPECT_EQ(Dump(copy), dump);
    copy.Execute("DELETE * FROM A WHERE LineNum > 10");
    Make_Table(copy, "B", {{"x", FieldType::Long}});
    EXPECT_EQ(Rows(copy, "SELECT Count(*) FROM A"), "10;");
    // Who has the copy open keeps nobody waiting.
    db = DBEngine::OpenDatabase(path);
    Run("UPDATE A SET Hours = 1");
    EXPECT_FALSE(copy.Changed_Elsewhere());
    copy.Close();
    EXPECT_EQ(Rows(db, "SELECT Count(*) FROM A"), "200;");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, OfACopyTheIndexIsRebuiltAndTheFileStaysAsItIs) {
    const std::string broken = With_Statement(kEmptyIndex);
    Put_Bytes(path, broken);
    Database copy = DBEngine::OpenCopy(path);
    EXPECT_TRUE(copy.Has_Rebuilt_Index());
    EXPECT_EQ(Dump(copy), dump);
    EXPECT_EQ(Bytes_Of(path) == broken, true);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(OpenTest, RepairRebuildsAnIndex) {
    Put_Bytes(path, With_Statement(kEmptyIndex));
    DBEngine::RepairDatabase(path);
    db = DBEngine::OpenDatabase(path);
    EXPECT_FALSE(db.Has_Rebuilt_Index());
    EXPECT_EQ(Dump(db), dump);
}

TEST_F(OpenTest, BeyondRepairIsSaidAndUntouched) {
    std::string content = bytes;
    for (std::size_t i = 4096; i < content.size(); ++i) content[i] = static_cast<char>(i * 31);
    Put_Bytes(path, content);
    EXPECT_EQ(Code_Of([&] { DBEngine::RepairDatabase(path); }), DbErrorCode::NotADatabase);
    EXPECT_EQ(Bytes_Of(path) == content, true);
    EXPECT_EQ(Entries(), 1);
}

}  // namespace
}  // namespace tallmar
