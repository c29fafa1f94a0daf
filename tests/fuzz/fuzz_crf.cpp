// Any bytes as a report file: it is refused with a DbError and left untouched, or opens, and then every table can be
// read or says in a DbError why not.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "db/database.h"
#include "fuzz/fuzz_target.h"
#include "support/temp_folder.h"

namespace tallmar {
namespace {

constexpr int kMostRows = 1'000;  // of a table: a file that loops must not hold the run up

std::string Content(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void Fill(Database& database, int rows) {
    TableDef table = database.CreateTableDef("CostCenters");
    table.Fields_Append(table.CreateField("LineNum", FieldType::Currency));
    table.Fields_Append(table.CreateField("CCName", FieldType::Text, 40));
    table.Fields_Append(table.CreateField("Made", FieldType::Date));
    table.Fields_Append(table.CreateField("Hours", FieldType::Double));
    table.Fields_Append(table.CreateField("Live", FieldType::Boolean));
    table.Fields_Append(table.CreateField("Notes", FieldType::Memo));
    database.TableDefs().Append(table);
    for (int i = 1; i <= rows; ++i) {
        const std::string n = std::to_string(i);
        database.Execute("INSERT INTO CostCenters VALUES (" + n + ".01, 'Center " + n + "', #10/1/2015#, " + n +
                         "/7, False, 'A note that is long enough to fill the page: " + n + "')");
    }
    database.Execute("CREATE UNIQUE INDEX ndx ON CostCenters (LineNum) WITH DISALLOW NULL");
    database.Execute("SELECT LineNum, CCName INTO Copy FROM CostCenters");
}

std::vector<std::string> Small_Reports(const std::string& sourceFolder) {
    std::vector<std::string> seeds;
    const TempFolder folder;
    for (const int rows : {0, 3, 60}) {
        const std::string path = folder.File("seed.CRF");
        Database created = DBEngine::CreateDatabase(path, ";LANGID=0x0409;CP=1252;COUNTRY=0");
        if (rows > 0) Fill(created, rows);
        DBEngine::Finish_Creation(created);
        seeds.push_back(Content(path));
    }
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder + "/tests/data/broken/crf")) {
        seeds.push_back(Content(entry.path().string()));
    }
    return seeds;
}

void Read_All(Database& database) {
    for (int i = 0; i < database.TableDefs().Count(); ++i) {
        const std::string name = database.TableDefs().Item(i).Name();
        try {
            Recordset rs = database.OpenRecordset(name);
            for (int rows = 0; !rs.Eof() && rows < kMostRows; ++rows, rs.MoveNext()) {
                for (int f = 0; f < rs.Fields_Count(); ++f) rs.Fields(f).Value();
            }
        } catch (const DbError&) {
        }
    }
    try {
        database.Execute("UPDATE CostCenters SET Hours = Hours + 1 WHERE LineNum > 2");
        database.Execute("INSERT INTO CostCenters (LineNum) SELECT LineNum + 1000 FROM Copy");
    } catch (const DbError&) {
    }
}

std::string Open_Bytes(std::string_view bytes) {
    const TempFolder folder;
    const std::string path = folder.File("broken.CRF");
    std::ofstream(path, std::ios::binary) << bytes;
    Database database;
    try {
        database = DBEngine::OpenDatabase(path);
    } catch (const DbError&) {
        return Content(path) == bytes ? "" : "a refused file has been changed";
    }
    try {
        Read_All(database);
    } catch (const DbError&) {
    }
    database.Close();
    return "";
}

}  // namespace

const FuzzTarget kFuzzTarget{262'144, Small_Reports, Open_Bytes};

}  // namespace tallmar
