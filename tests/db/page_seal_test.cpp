// Checksums of the pages of a report file.
#include "db/page_seal.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <random>

#include "db/crf_header.h"
#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

constexpr std::size_t kPage = 4096;
constexpr unsigned char kIndexLeaf = 0x0a;

// What a program without seals does to a file.
void Run_Plain(const std::string& path, const std::string& sql) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
    const auto compare = [](void*, int, const void*, int, const void*) { return 0; };
    sqlite3_create_collation(handle, "TEXT1252", SQLITE_UTF8, nullptr, compare);
    EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
    sqlite3_close(handle);
}

class PageSeal : public DbTest {
  protected:
    void SetUp() override {
        Job job(db);
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency}, {"Label", FieldType::Text, 40}, {"Col_1", FieldType::Currency}});
        Run("CREATE UNIQUE INDEX ndx ON A (LineNum)");
        for (int i = 1; i <= 300; ++i) {
            const std::string line = std::to_string(i);
            Run("INSERT INTO A VALUES (" + line + ", 'line " + line + "', " + line + "00)");
        }
        job.Keep();
        dump = Dump(db);
        db.Close();
        bytes = Bytes_Of(path);
    }
    static bool Is_Index_Page(const std::string& file, std::size_t place) {
        return static_cast<unsigned char>(file[place / kPage * kPage]) == kIndexLeaf;
    }
    static std::string Flipped(std::string file, std::size_t place, unsigned bit) {
        file[place] = static_cast<char>(file[place] ^ (1 << bit));
        return file;
    }
    // Refused, or with a damaged index rebuilt.
    void Expect_Seen(const std::string& file, std::size_t place) {
        Put_Bytes(path, file);
        try {
            Database opened = DBEngine::OpenDatabase(path);
            EXPECT_TRUE(opened.Has_Rebuilt_Index()) << "byte " << place;
            EXPECT_TRUE(Is_Index_Page(file, place)) << "byte " << place;
            EXPECT_TRUE(Dump(opened) == dump) << "byte " << place;
        } catch (const DbError& error) {
            EXPECT_TRUE(error.Code() == DbErrorCode::NotADatabase || error.Code() == DbErrorCode::NewerLayout)
                << "byte " << place;
            EXPECT_TRUE(Bytes_Of(path) == file) << "byte " << place;
        }
    }
    // Whether a letter that a disk has changed is seen.
    bool Is_Sealed() {
        const std::string file = Bytes_Of(path);
        const std::size_t place = file.find("line 150");
        if (place == std::string::npos) ADD_FAILURE() << "the file has no such label";
        Put_Bytes(path, Flipped(file, place, 1));
        const bool seen = Code_Of([&] { DBEngine::OpenDatabase(path); }) == DbErrorCode::NotADatabase;
        Put_Bytes(path, file);
        return seen;
    }

    std::string dump, bytes;
};

// A program that was killed, or refused by the system, between the end of such a change and the cut.
TEST_F(PageSeal, WhatAShorterReportHasNotCutOffIsNoneOfItsPages) {
    const std::string longer = bytes + bytes.substr(kPage, 2 * kPage);
    Put_Bytes(path, longer);
    EXPECT_EQ(Dump(db = DBEngine::OpenDatabase(path)), dump);
    db.Close();
    EXPECT_TRUE(Bytes_Of(path) == longer);
    EXPECT_TRUE(Is_Sealed());
    DBEngine::CompactDatabase(path, path);
    EXPECT_LE(std::filesystem::file_size(path), bytes.size());
    EXPECT_EQ(Dump(db = DBEngine::OpenDatabase(path)), dump);
}

TEST_F(PageSeal, OneBitAnywhereIsSeen) {
    std::mt19937 random(1728);
    for (std::size_t place = 0; place < bytes.size(); place += 61) {
        Expect_Seen(Flipped(bytes, place, random() % 8), place);
    }
}

