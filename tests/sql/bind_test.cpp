// Golden typed trees: tests/dialect/bind/*.test hold a statement, its tree and the SQLite text made of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/db_error.h"
#include "sql/binder.h"
#include "sql/dump.h"
#include "sql/generator.h"
#include "sql/parser.h"

namespace tallmar::sql {
namespace {

// What the statements of the goldens speak of.
Schema Golden_Schema() {
    Schema schema;
    TableShape a{"A",
                 {{"LineNum", FieldType::Currency, 0},
                  {"CCName", FieldType::Text, 40},
                  {"Col_1", FieldType::Currency, 0},
                  {"Col_2", FieldType::Currency, 0},
                  {"Hours", FieldType::Double, 0},
                  {"CCGroup", FieldType::Integer, 0},
                  {"Made", FieldType::Date, 0},
                  {"Flag", FieldType::Boolean, 0}},
                 {{"ndxA", {"LineNum"}, true, false}}};
    TableShape a4{"A4",
                  {{"LineNum", FieldType::Currency, 0},
                   {"Col_3", FieldType::Currency, 0},
                   {"Col_4", FieldType::Currency, 0},
                   {"Explanation", FieldType::Text, 60}},
                  {}};
    schema.Put(a);
    schema.Put(a4);
    return schema;
}

std::string Sql_Of(const Plan& plan) {
    const SqliteText& text = plan.kind == Plan::Kind::Select      ? plan.select.rows
                             : plan.kind == Plan::Kind::RowUpdate ? plan.rowUpdate.match
                                                                  : plan.sql;
    return text.sql + "\n";
}

// The three sections, parted by lines of four dashes; lines that begin with '#' speak of the golden.
std::string Compiled(const std::string& statement) {
    const Schema schema = Golden_Schema();
    try {
        BoundStatement bound = Bind_Statement(Parse_Statement(statement), statement, schema);
        const std::string tree = Dump(bound);
        return tree + "----\n" + Sql_Of(Generate(bound));
    } catch (const DbError& error) {
        return error.Description() + "\n";
    }
}

TEST(Bind, TreesAndTextsAreAsWorkedOut) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TALLMAR_SOURCE_DIR "/tests/dialect/bind")) {
        if (entry.path().extension() == ".test") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    ASSERT_GE(files.size(), 12U);
    for (const auto& path : files) {
        std::ifstream file(path);
        std::string line, statement, expected;
        while (std::getline(file, line) && line != "----") {
            if (!line.starts_with('#')) statement += line;
        }
        std::stringstream rest;
        rest << file.rdbuf();
        EXPECT_EQ(Compiled(statement), rest.str()) << path.filename();
    }
}

}  // namespace
}  // namespace tallmar::sql
