// Every write that a disk can refuse is refused once: whatever fails, the file holds what stood before or after.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>

#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

// A file system under the engine whose n-th write, flush, cut or removal fails, alone or with all that come after it.
struct Faults {
    int countdown = -1;  // -1: nothing fails
    bool lasting = false;
    int result = SQLITE_IOERR;

    bool Strikes() {
        if (countdown < 0) return false;
        if (countdown > 0) {
            --countdown;
            return false;
        }
        if (!lasting) countdown = -1;
        hit = true;
        return true;
    }
    bool hit = false;
};
Faults faults;

struct FaultyFile {
    sqlite3_file base;
    sqlite3_file* real;
};
sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<FaultyFile*>(file)->real;
}
const sqlite3_io_methods& Methods(sqlite3_file* file) {
    return *Real(file)->pMethods;
}

int Close_File(sqlite3_file* file) {
    return Methods(file).xClose(Real(file));
}
int Read_File(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
    return Methods(file).xRead(Real(file), bytes, count, at);
}
// A write that fails has half of its bytes on the disk.
int Write_File(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    if (!faults.Strikes()) return Methods(file).xWrite(Real(file), bytes, count, at);
    Methods(file).xWrite(Real(file), bytes, count / 2, at);
    return faults.result;
}
int Cut_File(sqlite3_file* file, sqlite3_int64 size) {
    return faults.Strikes() ? SQLITE_IOERR_TRUNCATE : Methods(file).xTruncate(Real(file), size);
}
int Flush_File(sqlite3_file* file, int flags) {
    return faults.Strikes() ? SQLITE_IOERR_FSYNC : Methods(file).xSync(Real(file), flags);
}
int File_Size(sqlite3_file* file, sqlite3_int64* size) {
    return Methods(file).xFileSize(Real(file), size);
}
int Lock_File(sqlite3_file* file, int level) {
    return Methods(file).xLock(Real(file), level);
}
int Unlock_File(sqlite3_file* file, int level) {
    return Methods(file).xUnlock(Real(file), level);
}
int Is_Reserved(sqlite3_file* file, int* result) {
    return Methods(file).xCheckReservedLock(Real(file), result);
}
int Control_File(sqlite3_file* file, int what, void* argument) {
    return Methods(file).xFileControl(Real(file), what, argument);
}
int Sector_Size(sqlite3_file* file) {
    return Methods(file).xSectorSize(Real(file));
}
int Characteristics(sqlite3_file*) {
    return 0;
}

constexpr sqlite3_io_methods kMethods = {
    1,         Close_File,  Read_File,   Write_File,   Cut_File,    Flush_File,      File_Size,
    Lock_File, Unlock_File, Is_Reserved, Control_File, Sector_Size, Characteristics, nullptr,
    nullptr,   nullptr,     nullptr,     nullptr,      nullptr};

sqlite3_vfs* realVfs = nullptr;

int Open_File(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    auto* faulty = reinterpret_cast<FaultyFile*>(file);
    faulty->base.pMethods = nullptr;
    faulty->real = reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(FaultyFile));
    const int result = realVfs->xOpen(realVfs, name, faulty->real, flags, outFlags);
    if (result == SQLITE_OK) faulty->base.pMethods = &kMethods;
    return result;
}
int Remove_File(sqlite3_vfs*, const char* name, int flush) {
    return faults.Strikes() ? SQLITE_IOERR_DELETE : realVfs->xDelete(realVfs, name, flush);
}

// The engine opens its files through it while it stands.
class FaultyDisk {
  public:
    FaultyDisk() {
        realVfs = sqlite3_vfs_find(nullptr);
        vfs_ = *realVfs;
        vfs_.szOsFile += static_cast<int>(sizeof(FaultyFile));
        vfs_.zName = "faulty";
        vfs_.pNext = nullptr;
        vfs_.xOpen = Open_File;
        vfs_.xDelete = Remove_File;
        sqlite3_vfs_register(&vfs_, 1);
        faults = {};
    }
    ~FaultyDisk() {
        sqlite3_vfs_unregister(&vfs_);
        sqlite3_vfs_register(realVfs, 1);
        faults = {};
    }
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

  private:
    sqlite3_vfs vfs_;
};

using Work = std::function<void(Database&)>;

void Single_Statement(Database& db) {
    db.Execute("UPDATE A SET Col_1 = Col_1 + 1, Label = 'changed'");
}

void Join_Update(Database& db) {
    db.Execute("UPDATE A INNER JOIN B ON A.LineNum = B.LineNum SET A.Col_1 = A.Col_1 + B.Add");
}

// Statements of a job go on after one has failed, as a calculation does.
void Statements_Of_Job(Database& db) {
    for (const char* sql : {"UPDATE A SET Label = 'in the job'", "SELECT A.* INTO C FROM A",
                            "INSERT INTO C (LineNum) SELECT LineNum + 100 FROM A", "DELETE * FROM B", "DROP TABLE B"}) {
        try {
            db.Execute(sql);
        } catch (const DbError&) {
        }
    }
}

