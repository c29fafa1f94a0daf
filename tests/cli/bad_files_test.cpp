// Files that are no report, or no longer one: every command refuses them in words and leaves them as they are.
#include <sys/stat.h>

#include <random>

#include "cli/commands.h"
#include "cli_test.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

// Places in the head of the file.
constexpr std::size_t kJournalModeAt = 18, kApplicationIdAt = 68, kLayoutAt = 63;
constexpr int kCuts = 60, kFlips = 40;

class BadFile : public CliTest {
  protected:
    void SetUp() override {
        New();
        good_ = Read_Bytes(crf);
        cells_ = "A,6,Col_1,5\n";
    }

    // Every command on the file, complete but for what it says on standard input. `new` makes a file and reads none.
    std::vector<Args> Commands() const {
        std::vector<Args> commands;
        for (const Command& command : All_Commands()) {
            if (command.name == "new") continue;
            Args args{std::string(command.name), crf};
            if (command.name == "sql") args.emplace_back("UPDATE A SET Col_1 = 5");
            if (command.name == "save-as") args.push_back(Path("copy.CRF"));
            commands.push_back(args);
        }
        commands.push_back({"sql", crf, "SELECT * FROM A"});
        commands.push_back({"sql", crf, "-"});
        commands.push_back({"dump", crf, "A"});
        return commands;
    }

    // Every command fails with a box that names the file, and touches nothing.
    void Expect_Refused(const std::string& what, const std::string& trouble) {
        const bool isFile = fs::is_regular_file(crf);
        const std::string before = isFile ? Read_Bytes(crf) : "";
        const std::set<std::string> names = Names();
        for (const Args& command : Commands()) {
            const std::string box = Fail(command, cells_);
            EXPECT_EQ(box.find("Error: Attempting to Open Invalid CRF file: "), 0u) << what << ": " << box;
            EXPECT_NE(box.find(trouble), std::string::npos) << what << ": " << box;
            EXPECT_NE(box.find("r.CRF"), std::string::npos) << what << ": " << box;
            EXPECT_TRUE(!isFile || Read_Bytes(crf) == before) << what << ", " << command[0];
            EXPECT_EQ(Names(), names) << what << ", " << command[0];
        }
    }
    std::string Changed(std::size_t at, std::string_view piece) const {
        std::string bytes = good_;
        return bytes.replace(at, piece.size(), piece);
    }
    const std::string& Good() const { return good_; }

  private:
    std::string good_, cells_;
};

