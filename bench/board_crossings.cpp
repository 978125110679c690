// The crossings of the board's lines: every pair tested (as the board first
// did) against the search over bounding boxes, on 32,767 parallel lines (no
// crossing) and on a grid of 2,000 lines (a million crossings, more than the
// table holds). Both give the same table; the ratios are printed at the end.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

#include "../tests/support/AllPairsCrossings.h"
#include "board/core/Viewport.h"

using Layout::LineRec;
using Layout::LineTable;
using Layout::PointTable;

namespace {

LineRec Line(float x1, float y1, float x2, float y2) {
    LineRec r;
    r.StartPt = {x1, y1, 0};
    r.EndPt = {x2, y2, 0};
    r.Exists = -1;
    return r;
}

// Horizontal lines across the board, one above the other.
LineTable Parallel() {
    LineTable t;
    for (int k = 0; k < 32767; ++k) t.push_back(Line(0.5f, 0.3f + k * 0.0002f, 6.5f, 0.3f + k * 0.0002f));
    return t;
}

// 1,000 horizontal and 1,000 vertical lines, drawn in turn: each pair of them crosses.
LineTable Grid() {
    LineTable t;
    for (int k = 0; k < 1000; ++k) {
        const float c = 0.5f + k * 0.006f;
        t.push_back(Line(0.4f, c, 6.6f, c));
        t.push_back(Line(c, 0.4f, c, 6.6f));
    }
    return t;
}

template <bool Pruned>
void Run(benchmark::State& state, const LineTable& t) {
    PointTable result;
    bool flag = false;
    for (auto _ : state) {
        if (Pruned)
            Viewport::Build_Intersections(t, result, flag);
        else
            reference::AllPairsCrossings(t, result, flag);
        benchmark::DoNotOptimize(result.data());
    }
    state.counters["crossings"] = flag ? static_cast<double>(result.size()) : 0.0;
}

const LineTable& ParallelLines() {
    static const LineTable t = Parallel();
    return t;
}
const LineTable& GridLines() {
    static const LineTable t = Grid();
    return t;
}

void Parallel_AllPairs(benchmark::State& s) { Run<false>(s, ParallelLines()); }
void Parallel_Pruned(benchmark::State& s) { Run<true>(s, ParallelLines()); }
void Grid_AllPairs(benchmark::State& s) { Run<false>(s, GridLines()); }
void Grid_Pruned(benchmark::State& s) { Run<true>(s, GridLines()); }
BENCHMARK(Parallel_AllPairs)->Unit(benchmark::kMillisecond);
BENCHMARK(Parallel_Pruned)->Unit(benchmark::kMillisecond);
BENCHMARK(Grid_AllPairs)->Unit(benchmark::kMillisecond);
BENCHMARK(Grid_Pruned)->Unit(benchmark::kMillisecond);

// Keeps the time of each run to print the ratios after the table.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs) ms[r.benchmark_name()] = r.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> ms;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const char* name : {"Parallel", "Grid"}) {
        const std::string old = std::string(name) + "_AllPairs", pruned = std::string(name) + "_Pruned";
        if (reporter.ms.count(old) == 0 || reporter.ms.count(pruned) == 0) continue;
        std::printf("%s: all pairs %.3f ms, pruned %.3f ms, %.1fx faster\n", name, reporter.ms[old],
                    reporter.ms[pruned], reporter.ms[old] / reporter.ms[pruned]);
    }
    benchmark::Shutdown();
    return 0;
}
