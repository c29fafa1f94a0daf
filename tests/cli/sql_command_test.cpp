#include "cli/results.h"
#include "cli_test.h"

namespace tallmar {

namespace {

constexpr std::string_view kNewTotals = "{\"LineNum\":1,\"Col_1\":0}\n{\"LineNum\":4,\"Col_1\":null}\n";

class SqlCommand : public CliTest {
  protected:
    void SetUp() override { New(); }
    std::string Totals() { return Sql("SELECT LineNum, Col_1 FROM Sp2"); }
};

TEST_F(SqlCommand, ASelectPrintsAnObjectARow) {
    EXPECT_EQ(Totals(), kNewTotals);
    EXPECT_EQ(Sql("SELECT LineNum FROM Sp2 WHERE LineNum = 99"), "");
}

TEST_F(SqlCommand, ValuesKeepTheirTypes) {
    const std::string from = " FROM Sp2 WHERE LineNum = 4";
    EXPECT_EQ(Sql("SELECT (1=1) AS T, (1=2) AS F, Null AS N, #1/2/2015# AS D, #1/2/2015 13:04:05# AS M" + from),
              "{\"T\":true,\"F\":false,\"N\":null,\"D\":\"2015-01-02T00:00:00\",\"M\":\"2015-01-02T13:04:05\"}\n");
    EXPECT_EQ(Sql("SELECT 1/3 AS X, 1/8 AS Y, 2/1 AS Z, 1e15*10 AS Big, 1/1e7 AS Small, -0.5 AS Neg" + from),
              "{\"X\":0.3333333333333333,\"Y\":0.125,\"Z\":2,\"Big\":10000000000000000,\"Small\":0.0000001,"
              "\"Neg\":-0.5}\n");
    EXPECT_EQ(Sql("SELECT \"a \"\"b\"\" \\ é\" & Chr(9) & Chr(10) AS X" + from),
              "{\"X\":\"a \\\"b\\\" \\\\ é\\t\\n\"}\n");
}

TEST_F(SqlCommand, CurrencyIsADecimalOfAtMostFourPlaces) {
    Sql("UPDATE Sp2 SET Col_1 = 922337203685477.5807, Col_2 = 0.0001 WHERE LineNum = 1");
    Sql("UPDATE Sp2 SET Col_1 = -922337203685477.5807, Col_2 = 100000 WHERE LineNum = 4");
    EXPECT_EQ(
        Sql("SELECT Col_1, Col_2 FROM Sp2"),
        "{\"Col_1\":922337203685477.5807,\"Col_2\":0.0001}\n{\"Col_1\":-922337203685477.5807,\"Col_2\":100000}\n");
}

TEST_F(SqlCommand, ColumnsOfOneNameAreToldApart) {
    EXPECT_EQ(Sql("SELECT Col_1, Col_1 FROM Sp2 WHERE LineNum = 1"), "{\"Col_1\":0,\"Expr1000\":0}\n");
}

TEST_F(SqlCommand, AnActionPrintsItsRows) {
    EXPECT_EQ(Sql("UPDATE Sp2 SET Col_1 = 5"), "{\"rows\":2}\n");
    EXPECT_EQ(Sql("DELETE * FROM Sp2 WHERE LineNum = 4;"), "{\"rows\":1}\n");
    EXPECT_EQ(Sql("INSERT INTO Sp2 (LineNum, Col_1) VALUES (2, 7)"), "{\"rows\":1}\n");
    EXPECT_EQ(Totals(), "{\"LineNum\":1,\"Col_1\":5}\n{\"LineNum\":2,\"Col_1\":7}\n");
}

TEST_F(SqlCommand, TablesAreMadeAndDropped) {
    EXPECT_EQ(Sql("SELECT LineNum, Description INTO [Mine \"and\" yours] FROM Sp2"), "{\"rows\":2}\n");
    EXPECT_EQ(Sql("CREATE UNIQUE INDEX ndx ON [Mine \"and\" yours] (LineNum)"), "{\"rows\":0}\n");
    EXPECT_EQ(Sql("SELECT Count(*) AS N FROM [mine \"AND\" yours]"), "{\"N\":2}\n");
    Fail({"sql", crf, "INSERT INTO [Mine \"and\" yours] (LineNum) VALUES (4)"});
    EXPECT_EQ(Sql("DROP TABLE [Mine \"and\" yours]"), "{\"rows\":0}\n");
    Fail({"sql", crf, "SELECT * FROM [Mine \"and\" yours]"});
}

TEST_F(SqlCommand, AFailedStatementTellsWhereAndPrintsNothing) {
    EXPECT_EQ(Fail({"sql", crf, "SELECT * FROM Nope"}),
              "Error 3078: Unknown table 'Nope' at character 15 of: SELECT * FROM Nope\n");
    EXPECT_EQ(Fail({"sql", crf, "UPDATE Nope SET Col_1 = 1"}),
              "Error 3078: Unknown table 'Nope' at character 8 of: UPDATE Nope SET Col_1 = 1\n");
    EXPECT_EQ(Fail({"sql", crf, "UPDATE A SET Col_1 = 1/0"}), "Error 11: Division by zero\n");
    // The second row is the one that fails.
    EXPECT_EQ(Fail({"sql", crf, "SELECT 1/(LineNum-4) AS X FROM Sp2"}), "Error 11: Division by zero\n");
    for (const char* statement : {"", " ", ";", "SELECT * FROM Sp2; DELETE * FROM Sp2", "-- x", "PRAGMA user_version",
                                  "ATTACH DATABASE 'x' AS y", "SELECT * FROM sqlite_master", "VACUUM"}) {
        Fail({"sql", crf, statement});
    }
    EXPECT_EQ(Totals(), kNewTotals);
}

TEST_F(SqlCommand, AStatementMayHaveSeveralLines) {
    EXPECT_EQ(Sql("SELECT LineNum\r\nFROM Sp2\nWHERE LineNum = 4"), "{\"LineNum\":4}\n");
}

TEST_F(SqlCommand, StandardInputHoldsOneStatementALine) {
    EXPECT_EQ(Succeed({"sql", crf, "-"},
                      "\xEF\xBB\xBFUPDATE Sp2 SET Col_1 = 5\r\n\r\n  \nSELECT Col_1 FROM Sp2 WHERE LineNum = 1\n"
                      "UPDATE Sp2 SET Col_1 = Col_1 + 1"),
              "{\"rows\":2}\n{\"Col_1\":5}\n{\"rows\":2}\n");
    EXPECT_EQ(Totals(), "{\"LineNum\":1,\"Col_1\":6}\n{\"LineNum\":4,\"Col_1\":6}\n");
    EXPECT_EQ(Succeed({"sql", crf, "-"}, ""), "");
}

TEST_F(SqlCommand, OneBadLineTakesAllLinesBack) {
    const std::string before = Read_Bytes(crf);
    EXPECT_EQ(Fail({"sql", crf, "-"}, "UPDATE Sp2 SET Col_1 = 5\nSELECT LineNum INTO Mine FROM Sp2\n\nbogus\n"),
              "line 4: Error 3075: Syntax error near 'bogus' at character 1 of: bogus\n");
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(SqlCommand, TablesMadeByABatchGoWithIt) {
    Fail({"sql", crf, "-"}, "CREATE TABLE T (N Long);\nINSERT INTO T VALUES (7);\nSELECT N FROM T;\nDELETE FROM Tt;\n");
    Fail({"sql", crf, "SELECT N FROM T"});
}

// What came before the error is no reason to store half of the statements.
TEST_F(SqlCommand, AReadErrorStoresNothing) {
    const std::string before = Read_Bytes(crf);
    BrokenText text("UPDATE Sp2 SET Col_1 = 5\nUPDATE Sp2 SET Col_1 = 6");
    std::istream in(&text);
    std::ostringstream out, err;
    EXPECT_EQ(Run_Command_Line({"sql", crf, "-"}, in, out, err), kExitFailed);
    EXPECT_EQ(err.str(), "Standard input cannot be read.\n");
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(Read_Bytes(crf), before);
}

TEST_F(SqlCommand, Utf16IsRefused) {
    EXPECT_EQ(Fail({"sql", crf, "-"}, std::string("\xFF\xFES\0", 4)),
              "The text is UTF-16.  Save it as UTF-8 and try again.\n");
}

TEST_F(SqlCommand, ALineThatIsNoStatementHasItsNumber) {
    EXPECT_TRUE(Fail({"sql", crf, "-"}, "SELECT LineNum FROM Sp2\nSELECT \"\n").starts_with("line 2: Error "));
}

// Twenty seven million rows would take gigabytes.
TEST_F(SqlCommand, ResultsGoOutAsTheyComeAndAreNotHeld) {
    class Counter : public std::streambuf {
      public:
        std::size_t bytes = 0;

      protected:
        int_type overflow(int_type c) override { return c; }
        std::streamsize xsputn(const char*, std::streamsize size) override {
            bytes += static_cast<std::size_t>(size);
            if (bytes > 3 * Results::kMostHeld) throw std::ios_base::failure("nobody reads on");
            return size;
        }
    } counter;
    std::istringstream in;
    std::ostream out(&counter);
    std::ostringstream err;
    EXPECT_EQ(
        Run_Command_Line({"sql", crf, "SELECT X.CCName FROM A AS X, A AS Y, A AS Z, A AS U, A AS V"}, in, out, err),
        kExitFailed);
    EXPECT_EQ(err.str(), "The results could not be written to standard output.\n");
    EXPECT_LT(counter.bytes, 4 * Results::kMostHeld + 1024);
}

TEST_F(SqlCommand, AChangeWhoseResultsCannotBeWrittenIsNotMade) {
    const std::string before = Read_Bytes(crf);
    std::istringstream in;
    std::ofstream out("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(Run_Command_Line({"sql", crf, "UPDATE Sp2 SET Col_1 = 5"}, in, out, err), kExitFailed);
    EXPECT_EQ(err.str(), "The results could not be written to standard output.\n");
    EXPECT_TRUE(Read_Bytes(crf) == before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(SqlCommand, RowsComeInTheOrderAsked) {
    EXPECT_EQ(Sql("SELECT TOP 2 LineNum FROM A WHERE LineNum < 5 ORDER BY LineNum DESC, CCName"),
              "{\"LineNum\":4}\n{\"LineNum\":3}\n");
}

TEST_F(SqlCommand, HostileTextsAreErrorsOrTexts) {
    Fail({"sql", crf, "-"}, std::string("SELECT * FROM Sp2\0;\n", 20));
    Fail({"sql", crf, std::string(100'000, '(')});
    Fail({"sql", crf, "SELECT \xff\xfe FROM Sp2"});
    EXPECT_EQ(Sql("UPDATE Sp2 SET Description = \"\"\"); DROP TABLE Sp2; --\" WHERE LineNum = 1"), "{\"rows\":1}\n");
    EXPECT_EQ(Sql("SELECT Description FROM Sp2 WHERE LineNum = 1"),
              "{\"Description\":\"\\\"); DROP TABLE Sp2; --\"}\n");
}

TEST_F(SqlCommand, AReadOnlyReportIsReadAndNotChanged) {
    std::filesystem::permissions(crf, std::filesystem::perms::owner_read);
    const std::string before = Read_Bytes(crf);
    EXPECT_NE(Totals(), "");
    EXPECT_NE(Fail({"sql", crf, "UPDATE Sp2 SET Col_1 = 5"}).find("read only"), std::string::npos);
    EXPECT_EQ(Read_Bytes(crf), before);
}

}  // namespace

}  // namespace tallmar
