#include "report/run_log.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

class RunLogTest : public ReportTest {
  protected:
    RunLogTest() {
        Empty_Database();
        Build_Worksheets();
    }
};

}  // namespace

TEST_F(RunLogTest, FirstRowTellsOfTheBuild) {
    Build_Log();
    const Row row = db.Read_Row("SELECT * FROM Log;");
    EXPECT_EQ(row["LogType"], Value("*"));
    EXPECT_EQ(row["DateTime"], Value(platform.Now()));
    EXPECT_EQ(row["Severity"], Value("F.Y.I."));
    EXPECT_EQ(row["Module"], Value("Build_Log"));
    EXPECT_EQ(row["Procedure"], Value("Build_Log"));
    EXPECT_EQ(row["Worksheet"], Value("Log"));
    EXPECT_EQ(row["Message"], Value("Log table built/initialized."));
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Log\";"), Value(999));
}

TEST_F(RunLogTest, LinesOfACalculationAreOfTypeC) {
    Build_Log();
    Log_Calc("W_S_", "Calc_Sp2", "Sp2", "Worksheet S Part-2 \"Calculation\"");
    const Row row = db.Read_Row("SELECT * FROM Log WHERE LogType='C';");
    EXPECT_EQ(row["Severity"], Value("F.Y.I."));
    EXPECT_EQ(row["Module"], Value("W_S_"));
    EXPECT_EQ(row["Procedure"], Value("Calc_Sp2"));
    EXPECT_EQ(row["Worksheet"], Value("Sp2"));
    EXPECT_EQ(row["Message"], Value("Worksheet S Part-2 \"Calculation\""));
}

TEST_F(RunLogTest, ClearTakesTheLinesOfOneType) {
    Build_Log();
    Log_Calc("m", "p", "A", "one");
    Log_Calc("m", "p", "A", "two");
    Clear_Log('C');
    EXPECT_EQ(Read("SELECT LogType FROM Log;"), Value("*"));
    EXPECT_EQ(Count("Log"), 1);
}

TEST_F(RunLogTest, ReportWithoutTheTableLogsNothing) {
    Clear_Log('C');
    Log_Calc("m", "p", "A", "one");
    EXPECT_FALSE(TableExists("Log", false));
}

}  // namespace tallmar
