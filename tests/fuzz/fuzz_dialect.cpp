// Any text through the dialect's compiler: it is refused with a DbError or compiled, and a statement that parses is the
// same statement when it is written back and read again.
#include <algorithm>
#include <filesystem>

#include "common/db_error.h"
#include "dialect/dialect_file.h"
#include "fuzz/fuzz_target.h"
#include "sql/parser.h"
#include "sql/plan.h"
#include "sql/to_sql.h"

namespace tallmar {
namespace {

const sql::Schema& Fixed_Schema() {
    static const sql::Schema schema = [] {
        sql::Schema tables;
        for (const char* name : {"A", "B", "T", "CostCenters", "A4", "Cp3"}) {
            sql::TableShape shape;
            shape.name = name;
            shape.fields = {
                {"LineNum", FieldType::Currency}, {"CCNum", FieldType::Currency}, {"CCName", FieldType::Text, 40},
                {"Col_1", FieldType::Currency},   {"Col_2", FieldType::Double},   {"Id", FieldType::Long},
                {"X", FieldType::Text, 10},       {"N", FieldType::Byte},         {"E", FieldType::Date},
                {"Live", FieldType::Boolean},     {"Notes", FieldType::Memo},     {"Total", FieldType::Currency}};
            shape.indexes = {{"ndx", {"LineNum"}, true, true}};
            tables.Put(shape);
        }
        return tables;
    }();
    return schema;
}

std::vector<std::string> Statements_Of_Corpus(const std::string& sourceFolder) {
    std::vector<std::string> files, statements;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sourceFolder + "/tests/dialect")) {
        if (entry.path().extension() == ".test") files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        for (const Block& block : Read_Blocks(file)) {
            if (block.command == "statement" || block.command == "query") statements.push_back(block.Statement());
        }
    }
    return statements;
}

std::string Round_Trip(std::string_view text) {
    sql::StatementTree tree;
    try {
        tree = sql::Parse_Statement(text);
    } catch (const DbError&) {
        return "";  // refused: nothing to write back
    }
    const std::string written = sql::To_Sql(tree);
    try {
        if (sql::Same_Statement(tree, sql::Parse_Statement(written))) return "";
    } catch (const DbError& error) {
        return "written back it is refused: " + error.Description();
    }
    return "written back it is another statement: " + written;
}

std::string Run_Text(std::string_view text) {
    try {
        sql::Lift(text);
        sql::Compile(text, Fixed_Schema());
    } catch (const DbError&) {
    }
    try {
        sql::Compile_Find("SELECT * FROM A ORDER BY LineNum", text, Fixed_Schema());
    } catch (const DbError&) {
    }
    return Round_Trip(text);
}

}  // namespace

const FuzzTarget kFuzzTarget{16'384, Statements_Of_Corpus, Run_Text};

}  // namespace tallmar
