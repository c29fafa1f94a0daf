// A calculated report with one bit flipped, as a disk or a copy may do it: it is refused, or an index is rebuilt with a
// message, or every figure is as it was.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

#include "golden/dump_file.h"
#include "golden/golden_report.h"
#include "support/temp_folder.h"

namespace tallmar {
namespace {

constexpr int kParts = 6, kFlipsAPart = 100;
constexpr std::size_t kPage = 4096;
constexpr const char* kRebuilt = "An index of the report was damaged and has been rebuilt.";
constexpr const char* kDamaged = "is no report file, or is damaged";

void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

bool Is_Index(const std::string& bytes, std::size_t page) {
    const char kind = bytes[page * kPage];
    return page > 0 && (kind == 0x02 || kind == 0x0a);
}

class BitFlips : public testing::TestWithParam<int> {
  protected:
    BitFlips() {
        Make_Golden_Report("fy2016-two-cbsas", path_);
        Calculate();
        bytes_ = Read_File(path_);
        figures_ = Figures();
    }
    CommandRun Calculate() { return Run_Command({"calc", path_}); }
    // Every table, worksheet S Part II with the settlement among them.
    std::string Figures() { return DumpFile(Run_Command({"dump", path_}).out).Text(); }

    TempFolder folder_;
    const std::string path_ = folder_.File("report.CRF");
    std::string bytes_, figures_;
};

TEST_P(BitFlips, NoneChangesAFigureWithoutAMessage) {
    const std::size_t pages = bytes_.size() / kPage;
    std::mt19937 random(static_cast<unsigned>(1728 + GetParam()));
    int refused = 0, rebuilt = 0;
    for (int i = 0; i < kFlipsAPart; ++i) {
        // All pages in turn.
        const std::size_t page = static_cast<std::size_t>(GetParam() * kFlipsAPart + i) % pages;
        const std::size_t place = page * kPage + random() % kPage;
        std::string flipped = bytes_;
        flipped[place] = static_cast<char>(flipped[place] ^ (1 << random() % 8));
        Put(path_, flipped);
        const CommandRun run = Calculate();
        if (run.status != 0) {
            EXPECT_NE(run.err.find(kDamaged), std::string::npos) << run.err << " byte " << place;
            EXPECT_TRUE(Read_File(path_) == flipped) << "byte " << place;
            ++refused;
            continue;
        }
        const bool told = run.err.find(kRebuilt) != std::string::npos;
        EXPECT_TRUE(!told || Is_Index(bytes_, page)) << "byte " << place;
        rebuilt += told ? 1 : 0;
        EXPECT_EQ(run.out, "") << "byte " << place;
        EXPECT_TRUE(Figures() == figures_) << "byte " << place;
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(rebuilt, 0);
}

INSTANTIATE_TEST_SUITE_P(Parts, BitFlips, testing::Range(0, kParts));

}  // namespace
}  // namespace tallmar
