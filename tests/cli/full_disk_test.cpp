// A disk that is full: every command that writes says so and leaves the report as it was.
#include "cli_test.h"
#include "support/size_limit.h"

namespace tallmar {

namespace {

const std::string kSampleCells = std::string(TALLMAR_SOURCE_DIR) + "/samples/fy2016/cells.csv";

class FullDisk : public CliTest {
  protected:
    // The command fails with a word, and the folder is as it was.
    void Expect_Nothing_Changed(const Args& command, const std::string& input, rlim_t limit) {
        const std::set<std::string> names = Names();
        const std::string before = Read_Bytes(crf);
        Ran ran;
        {
            const SizeLimit full(limit);
            ran = Run_Tallmar(command, input);
        }
        EXPECT_EQ(ran.status, kExitFailed) << command[0] << " within " << limit;
        EXPECT_EQ(ran.out, "") << command[0];
        EXPECT_NE(ran.err, "") << command[0];
        EXPECT_EQ(Names(), names) << command[0];
        EXPECT_TRUE(Read_Bytes(crf) == before) << command[0] << " within " << limit;
        if (!before.empty()) Succeed({"info", crf});
    }
};

TEST_F(FullDisk, NewLeavesNothing) {
    for (const rlim_t limit : {0, 1, 4096, 100'000}) Expect_Nothing_Changed(New_Command(crf), "", limit);
}

TEST_F(FullDisk, NewLeavesTheOlderReport) {
    New();
    Args command = New_Command(crf);
    command.insert(command.end(), {"--answer", "yes"});
    Expect_Nothing_Changed(command, "", 100'000);
}

TEST_F(FullDisk, EnterStoresNoCell) {
    New();
    // The journal needs more than this, then the file.
    for (const rlim_t limit : {0, 512, 5000}) Expect_Nothing_Changed({"enter", crf, kSampleCells}, "", limit);
}

TEST_F(FullDisk, SqlChangesNothing) {
    New();
    const rlim_t size = std::filesystem::file_size(crf);
    Expect_Nothing_Changed({"sql", crf, "UPDATE A SET Col_1 = 5"}, "", 512);
    const std::string copies = "SELECT A.* INTO Big FROM A\n";
    std::string lines = copies;
    for (int i = 0; i < 8; ++i) lines += "INSERT INTO Big SELECT * FROM Big\n";
    Expect_Nothing_Changed({"sql", crf, "-"}, lines, size);
}

TEST_F(FullDisk, CalcChangesNothing) {
    New();
    Run_Tallmar({"enter", crf, kSampleCells});
    for (const rlim_t limit : {0, 512, 5000, 50'000}) Expect_Nothing_Changed({"calc", crf}, "", limit);
}

TEST_F(FullDisk, SaveAsLeavesNoCopy) {
    New();
    for (const rlim_t limit : {0, 100'000}) Expect_Nothing_Changed({"save-as", crf, Path("copy.CRF")}, "", limit);
    Write_Bytes(Path("copy.CRF"), "older");
    Expect_Nothing_Changed({"save-as", crf, Path("copy.CRF"), "--answer", "yes"}, "", 100'000);
    EXPECT_EQ(Read_Bytes(Path("copy.CRF")), "older");
    const std::string before = Read_Bytes(crf);
    std::filesystem::copy_file(crf, Path("copy.CRF"), std::filesystem::copy_options::overwrite_existing);
    Sql("UPDATE A SET Col_1 = 5");
    Expect_Nothing_Changed({"save-as", crf, Path("copy.CRF"), "--answer", "yes"}, "", 100'000);
    EXPECT_TRUE(Read_Bytes(Path("copy.CRF")) == before);
}

TEST_F(FullDisk, CompactSaysWhyItDidNothing) {
    New();
    for (const rlim_t limit : {0, 512, 50'000}) Expect_Nothing_Changed({"compact", crf}, "", limit);
}

TEST_F(FullDisk, NoRoomForABackupHoldsNothingUp) {
    New();
    ConsoleOptions options;
    options.dataFolder = "/proc/nowhere";
    const Ran ran = Run_Tallmar({"calc", crf}, "", options);
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(ran.err, "");
}

}  // namespace

}  // namespace tallmar