TEST_F(PageSeal, EveryWayOfChangingAReportSealsIt) {
    db = DBEngine::OpenDatabase(path);
    Run("UPDATE A SET Col_1 = Col_1 + 1");
    EXPECT_TRUE(Is_Sealed());
    {
        Job job(db);
        Make_Table(db, "B", {{"t", FieldType::Memo}});
        for (int i = 0; i < 50; ++i) Run("INSERT INTO B (t) VALUES ('" + std::string(9000, 'x') + "')");
        job.Keep();
    }
    EXPECT_TRUE(Is_Sealed());
    Run("DROP TABLE B");
    EXPECT_TRUE(Is_Sealed());
    {
        const Job notKept(db);
        Run("DELETE * FROM A");
    }
    EXPECT_TRUE(Is_Sealed());
    Reopen();
    EXPECT_FALSE(db.Has_Rebuilt_Index());
    db.Close();
    DBEngine::CompactDatabase(path, path);
    EXPECT_TRUE(Is_Sealed());
    DBEngine::OpenDatabase(path).Close();
}

TEST_F(PageSeal, ARolledBackFileIsSealed) {
    db = DBEngine::OpenDatabase(path);
    TableDef table = db.TableDefs().Item("A");
    table.Fields_Append(table.CreateField("x", FieldType::Long));
    db.Close();
    dump = Dump(db = DBEngine::OpenDatabase(path));
    db.Close();
    Be_Killed_In_A_Job(path);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Dump(db), dump);
    db.Close();
    EXPECT_TRUE(Is_Sealed());
}

TEST_F(PageSeal, WhatAnotherProgramHasWrittenIsTakenUntilTheReportIsCompacted) {
    Run_Plain(path, "UPDATE A SET Col_1 = 7 WHERE rowid = 5");
    db = DBEngine::OpenDatabase(path);
    EXPECT_FALSE(db.Has_Rebuilt_Index());
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A WHERE LineNum = 5"), "0.0007;");
    // Pages sealed by then stand beside pages that are not.
    Run("UPDATE A SET Col_1 = 8 WHERE LineNum = 299");
    Reopen();
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A WHERE LineNum In (5, 299)"), "0.0007;8;");
    Run("UPDATE A SET Col_1 = 9 WHERE LineNum = 5");
    Reopen();
    db.Close();
    EXPECT_FALSE(Is_Sealed());
    DBEngine::CompactDatabase(path, path);
    EXPECT_TRUE(Is_Sealed());
}

TEST_F(PageSeal, WhatAnotherProgramHasRewrittenIsTaken) {
    Run_Plain(path, "UPDATE A SET Col_1 = 7 WHERE rowid = 5; VACUUM");
    db = DBEngine::OpenDatabase(path);
    Run("UPDATE A SET Col_1 = 8 WHERE LineNum = 299");
    Reopen();
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A WHERE LineNum In (5, 299)"), "0.0007;8;");
}

TEST_F(PageSeal, AFileWithoutRoomForSealsGetsItWhenItIsCompacted) {
    const std::string old = folder.File("Old.CRF");
    Run_Plain(old, "PRAGMA application_id = " + std::to_string(kCrfApplicationId) +
                       "; PRAGMA user_version = 1;"
                       "CREATE TABLE \"A\"(\"x\" LONG INT, \"t\" MEMO TEXT COLLATE TEXT1252);"
                       "INSERT INTO A VALUES (1, 'line 150');");
    ASSERT_EQ(Bytes_Of(old)[20], 0);
    db = DBEngine::OpenDatabase(old);
    Run("INSERT INTO A (x) VALUES (2)");
    EXPECT_EQ(Rows(db, "SELECT x FROM A"), "1;2;");
    db.Close();
    DBEngine::CompactDatabase(old, path);
    EXPECT_EQ(Bytes_Of(path)[20], db_detail::kSealSize);
    EXPECT_TRUE(Is_Sealed());
    EXPECT_EQ(Rows(db = DBEngine::OpenDatabase(path), "SELECT x FROM A"), "1;2;");
}

TEST_F(PageSeal, AProgramWithoutSealsReadsTheFile) {
    Run_Plain(path,
              "CREATE TEMP TABLE t AS SELECT CASE WHEN Count(*) = 300 THEN 1 ELSE 1/0 END FROM A;"
              "PRAGMA integrity_check");
    EXPECT_TRUE(Bytes_Of(path) == bytes);
}

}  // namespace
}  // namespace tallmar
