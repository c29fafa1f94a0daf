// docs/crf-format.md against files as plain SQLite sees them.
#include <sqlite3.h>

#include <fstream>
#include <utility>
#include <vector>

#include "common/text.h"
#include "db/crf_header.h"
#include "db/db_fixture.h"

namespace tallmar {

namespace {

class CrfFormatTest : public DbTest {
  protected:
    // The first cell that plain SQLite reads.
    std::string Raw(const char* sql) {
        db.Close();
        sqlite3* handle = nullptr;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
        EXPECT_EQ(sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr), SQLITE_OK) << sql;
        EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW) << sql;
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        std::string cell = text == nullptr ? "NULL" : text;
        sqlite3_finalize(statement);
        sqlite3_close(handle);
        db = DBEngine::OpenDatabase(path);
        return cell;
    }
};

std::vector<std::string> Listed(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t comma = list.find(", ");
        parts.emplace_back(Replace(list.substr(0, comma), "`", ""));
        list.remove_prefix(comma == list.npos ? list.size() : comma + 2);
    }
    return parts;
}

// The page's table of types: each type of the dialect and how its column is declared.
std::vector<std::pair<std::string, std::string>> Types_Of_The_Page() {
    std::vector<std::pair<std::string, std::string>> types;
    std::ifstream page(TALLMAR_SOURCE_DIR "/docs/crf-format.md");
    std::string line;
    bool inside = false;
    while (std::getline(page, line)) {
        if (line.starts_with("| type | declared |")) inside = true;
        if (line.empty()) inside = false;
        if (!inside || line.find('`') == line.npos) continue;
        const std::size_t second = line.find(" | ", 2), third = line.find(" | ", second + 3);
        const auto names = Listed(std::string_view(line).substr(2, second - 2));
        const auto declared = Listed(std::string_view(line).substr(second + 3, third - second - 3));
        EXPECT_EQ(names.size(), declared.size()) << line;
        for (std::size_t i = 0; i < names.size(); ++i) types.emplace_back(names[i], declared.at(i));
    }
    return types;
}

}  // namespace

TEST_F(CrfFormatTest, EveryTypeIsDeclaredAsThePageSays) {
    const auto types = Types_Of_The_Page();
    EXPECT_EQ(types.size(), 11U);
    for (const auto& [type, declared] : types) {
        Run("CREATE TABLE T (F " + Replace(type, "(n)", "(7)") + ");");
        EXPECT_EQ(Raw("SELECT type FROM pragma_table_info('T')"), Replace(declared, "(n)", "(7)")) << type;
        Run("DROP TABLE T;");
    }
}

TEST_F(CrfFormatTest, TheWorkedExampleHolds) {
    Run("CREATE TABLE CostCenters (LineNum Currency);");
    Run("INSERT INTO CostCenters (LineNum) VALUES (13.2);");
    EXPECT_EQ(Rows(db, "SELECT LineNum FROM CostCenters WHERE LineNum = 13.2"), "13.2;");
    EXPECT_EQ(Raw("SELECT LineNum FROM CostCenters"), "132000");
    EXPECT_EQ(Raw("SELECT typeof(LineNum) FROM CostCenters"), "integer");
}

TEST_F(CrfFormatTest, TheHeaderBearsTheApplicationIdAndTheLayout) {
    EXPECT_EQ(Bytes_Of(path).substr(68, 4), "TC28");
    EXPECT_EQ(Raw("PRAGMA application_id"), std::to_string(0x54433238));
    EXPECT_EQ(Raw("PRAGMA user_version"), std::to_string(kCrfLayout));
    EXPECT_EQ(Raw("PRAGMA journal_mode"), "delete");
}

TEST_F(CrfFormatTest, AnIndexBearsItsTablesName) {
    Run("CREATE TABLE A (LineNum Currency);");
    Run("CREATE UNIQUE INDEX ndx ON A (LineNum);");
    EXPECT_EQ(Raw("SELECT name FROM sqlite_master WHERE type = 'index'"), "A!ndx");
    Run("DROP TABLE A;");
    Run("CREATE TABLE A (LineNum Currency);");
    Run("CREATE UNIQUE INDEX ndx ON A (LineNum) WITH DISALLOW NULL;");
    EXPECT_EQ(Raw("SELECT name FROM sqlite_master WHERE type = 'index'"), "A!ndx!notnull");
}

}  // namespace tallmar
