// A command under which one call to the system fails leaves the report exactly as it was and says why, or has done all
// of its work; and nothing is left beside the report that its next opening does not clear away.
//
// Each command runs once undisturbed, which counts its calls; then once for each fault of a sample that is the same
// every time, or with --all for each fault that there can be.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <random>
#include <regex>
#include <set>

#include "cli/cli_test.h"
#include "faulty_program.h"
#include "options.h"

namespace tallmar::faults {

namespace {

namespace fs = std::filesystem;

struct Kind {
    Call call;
    int error;
    How how;
};
constexpr Kind kKinds[] = {
    {Call::Write, ENOSPC, How::Once},  {Call::Write, ENOSPC, How::OnAll},  {Call::Write, EIO, How::OnAll},
    {Call::Write, ENOSPC, How::Half},  {Call::Sync, EIO, How::Once},       {Call::Sync, EIO, How::OnAll},
    {Call::Open, EMFILE, How::Once},   {Call::Open, EMFILE, How::OnAll},   {Call::Open, EACCES, How::Once},
    {Call::Open, EIO, How::OnAll},     {Call::Rename, EIO, How::Once},     {Call::Rename, EACCES, How::OnAll},
    {Call::Link, EPERM, How::OnAll},   {Call::Link, EIO, How::Once},       {Call::Unlink, EACCES, How::OnAll},
    {Call::Unlink, EIO, How::Once},    {Call::Lock, ENOLCK, How::Once},    {Call::Lock, ENOLCK, How::OnAll},
    {Call::Lock, EIO, How::Once},      {Call::Stat, EIO, How::Once},       {Call::Stat, EACCES, How::OnAll},
    {Call::Read, EIO, How::Once},      {Call::Read, EIO, How::OnAll},      {Call::Read, EIO, How::Half},
    {Call::Truncate, EIO, How::Once},  {Call::Truncate, EIO, How::OnAll},  {Call::Mode, EPERM, How::OnAll},
#ifndef TALLMAR_SANITIZED
    {Call::Memory, ENOMEM, How::Once}, {Call::Memory, ENOMEM, How::OnAll},
#endif
};

// In the arguments {} stands for the folder that the command works in.
struct Command {
    const char* name;
    std::vector<std::string> args;
    std::string input;
    std::map<std::string, std::string> before;  // what stands in the folder: name, and the report it is a copy of
    std::string result;                         // the report that it changes
    bool shrinks = false;                       // the size of the file is part of its state

    friend void PrintTo(const Command& command, std::ostream* out) { *out << command.name; }
};

const std::string kCells = "A,6,Col_1,1234\nA,7,Col_2,77\nS2,1,Col_1,Mill Road\n";
const std::vector<Command> kCommands{
    {"New",
     {"new", "{}/r.CRF", "--provider", "14-7100", "--start", "10/1/2015", "--name", "Prairie Hearth"},
     "",
     {},
     "r.CRF"},
    {"NewOver",
     {"new", "{}/r.CRF", "--provider", "14-7100", "--start", "10/1/2015", "--name", "Prairie Hearth", "--answer",
      "yes"},
     "",
     {{"r.CRF", "older.CRF"}},
     "r.CRF"},
    {"Enter", {"enter", "{}/r.CRF"}, kCells, {{"r.CRF", "filled.CRF"}}, "r.CRF"},
    {"Calc", {"calc", "{}/r.CRF"}, "", {{"r.CRF", "filled.CRF"}}, "r.CRF"},
    {"SaveAs", {"save-as", "{}/r.CRF", "{}/copy.CRF"}, "", {{"r.CRF", "filled.CRF"}}, "copy.CRF"},
    {"SaveAsOver",
     {"save-as", "{}/r.CRF", "{}/copy.CRF", "--answer", "yes"},
     "",
     {{"r.CRF", "filled.CRF"}, {"copy.CRF", "older.CRF"}},
     "copy.CRF"},
    {"Compact", {"compact", "{}/r.CRF"}, "", {{"r.CRF", "loose.CRF"}}, "r.CRF", true},
    {"Sql",
     {"sql", "{}/r.CRF", "-"},
     "UPDATE A SET Col_1 = Col_1 + 1\nSELECT LineNum, Col_1 FROM A\nSELECT A.* INTO Mine FROM A\n",
     {{"r.CRF", "filled.CRF"}},
     "r.CRF"},
    {"Select", {"sql", "{}/r.CRF", "SELECT * FROM A"}, "", {{"r.CRF", "filled.CRF"}}, "r.CRF"},
    {"Info", {"info", "{}/r.CRF"}, "", {{"r.CRF", "filled.CRF"}}, "r.CRF"},
    {"Dump", {"dump", "{}/r.CRF"}, "", {{"r.CRF", "filled.CRF"}}, "r.CRF"},
};

// The reports that the commands begin with, made once.
class Originals {
  public:
    static const Originals& Get() {
        static const Originals all;
        return all;
    }
    std::string Path(const std::string& name) const { return folder_.File(name); }

