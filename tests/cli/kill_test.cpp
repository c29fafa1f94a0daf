// A command killed at any moment leaves the report as it was before it or as it is after it, and nothing beside it
// once the report has been opened and closed again.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <set>
#include <sstream>

#include "cli_test.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kKillsACommand = 20;

pid_t Start(const Args& args) {
    const std::string program = std::string(TALLMAR_BIN_DIR) + "/tallmar";
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        // No home: a child of a test keeps nothing in the user's folders.
        unsetenv("HOME");
        unsetenv("XDG_DATA_HOME");
        if (std::freopen("/dev/null", "w", stdout) == nullptr || std::freopen("/dev/null", "w", stderr) == nullptr)
            _exit(1);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    return child;
}

int Wait(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

// Every cell of the report; moments in time are left out, since two runs have two of them.
std::string State(const std::string& file) {
    if (!fs::exists(file)) return "absent";
    static const std::regex moment(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d)");
    const Ran dump = Run_Tallmar({"dump", file});
    EXPECT_EQ(dump.status, 0) << dump.err;
    return std::regex_replace(dump.out, moment, "moment");
}

class KillTest : public CliTest {
  protected:
    Args New_Command(const std::string& file, const std::string& name) const {
        return {"new", file, "--provider", "14-7100", "--start", "10/1/2015", "--end", "9/30/2016", "--name", name};
    }
    static Args Answered_Yes(Args command) {
        command.insert(command.end(), {"--answer", "yes"});
        return command;
    }
    void Make_Sample(const std::string& file) {
        ASSERT_EQ(Run_Tallmar(New_Command(file, "Prairie Hearth Home Health")).status, 0);
        const Ran entered = Run_Tallmar({"enter", file, std::string(TALLMAR_SOURCE_DIR) + "/samples/fy2016/cells.csv"});
        ASSERT_EQ(entered.status, 0) << entered.err;
    }
    // Copies the files of `before` (name -> path of the original, empty: absent), runs and kills `command` at random
    // moments, and holds the state of `result` against the two that are allowed.
    void Kill_At_Random_Moments(const std::map<std::string, std::string>& before, const Args& command,
                                const std::string& result, unsigned seed) {
        const auto restore = [&] {
            for (const auto& name : Names()) {
                if (!name.starts_with("original-")) fs::remove(Path(name));
            }
            for (const auto& [name, original] : before) fs::copy_file(original, Path(name));
        };
        restore();
        const std::string stateBefore = State(Path(result));
        const auto start = Clock::now();
        ASSERT_EQ(Wait(Start(command)), 0);
        const auto whole = Clock::now() - start;
        const std::string stateAfter = State(Path(result));
        const std::set<std::string> namesAfter = Names();

        std::mt19937 random(seed);
        std::uniform_real_distribution<double> share(0, 1.1);
        for (int i = 0; i < kKillsACommand; ++i) {
            restore();
            const std::set<std::string> namesBefore = Names();
            const pid_t child = Start(command);
            usleep(static_cast<useconds_t>(share(random) * static_cast<double>(whole.count()) / 1000));
            kill(child, SIGKILL);
            Wait(child);
            const std::string state = State(Path(result));
            EXPECT_TRUE(state == stateBefore || state == stateAfter) << command[0] << ", kill " << i;
            if (fs::exists(Path(result))) {
                // What was read leaves what it finds; the next change clears it away.
                const Ran next = Run_Tallmar({"sql", Path(result), "UPDATE A SET Col_1 = Col_1 WHERE LineNum = 0"});
                EXPECT_EQ(next.status, 0) << command[0] << ", kill " << i << ": " << next.err;
            }
            for (const auto& name : Names()) {
                EXPECT_TRUE(namesBefore.contains(name) || namesAfter.contains(name)) << command[0] << " left " << name;
            }
        }
    }
};

}  // namespace

TEST_F(KillTest, NewLeavesNothingOrAWholeReport) {
    Kill_At_Random_Moments({}, New_Command(Path("r.CRF"), "Prairie Hearth Home Health"), "r.CRF", 1);
}

TEST_F(KillTest, NewOverAnOlderReportLeavesOneOfTheTwo) {
    ASSERT_EQ(Run_Tallmar(New_Command(Path("original-old.CRF"), "An Older Home Health Agency")).status, 0);
    Kill_At_Random_Moments({{"r.CRF", Path("original-old.CRF")}},
                           Answered_Yes(New_Command(Path("r.CRF"), "Prairie Hearth Home Health")), "r.CRF", 2);
}

TEST_F(KillTest, EnterStoresAllCellsOrNone) {
    ASSERT_EQ(Run_Tallmar(New_Command(Path("original-r.CRF"), "Prairie Hearth Home Health")).status, 0);
    Kill_At_Random_Moments({{"r.CRF", Path("original-r.CRF")}},
                           {"enter", Path("r.CRF"), std::string(TALLMAR_SOURCE_DIR) + "/samples/fy2016/cells.csv"},
                           "r.CRF", 3);
}

TEST_F(KillTest, CalcChangesEverythingOrNothing) {
    Make_Sample(Path("original-r.CRF"));
    Kill_At_Random_Moments({{"r.CRF", Path("original-r.CRF")}}, {"calc", Path("r.CRF")}, "r.CRF", 4);
}

TEST_F(KillTest, SaveAsLeavesNoCopyOrAWholeOne) {
    Make_Sample(Path("original-r.CRF"));
    Kill_At_Random_Moments({{"r.CRF", Path("original-r.CRF")}}, {"save-as", Path("r.CRF"), Path("copy.CRF")},
                           "copy.CRF", 5);
}

TEST_F(KillTest, SaveAsOverAnOlderReportLeavesOneOfTheTwo) {
    Make_Sample(Path("original-r.CRF"));
    ASSERT_EQ(Run_Tallmar(New_Command(Path("original-old.CRF"), "An Older Home Health Agency")).status, 0);
    Kill_At_Random_Moments({{"r.CRF", Path("original-r.CRF")}, {"copy.CRF", Path("original-old.CRF")}},
                           {"save-as", Path("r.CRF"), Path("copy.CRF"), "--answer", "yes"}, "copy.CRF", 7);
}

TEST_F(KillTest, CompactKeepsEveryCell) {
    Make_Sample(Path("original-r.CRF"));
    Kill_At_Random_Moments({{"r.CRF", Path("original-r.CRF")}}, {"compact", Path("r.CRF")}, "r.CRF", 6);
}

}  // namespace tallmar
