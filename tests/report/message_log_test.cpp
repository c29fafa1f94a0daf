#include "report/message_log.h"

#include "db/replay.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

class MessageLogTest : public ReportTest {
  protected:
    MessageLogTest() {
        Empty_Database();
        Build_Worksheets();
    }
    // Level and form that the router makes of the arguments.
    std::string Logged(int buttons, std::string_view title) {
        Start_Msg_Log("Junk");
        Report_Msg("Text", buttons, title);
        End_Msg_Log("Junk", true);
        const Row row = db.Read_Row("SELECT * FROM JunkErrLog;");
        return row["ErrLevel"].To_Text() + "/" + row["ErrForm"].To_Text();
    }
};

}  // namespace

TEST_F(MessageLogTest, WithoutALogTheMessageIsABox) {
    platform.Expect_Box("Error: Worksheet A", "Text", Answer::Yes, kYesNo | kStop);
    EXPECT_EQ(Report_Msg("Text", kYesNo | kStop, "Error: Worksheet A"), Answer::Yes);
}

TEST_F(MessageLogTest, QuestionInALogIsNeitherAnswer) {
    Start_Msg_Log("CalcAll");
    EXPECT_EQ(Report_Msg("Go on?", kYesNo, "Question"), Answer::None);
    EXPECT_EQ(Read("SELECT ErrMessage FROM CalcAllErrLog;"), Value("Go on?"));
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(MessageLogTest, IconGivesTheLevel) {
    EXPECT_EQ(Logged(kOkOnly, ""), "I/CRF");
    EXPECT_EQ(Logged(kStop, ""), "E/CRF");
    EXPECT_EQ(Logged(kInformation, ""), "I/CRF");
    EXPECT_EQ(Logged(kQuestion, ""), "W/CRF");
    EXPECT_EQ(Logged(kExclamation, ""), "E/CRF");
}

TEST_F(MessageLogTest, TitleOverridesTheIcon) {
    EXPECT_EQ(Logged(kExclamation, "Warning: Check the dates"), "W/CRF");
    EXPECT_EQ(Logged(kStop, "For your info"), "I/CRF");
    EXPECT_EQ(Logged(kInformation, "An error and a warning"), "E/CRF");
}

TEST_F(MessageLogTest, TitleNamesTheWorksheet) {
    EXPECT_EQ(Logged(kOkOnly, "Worksheet A-4 error"), "E/A-4");
    EXPECT_EQ(Logged(kOkOnly, "Error: Worksheet B1"), "E/B1");
    EXPECT_EQ(Logged(kOkOnly, "WORKSHEET   A-6 warning"), "W/A-6");
    EXPECT_EQ(Logged(kOkOnly, "Trouble in table B1X now"), "I/B1X");
    EXPECT_EQ(Logged(kOkOnly, "Table of worksheet A"), "I/A");
    EXPECT_EQ(Logged(kOkOnly, "Worksheet"), "I/");
}

TEST_F(MessageLogTest, AnErrorOfAWorksheetIsABoxOrARowAlike) {
    platform.Expect_Box("Error: Worksheet B1", "Text", Answer::Ok, kStop);
    Report_Error("B1", "Text");
    platform.Expect_Box("Error: Worksheet B", "Text", Answer::Ok, kExclamation);
    Report_Error("B", "Text", kExclamation);
    Start_Msg_Log("Junk");
    Report_Error("B1", "Text");
    Report_Msg("Text", kStop, "Error: Worksheet B1");
    EXPECT_EQ(Column("SELECT ErrLevel & '/' & ErrForm & '/' & ErrMessage FROM JunkErrLog;"), "E/B1/Text E/B1/Text");
}

TEST_F(MessageLogTest, QuoteInAMessageBreaksTheStatement) {
    Start_Msg_Log("Junk");
    EXPECT_THROW(Report_Msg("a \"b\" c"), DbError);
}

TEST_F(MessageLogTest, StartingTwiceLeavesAnEmptyTable) {
    Start_Msg_Log("CalcAll");
    Report_Msg("Text");
    Start_Msg_Log("CalcAll");
    EXPECT_EQ(Count("CalcAllErrLog"), 0);
}

// A change of the tables would have every statement compiled again.
TEST_F(MessageLogTest, ALogIsEmptiedWithoutAChangeOfTheTables) {
    Start_Msg_Log("CalcAll");
    Report_Msg("one");
    const std::vector<LoggedStatement> work = Record_Statements(db, [] { Start_Msg_Log("CalcAll"); });
    EXPECT_EQ(Count("CalcAllErrLog"), 0);
    EXPECT_FALSE(work.empty());
    for (const LoggedStatement& statement : work) {
        EXPECT_FALSE(statement.sql.starts_with("CREATE") || statement.sql.starts_with("DROP")) << statement.sql;
    }
}

TEST_F(MessageLogTest, ALogOfAnotherShapeIsMadeAnew) {
    db.Execute("CREATE TABLE JunkErrLog (ErrLevel Text(1), ErrMessage Memo);");
    EXPECT_EQ(Logged(kStop, "Worksheet A"), "E/A");
    db.Execute("CREATE UNIQUE INDEX ndx ON JunkErrLog (ErrForm);");
    Start_Msg_Log("Junk");
    Report_Msg("one", kStop, "Worksheet A");
    Report_Msg("two", kStop, "Worksheet A");
    EXPECT_EQ(Count("JunkErrLog"), 2);
}

TEST_F(MessageLogTest, EndListsTheRowsByFormAndLevel) {
    Start_Msg_Log("CalcAll");
    Report_Msg("third", kQuestion, "Worksheet B");
    Report_Msg("first", kQuestion, "Worksheet A");
    Report_Msg("second", kStop, "Worksheet B");
    End_Msg_Log("CalcAll");
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].title, "The following messages were generated during the CalcAll process.");
    const auto& rows = platform.batches[0].rows;
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].message, "first");
    EXPECT_EQ(rows[1].message, "second");
    EXPECT_EQ(rows[1].level, "E");
    EXPECT_EQ(rows[2].form, "B");
    EXPECT_EQ(rows[2].level, "W");
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(MessageLogTest, NoMessageShowsNoList) {
    Start_Msg_Log("CalcAll");
    End_Msg_Log("CalcAll");
    EXPECT_TRUE(platform.batches.empty());
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(MessageLogTest, QuietEndShowsNoList) {
    Start_Msg_Log("Junk");
    Report_Msg("Text");
    End_Msg_Log("Junk", true);
    EXPECT_TRUE(platform.batches.empty());
    EXPECT_EQ(Count("JunkErrLog"), 1);
}

TEST_F(MessageLogTest, LogTableIsNeverRegistered) {
    Start_Msg_Log("Junk");
    EXPECT_EQ(Count("Worksheets"), 1);
    EXPECT_TRUE(TableExists("JunkErrLog", false));
}

TEST_F(MessageLogTest, MessageWithoutAReportFails) {
    openReport.MsgLogPrefix = "CalcAll";
    db.Close();
    EXPECT_THROW(Report_Msg("Text"), DbError);
}

}  // namespace tallmar
