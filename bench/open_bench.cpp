// Opening a report and closing it again, on the disk. Expected: ratio at most 3 to the bare check of the file.
#include <benchmark/benchmark.h>

#include <stdexcept>

#include "report/store.h"
#include "sample_report.h"

namespace tallmar {
namespace {

void Open_Sample(benchmark::State& state) {
    Report report(fy2016);
    Fill_Sample(report, "fy2016");
    if (!Finish_CRF()) throw std::runtime_error("no report file was made");
    const std::string path = openReport.CRFPath;
    Report_Release();
    for (auto _ : state) {
        if (!Report_Open(path)) throw std::runtime_error("the report does not open");
        state.PauseTiming();
        Report_Release();
        state.ResumeTiming();
    }
}
BENCHMARK(Open_Sample)->Unit(benchmark::kMillisecond);

// What must be done at the least: SQLite opens the file and checks it.
void Open_Database(benchmark::State& state) {
    Report report(fy2016);
    Fill_Sample(report, "fy2016");
    if (!Finish_CRF()) throw std::runtime_error("no report file was made");
    const std::string path = openReport.CRFPath;
    Report_Release();
    for (auto _ : state) {
        Database opened = DBEngine::OpenDatabase(path);
        state.PauseTiming();
        opened.Close();
        state.ResumeTiming();
    }
}
BENCHMARK(Open_Database)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallmar
