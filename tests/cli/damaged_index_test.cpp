// A report whose index no longer fits its table.
#include <string>

#include "cli_test.h"

namespace tallmar {

namespace {

constexpr std::size_t kPage = 4096, kCellsAt = 3;
constexpr char kIndexLeaf = 0x0a;
constexpr const char* kTold = "Tallmar 1728: An index of the report was damaged and has been rebuilt.\n";

class DamagedIndex : public CliTest {
  protected:
    // One bit in the number of entries of an index.
    void SetUp() override {
        New();
        damaged_ = Read_Bytes(crf);
        for (std::size_t page = kPage; page < damaged_.size(); page += kPage) {
            if (damaged_[page] != kIndexLeaf) continue;
            damaged_[page + kCellsAt + 1] = static_cast<char>(damaged_[page + kCellsAt + 1] ^ 1);
            Write_Bytes(crf, damaged_);
            return;
        }
        FAIL() << "the report has no index";
    }

    std::string damaged_;
};

TEST_F(DamagedIndex, ACommandThatReadsSaysSoAndLeavesTheFile) {
    for (const Args& command : {Args{"info", crf}, Args{"dump", crf}, Args{"sql", crf, "SELECT LineNum FROM A"}}) {
        const Ran ran = Run_Tallmar(command);
        EXPECT_EQ(ran.status, kExitDone) << command[0];
        EXPECT_EQ(ran.err, kTold) << command[0];
        EXPECT_NE(ran.out, "") << command[0];
        EXPECT_TRUE(Read_Bytes(crf) == damaged_) << command[0];
    }
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(DamagedIndex, ACommandThatChangesRebuildsItAndSaysSoOnce) {
    const Ran first = Run_Tallmar({"calc", crf});
    EXPECT_EQ(first.status, kExitDone);
    EXPECT_EQ(first.err, kTold);
    Succeed({"calc", crf});
    Succeed({"info", crf});
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

}  // namespace

}  // namespace tallmar
