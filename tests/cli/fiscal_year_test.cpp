// What the fiscal year asks of a report, as commands tell it.
#include <nlohmann/json.hpp>

#include "cli_test.h"

namespace tallmar {

namespace {

using Json = nlohmann::json;

struct YearMove {
    const char* start;
    const char* end;
    const char* newStart;
    const char* newEnd;
    const char* sample;
};
// Over each dividing date, both ways. The cells are those of a year on one of the sides.
constexpr YearMove kMoves[] = {
    {"10/1/1998", "9/30/1999", "10/1/2000", "9/30/2001", "fy1999"},
    {"10/1/2000", "9/30/2001", "10/1/1998", "9/30/1999", "fy1999"},
    {"1/1/2000", "12/31/2000", "10/1/2000", "9/30/2001", "fy2000"},
    {"10/1/1999", "9/30/2000", "1/1/2000", "12/31/2000", "fy2000"},
    {"9/30/2015", "9/29/2016", "10/1/2015", "9/30/2016", "fy2016"},
    {"10/1/2015", "9/30/2016", "9/30/2015", "9/29/2016", "fy2016"},
    {"2/1/2006", "1/30/2007", "2/1/2006", "1/31/2007", "fy2016"},
};

class FiscalYearCommands : public CliTest {
  protected:
    void New_Year(const char* start, const char* end) {
        Succeed({"new", crf, "--provider", "14-7100", "--start", start, "--end", end, "--name",
                 "Prairie Hearth Home Health"});
    }
    // Keys a sample's cells; those of worksheets that this year does not have are refused.
    void Key(const char* sample) {
        Run_Tallmar({"enter", crf, std::string(TALLMAR_SOURCE_DIR) + "/samples/" + sample + "/cells.csv"});
    }
    // Every table, the registry's items alone, without what records when and by which job a thing was done.
    Json Calculated() {
        EXPECT_EQ(Succeed({"calc", crf}), "");
        Json tables = Json::parse(Succeed({"dump", crf}))["tables"];
        for (const char* table : {"Master", "Log", "CalcAllErrLog", "NewCRFErrLog", "JunkErrLog"}) tables.erase(table);
        for (auto& row : tables["Worksheets"]["rows"]) row = {row[0], row[1]};
        auto& registry = tables["Worksheets"]["rows"];
        std::sort(registry.begin(), registry.end());
        return tables;
    }
};

// The style of the dates is that of the save; a vaccine line that came later is not to be divided, and takes no
// salaries, benefits and contracted services.
void Allow_For_The_Move(Json& moved, Json& made) {
    for (Json* tables : {&moved, &made}) {
        for (auto& row : (*tables)["S2"]["rows"]) {
            if (row[0] == 7) row[2] = row[3] = nullptr;
        }
    }
    const auto same = [&](const char* table, int line, int field, const Json& from, const Json& to) {
        for (std::size_t i = 0; i < made[table]["rows"].size(); ++i) {
            Json& row = made[table]["rows"][i];
            if (row[0] == line / 10.0 && moved[table]["rows"][i][field] == from && row[field] == to) row[field] = from;
        }
    };
    same("CostCenters", 132, 6, 0, 9);
    for (const int column : {4, 5, 7}) same("A", 132, column, nullptr, 0);
}

}  // namespace

TEST_F(FiscalYearCommands, OnlyACommandThatChangesTheReportTellsWhatTheFormForbids) {
    New_Year("1/1/2000", "12/31/2000");
    Sql("INSERT INTO CostCenters (LineNum,CCNum,CCType) VALUES (12.01,12.01,'A')");
    Succeed({"info", crf});
    Succeed({"dump", crf, "Master"});
    const Ran ran = Run_Tallmar({"enter", crf}, "A,6,Col_5,1\n");
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(
        ran.err,
        "CMS Requirement: Cost centers 12, 13 and 14 are not allowed to be subscripted for cost reporting periods "
        "that span 10/1/2000.  Please remove the subscripted lines for cost centers 12, 13 and 14.\n");
}

TEST_F(FiscalYearCommands, AMovedReportCalculatesAsOneThatWasMadeInThatYear) {
    for (const YearMove& move : kMoves) {
        const std::string what = std::string(move.start) + " to " + move.newStart;
        New_Year(move.newStart, move.newEnd);
        Key(move.sample);
        Json made = Calculated();
        std::filesystem::remove(crf);

        New_Year(move.start, move.end);
        Key(move.sample);
        const Ran moved = Run_Tallmar({"enter", crf, "--answer", "yes"}, std::string("S2,7,Col_1,") + move.newStart +
                                                                             "\nS2,7,Col_2," + move.newEnd + "\n");
        EXPECT_EQ(moved.status, kExitDone) << what << ": " << moved.err;
        Key(move.sample);
        Json found = Calculated();
        Allow_For_The_Move(found, made);
        EXPECT_EQ(Json::diff(made, found).dump(), "[]") << what;
        std::filesystem::remove(crf);
    }
}

TEST_F(FiscalYearCommands, AMoveOverADividingDateIsRefusedUnlessAnsweredYes) {
    New();
    const std::string cells = "S2,7,2,9/30/1999\nS2,7,1,10/1/1998\n";
    const Ran asked = Run_Tallmar({"enter", crf}, cells);
    EXPECT_EQ(asked.status, kExitFailed);
    EXPECT_EQ(
        asked.err,
        "line 1: Change of Fiscal Year: The new fiscal year uses other worksheets: A-1, A-2, A-3, A-8-3; no longer "
        "used: S-2-1.  Do you wish to continue?\n"
        "line 1: Change of Fiscal Year: The fiscal year was not changed.\n"
        "line 2: Change of Fiscal Year: The fiscal year was not changed.\n");
    EXPECT_EQ(Sql("SELECT Count(*) AS V FROM Worksheets WHERE Item=\"S21\""), "{\"V\":1}\n");
    EXPECT_EQ(Run_Tallmar({"enter", crf, "--answer", "yes"}, cells).status, kExitDone);
    EXPECT_EQ(Sql("SELECT Count(*) AS V FROM Worksheets WHERE Item=\"S21\""), "{\"V\":0}\n");
    EXPECT_EQ(Sql("SELECT FYStart AS V FROM Master"), "{\"V\":\"1998-10-01T00:00:00\"}\n");
}

TEST_F(FiscalYearCommands, TheYearOfAListComesBeforeTheCellsThatNeedIt) {
    New();
    const Ran ran =
        Run_Tallmar({"enter", crf, "--answer", "yes"}, "A1,6,Col_1,500\nS2,7,Col_1,10/1/1998\nS2,7,Col_2,9/30/1999\n");
    EXPECT_EQ(ran.status, kExitDone) << ran.err;
    EXPECT_EQ(Sql("SELECT Col_1 AS V FROM A1 WHERE LineNum=6"), "{\"V\":500}\n");
}

}  // namespace tallmar