void Long_Job(Database& db) {
    Job job(db);
    Statements_Of_Job(db);
    job.Keep();
}

// A job within the job that is given up leaves the rest whole, and a failing disk leaves nothing.
void Job_Around_One_Not_Kept(Database& db) {
    Job job(db);
    db.Execute("UPDATE A SET Col_1 = 1");
    try {
        const Job inner(db);
        Statements_Of_Job(db);
    } catch (const DbError&) {
    }
    db.Execute("UPDATE B SET Add = 8");
    job.Keep();
}

void Edited_Row(Database& db) {
    Recordset rs = db.OpenRecordset("A");
    rs.MoveLast();
    rs.Edit();
    rs.Fields("Label").Set(Value("edited"));
    rs.Update();
}

struct FaultCase {
    const char* name;
    Work work;
    bool lasting;
    int result;
};

class FaultTest : public testing::TestWithParam<FaultCase> {};

TEST_P(FaultTest, TheFileHoldsWhatStoodBeforeOrAfter) {
    const FaultyDisk disk;
    TempFolder folder;
    const std::string path = folder.File("Test.CRF");
    std::string before, after;
    {
        Database db = New_File(path);
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency}, {"Col_1", FieldType::Currency}, {"Label", FieldType::Memo}});
        Make_Table(db, "B", {{"LineNum", FieldType::Currency}, {"Add", FieldType::Currency}});
        db.Execute("CREATE UNIQUE INDEX ndx ON A (LineNum)");
        const std::string label(500, 'x');
        Job job(db);
        for (int i = 1; i <= 40; ++i) {
            const std::string line = std::to_string(i);
            db.Execute("INSERT INTO A (LineNum, Col_1, Label) VALUES (" + line + ", 0, '" + label + "')");
            db.Execute("INSERT INTO B (LineNum, Add) VALUES (" + line + ", 7)");
        }
        job.Keep();
        before = Dump(db);
    }
    const std::string fresh = Bytes_Of(path);
    {
        Database db = DBEngine::OpenDatabase(path);
        GetParam().work(db);
        after = Dump(db);
    }
    ASSERT_NE(before, after);

    int failures = 0;
    for (int n = 0;; ++n) {
        ASSERT_LT(n, 2000);
        Put_Bytes(path, fresh);
        faults = {};
        Database db = DBEngine::OpenDatabase(path);
        faults = {n, GetParam().lasting, GetParam().result};
        bool failed = false;
        try {
            GetParam().work(db);
        } catch (const DbError& error) {
            failed = true;
            EXPECT_TRUE(error.Code() == DbErrorCode::DiskError || error.Code() == DbErrorCode::DiskFull)
                << error.Description();
        }
        if (db.Is_Open()) db.Close();
        const bool hit = faults.hit;
        faults = {};
        Database again = DBEngine::OpenDatabase(path);
        const std::string now = Dump(again);
        EXPECT_TRUE(now == before || now == after) << "write " << n;
        if (failed && GetParam().lasting) {
            EXPECT_TRUE(now == before) << "write " << n;
        }
        if (!failed) {
            EXPECT_TRUE(now == after) << "write " << n;
        }
        again.Close();
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "write " << n;
        if (!hit) {
            EXPECT_EQ(now, after);
            break;
        }
        ++failures;
    }
    EXPECT_GT(failures, 5);
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultTest,
                         testing::Values(FaultCase{"StatementOnce", Single_Statement, false, SQLITE_IOERR_WRITE},
                                         FaultCase{"StatementFromThenOn", Single_Statement, true, SQLITE_IOERR_WRITE},
                                         FaultCase{"StatementOnAFullDisk", Single_Statement, false, SQLITE_FULL},
                                         FaultCase{"JoinOnce", Join_Update, false, SQLITE_IOERR_WRITE},
                                         FaultCase{"JoinOnAFullDisk", Join_Update, true, SQLITE_FULL},
                                         FaultCase{"JobOnce", Long_Job, false, SQLITE_IOERR_WRITE},
                                         FaultCase{"JobFromThenOn", Long_Job, true, SQLITE_IOERR_WRITE},
                                         FaultCase{"JobOnAFullDisk", Long_Job, false, SQLITE_FULL},
                                         FaultCase{"NestedJobsOnce", Job_Around_One_Not_Kept, false,
                                                   SQLITE_IOERR_WRITE},
                                         FaultCase{"NestedJobsOnAFullDisk", Job_Around_One_Not_Kept, true, SQLITE_FULL},
                                         FaultCase{"EditOnce", Edited_Row, false, SQLITE_IOERR_WRITE},
                                         FaultCase{"EditOnAFullDisk", Edited_Row, true, SQLITE_FULL}),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace tallmar
