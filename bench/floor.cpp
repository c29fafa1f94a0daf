#include "floor.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "db/replay.h"
#include "db/statement_cache.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

constexpr int kFloorRuns = 30;

double Seconds_Of(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void Report_Floor(benchmark::State& state, const std::vector<double>& times, const std::vector<double>& floorTimes,
                  const Replay& replay) {
    state.counters["floor_ms"] = Median(floorTimes) * 1000;
    state.counters["ratio"] = Median(times) / Median(floorTimes);
    state.counters["statements"] = static_cast<double>(replay.Statements());
    state.counters["distinct"] = static_cast<double>(replay.Distinct_Statements());
}

void Forget_Compiled_Statements() {
    Set_Statement_Cache_Size(db, 1);
    Set_Statement_Cache_Size(db, kStatementCacheSize);
}

}  // namespace

void Time_Beside_Floor(benchmark::State& state, const std::function<void()>& work) {
    const Job job(db);  // the report stays as it is
    work();
    std::vector<double> times, floorTimes;
    for (auto _ : state) {
        times.push_back(Seconds_Of(work));
        state.SetIterationTime(times.back());
    }
    Replay replay(db, Record_Statements(db, work));
    replay.Run();
    for (int i = 0; i < kFloorRuns; ++i) floorTimes.push_back(Seconds_Of([&] { replay.Run(); }));
    Report_Floor(state, times, floorTimes, replay);
}

void Time_Cold_Beside_Floor(benchmark::State& state, const std::function<void()>& work) {
    const Job job(db);
    work();
    std::vector<double> times, floorTimes;
    for (auto _ : state) {
        Forget_Compiled_Statements();
        times.push_back(Seconds_Of(work));
        state.SetIterationTime(times.back());
    }
    const std::vector<LoggedStatement> statements = Record_Statements(db, work);
    for (int i = 0; i < kFloorRuns; ++i) {
        Replay replay(db, statements);
        floorTimes.push_back(Seconds_Of([&] { replay.Run(); }));
    }
    Replay replay(db, statements);
    replay.Run();
    Report_Floor(state, times, floorTimes, replay);
}

}  // namespace tallmar