  private:
    Originals() {
        Make("older.CRF", "An Older Home Health Agency");
        Make("filled.CRF", "Prairie Hearth Home Health");
        Tallmar({"enter", Path("filled.CRF"), std::string(TALLMAR_SOURCE_DIR) + "/samples/fy2016/cells.csv"});
        fs::copy_file(Path("filled.CRF"), Path("loose.CRF"));
        std::string growth = "SELECT A.* INTO Big FROM A\n";
        for (int i = 0; i < 5; ++i) growth += "INSERT INTO Big SELECT * FROM Big\n";
        Tallmar({"sql", Path("loose.CRF"), "-"}, growth + "DROP TABLE Big\n");
    }
    void Make(const std::string& file, const std::string& name) const {
        Tallmar({"new", Path(file), "--provider", "14-7100", "--start", "10/1/2015", "--name", name});
    }
    static void Tallmar(const Args& args, const std::string& input = "") {
        const Ran ran = Run_Tallmar(args, input);
        if (ran.status != 0) throw std::runtime_error(ran.err);
    }

    TempFolder folder_;
};

// Every cell of the report; moments in time are left out, since two runs have two of them.
std::string State(const std::string& file, bool withSize) {
    if (!fs::exists(file)) return "absent";
    static const std::regex moment(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d)");
    const Ran dump = Run_Tallmar({"dump", file});
    std::string state = std::regex_replace(dump.out + dump.err, moment, "moment");
    if (withSize) state += "size " + std::to_string(fs::file_size(file));
    return state;
}

class Faults : public testing::TestWithParam<Command> {
  protected:
    const Command& command_ = GetParam();

    // Picks the calls of a kind that fail: all, or a few that are the same every time.
    std::vector<std::int64_t> Picked(const Kind& kind, std::int64_t calls) const {
        constexpr std::int64_t kPicked = 2, kMostOfAll = 300;
        std::vector<std::int64_t> picked;
        if (calls == 0) return picked;
        if (The_Options().all && calls <= kMostOfAll) {
            for (std::int64_t at = 1; at <= calls; ++at) picked.push_back(at);
            return picked;
        }
        std::string name = command_.name;
        for (const int part : {static_cast<int>(kind.call), kind.error, static_cast<int>(kind.how)}) {
            name += static_cast<char>(part);
        }
        std::seed_seq seed(name.begin(), name.end());
        std::mt19937 random(seed);
        std::uniform_int_distribution<std::int64_t> any(1, calls);
        for (std::int64_t i = 0; i < (The_Options().all ? kMostOfAll : std::min(calls, kPicked)); ++i) {
            picked.push_back(any(random));
        }
        std::ranges::sort(picked);
        picked.erase(std::ranges::unique(picked).begin(), picked.end());
        return picked;
    }

    std::string Work() const { return folder_.File("work"); }
    std::string Data() const { return folder_.File("data"); }
    std::string Result() const { return Work() + "/" + command_.result; }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Work())) names.insert(entry.path().filename().string());
        return names;
    }

    Outcome Run(const Fault& fault) {
        fs::remove_all(Work());
        fs::remove_all(Data());
        fs::create_directory(Work());
        for (const auto& [name, original] : command_.before) {
            fs::copy_file(Originals::Get().Path(original), Work() + "/" + name);
        }
        std::vector<std::string> args = command_.args;
        for (std::string& arg : args) {
            if (arg.starts_with("{}")) arg.replace(0, 2, Work());
        }
        return program_.Run(args, command_.input, Data(), fault);
    }

    void Run_Untouched();
    void Judge(const Fault& fault, const Outcome& outcome);
    void Judge_Backups() const;
    std::string Bytes_Before(const std::string& name) const {
        const auto found = command_.before.find(name);
        return found == command_.before.end() ? "" : Read_Bytes(Originals::Get().Path(found->second));
    }

    TempFolder folder_;
    FaultyProgram program_;
    Outcome clean_;
    std::string before_, after_;
    std::string bytesBefore_, bytesAfter_;
    std::set<std::string> namesBefore_, namesAfter_;
};

