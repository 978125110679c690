// Whole runs of the bolt group solver: the slow 20 by 4 group and a 12 by 2
// group, with and without a yield callback of the kind the window passes.
#include <benchmark/benchmark.h>

#include "bolt/core/BoltSolver.h"

namespace {

void Run(benchmark::State& state, int16_t m, int16_t n, double ex, double angle, bool withYield) {
    bolt::BoltRunInfo info;
    int64_t yields = 0;
    bolt::YieldFn yield;
    if (withYield) yield = [&yields] { ++yields; };
    for (auto _ : state) {
        auto c = bolt::BoltGroup_C(m, n, 3.0, 3.0, ex, angle, yield, &info);
        benchmark::DoNotOptimize(c);
    }
    state.counters["passes"] = info.Passes;
    // Seconds per pass of the center loop.
    state.counters["per_pass"] = benchmark::Counter(
        info.Passes, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_BoltC_20x4_ex2_angle10(benchmark::State& s) { Run(s, 20, 4, 2.0, 10.0, false); }
void BM_BoltC_20x4_ex2_angle10_yield(benchmark::State& s) { Run(s, 20, 4, 2.0, 10.0, true); }
void BM_BoltC_12x2_ex36_angle45(benchmark::State& s) { Run(s, 12, 2, 36.0, 45.0, false); }
void BM_BoltC_12x2_ex36_angle45_yield(benchmark::State& s) { Run(s, 12, 2, 36.0, 45.0, true); }
void BM_BoltC_3x2_settled(benchmark::State& s) { Run(s, 3, 2, 6.0, 0.0, false); }
void BM_BoltCPrime_20x4(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(bolt::BoltGroup_CPrime(20, 4, 3.0, 3.0));
}

}  // namespace

BENCHMARK(BM_BoltC_20x4_ex2_angle10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BoltC_20x4_ex2_angle10_yield)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BoltC_12x2_ex36_angle45)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BoltC_12x2_ex36_angle45_yield)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BoltC_3x2_settled)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BoltCPrime_20x4)->Unit(benchmark::kMicrosecond);
