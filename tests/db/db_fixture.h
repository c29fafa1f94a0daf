// Report files for the tests of the database layer.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

#include "db/database.h"
#include "support/temp_folder.h"

namespace tallmar {

struct TestField {
    const char* name;
    FieldType type;
    int size = 0;
};

inline void Make_Table(Database& db, std::string_view name, std::initializer_list<TestField> fields) {
    TableDef table = db.CreateTableDef(name);
    for (const TestField& field : fields) table.Fields_Append(table.CreateField(field.name, field.type, field.size));
    db.TableDefs().Append(table);
}

// "1|a;2|b;": the rows of a SELECT, Null as "-".
inline std::string Rows(Database& db, std::string_view select) {
    std::string text;
    for (Recordset rs = db.OpenRecordset(select, RecordsetType::Snapshot); !rs.Eof(); rs.MoveNext()) {
        for (int i = 0; i < rs.Fields_Count(); ++i) {
            const Value value = rs.Fields(i).Value();
            if (i > 0) text += '|';
            text += value.Is_Null() ? "-" : value.To_Text();
        }
        text += ';';
    }
    return text;
}

// Every table with its design and its rows.
inline std::string Dump(Database& db) {
    std::string text;
    for (int i = 0; i < db.TableDefs().Count(); ++i) {
        const TableDef table = db.TableDefs().Item(i);
        text += table.Name() + "(";
        for (const FieldDef& field : table.Shape().fields) {
            text += field.name + " " + std::string(Type_Name(field.type)) + " " + std::to_string(field.size) + ",";
        }
        for (const IndexDef& index : table.Shape().indexes) {
            text += " index " + index.name + (index.unique ? " unique" : "") + (index.disallowNull ? " no null" : "");
            for (const std::string& field : index.fields) text += " " + field;
        }
        text += ")\n" + Rows(db, "SELECT * FROM [" + table.Name() + "]") + "\n";
    }
    return text;
}

inline std::string Bytes_Of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void Put_Bytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// The code of the error that `action` ends in; 0 where there is none.
template <class Action>
DbErrorCode Code_Of(Action action) {
    try {
        action();
    } catch (const DbError& error) {
        return error.Code();
    }
    return DbErrorCode{};
}

template <class Action>
std::string Error_Of(Action action) {
    try {
        action();
    } catch (const DbError& error) {
        return error.Description();
    }
    return "no error";
}

inline Database New_File(const std::string& path) {
    Database made = DBEngine::CreateDatabase(path, ";LANGID=0x0409;CP=1252;COUNTRY=0");
    DBEngine::Finish_Creation(made);
    return DBEngine::OpenDatabase(path);
}

// An empty report file, open.
class DbTest : public testing::Test {
  protected:
    TempFolder folder;
    std::string path = folder.File("Test.CRF");
    Database db = New_File(path);

    void Run(std::string_view sql) { db.Execute(sql); }
    void Reopen() {
        db.Close();
        db = DBEngine::OpenDatabase(path);
    }
};

// Changes the table A of the file in a program of its own, which is killed in the middle of its job, some of the job
// in the file already. The journal stays.
inline void Be_Killed_In_A_Job(const std::string& path) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        try {
            Database mine = DBEngine::OpenDatabase(path);
            Job job(mine);
            mine.Execute("UPDATE A SET x = 100");
            Make_Table(mine, "Big", {{"t", FieldType::Memo}});
            // More than the pages kept in memory: some are written to the file early.
            const std::string line(20'000, 'x');
            for (int i = 0; i < 2'000; ++i) mine.Execute("INSERT INTO Big (t) VALUES ('" + line + "')");
            ::kill(::getpid(), SIGKILL);
        } catch (...) {  // the status says so
        }
        ::_exit(1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_TRUE(std::filesystem::exists(path + "-journal"));
}

}  // namespace tallmar
