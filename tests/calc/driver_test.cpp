#include "calc/driver.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "catalogue.h"
#include "report/message_log.h"
#include "report/run_log.h"
#include "support/report_test.h"
#include "support/size_limit.h"

namespace tallmar {

namespace {

std::string calculated;

void Build_Text(const Item& item) {
    db.Execute(Sql("CREATE TABLE ", item.Name(), " (LineNum Currency, Col_1 Text(40), Col_2 Char(10), Col_3 Memo);"));
    db.Execute(Sql("INSERT INTO ", item.Name(), " (LineNum) VALUES (1);"));
    Edit_Worksheets(item.Name(), "Make", Find_Family(item)->level);
}
void Calc_Note(const Item& item) {
    calculated += (calculated.empty() ? "" : " ") + item.Name();
}
void Calc_Broken(const Item& item) {
    Calc_Note(item);
    db.Execute(Sql("UPDATE ", item.Name(), " SET Col_1=\"half\";"));
    db.Execute("UPDATE \"NoTable\" SET Col_1=0;");
}
void Calc_Message(const Item& item) {
    EXPECT_EQ(Report_Msg("Look here", kQuestion, "Warning: Worksheet " + item.Name()), Answer::None);
}
void Calc_Logged(const Item& item) {
    Log_Calc("W_S_", "Calc_Sp2", item.Name(), "done");
}
void Calc_Killed(const Item& item) {
    db.Execute(Sql("UPDATE ", item.Name(), " SET Col_1=\"half\";"));
    std::raise(SIGKILL);
}
void Calc_Growing(const Item& item) {
    const std::string much(200'000, 'x');
    for (int i = 0; i < 20; ++i) {
        db.Execute(Sql("INSERT INTO ", item.Name(), " (LineNum, Col_3) VALUES (2, ", Quoted(much), ");"));
    }
}
void Calc_Overflow(const Item&) {
    throw std::overflow_error("Overflow");
}

constexpr WorksheetFamily kFamilies[] = {{"A", 4, Years::Always, true, Build_Text, Calc_Note},
                                         {"A1", 0, Years::CostLimits, true, Build_Text, Calc_Note},
                                         {"A2", 0, Years::CostLimits, true, Build_Text, Calc_Note},
                                         {"A3", 0, Years::CostLimits, true, Build_Text, Calc_Note},
                                         {"A4", 0, Years::Always, true, Build_Text, Calc_Note},
                                         {"A5", 3, Years::Always, true, Build_Text, Calc_Note},
                                         {"F", 0, Years::Always, true, Build_Text, Calc_Note},
                                         {"F1", 5, Years::Always, true, Build_Text, Calc_Note},
                                         {"F2", 6, Years::Always, true, Build_Text, Calc_Note},
                                         {"B", 0, Years::Always, true, Build_Text},
                                         {"B1", 5, Years::Always, true, Build_Text, Calc_Note},
                                         {"a0", 0, Years::Always, false, Build_Text, Calc_Note},
                                         {"A83p1*", 0, Years::CostLimits, true, Build_Text, Calc_Note}};
constexpr WorksheetFamily kBrokenA[] = {{"A", 4, Years::Always, true, Build_Text, Calc_Broken},
                                        {"A5", 3, Years::Always, true, Build_Text, Calc_Overflow},
                                        {"B1", 5, Years::Always, true, Build_Text, Calc_Note}};
constexpr WorksheetFamily kTalking[] = {{"A", 4, Years::Always, true, Build_Text, Calc_Message},
                                        {"Sp2", 11, Years::Always, true, Build_Text, Calc_Logged}};

constexpr WorksheetFamily kKilled[] = {{"A", 4, Years::Always, true, Build_Text, Calc_Killed}};
constexpr WorksheetFamily kGrowing[] = {{"A", 4, Years::Always, true, Build_Text, Calc_Growing}};

class DriverTest : public ReportTest {
  protected:
    DriverTest() { calculated.clear(); }
    void Report_Of(std::span<const WorksheetFamily> families, Date start = Date_Of(2015, 10, 1)) {
        Install_Catalogue(families);
        New_Report(start, Date{Add_Years(start, 1).serial - 1});
        platform.progress.clear();
    }
    // Every cell of every table but the logs.
    static std::string Cells() {
        std::string cells;
        for (int i = 0; i < db.TableDefs().Count(); ++i) {
            const std::string table = db.TableDefs().Item(i).Name();
            if (table.find("Log") != table.npos) continue;
            Recordset rows = db.OpenRecordset(table, RecordsetType::Snapshot);
            for (; !rows.Eof(); rows.MoveNext()) {
                cells += table;
                for (int field = 0; field < rows.Fields_Count(); ++field) {
                    const Value value = rows.Fields(field).Value();
                    cells += "|" + (value.Is_Null() ? "Null" : value.To_Text());
                }
                cells += "\n";
            }
        }
        return cells;
    }
};

}  // namespace

TEST_F(DriverTest, LevelsAscendAndItemsStandInBinaryOrder) {
    Report_Of(kFamilies);
    Build_Text("a0");
    Calc_All();
    EXPECT_EQ(calculated, "A4 F a0 A5 A B1 F1 F2 F");
}

TEST_F(DriverTest, ProgressNamesLevelAndItem) {
    Report_Of(kTalking);
    Calc_All();
    EXPECT_EQ(platform.progress, (std::vector<std::string>{" Calculating level 4: A", " Calculating level 11: Sp2",
                                                           " Calculations completed.", ""}));
}

TEST_F(DriverTest, LineBreaksLeaveTextsButNotMemos) {
    Report_Of(kFamilies);
    Recordset rows = db.OpenRecordset("SELECT * FROM B;");
    rows.Edit();
    rows.Fields("Col_1").Set("a\r\nb\r\nc");
    rows.Fields("Col_2").Set("\n\nx\r");
    rows.Fields("Col_3").Set("kept\r\nas is");
    rows.Update();
    rows.Close();
    db.Execute("INSERT INTO B (LineNum, Col_1) VALUES (2, \"plain\");");
    Calc_All();
    const Row row = db.Read_Row("SELECT * FROM B WHERE LineNum=1;");
    EXPECT_EQ(row["Col_1"], Value("abc"));
    EXPECT_EQ(row["Col_2"], Value("x"));
    EXPECT_EQ(row["Col_3"], Value("kept\r\nas is"));
    EXPECT_EQ(Read("SELECT Col_1 FROM B WHERE LineNum=2;"), Value("plain"));
}

TEST_F(DriverTest, TableWithoutRowsIsSkippedByTheCleanPass) {
    Report_Of(kFamilies);
    db.Execute("DELETE * FROM A4;");
    Calc_All();
    EXPECT_TRUE(platform.batches.empty());
    EXPECT_NE(calculated.find("A4"), std::string::npos);
}

TEST_F(DriverTest, KilledWorksheetIsNeitherCleanedNorCalculated) {
    Report_Of(kFamilies);
    Recordset rows = db.OpenRecordset("SELECT * FROM A4;");
    rows.Edit();
    rows.Fields("Col_1").Set("a\nb");
    rows.Update();
    rows.Close();
    platform.Advance(10);
    Edit_Worksheets("A4", "Kill");
    Calc_All();
    EXPECT_EQ(calculated, "F A5 A B1 F1 F2 F");
    EXPECT_EQ(Read("SELECT Col_1 FROM A4;"), Value("a\nb"));
}

TEST_F(DriverTest, InternalTablesAreNotInTheSelection) {
    Report_Of(kFamilies);
    db.Execute("UPDATE CostCenters SET CCName=\"a\" & Chr(10) & \"b\" WHERE LineNum=6;");
    Calc_All();
    EXPECT_EQ(Read("SELECT CCName FROM CostCenters WHERE LineNum=6;"), Value("a\nb"));
}

TEST_F(DriverTest, A1IsCleanedButNotCalculatedAfterTheLimitsEnd) {
    Report_Of(kFamilies, Date_Of(2000, 10, 1));
    Build_Text("A1");
    db.Execute("UPDATE A1 SET Col_1=\"a\" & Chr(13) & \"b\";");
    Calc_All();
    EXPECT_EQ(calculated, "A4 F A5 A B1 F1 F2 F");
    EXPECT_EQ(Read("SELECT Col_1 FROM A1;"), Value("ab"));
}

TEST_F(DriverTest, A1ToA83AreCalculatedBeforeTheLimitsEnd) {
    Report_Of(kFamilies, Date_Of(2000, 9, 30));
    Calc_All();
    EXPECT_EQ(calculated, "A1 A2 A3 A4 A83p1 F A5 A B1 F1 F2 F");
}

TEST_F(DriverTest, FIsCalculatedAgainBehindF2OnlyWhereItIsAlive) {
    Report_Of(kFamilies);
    platform.Advance(10);
    Edit_Worksheets("F", "Kill");
    Calc_All();
    EXPECT_EQ(calculated, "A4 A5 A B1 F1 F2");
}

TEST_F(DriverTest, ErrorInOneWorksheetIsListedAndTheChainGoesOn) {
    Report_Of(kBrokenA);
    Calc_All();
    EXPECT_EQ(calculated, "A B1");
    ASSERT_EQ(platform.batches.size(), 1u);
    const auto& rows = platform.batches[0].rows;
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].level, "E");
    EXPECT_EQ(rows[0].form, "A");
    EXPECT_EQ(rows[0].message.find('"'), std::string::npos);
    EXPECT_EQ(rows[1].form, "A5");
    EXPECT_EQ(rows[1].message,
              "Overflow in a figure of worksheet A5.  Worksheet A5 was not calculated to its end: some of its figures, "
              "and of those that follow from them, are of an earlier calculation.");
    EXPECT_EQ(Read("SELECT Col_1 FROM A;"), Value("half"));
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(DriverTest, RegisteredWorksheetWithoutATableIsListed) {
    Report_Of(kFamilies);
    db.TableDefs().Delete("A5");
    Calc_All();
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].rows[0].form, "A5");
    EXPECT_EQ(calculated, "A4 F A B1 F1 F2 F");
}

