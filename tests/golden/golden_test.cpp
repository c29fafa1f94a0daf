// Whole reports, from the keyed cells to the settlement, against tables that were worked out beside the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

#include "catalogue.h"
#include "common/worksheets.h"
#include "golden/dump_file.h"
#include "golden/golden_report.h"
#include "report/chart.h"
#include "report/store.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

class Golden : public testing::TestWithParam<std::string> {
  protected:
    void Make() { Make_Golden_Report(GetParam(), file_); }
    void Calculate() {
        const CommandRun run = Run_Command({"calc", file_});
        ASSERT_EQ(run.status, 0) << run.err;
        ASSERT_EQ(run.out, "") << "the calculation has messages";
    }
    DumpFile Dump() { return DumpFile(Run_Command({"dump", file_}).out); }

    TempFolder folder_;
    const std::string file_ = folder_.File("golden.CRF");
};

std::string Listed(const std::vector<std::string>& differences) {
    std::string list;
    for (const std::string& difference : differences) list += "\n  " + difference;
    return list;
}

// Where a report that differs leaves what it found, for `scripts/golden.sh accept`.
fs::path Actual_Folder(const std::string& name) {
    return fs::path(TALLMAR_SOURCE_DIR) / "build" / "golden" / name;
}

// Fails where `found` is not what the file of the golden report stores.
void Expect_Stored(const std::string& name, const char* file, const DumpFile& found) {
    const fs::path actual = Actual_Folder(name) / file;
    const std::string stored = Golden_File(name, file);
    const std::vector<std::string> differences =
        fs::exists(stored) ? Differences(DumpFile(Read_File(stored)), found) : std::vector{stored + " is missing"};
    if (differences.empty()) {
        fs::remove(actual);
        return;
    }
    fs::create_directories(actual.parent_path());
    std::ofstream(actual, std::ios::binary) << found.Text();
    ADD_FAILURE() << Listed(differences) << "\nwhat was found is in " << actual;
}

TEST_P(Golden, TheTablesAreTheStoredOnes) {
    Make();
    Calculate();
    Expect_Stored(GetParam(), "tables.json", Dump());
}

TEST_P(Golden, RecalculatingChangesNoCell) {
    Make();
    Calculate();
    const DumpFile first = Dump();
    Calculate();
    const std::vector<std::string> differences = Differences(first, Dump());
    EXPECT_TRUE(differences.empty()) << Listed(differences);
}

TEST_P(Golden, TheChartIsTheOneOfItsOption) {
    Make();
    const FakePlatform platform;
    Install_Catalogue(All_Families());
    ASSERT_TRUE(Report_Open(file_));
    EXPECT_EQ(CheckAGCostCenters(), "");
    Report_Release();
}

// "A line 6 column 10 = 195,000", with `Col_` before a number and without the point of a subcolumn; "empty" is Null.
TEST_P(Golden, EveryFigureOfItsPageStandsInTheTables) {
    const std::string page = Read_File(std::string(TALLMAR_SOURCE_DIR) + "/docs/worked/" + GetParam() + ".md");
    const DumpFile tables(Read_File(Golden_File(GetParam(), "tables.json")));
    const std::regex figure(R"((\w+) line ([0-9.]+) column ([\w.]+) = (empty|-?[0-9][0-9,]*(\.[0-9]+)?))");
    const std::regex anyFigure(R"( column \S+ =)");
    const auto end = std::sregex_iterator();
    int figures = 0;
    for (auto match = std::sregex_iterator(page.begin(), page.end(), figure); match != end; ++match, ++figures) {
        std::string field = (*match)[3].str();
        std::erase(field, '.');
        if (field.find_first_not_of("0123456789") == std::string::npos) field.insert(0, "Col_");
        const auto cell = tables.Cell((*match)[1], std::stod((*match)[2]), field);
        if (!cell) {
            ADD_FAILURE() << match->str() << ": there is no such cell";
            continue;
        }
        std::string value = (*match)[4].str();
        std::erase(value, ',');
        const auto expected = value == "empty" ? nlohmann::ordered_json() : nlohmann::ordered_json(std::stod(value));
        EXPECT_EQ(*cell, expected) << match->str();
    }
    EXPECT_GE(figures, 10);
    EXPECT_EQ(figures, std::distance(std::sregex_iterator(page.begin(), page.end(), anyFigure), end))
        << "a figure of the page is not written as the test reads it";
}

