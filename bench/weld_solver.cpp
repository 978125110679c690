// Instantaneous center solver: the cost of one pass and of a whole run.
//   (a) one straight 100 in line at 1/64" (6,400 segments)
//   (b) configuration 6 with L = 10, kL = 5, aL = 5, angle 0 at each strip setting
//   (c) the nine configurations at L = 10, k = 0.5, a = 0.5, angle 45 at 1/32"
// A pass is measured as a run stopped from the display of its first pass, the
// way the stop button ends a run. The yield callback counts calls, standing
// in for the window's cheap "is it time to pump events" test.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>

#include "weld/core/WeldSolve.h"

using namespace weld;

namespace {

constexpr int64_t kPassLimit = 100000;

struct BenchRun {
    SolveOptions options;
    WeldRunState state;
    WeldRunHooks hooks;
    SolveResult report;
    int64_t maxPasses;
    int64_t yields = 0;

    BenchRun(int16_t spi, int64_t passes) : maxPasses(passes) {
        options.SegmentsPerInch = spi;
        state.IterationStop = false;
        hooks.Yield = [this] { ++yields; };
        hooks.Display = [this](const PassShown& pass) {
            if (pass.Passes >= maxPasses) state.IterationStop = true;
        };
    }
};

void Report(benchmark::State& st, const SolveResult& rep) {
    st.counters["passes"] = static_cast<double>(rep.Passes);
    st.counters["segments"] = rep.Segments;
    st.counters["converged"] = rep.Converged ? 1 : 0;
}

// Times `solve` on a fresh run per iteration (spi segments per inch, stopped
// after `passes` passes) and reports the last run.
template <class SolveFn>
SolveResult TimeRuns(benchmark::State& st, int16_t spi, int64_t passes, SolveFn solve) {
    SolveResult rep;
    for (auto _ : st) {
        BenchRun run(spi, passes);
        run.report = solve(run);
        benchmark::DoNotOptimize(run.report.Value);
        rep = run.report;
    }
    Report(st, rep);
    return rep;
}

const LoadedGroup& LongLine() {
    static const LoadedGroup group{{WeldLineRec{0, 0, 0, 100}}, 10.0, 0.0};
    return group;
}

SolveResult SolveLongLine(BenchRun& run) { return Solve(LongLine(), run.options, run.state, run.hooks); }

void BM_LongLine_Pass(benchmark::State& st) {
    const SolveResult rep = TimeRuns(st, 64, 1, SolveLongLine);
    st.counters["ns/segment"] = benchmark::Counter(
        static_cast<double>(rep.Segments), benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
}
BENCHMARK(BM_LongLine_Pass)->Unit(benchmark::kMicrosecond);

void BM_LongLine_Run(benchmark::State& st) {
    TimeRuns(st, 64, kPassLimit, SolveLongLine);
}
BENCHMARK(BM_LongLine_Run)->Unit(benchmark::kMillisecond);

SolveResult SolveChannel(BenchRun& run) {
    return Solve(StandardConfig{6, 10, 5, 5, 0}, run.options, run.state, run.hooks);
}

void BM_Channel_Pass(benchmark::State& st) { TimeRuns(st, static_cast<int16_t>(st.range(0)), 1, SolveChannel); }
BENCHMARK(BM_Channel_Pass)->Arg(4)->Arg(8)->Arg(16)->Arg(32)->Arg(64)->Unit(benchmark::kMicrosecond);

void BM_Channel_Run(benchmark::State& st) { TimeRuns(st, static_cast<int16_t>(st.range(0)), kPassLimit, SolveChannel); }
BENCHMARK(BM_Channel_Run)->Arg(4)->Arg(8)->Arg(16)->Arg(32)->Arg(64)->Unit(benchmark::kMicrosecond);

void TimeConfig(benchmark::State& st, int64_t passes) {
    const auto config = static_cast<int16_t>(st.range(0));
    TimeRuns(st, 32, passes, [config](BenchRun& run) {
        return Solve(StandardConfig{config, 10, 5, 5, 45}, run.options, run.state, run.hooks);
    });
}

void BM_Config_Pass(benchmark::State& st) { TimeConfig(st, 1); }
BENCHMARK(BM_Config_Pass)->DenseRange(1, 9)->Unit(benchmark::kMicrosecond);

void BM_Config_Run(benchmark::State& st) { TimeConfig(st, kPassLimit); }
BENCHMARK(BM_Config_Run)->DenseRange(1, 9)->Unit(benchmark::kMillisecond);


// The settling watch on a run that converges without a cycle: its cost per
// pass against the cost of one pass of an ordinary group (the channel above
// at 1/32"), both measured in this benchmark. The watch is fed residuals
// that swing and die away, so its cycle test runs on every pass: the
// dearest case for a run that settles by itself.
void BM_Settling_ShareOfAPass(benchmark::State& st) {
    using Clock = std::chrono::steady_clock;
    constexpr int kPasses = 1000;
    double passNs = 0.0, watchNs = 0.0;
    for (auto _ : st) {
        auto t0 = Clock::now();
        BenchRun run(32, kPassLimit);
        run.report = SolveChannel(run);
        benchmark::DoNotOptimize(run.report.Value);
        auto t1 = Clock::now();
        passNs += std::chrono::duration<double, std::nano>(t1 - t0).count() / static_cast<double>(run.report.Passes);

        t0 = Clock::now();
        shell::Settling watch(kWeldSettling);
        double a = 1.0;
        for (int n = 0; n < kPasses; ++n) {
            a *= -0.97;
            benchmark::DoNotOptimize(watch.Observe(-1.2 + a, 0.3 * a, a, -0.5 * a));
        }
        t1 = Clock::now();
        watchNs += std::chrono::duration<double, std::nano>(t1 - t0).count() / kPasses;
    }
    const double n = static_cast<double>(st.iterations());
    st.counters["pass_ns"] = passNs / n;
    st.counters["watch_ns"] = watchNs / n;
    st.counters["watch_%_of_pass"] = 100 * watchNs / passNs;
}
BENCHMARK(BM_Settling_ShareOfAPass)->Unit(benchmark::kMillisecond);

}  // namespace
