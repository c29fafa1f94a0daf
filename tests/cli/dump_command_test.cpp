#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli_test.h"

namespace tallmar {

namespace {

using nlohmann::json;

class DumpCommand : public CliTest {
  protected:
    void SetUp() override { New(); }
    json Dump(Args tables = {}) {
        tables.insert(tables.begin(), {"dump", crf});
        return json::parse(Succeed(tables));
    }
};

TEST_F(DumpCommand, TheWholeReportHoldsEveryTableInNameOrder) {
    const std::string text = Succeed({"dump", crf});
    const auto dump = nlohmann::ordered_json::parse(text);
    std::vector<std::string> names;
    for (const auto& [name, table] : dump["tables"].items()) {
        names.push_back(name);
        EXPECT_FALSE(name.starts_with("sqlite")) << name;
        for (const auto& row : table["rows"]) EXPECT_EQ(row.size(), table["columns"].size()) << name;
    }
    for (const char* name : {"A", "B1", "CostCenters", "HeaderLines", "Master", "Worksheets"}) {
        EXPECT_TRUE(std::ranges::count(names, name)) << name;
    }
    EXPECT_LT(text.find("\n\"A\":"), text.find("\n\"A4\":"));
    EXPECT_LT(text.find("\n\"A4\":"), text.find("\n\"Worksheets\":"));
    EXPECT_EQ(text.back(), '\n');
    EXPECT_EQ(Succeed({"dump", crf}), text);
}

TEST_F(DumpCommand, MasterIsTheIdentity) {
    const json master = Dump({"Sp2"})["master"];
    EXPECT_EQ(master["FormNum"], "1728");
    EXPECT_EQ(master["ProviderNumber"], "14-7100");
    EXPECT_EQ(master["FYStart"], "2015-10-01");
    EXPECT_EQ(master["FYEnd"], "2016-09-30");
    EXPECT_EQ(master["ProviderName"], "Prairie Hearth Home Health");
    EXPECT_EQ(master["BSubTot1"], nullptr);
}

TEST_F(DumpCommand, ATableHasColumnsAndRowsInLineOrder) {
    Sql("INSERT INTO Sp2 (LineNum, Description) VALUES (2.01, \"x\")");
    const json tables = Dump({"sp2"})["tables"];
    ASSERT_EQ(tables.size(), 1u);
    const json expected = json::parse(R"({
        "columns": [{"name": "LineNum", "type": "Currency", "size": null},
                    {"name": "Description", "type": "Text", "size": 250},
                    {"name": "Col_1", "type": "Currency", "size": null},
                    {"name": "Col_2", "type": "Currency", "size": null}],
        "rows": [[1, "HOME HEALTH AGENCY", 0, 0], [2.01, "x", null, null], [4, "TOTAL", null, null]]})");
    EXPECT_EQ(tables["Sp2"], expected);
}

TEST_F(DumpCommand, TablesAreNamedWithoutRegardToCaseAndOnce) {
    const json tables = Dump({"b1", "A", "a", "COSTCENTERS"})["tables"];
    EXPECT_EQ(tables.size(), 3u);
    for (const char* name : {"A", "B1", "CostCenters"}) EXPECT_TRUE(tables.contains(name)) << name;
}

TEST_F(DumpCommand, NamesAndTextsMayHoldQuotes) {
    Sql("SELECT LineNum, Description AS [a \"b\"] INTO [it's \"mine\" é] FROM Sp2");
    Sql("UPDATE [it's \"mine\" é] SET [a \"b\"] = \"\"\"\\\" & Chr(13) & Chr(10) & Chr(1)");
    const json table = Dump({"IT'S \"MINE\" É"})["tables"]["it's \"mine\" é"];
    EXPECT_EQ(table["columns"][1]["name"], "a \"b\"");
    EXPECT_EQ(table["rows"][0][1], "\"\\\r\n\x01");
}

TEST_F(DumpCommand, AnUnknownTableIsNamed) {
    for (const char* name : {"Nope", "sqlite_master", "sqlite_schema", "", "A]; DROP TABLE A; --"}) {
        EXPECT_EQ(Fail({"dump", crf, "A", name}), "The report has no table '" + std::string(name) + "'.\n");
    }
}

TEST_F(DumpCommand, TypesHaveTheirOwnNames) {
    std::set<std::string> types;
    const json tables = Dump()["tables"];
    for (const auto& table : tables) {
        for (const auto& column : table["columns"]) {
            types.insert(column["type"]);
            const bool sized = column["type"] == "Text" || column["type"] == "Char";
            EXPECT_EQ(column["size"].is_number(), sized) << column;
        }
    }
    for (const char* type : {"Currency", "Date", "Double", "Integer", "Long", "Memo", "Text"}) types.erase(type);
    for (const std::string& type : types) {
        EXPECT_TRUE(type == "Boolean" || type == "Byte" || type == "Single" || type == "Char") << type;
    }
}

}  // namespace

}  // namespace tallmar