void Faults::Run_Untouched() {
    const auto original = command_.before.find(command_.result);
    before_ =
        original == command_.before.end() ? "absent" : State(Originals::Get().Path(original->second), command_.shrinks);
    bytesBefore_ = Bytes_Before(command_.result);
    for (const auto& [name, path] : command_.before) namesBefore_.insert(name);
    clean_ = Run({});
    ASSERT_EQ(clean_.status, 0) << clean_.err;
    bytesAfter_ = Read_Bytes(Result());
    after_ = State(Result(), command_.shrinks);
    namesAfter_ = Names();
}

// What was kept of a report is that report.
void Faults::Judge_Backups() const {
    if (!fs::exists(Data())) return;
    for (const auto& entry : fs::recursive_directory_iterator(Data())) {
        if (entry.path().extension() != ".CRF") continue;
        EXPECT_TRUE(Read_Bytes(entry.path()) == bytesBefore_) << "the backup " << entry.path();
    }
}

void Faults::Judge(const Fault& fault, const Outcome& outcome) {
    SCOPED_TRACE(std::string(command_.name) + ", " + Text_Of(fault) + ": status " + std::to_string(outcome.status) +
                 "\n" + outcome.err);
    ASSERT_EQ(outcome.signal, 0);
    ASSERT_TRUE(outcome.status == 0 || outcome.status == 1);
    EXPECT_TRUE(outcome.status == 0 || !outcome.err.empty()) << "no words";
    if (outcome.status == 0 && before_ == after_) {
        EXPECT_EQ(outcome.out, clean_.out);
    }

    // The bytes tell most of it; a report with something beside it is opened.
    const std::set<std::string>& names = outcome.status == 0 ? namesAfter_ : namesBefore_;
    const std::string bytes = Read_Bytes(Result());
    const bool isExpected = bytes == (outcome.status == 0 ? bytesAfter_ : bytesBefore_) && Names() == names;
    if (!isExpected) {
        const std::string state = State(Result(), command_.shrinks);
        const bool isBefore = state == before_, isAfter = state == after_;
        EXPECT_TRUE(isBefore || isAfter) << "neither before nor after: " << state.substr(0, 300);
        EXPECT_TRUE(outcome.status == 0 ? isAfter : isBefore) << (isBefore ? "nothing was done" : "all was done");
        if (fs::exists(Result())) {
            // The next change clears away what the next reading leaves.
            const Ran next = Run_Tallmar({"sql", Result(), "UPDATE A SET Col_1 = Col_1 WHERE LineNum = 0"});
            EXPECT_EQ(next.status, 0) << "the next opening: " << next.err;
        }
        EXPECT_EQ(Names(), names);
    }
    for (const auto& [name, original] : command_.before) {
        if (name == command_.result) continue;
        EXPECT_TRUE(Read_Bytes(Work() + "/" + name) == Bytes_Before(name)) << name;
    }
    Judge_Backups();
}

TEST_P(Faults, LeaveTheReportWholeAndTheStatusTrue) {
    Run_Untouched();
    if (HasFatalFailure()) return;
    int met = 0;
    for (const Kind& kind : kKinds) {
        const std::int64_t calls = clean_.calls[static_cast<std::size_t>(kind.call)];
        for (const std::int64_t at : Picked(kind, calls)) {
            const Fault fault{.call = kind.call, .error = kind.error, .how = kind.how, .at = at};
            const Outcome outcome = Run(fault);
            met += outcome.faultMet ? 1 : 0;
            Judge(fault, outcome);
        }
    }
    RecordProperty("faults", met);
    EXPECT_GE(met, 25) << "the sample is too small";
}

INSTANTIATE_TEST_SUITE_P(Command, Faults, testing::ValuesIn(kCommands),
                         [](const auto& command) { return std::string(command.param.name); });

}  // namespace

}  // namespace tallmar::faults
