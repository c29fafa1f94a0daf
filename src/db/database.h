// The one way to the data of a report: the operations of the database engine under the system's own names.
//
// A report file is one SQLite file and nothing beside it once closed. Objects here are handles: a Database is copied
// freely and means the same open file; a Recordset is local to one procedure and ends with it. One thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/db_error.h"
#include "common/value.h"
#include "db/job_kind.h"
#include "db/recordset_type.h"
#include "db/row.h"
#include "db/shapes.h"

namespace tallmar {

namespace db_detail {
class Connection;
struct Access;
struct RecordsetState;
}  // namespace db_detail

// A field of the current record.
class Field {
  public:
    const std::string& Name() const;
    FieldType Type() const;
    int Size() const;
    bool AllowZeroLength() const { return true; }
    // The value in the record under edit, else in the current record. Throws NoCurrentRecord.
    tallmar::Value Value() const;
    // Requires AddNew or Edit. The value is converted and checked here, not at Update.
    void Set(const tallmar::Value& value);

  private:
    friend class Recordset;
    Field(std::shared_ptr<db_detail::RecordsetState> state, int position)
        : state_(std::move(state)), position_(position) {}
    std::shared_ptr<db_detail::RecordsetState> state_;
    int position_;
};

// Rows of a table or of a SELECT. A dynaset holds the keys of its rows and reads a row when it comes to it; a row that
// has been deleted meanwhile reads as NoCurrentRecord. A snapshot holds the values. A table recordset is a dynaset
// over the whole table that also knows Index and Seek.
class Recordset {
  public:
    // True where there is no current record because the end was passed, or because there are no rows.
    bool Eof() const;
    bool Bof() const;
    bool NoMatch() const;
    // Rows seen so far: 0 or 1 after opening, the true count after MoveLast.
    std::int64_t RecordCount() const;
    // From 0; -1 without a current record. Setting one beyond the rows throws NoCurrentRecord.
    std::int64_t AbsolutePosition() const;
    void AbsolutePosition(std::int64_t position);
    // Names a record of this recordset and its clones; setting one goes there. A Bookmark{} that was never taken
    // throws NoCurrentRecord when set.
    struct BookmarkValue {
        std::int64_t position = -1;
    };
    BookmarkValue Bookmark() const;
    void Bookmark(BookmarkValue bookmark);
    Recordset Clone() const;

    // Moves throw NoCurrentRecord where there are no rows, and beyond an end that has been passed already. A move gives
    // an edit under way up.
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();
    // Criterion: any WHERE text of the dialect over the recordset's fields and tables. Where nothing is found NoMatch
    // is True and the current record stays. Over totals and DISTINCT rows there is no finding: InvalidOperation.
    void FindFirst(std::string_view criterion);
    void FindNext(std::string_view criterion);
    void FindPrevious(std::string_view criterion);
    void FindLast(std::string_view criterion);

    // Table recordsets only. The index gives the order of the rows, too; comparisons are = >= > <= <.
    void Index(std::string_view name);
    void Seek(std::string_view comparison, const Value& key);

    void AddNew();
    void Edit();
    // Writes what was set since AddNew or Edit: only the fields set, in one statement. After AddNew the current
    // record is the one before it. Through a join the fields set must belong to one table, else NotUpdatable.
    void Update();
    void CancelUpdate();
    void Delete();
    void Close();

    int Fields_Count() const;
    Field Fields(std::string_view name) const;  // throws ItemNotFound
    Field Fields(int position) const;
    // The value of a field of the current record: rs["Col_1"].
    tallmar::Value operator[](std::string_view name) const { return Fields(name).Value(); }

  private:
    friend class Database;
    explicit Recordset(std::shared_ptr<db_detail::RecordsetState> state) : state_(std::move(state)) {}
    std::shared_ptr<db_detail::RecordsetState> state_;
};

// The design of a table: of one that is in the file (Database::TableDefs), or of a new one on its way there.
class TableDef {
  public:
    const std::string& Name() const { return shape_.name; }
    // Renames the table in the file, with its indexes; of a new one only the design.
    void Name(std::string_view name);
    const TableShape& Shape() const { return shape_; }
    int Fields_Count() const { return static_cast<int>(shape_.fields.size()); }

    FieldDef CreateField(std::string_view name, FieldType type, int size = 0) const;
    // Appends to the design, and to the table where it is in the file: Null in every row.
    void Fields_Append(const FieldDef& field);
    void Fields_Delete(std::string_view name);
    void Field_Name(std::string_view field, std::string_view newName);

  private:
    friend class Database;
    friend class TableDefs;
    std::shared_ptr<db_detail::Connection> connection_;  // null while the design is new
    TableShape shape_;
};

class TableDefs {
  public:
    void Append(TableDef& table);
    void Delete(std::string_view name);
    // Throws DatabaseClosed on a closed handle: this is how a caller learns that no report is open.
    void Refresh();
    int Count() const;
    // In name order.
    TableDef Item(int position) const;
    TableDef Item(std::string_view name) const;
    bool Has(std::string_view name) const;

