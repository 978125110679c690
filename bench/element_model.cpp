// Element model solves: the cost of one whole solve to equilibrium.
//   (a) one straight 10 in line at 1/32" (320 elements), ex = 5 in
//   (b) each of the nine configurations at L = 10, k = 0.5, a = 0.5, 45 degrees, 1/32"
//   (c) a 4 by 2 bolt group at 3 in, ex = 6 in
//   (d) a whole table of 15 k by 20 a for one configuration at 1/32"
#include <benchmark/benchmark.h>

#include "bolt/core/BoltElementModel.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldElementModel.h"

using namespace WeldElementModel;

namespace {

// C of a configuration by the element model alone, with its report.
double ElementC(int16_t config, double L, double kL, double aL, double angle, ElementReport& rep) {
    const weld::ConfigShape shape = weld::Config_Shape({config, L, kL, aL, angle});
    weld::SolveOptions options;
    options.Fexx = 70;
    options.D = 0.0625;
    rep = Solve(shape.Group, options);
    return rep.Capacity / shape.BaseLength / 16 / 0.0625;
}

void Report(benchmark::State& st, const ElementReport& rep) {
    st.counters["elements"] = rep.Elements;
    st.counters["evaluations"] = rep.Evaluations;
    st.counters["converged"] = rep.Converged ? 1 : 0;
}

void BM_Line320(benchmark::State& st) {
    const weld::LoadedGroup line{{weld::WeldLineRec{0, 0, 0, 10}}, 5.0, static_cast<double>(st.range(0))};
    weld::SolveOptions options;
    options.Fexx = 70;
    options.D = 0.25;
    ElementReport rep;
    for (auto _ : st) {
        rep = Solve(line, options);
        benchmark::DoNotOptimize(rep.Capacity);
    }
    Report(st, rep);
}
BENCHMARK(BM_Line320)->Arg(0)->Arg(45)->Unit(benchmark::kMicrosecond);

void BM_Shape(benchmark::State& st) {
    const auto config = static_cast<int16_t>(st.range(0));
    ElementReport rep;
    for (auto _ : st) benchmark::DoNotOptimize(ElementC(config, 10, 5, 5, 45, rep));
    Report(st, rep);
}
BENCHMARK(BM_Shape)->DenseRange(1, 9)->Unit(benchmark::kMicrosecond);

void BM_Bolt4x2(benchmark::State& st) {
    BoltElementModel::BoltReport rep;
    for (auto _ : st) {
        rep = BoltElementModel::BoltGroup_C(4, 2, 3, 3, 6, static_cast<double>(st.range(0)));
        benchmark::DoNotOptimize(rep.Value);
    }
    st.counters["evaluations"] = rep.Evaluations;
}
BENCHMARK(BM_Bolt4x2)->Arg(0)->Arg(30)->Unit(benchmark::kMicrosecond);

void BM_WeldTable15x20(benchmark::State& st) {
    const auto config = static_cast<int16_t>(st.range(0));
    const double ks[15] = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.2, 1.4, 1.6, 1.8, 2.0};
    const double as[20] = {0.075, 0.1, 0.15, 0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.7,
                           0.8,   0.9, 1.0,  1.2, 1.4,  1.6, 1.8, 2.0, 2.4, 3.0};
    int failed = 0;
    for (auto _ : st) {
        failed = 0;
        for (double a : as)
            for (double k : ks) {
                ElementReport rep;
                benchmark::DoNotOptimize(ElementC(config, 10, 10 * k, 10 * a, 0, rep));
                failed += rep.Converged ? 0 : 1;
            }
    }
    st.counters["not_converged"] = failed;
}
BENCHMARK(BM_WeldTable15x20)->Arg(1)->Arg(4)->Arg(6)->Unit(benchmark::kMillisecond);

}  // namespace
