// Two programs at one report: the one that cannot have it says so, and what the other wrote is kept.
#include <sys/wait.h>
#include <unistd.h>

#include "cli_test.h"
#include "db/database.h"
#include "support/other_window.h"
#include "support/short_wait.h"

namespace tallmar {

namespace {

// Another program: a child that changes the report in a job and holds the job open until it is asked to end it.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& file) {
        int told[2], tells[2];
        if (pipe(told) != 0 || pipe(tells) != 0) throw std::runtime_error("no pipes");
        child_ = fork();
        if (child_ == 0) {
            close(told[1]);
            close(tells[0]);
            _exit(Work(file, told[0], tells[1]));
        }
        close(told[0]);
        close(tells[1]);
        tell_ = told[1];
        char ready = 0;
        if (read(tells[0], &ready, 1) != 1) ADD_FAILURE() << "the other program did not start";
        close(tells[0]);
    }
    ~OtherProgram() { End(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    // Commits its job.
    void End() {
        if (child_ <= 0) return;
        close(tell_);
        int status = 0;
        waitpid(child_, &status, 0);
        EXPECT_EQ(status, 0) << "the other program could not commit";
        child_ = 0;
    }

  private:
    static int Work(const std::string& file, int told, int tells) {
        try {
            Database other = DBEngine::OpenDatabase(file);
            Job job(other);
            other.Execute("UPDATE Sp2 SET Col_1 = 777 WHERE LineNum = 1");
            char byte = 'r';
            if (write(tells, &byte, 1) != 1) return 2;
            while (read(told, &byte, 1) > 0) {
            }
            job.Keep();
            return 0;
        } catch (const std::exception&) {
            return 1;
        }
    }

    pid_t child_ = 0;
    int tell_ = -1;
};

class TwoPrograms : public CliTest {
  protected:
    void SetUp() override { New(); }
    void Expect_Kept() {
        EXPECT_EQ(Sql("SELECT Col_1 FROM Sp2 WHERE LineNum = 1"), "{\"Col_1\":777}\n");
        EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
    }
};

TEST_F(TwoPrograms, AChangeIsRefusedWhileTheOtherChangesTheReport) {
    const ShortWait wait;
    OtherProgram other(crf);
    const std::string inUse = "The file '" + crf + "' is in use\n";
    for (const Args& command : {Args{"calc", crf}, Args{"enter", crf}, Args{"sql", crf, "UPDATE A SET Col_1 = 5"}}) {
        const std::string told = Fail(command, "A,6,Col_1,5\n");
        EXPECT_NE(told.find(inUse), std::string::npos) << told;
    }
    other.End();
    Expect_Kept();
}

TEST_F(TwoPrograms, ReadingGoesOnAndSeesTheStateBefore) {
    const std::string before = Succeed({"dump", crf});
    OtherProgram other(crf);
    EXPECT_EQ(Succeed({"dump", crf}), before);
    Succeed({"info", crf});
    EXPECT_EQ(Sql("SELECT Col_1 FROM Sp2 WHERE LineNum = 1"), "{\"Col_1\":0}\n");
    Succeed({"save-as", crf, Path("copy.CRF")});
    EXPECT_EQ(Succeed({"dump", Path("copy.CRF")}), before);
    std::filesystem::remove(Path("copy.CRF"));
    other.End();
    Expect_Kept();
}

TEST_F(TwoPrograms, AReportInUseIsNotReplaced) {
    const ShortWait wait;
    Succeed({"save-as", crf, Path("copy.CRF")});
    OtherProgram other(crf);
    Args again = New_Command(crf);
    again.insert(again.end(), {"--answer", "yes"});
    EXPECT_NE(Fail(again).find("is in use"), std::string::npos);
    EXPECT_NE(Fail({"save-as", Path("copy.CRF"), crf, "--answer", "yes"}).find("is in use"), std::string::npos);
    EXPECT_NE(Fail({"compact", crf}).find("is in use"), std::string::npos);
    other.End();
    std::filesystem::remove(Path("copy.CRF"));
    Expect_Kept();
}

TEST_F(TwoPrograms, AReportOpenInAWindowIsNotChanged) {
    Succeed({"save-as", crf, Path("copy.CRF")});
    const std::string before = Read_Bytes(crf);
    OtherWindow other(crf);
    const std::string inUse = "Report In Use: The report " + crf + " is open in another program [Tallmar 1728, user ";
    for (const Args& command :
         {Args{"calc", crf}, Args{"enter", crf}, Args{"sql", crf, "UPDATE A SET Col_1 = 5"}, Args{"sql", crf, "-"},
          Args{"compact", crf}, New_Command(crf), Args{"save-as", Path("copy.CRF"), crf}}) {
        const std::string told = Fail(command, "A,6,Col_1,5\n");
        EXPECT_TRUE(told.starts_with(inUse)) << told;
        EXPECT_TRUE(told.ends_with("  Nothing was changed.  Close the report there and try again.\n")) << told;
    }
    EXPECT_TRUE(Read_Bytes(crf) == before);
    EXPECT_EQ(Names(), (std::set<std::string>{"copy.CRF", "r.CRF", "r.CRF.lock"}));
}

TEST_F(TwoPrograms, AReportOpenInAWindowIsRead) {
    const std::string before = Succeed({"dump", crf});
    OtherWindow other(crf);
    EXPECT_EQ(Succeed({"dump", crf}), before);
    Succeed({"info", crf});
    EXPECT_EQ(Sql("SELECT Col_1 FROM Sp2 WHERE LineNum = 1"), "{\"Col_1\":0}\n");
    Succeed({"save-as", crf, Path("copy.CRF")});
    EXPECT_EQ(Succeed({"dump", Path("copy.CRF")}), before);
    other.Close();
    EXPECT_EQ(Names(), (std::set<std::string>{"copy.CRF", "r.CRF"}));
    Succeed({"calc", crf});
}

TEST_F(TwoPrograms, AKilledWindowHoldsNoCommandUp) {
    OtherWindow other(crf);
    other.Kill();
    Succeed({"calc", crf});
    EXPECT_EQ(Names(), (std::set<std::string>{"r.CRF", "r.CRF.lock"})) << "the next window takes it over";
}

int Run_In_A_Child(const Args& args) {
    const std::string program = std::string(TALLMAR_BIN_DIR) + "/tallmar";
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        unsetenv("HOME");
        unsetenv("XDG_DATA_HOME");
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

std::string Total(Database& report) {
    const Row row = report.Read_Row("SELECT Col_1 FROM Sp2 WHERE LineNum = 1");
    return row["Col_1"].To_Text();
}

// The other one opened the report, and before it changes anything the file is compacted.
TEST_F(TwoPrograms, ACompactedReportTakesTheChangeOfWhoHasItOpen) {
    Database other = DBEngine::OpenDatabase(crf);
    ASSERT_EQ(Run_In_A_Child({"compact", crf}), 0);
    other.Execute("UPDATE Sp2 SET Col_1 = 777 WHERE LineNum = 1");
    other.Close();
    Expect_Kept();
}

// A reader that had the report open before a compaction, and a writer that is killed after it: the writer's journal is
// not taken for the reader's.
TEST_F(TwoPrograms, AReaderFromBeforeACompactionTakesNothingFromAWriterAfterIt) {
    Database reader = DBEngine::OpenDatabase(crf);
    ASSERT_EQ(Run_In_A_Child({"compact", crf}), 0);
    {
        OtherProgram other(crf);
        EXPECT_EQ(Total(reader), "0");
        other.End();
    }
    EXPECT_EQ(Total(reader), "777");
    reader.Close();
    Expect_Kept();
}

}  // namespace

}  // namespace tallmar