std::string Test_Name(const testing::TestParamInfo<std::string>& report) {
    std::string name = report.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Reports, Golden, testing::ValuesIn(Golden_Names()), Test_Name);

// Every cell of a report in which nothing is keyed: the rows of the form, what begins at 0 and what is shaded.
class GoldenNewReport : public testing::TestWithParam<const char*> {};

TEST_P(GoldenNewReport, HasTheStoredTables) {
    const TempFolder folder;
    const std::string file = folder.File("new.CRF");
    Make_New_Golden_Report(GetParam(), file);
    Expect_Stored(GetParam(), "new.json", DumpFile(Run_Command({"dump", file}).out));
}

// One for each set of worksheets: cost limits, a year that spans their end, S-2-1 and the vaccine line.
INSTANTIATE_TEST_SUITE_P(Years, GoldenNewReport, testing::Values("fy1999-limits", "fy2000-split", "fy2016-empty"),
                         [](const testing::TestParamInfo<const char*>& report) {
                             std::string name = report.param;
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

constexpr const char* kSmall = R"({"master":{"BuildDate":"2026-01-02T03:04:05"},"tables":{
"A":{"columns":[{"name":"LineNum","type":"Currency"},{"name":"Col_1","type":"Currency"}],"rows":[[5,1],[5.01,VALUE]]},
"Log":{"columns":[{"name":"DateTime","type":"Date"}],"rows":[["1899-12-30T00:00:00"],["2026-01-02T03:04:05"]]}}})";

DumpFile Small(const std::string& value) {
    return DumpFile(std::regex_replace(std::string(kSmall), std::regex("VALUE"), value));
}

TEST(DumpFileTest, ADifferenceNamesTableLineAndColumn) {
    EXPECT_EQ(Differences(Small("2.5"), Small("2.5")), std::vector<std::string>{});
    EXPECT_EQ(Differences(Small("2.5"), Small("2.4999")),
              std::vector<std::string>{"A line 5.01 Col_1: 2.5 expected, 2.4999 found"});
    EXPECT_EQ(Differences(Small("null"), Small("0")),
              std::vector<std::string>{"A line 5.01 Col_1: null expected, 0 found"});
}

TEST(DumpFileTest, LinesAndColumnsThatOnlyOneHasAreDifferences) {
    const std::string text = kSmall;
    const DumpFile one(std::regex_replace(text, std::regex(",\\[5.01,VALUE\\]"), ""));
    EXPECT_EQ(Differences(Small("1"), one), std::vector<std::string>{"A line 5.01 is missing"});
    EXPECT_EQ(Differences(one, Small("1")), std::vector<std::string>{"A line 5.01 is new: [5.01,1]"});
    const DumpFile renamed(
        std::regex_replace(std::regex_replace(text, std::regex("VALUE"), "1"), std::regex("Col_1"), "Col_2"));
    ASSERT_EQ(Differences(Small("1"), renamed).size(), 1u);
    EXPECT_EQ(Differences(Small("1"), renamed)[0].substr(0, 9), "A columns");
}

TEST(DumpFileTest, TimesAreMaskedAndNeverStays) {
    const DumpFile dump = Small("1");
    EXPECT_EQ(dump.Whole()["master"]["BuildDate"], "time");
    EXPECT_EQ(dump.Whole()["tables"]["Log"]["rows"].dump(), R"([["1899-12-30T00:00:00"],["time"]])");
    EXPECT_EQ(Differences(dump, DumpFile(dump.Text())), std::vector<std::string>{});
}

}  // namespace

}  // namespace tallmar
