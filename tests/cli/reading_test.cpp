// Commands that only read: they change nothing and leave nothing, of whatever layout the report is.
#include <map>

#include "cli_test.h"
#include "db/database.h"
#include "support/other_window.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kOlder = {
    "UPDATE Worksheets SET ItemName=\"x\" WHERE Item=\"A\"",
    "DELETE * FROM CostCenters WHERE LineNum = 23.2",
};

class Reading : public CliTest {
  protected:
    void SetUp() override {
        New();
        present_ = Succeed({"info", crf});
        Make_Older();
    }
    // By another program: a command would bring the report up to date.
    void Make_Older() const {
        Database older = DBEngine::OpenDatabase(crf);
        for (const std::string& statement : kOlder) older.Execute(statement);
        older.Close();
    }
    std::map<std::string, std::string> Folder_Content() const {
        std::map<std::string, std::string> content;
        for (const std::string& name : Names()) content[name] = Read_Bytes(Path(name));
        return content;
    }
    static std::vector<Args> Commands(const std::string& file) {
        return {{"info", file},
                {"info", file, "--json"},
                {"dump", file},
                {"sql", file, "SELECT ItemName FROM Worksheets WHERE Item=\"A\""}};
    }
    void Expect_Nothing_Changed() {
        const auto before = Folder_Content();
        for (const Args& command : Commands(crf)) {
            Succeed(command);
            EXPECT_TRUE(Folder_Content() == before) << command[0];
        }
    }
    const std::string& Present() const { return present_; }

  private:
    std::string present_;
};

TEST_F(Reading, AnOlderLayoutIsReadAsThePresentOneAndStays) {
    Expect_Nothing_Changed();
    EXPECT_EQ(Succeed({"info", crf}), Present());
    EXPECT_EQ(Sql("SELECT ItemName FROM Worksheets WHERE Item=\"A\""), "{\"ItemName\":\"A\"}\n");
    fs::permissions(crf, fs::perms::owner_read);
    Expect_Nothing_Changed();
}

TEST_F(Reading, AnOlderLayoutInAWindowIsReadToo) {
    const OtherWindow window(crf);
    Make_Older();
    Expect_Nothing_Changed();
}

TEST_F(Reading, ACopyIsOfTheFileAsItIs) {
    const std::string before = Read_Bytes(crf);
    Succeed({"save-as", crf, Path("copy.CRF")});
    EXPECT_TRUE(Read_Bytes(crf) == before);
    EXPECT_TRUE(Read_Bytes(Path("copy.CRF")) == before);
    EXPECT_EQ(Names(), (std::set<std::string>{"copy.CRF", "r.CRF"}));
}

TEST_F(Reading, NoBackupIsKeptByReading) {
    const TempFolder data;
    for (const Args& command : Commands(crf)) {
        EXPECT_EQ(Run_Tallmar(command, "", Keeping_Backups_In(data.Path())).status, kExitDone);
    }
    EXPECT_TRUE(fs::is_empty(data.Path()));
}

}  // namespace

}  // namespace tallmar
