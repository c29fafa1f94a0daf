// A piece of work beside its floor: the time of the SQLite statements that it issues, replayed alone.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace tallmar {

// Times `work` on the open report and adds the counters floor_ms, ratio (of the medians), statements and distinct.
// Work and floor run inside one transaction, so that the disk is in neither. Requires work that leaves the report as it
// found it, but for the first time.
void Time_Beside_Floor(benchmark::State& state, const std::function<void()>& work);
// The same for the first time in an opened report: no statement is compiled yet.
void Time_Cold_Beside_Floor(benchmark::State& state, const std::function<void()>& work);

}  // namespace tallmar
