// The calculation of a whole report, and of the step-down alone, each beside its floor. Expected: ratio at most 3, and
// the step-down linear in lines x columns.
#include <benchmark/benchmark.h>

#include "calc/driver.h"
#include "calc/w_b1.h"
#include "floor.h"
#include "sample_report.h"

namespace tallmar {
namespace {

struct Sample {
    const char* folder;
    FiscalYear year;
};
const Sample kSamples[] = {{"fy1999", fy1999}, {"fy2000", fy2000}, {"fy2016", fy2016}};

void Calc_Sample(benchmark::State& state) {
    const Sample& sample = kSamples[state.range(0)];
    Report report(sample.year);
    Fill_Sample(report, sample.folder);
    state.SetLabel(sample.folder);
    Time_Beside_Floor(state, Calc_All);
}
BENCHMARK(Calc_Sample)->DenseRange(0, 2)->UseManualTime()->Unit(benchmark::kMillisecond);

void Calc_Sample_Cold(benchmark::State& state) {
    const Sample& sample = kSamples[state.range(0)];
    Report report(sample.year);
    Fill_Sample(report, sample.folder);
    state.SetLabel(sample.folder);
    Time_Cold_Beside_Floor(state, Calc_All);
}
BENCHMARK(Calc_Sample_Cold)->DenseRange(0, 2)->UseManualTime()->Unit(benchmark::kMillisecond);

// 60 cost centers, 20 of them general service.
void Calc_Wide(benchmark::State& state) {
    Report report(fy2016);
    Fill_Sample(report, "fy2016");
    Use_Wide_Chart(report, 20, 60);
    Time_Beside_Floor(state, Calc_All);
}
BENCHMARK(Calc_Wide)->UseManualTime()->Unit(benchmark::kMillisecond);

void Calc_Wide_Cold(benchmark::State& state) {
    Report report(fy2016);
    Fill_Sample(report, "fy2016");
    Use_Wide_Chart(report, 20, 60);
    Time_Cold_Beside_Floor(state, Calc_All);
}
BENCHMARK(Calc_Wide_Cold)->UseManualTime()->Unit(benchmark::kMillisecond);

void Step_Down(benchmark::State& state) {
    Report report(fy2016);
    const int general = static_cast<int>(state.range(0));
    const int lines = static_cast<int>(state.range(1));
    Use_Wide_Chart(report, general, lines);
    Time_Beside_Floor(state, Calc_B1);
    state.SetComplexityN(std::int64_t{general} * lines);
}
BENCHMARK(Step_Down)
    ->Args({5, 30})
    ->Args({10, 40})
    ->Args({10, 80})
    ->Args({20, 60})
    ->Args({20, 120})
    ->Args({40, 120})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace
}  // namespace tallmar