TEST_F(DriverTest, MessagesAreListedAtTheEnd) {
    Report_Of(kTalking);
    Calc_All();
    ASSERT_EQ(platform.batches.size(), 1u);
    EXPECT_EQ(platform.batches[0].title, "The following messages were generated during the CalcAll process.");
    EXPECT_EQ(platform.batches[0].rows[0].level, "W");
    EXPECT_TRUE(platform.boxes.empty());
    Calc_All();
    EXPECT_EQ(platform.batches[1].rows.size(), 1u);
}

TEST_F(DriverTest, LogHoldsTheLinesOfThisRunOnly) {
    Report_Of(kTalking);
    Calc_All();
    Calc_All();
    EXPECT_EQ(Count("Log WHERE LogType='C'"), 1);
    EXPECT_EQ(Count("Log"), 2);
}

TEST_F(DriverTest, OptionOfLine26IsReadAnew) {
    Report_Of(kFamilies);
    openReport.AGOption = 2;
    Calc_All();
    EXPECT_EQ(openReport.AGOption, 0);
}

TEST_F(DriverTest, SecondRunChangesNoCell) {
    Report_Of(All_Families());
    db.Execute("UPDATE A SET Col_1=1200.5 WHERE LineNum=6;");
    db.Execute("UPDATE A SET Col_1=333.33 WHERE LineNum=5;");
    db.Execute("UPDATE S3p1 SET Col_1=40, Col_2=3 WHERE LineNum=1;");
    db.Execute("UPDATE A5 SET Col_2=-17.2, Col_4=5 WHERE LineNum=1;");
    Calc_All();
    const std::string once = Cells();
    platform.Advance(10);
    Calc_All();
    EXPECT_EQ(Cells(), once);
    EXPECT_NE(once.find("1200.5"), std::string::npos);
}

