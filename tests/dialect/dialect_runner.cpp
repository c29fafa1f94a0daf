// Runs one file of the dialect's corpus under one regime: dialect_runner <regime> <file>. README.md describes the
// format.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "common/text.h"
#include "db/database.h"
#include "db/statement_cache.h"
#include "dialect/dialect_file.h"
#include "sql/parser.h"
#include "sql/plan.h"
#include "sql/to_sql.h"

namespace tallmar {
namespace {

// How a file is run. The same cases must hold whichever way the statements reach the file.
struct Regime {
    std::string_view name;
    bool reopen, smallCache, job;
};
constexpr Regime kRegimes[] = {
    {"plain", false, false, false},
    {"reopen", true, false, false},  // file closed and opened again after each block
    {"cache1", false, true, false},  // room for one plan only
    {"job", false, false, true},     // all in one transaction
};

struct Run {
    Database db;
    std::string path;
    Regime regime;
    std::optional<Job> job;
};

std::string Show_Record(const Recordset& rs) {
    std::vector<std::string> cells;
    for (int i = 0; i < rs.Fields_Count(); ++i) cells.push_back(Show(rs.Fields(i).Value(), rs.Fields(i).Type()));
    return Join(cells, " | ");
}

std::string Types_Of(const Recordset& rs) {
    std::string letters;
    for (int i = 0; i < rs.Fields_Count(); ++i) letters += Type_Letter(rs.Fields(i).Type());
    return letters;
}

std::string Names_Of(const Recordset& rs) {
    std::vector<std::string> names;
    for (int i = 0; i < rs.Fields_Count(); ++i) names.push_back(rs.Fields(i).Name());
    return Join(names, ",");
}

void Expect(std::string_view what, const std::string& actual, const std::string& expected) {
    if (actual != expected) throw Failure{std::string(what) + "\n  expected: " + expected + "\n  actual:   " + actual};
}

// `expected` is the error's number, or the number and its whole text, or the number and "~" and a part of the text.
void Expect_Error(const DbError& error, std::string expected) {
    const std::string number = Take_Word(expected);
    Expect("error number (" + error.Description() + ")", std::to_string(error.Number()), number);
    if (Begins_With(expected, "~")) {
        const std::string part(Trim(std::string_view(expected).substr(1)));
        if (error.Description().find(part) == std::string::npos) Expect("error text lacks", error.Description(), part);
    } else if (!expected.empty()) {
        Expect("error text", error.Description(), expected);
    }
}

// Written back and read again, a statement is the same tree.
void Expect_Round_Trip(const std::string& text) {
    if (sql::Is_Table_Name(text)) return;
    const sql::StatementTree tree = sql::Parse_Statement(text);
    const std::string written = sql::To_Sql(tree);
    if (!sql::Same_Statement(tree, sql::Parse_Statement(written)))
        throw Failure{"another statement when written back: " + written};
}

// table <name>: a field a line, "LineNum Currency", "CCName Text(40)"; behind the dashes its rows.
void Do_Table(Run& run, const Block& block) {
    static constexpr FieldType kTypes[] = {FieldType::Boolean,  FieldType::Byte,   FieldType::Integer, FieldType::Long,
                                           FieldType::Currency, FieldType::Single, FieldType::Double,  FieldType::Date,
                                           FieldType::Text,     FieldType::Memo,   FieldType::Char};
    TableDef table = run.db.CreateTableDef(block.arguments);
    for (std::string line : block.body) {
        const std::string name = Take_Word(line);
        const std::string typeName = line.substr(0, line.find('('));
        const auto type =
            std::find_if(std::begin(kTypes), std::end(kTypes), [&](FieldType t) { return Type_Name(t) == typeName; });
        if (type == std::end(kTypes)) throw Failure{"no type: " + line};
        const int size = Has_Size(*type) ? std::stoi(line.substr(line.find('(') + 1)) : 0;
        table.Fields_Append(table.CreateField(name, *type, size));
    }
    run.db.TableDefs().Append(table);
    Recordset rs = run.db.OpenRecordset(block.arguments, RecordsetType::Table);
    for (const std::string& row : block.after) {
        rs.AddNew();
        const std::vector<std::string> cells = Split(Replace(row, "\t", " | "), " | ");
        if (static_cast<int>(cells.size()) > rs.Fields_Count()) throw Failure{"too many cells: " + row};
        for (std::size_t i = 0; i < cells.size(); ++i) rs.Fields(static_cast<int>(i)).Set(Parse_Value(cells[i]));
        rs.Update();
    }
}

// shape <name>: the fields, unchanged, then the indexes: "unique ndx (LineNum) disallow null".
void Do_Shape(Run& run, const Block& block) {
    const TableShape shape = run.db.TableDefs().Item(block.arguments).Shape();
    std::vector<std::string> lines;
    for (const FieldDef& field : shape.fields) {
        const std::string size = Has_Size(field.type) ? "(" + std::to_string(field.size) + ")" : "";
        lines.push_back(field.name + " " + std::string(Type_Name(field.type)) + size);
    }
    for (const IndexDef& index : shape.indexes) {
        lines.push_back((index.unique ? "unique " : "index ") + index.name + " (" + Join(index.fields, ",") + ")" +
                        (index.disallowNull ? " disallow null" : ""));
    }
    Expect("shape of " + block.arguments, Join(lines, "\n"), Join(block.body, "\n"));
}

// The number of rows; an error in any of them comes out.
std::int64_t Read_All(Recordset rs) {
    std::int64_t rows = 0;
    for (; !rs.Eof(); rs.MoveNext(), ++rows) Show_Record(rs);
    return rows;
}

// statement ok [rows <n>] | statement error <number> [text]
void Do_Statement(Run& run, const Block& block) {
    std::string rest = block.arguments;
    const std::string outcome = Take_Word(rest);
    if (outcome != "ok" && outcome != "error") throw Failure{"statement ok or statement error"};
    if (block.divided || block.body.empty()) throw Failure{"one statement and nothing else"};
    try {
        const std::string text = block.Statement();
        const std::int64_t rows =
            Database::Is_Select(text) ? Read_All(run.db.OpenRecordset(text)) : run.db.Execute(text);
        if (outcome == "error") throw Failure{"expected an error: " + rest};
        Expect_Round_Trip(text);
        if (!rest.empty()) Expect("rows changed", "rows " + std::to_string(rows), rest);
    } catch (const DbError& error) {
        if (outcome == "ok") throw Failure{"error " + std::to_string(error.Number()) + ": " + error.Description()};
        Expect_Error(error, rest);
    }
}

// query <types> [columns <name>,<name>]: the rows, as a dynaset and as a snapshot.
void Do_Query(Run& run, const Block& block) {
    std::string rest = block.arguments;
    const std::string types = Take_Word(rest);
    if (!block.divided) throw Failure{"a query needs its rows behind ----"};
    Expect_Round_Trip(block.Statement());
    for (const RecordsetType type : {RecordsetType::Dynaset, RecordsetType::Snapshot}) {
        Recordset rs = run.db.OpenRecordset(block.Statement(), type);
        Expect("types", Types_Of(rs), types);
        if (!rest.empty()) Expect("columns", "columns " + Names_Of(rs), rest);
        std::vector<std::string> rows;
        for (; !rs.Eof(); rs.MoveNext()) rows.push_back(Show_Record(rs));
        Expect(type == RecordsetType::Dynaset ? "rows" : "rows of the snapshot", "\n" + Join(rows, "\n"),
               "\n" + Replace(Join(block.after, "\n"), "\t", " | "));
    }
}

// One line of a recordset block. What it leaves is the current record, "eof", "bof" or "no match".
struct Step {
    std::string_view word;
    void (*act)(Recordset& rs, const std::string& argument);
};
constexpr Step kSteps[] = {
    {"find first", [](Recordset& rs, const std::string& what) { rs.FindFirst(what); }},
    {"find next", [](Recordset& rs, const std::string& what) { rs.FindNext(what); }},
    {"find previous", [](Recordset& rs, const std::string& what) { rs.FindPrevious(what); }},
    {"find last", [](Recordset& rs, const std::string& what) { rs.FindLast(what); }},
    {"index", [](Recordset& rs, const std::string& name) { rs.Index(name); }},
    {"seek", [](Recordset& rs, const std::string& key) { rs.Seek("=", Parse_Value(key)); }},
    {"move first", [](Recordset& rs, const std::string&) { rs.MoveFirst(); }},
    {"move next", [](Recordset& rs, const std::string&) { rs.MoveNext(); }},
    {"move previous", [](Recordset& rs, const std::string&) { rs.MovePrevious(); }},
    {"move last", [](Recordset& rs, const std::string&) { rs.MoveLast(); }},
    {"position", [](Recordset& rs, const std::string& at) { rs.AbsolutePosition(std::stol(at)); }},
    {"add", [](Recordset& rs, const std::string&) { rs.AddNew(); }},
    {"edit", [](Recordset& rs, const std::string&) { rs.Edit(); }},
    {"set",
     [](Recordset& rs, const std::string& what) {
         const std::size_t equals = what.find(" = ");
         rs.Fields(what.substr(0, equals)).Set(Parse_Value(what.substr(equals + 3)));
     }},
    {"update", [](Recordset& rs, const std::string&) { rs.Update(); }},
    {"cancel", [](Recordset& rs, const std::string&) { rs.CancelUpdate(); }},
    {"delete", [](Recordset& rs, const std::string&) { rs.Delete(); }},
    {"record", [](Recordset&, const std::string&) {}},
    {"count",
     [](Recordset& rs, const std::string& rows) { Expect("RecordCount", std::to_string(rs.RecordCount()), rows); }},
};

std::string State_Of(const Recordset& rs) {
    if (rs.NoMatch()) return "no match";
    if (rs.Eof()) return "eof";
    if (rs.Bof()) return "bof";
    return Show_Record(rs);
}

// recordset table|dynaset|snapshot: source, dashes, steps "find first Col_1 > 2 => 3 | 4" or "... => error 3021 text".
void Do_Recordset(Run& run, const Block& block) {
    const RecordsetType type = block.arguments == "table"      ? RecordsetType::Table
                               : block.arguments == "snapshot" ? RecordsetType::Snapshot
                                                               : RecordsetType::Dynaset;
    if (block.after.empty()) throw Failure{"a recordset needs its steps behind ----"};
    Recordset rs = run.db.OpenRecordset(block.Statement(), type);
    for (const std::string& line : block.after) {
        const std::size_t arrow = std::min(line.find(" => "), line.size());
        const std::string order = line.substr(0, arrow);
        const std::string expected = arrow == line.size() ? "" : line.substr(arrow + 4);
        const auto step = std::find_if(std::begin(kSteps), std::end(kSteps), [&](const Step& s) {
            return order == s.word || Begins_With(order, std::string(s.word) + " ");
        });
        if (step == std::end(kSteps)) throw Failure{"no step: " + line};
        const bool wantsError = Begins_With(expected, "error ");
        try {
            step->act(rs, std::string(Trim(std::string_view(order).substr(step->word.size()))));
            if (wantsError) throw Failure{line + ": no error"};
            if (!expected.empty()) Expect(order, order == "record" ? Show_Record(rs) : State_Of(rs), expected);
        } catch (const DbError& error) {
            if (!wantsError)
                throw Failure{line + ": error " + std::to_string(error.Number()) + " " + error.Description()};
            Expect_Error(error, expected.substr(6));
        }
    }
}

// design rename table A B | rename field T A B | append field T A Currency | delete field T A | delete table T
void Do_Design(Run& run, const Block& block) {
    std::string rest = block.arguments;
    const std::string verb = Take_Word(rest), what = Take_Word(rest), table = Take_Word(rest), name = Take_Word(rest);
    if (verb == "delete" && what == "table") return run.db.TableDefs().Delete(table);
    TableDef def = run.db.TableDefs().Item(table);
    if (verb == "rename" && what == "table") return def.Name(name);
    if (verb == "rename" && what == "field") return def.Field_Name(name, rest);
    if (verb == "delete" && what == "field") return def.Fields_Delete(name);
    if (verb != "append" || what != "field") throw Failure{"no design change: " + block.arguments};
    def.Fields_Append(def.CreateField(name, rest == "Double" ? FieldType::Double : FieldType::Currency));
}

struct Command {
    std::string_view word;
    void (*run)(Run&, const Block&);
};
constexpr Command kCommands[] = {
    {"table", Do_Table}, {"shape", Do_Shape},         {"statement", Do_Statement},
    {"query", Do_Query}, {"recordset", Do_Recordset}, {"design", Do_Design},
};

void Open(Run& run) {
    run.db = DBEngine::OpenDatabase(run.path);
    if (run.regime.smallCache) Set_Statement_Cache_Size(run.db, 1);
}

void Run_Block(Run& run, const Block& block) {
    const auto command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                      [&](const Command& c) { return c.word == block.command; });
    if (command == std::end(kCommands)) throw Failure{"no such block: " + block.command};
    command->run(run, block);
    if (run.regime.reopen) {
        run.db.Close();
        Open(run);
    }
}

int Run_File(const Regime& regime, const std::string& file, const std::string& folder) {
    Run run{{}, folder + "/case.CRF", regime, std::nullopt};
    Database created = DBEngine::CreateDatabase(run.path, ";LANGID=0x0409;CP=1252;COUNTRY=0");
    DBEngine::Finish_Creation(created);
    Open(run);
    if (regime.job) run.job.emplace(run.db);
    int failures = 0;
    const std::vector<Block> blocks = Read_Blocks(file);
    for (const Block& block : blocks) {
        try {
            Run_Block(run, block);
            continue;
        } catch (const Failure& failure) {
            std::cout << file << ":" << block.line << ": " << failure.text << "\n";
        } catch (const std::exception& error) {
            std::cout << file << ":" << block.line << ": " << error.what() << "\n";
        }
        std::cout << "  in: " << block.Statement() << "\n";
        ++failures;
    }
    if (run.job) run.job->Keep();
    std::cout << blocks.size() << " blocks, " << failures << " failed\n";
    return blocks.empty() || failures > 0 ? 1 : 0;
}

}  // namespace
}  // namespace tallmar

int main(int argc, char** argv) {
    using namespace tallmar;
    const auto regime = std::find_if(std::begin(kRegimes), std::end(kRegimes),
                                     [&](const Regime& r) { return argc == 3 && r.name == argv[1]; });
    if (regime == std::end(kRegimes)) {
        std::cerr << "usage: dialect_runner plain|reopen|cache1|job <file>\n";
        return 2;
    }
    std::string folder = (std::filesystem::temp_directory_path() / "tallmar-dialect-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return 2;
    int result = 2;
    try {
        result = Run_File(*regime, argv[2], folder);
    } catch (const Failure& failure) {
        std::cout << failure.text << "\n";
    } catch (const std::exception& error) {
        std::cout << error.what() << "\n";
    }
    std::filesystem::remove_all(folder);
    return result;
}