  private:
    friend class Database;
    explicit TableDefs(std::shared_ptr<db_detail::Connection> connection) : connection_(std::move(connection)) {}
    std::shared_ptr<db_detail::Connection> connection_;
};

class Database {
  public:
    Database() = default;  // closed
    bool Is_Open() const;
    const std::string& Path() const;
    bool Is_Read_Only() const;
    // True where the opening found an index damaged and rebuilt it: tell the user.
    bool Has_Rebuilt_Index() const;
    // True where another program, or another connection of this one, has committed to the file since the last call, or
    // since the file was opened. Cheap enough for every time that a window comes up.
    bool Changed_Elsewhere();
    // Ends every recordset, and takes a job under way back. A closed handle stays as an object whose operations throw
    // DatabaseClosed.
    void Close();

    // One action statement; the rows it changed.
    std::int64_t Execute(std::string_view sql);
    Recordset OpenRecordset(std::string_view source, RecordsetType type = RecordsetType::Dynaset);
    // The first row of a SELECT, as a snapshot.
    Row Read_Row(std::string_view select);
    // All of them.
    std::vector<Row> Read_Rows(std::string_view select);
    // Hands each of them on as it is read and holds none. `visit` must leave the file alone.
    void For_Each_Row(std::string_view select, const std::function<void(const Row&)>& visit);

    // Writes a label of the form into a text field of the row of `line`. The field's size, the limit of what a person
    // may type, does not bind the form's own words: a few of them are longer.
    void Write_Label(std::string_view table, std::string_view field, Currency line, std::string_view label);

    TableDef CreateTableDef(std::string_view name) const;
    tallmar::TableDefs TableDefs() const;
    // True for a SELECT, which is opened and not executed.
    static bool Is_Select(std::string_view sql);

  private:
    friend struct DBEngine;
    friend struct db_detail::Access;
    friend class Job;
    std::shared_ptr<db_detail::Connection> connection_;
};

struct DBEngine {
    // An empty report for `path`, open. Until Finish_Creation it is in memory, so that a killed creation leaves
    // nothing behind. Throws CannotOpen where no report can be at `path`: no folder, or no room in the name for the
    // engine's journal.
    static Database CreateDatabase(const std::string& path, std::string_view locale);
    // Puts a created database at its path in one step and closes it. A report that is there already gets the new
    // content as one change inside its file, since others may have it open; what is no report is replaced. Throws
    // Locked, ReadOnly, CannotOpen, DiskFull; what is at the path is untouched then.
    static void Finish_Creation(Database& created);
    // Shared, read and write; read only where the file is. The whole file is checked; where an index alone is damaged
    // it is rebuilt from its table, in the file or, where that is read only, in a copy in memory. Throws DbError
    // NotADatabase (no report file, damaged, foreign), NewerLayout, CannotOpen (with the reason), Locked. The file is
    // untouched then.
    static Database OpenDatabase(const std::string& path);
    // The file as it is now as a private copy in memory, checked and mended likewise. What is changed there never
    // reaches the file, and nobody waits for who has it open.
    static Database OpenCopy(const std::string& path);
    // Rebuilds a damaged index. Throws what OpenDatabase throws, and ReadOnly.
    static void RepairDatabase(const std::string& path);
    // Packs the report at `from` into `to`. The two may be one file: then it is packed inside, as one change, and who
    // has it open goes on with it. Throws what CopyDatabase throws, and what OpenDatabase throws.
    static void CompactDatabase(const std::string& from, const std::string& to);
    // The file as it is between two jobs of the programs that use it, placed at `to` as Finish_Creation does; a new
    // file is no wider in its rights than `from`. Onto itself it does nothing. Throws Locked where one of the two files
    // is being changed, NotADatabase, CannotOpen, ReadOnly, DiskFull; what is at `to` is untouched then.
    static void CopyDatabase(const std::string& from, const std::string& to);
    // The same to a name that has no file. False, and nothing has changed, where there is one.
    static bool CopyToNewFile(const std::string& from, const std::string& to);
    // False where a report at `path` could be read but not changed: its name, or the whole path, is too long for that
    // of the journal that the engine keeps beside it.
    static bool Has_Room_For_Journal(const std::string& path);
};

// A long job: one transaction. Where it ends without Keep, by an exception or by a return, the file is as it was
// before, as after a crash, a kill or a power cut. Jobs nest. An inner one that is not kept takes back its own changes
// alone, and the outer one goes on. What an inner one keeps reaches the file with the outermost job, or not at all. A
// failure of the disk or of the memory takes all of them back at once. What they still try to write is refused, a new
// inner job and Keep too, so that no part of the whole reaches the file.
class Job {
  public:
    using Kind = JobKind;

    explicit Job(Database& database, Kind kind = Kind::Changing);
    ~Job();
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    // Ends the job, and what it changed stays. Throws what stands in the way (disk full, file closed): the job can then
    // only be taken back.
    void Keep();
    // Brings what the job has written so far to the disk, not yet kept: a disk that is full is found out before anyone
    // hears of the change. Where somebody reads the file just now, that is left to Keep.
    void Write_Ahead();

  private:
    std::shared_ptr<db_detail::Connection> connection_;  // null once kept
};

}  // namespace tallmar
