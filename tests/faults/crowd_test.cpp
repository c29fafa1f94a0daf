// Eight programs at one report: what was answered with 0 is in the file, what was read is one state of it, and nobody
// gets any message but that the report is in use.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <thread>

#include "cli/cli_test.h"
#include "options.h"
#include "program.h"

namespace tallmar::faults {

namespace {

using Clock = std::chrono::steady_clock;

// One of the programs, again and again: what it runs, and what became of it.
class Worker {
  public:
    Worker(std::string name, std::function<void(Worker&)> turn) : name_(std::move(name)), turn_(std::move(turn)) {}

    void Work_Until(Clock::time_point end) {
        while (Clock::now() < end) turn_(*this);
    }
    // True where the command was done.
    bool Do(const Args& args, const std::string& input = "") {
        last_ = Run_Program(args, input, scratch_->Path());
        if (last_.status == 0) {
            ++done_;
            return true;
        }
        ++refused_;
        const bool inUse = last_.status == 1 && last_.err.ends_with("is in use\n");
        if (!inUse) complaints_ += name_ + ": status " + std::to_string(last_.status) + ", " + last_.err + "\n";
        return false;
    }
    void Complain(const std::string& what) { complaints_ += name_ + ": " + what + "\n"; }

    const std::string& Name() const { return name_; }
    const std::string& Out() const { return last_.out; }
    int Done() const { return done_; }
    int Refused() const { return refused_; }
    const std::string& Complaints() const { return complaints_; }

  private:
    std::string name_;
    std::function<void(Worker&)> turn_;
    std::unique_ptr<TempFolder> scratch_ = std::make_unique<TempFolder>();
    Ended last_;
    int done_ = 0, refused_ = 0;
    std::string complaints_;
};

class CrowdTest : public CliTest {
  protected:
    // Two cells of a line in one job: whoever finds them different has seen half of it.
    Worker Updater(int line) const {
        const std::string where = " + 1 WHERE LineNum = " + std::to_string(line) + "\n";
        const std::string both = "UPDATE A SET Col_1 = Col_1" + where + "UPDATE A SET Col_2 = Col_2" + where;
        return {"update " + std::to_string(line), [this, both](Worker& worker) { worker.Do({"sql", crf, "-"}, both); }};
    }
    Worker Reader() const {
        return {"read", [this](Worker& worker) {
                    if (!worker.Do({"sql", crf, "SELECT Col_1, Col_2 FROM A WHERE LineNum In (6, 7, 8)"})) return;
                    std::istringstream rows(worker.Out());
                    int count = 0;
                    for (std::string row; std::getline(rows, row); ++count) {
                        const auto cells = nlohmann::json::parse(row);
                        if (cells["Col_1"] != cells["Col_2"]) worker.Complain("a torn read: " + row);
                    }
                    if (count != 3) worker.Complain("a read of " + std::to_string(count) + " rows");
                }};
    }
    // The only one to write its cell: the last number that was taken stands there.
    Worker Keyer(int& last) const {
        return {"enter", [this, &last](Worker& worker) {
                    if (worker.Do({"enter", crf}, "A,9,Col_1," + std::to_string(last + 1) + "\n")) ++last;
                }};
    }
    Worker Runner(const std::string& command) const {
        return {command, [this, command](Worker& worker) { worker.Do({command, crf}); }};
    }
    std::string Cells(int line) { return Sql("SELECT Col_1, Col_2 FROM A WHERE LineNum = " + std::to_string(line)); }
};

TEST_F(CrowdTest, EightProgramsAtOneReportLoseNothing) {
    New();
    Sql("UPDATE A SET Col_1 = 0, Col_2 = 0 WHERE LineNum In (6, 7, 8, 9)");
    int lastKeyed = 0;
    std::vector<Worker> workers;
    for (const int line : {6, 7, 8}) workers.push_back(Updater(line));
    workers.push_back(Keyer(lastKeyed));
    workers.push_back(Reader());
    for (const char* command : {"calc", "compact", "info"}) workers.push_back(Runner(command));

    const auto end = Clock::now() + std::chrono::seconds(The_Options().seconds);
    std::vector<std::thread> threads;
    for (Worker& worker : workers) threads.emplace_back([&worker, end] { worker.Work_Until(end); });
    for (std::thread& thread : threads) thread.join();

    int done = 0, refused = 0;
    for (const Worker& worker : workers) {
        EXPECT_EQ(worker.Complaints(), "");
        EXPECT_GT(worker.Done(), 0) << worker.Name() << " was never let in";
        done += worker.Done();
        refused += worker.Refused();
        RecordProperty(worker.Name(),
                       std::to_string(worker.Done()) + " done, " + std::to_string(worker.Refused()) + " refused");
    }
    // Each waits for the others to be done: to be refused is the exception.
    EXPECT_LT(refused * 10, done) << refused << " refused, " << done << " done";
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string number = std::to_string(workers[i].Done());
        EXPECT_EQ(Cells(6 + static_cast<int>(i)), "{\"Col_1\":" + number + ",\"Col_2\":" + number + "}\n");
    }
    EXPECT_EQ(Cells(9), "{\"Col_1\":" + std::to_string(lastKeyed) + ",\"Col_2\":0}\n");
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

}  // namespace

}  // namespace tallmar::faults