TEST_F(DriverTest, KilledRunLeavesTheReportAsItWas) {
    Report_Of(kKilled);
    db.Execute("UPDATE A SET Col_1=\"before\";");
    const std::string before = Cells();
    Report_Release();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (Report_Open(folder.File("Agency.CRF"))) Calc_All();
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_TRUE(Report_Open(folder.File("Agency.CRF")));
    EXPECT_EQ(Cells(), before);
    Report_Release();
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(DriverTest, FullDiskStopsTheRunAndLeavesTheReportAsItWas) {
    Report_Of(kGrowing);
    Report_Release();
    ASSERT_TRUE(Report_Open(folder.File("Agency.CRF")));
    const std::string before = Cells();
    {
        const SizeLimit limit(std::filesystem::file_size(openReport.CRFPath));
        EXPECT_THROW(Calc_All(), DbError);
    }
    EXPECT_EQ(openReport.MsgLogPrefix, "");
    EXPECT_EQ(platform.progress.back(), "");
    EXPECT_EQ(Cells(), before);
    Report_Release();
    ASSERT_TRUE(Report_Open(folder.File("Agency.CRF")));
    EXPECT_EQ(Cells(), before);
}

TEST_F(DriverTest, WithoutAReportThereIsNothingToCalculate) {
    EXPECT_THROW(Calc_All(), DbError);
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(DriverTest, ReadOnlyReportIsNotCalculated) {
    Report_Of(kFamilies);
    Report_Release();
    std::filesystem::permissions(folder.File("Agency.CRF"), std::filesystem::perms::owner_read);
    const std::string before = Bytes(folder.File("Agency.CRF"));
    ASSERT_TRUE(Report_Open(folder.File("Agency.CRF")));
    EXPECT_THROW(Calc_All(), DbError);
    EXPECT_EQ(openReport.MsgLogPrefix, "");
    Report_Release();
    EXPECT_EQ(Bytes(folder.File("Agency.CRF")), before);
}

}  // namespace tallmar