TEST_F(BadFile, WhatWasNeverAReportIsRefused) {
    struct Case {
        const char* what;
        std::string bytes;
    };
    const Case cases[] = {
        {"empty", ""},
        {"one byte", "S"},
        {"text", "Item,LineNum,Column,Value\n"},
        {"a large text", std::string(300'000, 'x')},
        {"zero bytes", std::string(8192, '\0')},
        {"the head alone", Good().substr(0, 100)},
        {"another program's database", Changed(kApplicationIdAt, std::string(4, '\0'))},
        {"a database with a write-ahead log", Changed(kJournalModeAt, "\2\2")},
        {"another program's, with a write-ahead log",
         std::string(Changed(kJournalModeAt, "\2\2")).replace(kApplicationIdAt, 4, 4, '\0')},
    };
    for (const Case& row : cases) {
        Write_Bytes(crf, row.bytes);
        Expect_Refused(row.what, "The file '" + crf + "' is no report file, or is damaged");
    }
}

TEST_F(BadFile, ANewerLayoutIsToldApart) {
    Write_Bytes(crf, Changed(kLayoutAt, "\x7f"));
    Expect_Refused("newer", "The file '" + crf + "' was written by a newer version of this program");
}

TEST_F(BadFile, WhatIsNoFileIsRefused) {
    fs::remove(crf);
    Expect_Refused("missing", "The file '" + crf + "' cannot be opened");
    fs::create_directory(crf);
    Expect_Refused("a folder", "The file '" + crf + "' cannot be opened");
    fs::remove(crf);
    fs::create_symlink(Path("nowhere.CRF"), crf);
    Expect_Refused("a link to nowhere", "The file '" + crf + "' cannot be opened");
    fs::remove(crf);
    ASSERT_EQ(mkfifo(crf.c_str(), 0600), 0);
    Expect_Refused("a pipe", "The file '" + crf + "' cannot be opened");
}

TEST_F(BadFile, AnUnreadableFileIsRefused) {
    fs::permissions(crf, fs::perms::none);
    if (std::ifstream(crf)) {
        // The administrator reads every file; then it is a report like another one, but for writing.
        Succeed({"info", crf});
        return;
    }
    Expect_Refused("unreadable", "The file '" + crf + "' cannot be opened");
}

TEST_F(BadFile, AReportOfAnotherFormIsNamed) {
    Sql("UPDATE Master SET FormNum = \"2552\"");
    Expect_Refused("another form",
                   "You are presently running Tallmar 1728.  This program is for use only in producing CMS 1728 Cost "
                   "Reports.  You have just attempted to open a CRF file (r.CRF) containing data for a CMS 2552 Cost "
                   "Report.  Your request is being aborted.  Select OK to proceed.\n");
}

TEST_F(BadFile, AReportWithoutItsMasterIsRefused) {
    Sql("DELETE * FROM Master");
    Expect_Refused("no row", "It has no Master record.");
    Write_Bytes(crf, Good());
    Sql("DROP TABLE Master");
    Expect_Refused("no table", "It has no Master record.");
}

TEST_F(BadFile, AFileCutAnywhereIsRefused) {
    std::mt19937 random(7);
    for (int i = 0; i < kCuts; ++i) {
        const std::size_t size = i < 5 ? Good().size() - 1 - std::size_t(i) : random() % Good().size();
        // Every second cut is at the end of a page.
        Write_Bytes(crf, Good().substr(0, i % 2 == 0 ? size : size / 4096 * 4096));
        const Args command = Commands()[std::size_t(i) % Commands().size()];
        const std::string before = Read_Bytes(crf);
        EXPECT_NE(Fail(command, "A,6,Col_1,5\n").find(crf), std::string::npos);
        EXPECT_TRUE(Read_Bytes(crf) == before) << command[0] << " at " << size;
        EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
    }
}

class FlippedByte : public BadFile, public testing::WithParamInterface<unsigned> {};

// A flipped byte is found, or is a value or an unused place of the file; then every command does its work.
TEST_P(FlippedByte, IsRefusedOrDoesNoHarm) {
    std::mt19937 random(GetParam());
    int accepted = 0;
    for (int i = 0; i < kFlips; ++i) {
        // The head and the tables' designs are a small part of the file and get a third of the flips.
        const std::size_t at = random() % (i % 3 == 0 ? 8192 : Good().size());
        const char flip = static_cast<char>(1 + random() % 255);
        std::string bytes = Good();
        bytes[at] = static_cast<char>(bytes[at] ^ flip);
        Write_Bytes(crf, bytes);
        const Ran info = Run_Tallmar({"info", crf});
        EXPECT_TRUE(Read_Bytes(crf) == bytes) << "byte " << at;
        if (info.status == kExitDone) ++accepted;
        std::vector<Args> commands{{"dump", crf}};
        if (info.status == kExitDone) commands.push_back({"calc", crf});
        if (i % 4 == 0) commands.push_back({"enter", crf});
        if (i % 4 == 1) commands.push_back({"compact", crf});
        for (const Args& command : commands) {
            const std::string before = Read_Bytes(crf);
            const Ran ran = Run_Tallmar(command, "A,6,Col_1,5\n");
            // Where a column's name has changed the report looks like one of an older program, and is brought up to
            // date.
            const bool upgraded = fs::remove(Path("r.before-upgrade.CRF"));
            EXPECT_TRUE(ran.status == kExitDone || ran.status == kExitFailed) << command[0] << ", byte " << at;
            if (ran.status == kExitDone) continue;
            EXPECT_EQ(ran.out, "") << command[0] << ", byte " << at;
            EXPECT_NE(ran.err, "") << command[0] << ", byte " << at;
            // A cell may be refused while others are stored.
            EXPECT_TRUE(command[0] == "enter" || upgraded || Read_Bytes(crf) == before)
                << command[0] << ", byte " << at;
        }
        EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"}) << "byte " << at;
    }
    EXPECT_GT(accepted, 0);
}
INSTANTIATE_TEST_SUITE_P(Seeds, FlippedByte, testing::Range(1u, 7u));

}  // namespace

}  // namespace tallmar
