// What a person waits for in the window: the largest form coming up, its cells painted, and the longest time that a
// calculation keeps the window from painting. Expected: 50 ms, 2 ms and 60 ms at most, with 60 cost centers.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "calc/driver.h"
#include "sample_report.h"
#include "screens/cell_batch.h"
#include "screens/cell_text.h"
#include "screens/dispatch.h"
#include "screens/form_rows.h"

namespace tallmar {
namespace {

constexpr int kGeneral = 20, kLines = 60;
constexpr std::size_t kPaintedRows = 40, kPaintedColumns = 15;

void Fill_Wide(Report& report) {
    Fill_Sample(report, "fy2016");
    Use_Wide_Chart(report, kGeneral, kLines);
}

void Bring_Up(benchmark::State& state, FormMode mode) {
    Report report(fy2016);
    Fill_Wide(report);
    for (auto _ : state) {
        const OpenForm form(*Form_To_Open(mode, "B1"), "B1");
        const FormRows rows(form.Description(), "B1");
        benchmark::DoNotOptimize(rows.Count());
    }
}
BENCHMARK_CAPTURE(Bring_Up, B1_Edit, FormMode::Edit)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Bring_Up, B1_View, FormMode::View)->Unit(benchmark::kMillisecond);

// The last columns, which are the farthest from the start of a row.
void Paint_Form(benchmark::State& state) {
    Report report(fy2016);
    Fill_Wide(report);
    const OpenForm form(*Form_To_Open(FormMode::Edit, "B1"), "B1");
    const FormRows rows(form.Description(), "B1");
    const auto columns = form.Columns().last(std::min(kPaintedColumns, form.Columns().size()));
    for (auto _ : state) {
        for (std::size_t at = 0; at < std::min(kPaintedRows, rows.Count()); ++at) {
            const RowUnderEdit row(rows.Line(at), rows.At(at));
            for (const GridColumn& column : columns) {
                benchmark::DoNotOptimize(Cell_Text(form.Description(), {form.Worksheet(), column, row}));
            }
        }
    }
}
BENCHMARK(Paint_Form)->Unit(benchmark::kMillisecond);

void Walk(benchmark::State& state) {
    Report report(fy2016);
    for (auto _ : state) benchmark::DoNotOptimize(Neighbour_Tip("Edit Worksheet F2", Direction::Next));
}
BENCHMARK(Walk)->Unit(benchmark::kMillisecond);

// Between two moments at which events run.
void Longest_Stretch(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    Report report(fy2016);
    Fill_Wide(report);
    double longest = 0;
    Clock::time_point last;
    const auto breathe = [&] {
        const Clock::time_point now = Clock::now();
        longest = std::max(longest, std::chrono::duration<double, std::milli>(now - last).count());
        last = now;
    };
    report.platform.onEvents = breathe;
    for (auto _ : state) {
        last = Clock::now();
        Calc_All();
        breathe();
    }
    report.platform.onEvents = nullptr;
    state.counters["longest_ms"] = longest;
}
BENCHMARK(Longest_Stretch)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallmar
