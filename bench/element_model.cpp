// Element model solves: the cost of one whole solve to equilibrium.
//   (a) one straight 10 in line at 1/32" (320 elements), ex = 5 in
//   (b) each of the nine configurations at L = 10, k = 0.5, a = 0.5, 45 degrees, 1/32"
//   (c) a 4 by 2 bolt group at 3 in, ex = 6 in
//   (d) a whole table of 15 k by 20 a for one configuration at 1/32"
//   (e) a 20 by 10 in box at 1/32" (1,920 elements), ex = 10 in, and a 12 by 4 bolt group
//   (f) one force sweep over the box, per element, and over a 40 by 50 bolt
//       group, per bolt, each beside the vector math it calls, apart and in
//       alternation (the ratio)
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "bolt/core/BoltElementKernel.h"
#include "bolt/core/BoltElementModel.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldElementKernel.h"
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

// One whole solve of a group at eccentricity ex, the load angle the argument.
void SolveGroup(benchmark::State& st, const weld::WeldLineTable& lines, double ex) {
    const weld::LoadedGroup group{lines, ex, static_cast<double>(st.range(0))};
    weld::SolveOptions options;
    options.Fexx = 70;
    options.D = 0.25;
    ElementReport rep;
    for (auto _ : st) {
        rep = Solve(group, options);
        benchmark::DoNotOptimize(rep.Capacity);
    }
    Report(st, rep);
}

void BM_Line320(benchmark::State& st) { SolveGroup(st, {weld::WeldLineRec{0, 0, 0, 10}}, 5.0); }
BENCHMARK(BM_Line320)->Arg(0)->Arg(45)->Unit(benchmark::kMicrosecond);

void BM_Shape(benchmark::State& st) {
    const auto config = static_cast<int16_t>(st.range(0));
    ElementReport rep;
    for (auto _ : st) benchmark::DoNotOptimize(ElementC(config, 10, 5, 5, 45, rep));
    Report(st, rep);
}
BENCHMARK(BM_Shape)->DenseRange(1, 9)->Unit(benchmark::kMicrosecond);

// One whole solve of an m by n bolt group at 3 in, the load angle the argument.
void SolveBolts(benchmark::State& st, int16_t m, int16_t n, double ex) {
    BoltElementModel::BoltReport rep;
    for (auto _ : st) {
        rep = BoltElementModel::BoltGroup_C(m, n, 3, 3, ex, static_cast<double>(st.range(0)));
        benchmark::DoNotOptimize(rep.Value);
    }
    st.counters["evaluations"] = rep.Evaluations;
}

void BM_Bolt4x2(benchmark::State& st) { SolveBolts(st, 4, 2, 6); }
BENCHMARK(BM_Bolt4x2)->Arg(0)->Arg(30)->Unit(benchmark::kMicrosecond);

const weld::WeldLineTable kBox = {weld::WeldLineRec{0, 0, 10, 0}, weld::WeldLineRec{10, 0, 10, 20},
                            weld::WeldLineRec{0, 20, 10, 20}, weld::WeldLineRec{0, 0, 0, 20}};

void BM_Box20x10(benchmark::State& st) { SolveGroup(st, kBox, 10.0); }
BENCHMARK(BM_Box20x10)->Arg(0)->Arg(45)->Unit(benchmark::kMicrosecond);

void BM_Bolt12x4(benchmark::State& st) { SolveBolts(st, 12, 4, 16); }
BENCHMARK(BM_Bolt12x4)->Arg(0)->Arg(30)->Unit(benchmark::kMicrosecond);

// The box's elements about its centroid, 32 to the inch, and a motion about a
// center to its left, as a solve meets it.
WeldKernel::Elements BoxElements() {
    WeldKernel::Elements el;
    el.D = 0.25;
    for (const weld::WeldLineRec& l : kBox) {
        const double len = std::hypot(l.x2 - l.x1, l.y2 - l.y1), tx = (l.x2 - l.x1) / len, ty = (l.y2 - l.y1) / len;
        const int n = static_cast<int>(len * 32);
        for (int j = 0; j < n; ++j) {
            const double t = (j + 0.5) / n;
            el.Add(l.x1 - 5 + t * (l.x2 - l.x1), l.y1 - 10 + t * (l.y2 - l.y1), tx, ty, 0.1);
        }
        el.AddProbe(l.x1 - 5, l.y1 - 10, tx, ty);
        el.AddProbe(l.x2 - 5, l.y2 - 10, tx, ty);
    }
    return el;
}

// Seconds per element of one sweep, or of the vector math alone.
void PerElement(benchmark::State& st, const WeldKernel::Elements& el) {
    st.counters["per_element"] = benchmark::Counter(
        static_cast<double>(el.Count()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_SweepPerElement(benchmark::State& st) {
    const WeldKernel::Elements el = BoxElements();
    const shell::Motion m{0.1, 0.5, 0.05};
    for (auto _ : st) benchmark::DoNotOptimize(WeldKernel::Forces(el, m));
    PerElement(st, el);
}
BENCHMARK(BM_SweepPerElement);

void BM_VectorMathFloorPerElement(benchmark::State& st) {
    const WeldKernel::Elements el = BoxElements();
    const shell::Motion m{0.1, 0.5, 0.05};
    for (auto _ : st) benchmark::DoNotOptimize(WeldKernel::VectorMathFloor(el, m));
    PerElement(st, el);
}
BENCHMARK(BM_VectorMathFloorPerElement);

// A 40 by 50 bolt group at 3 in about its centroid, turning about a center
// beside it: one sweep per bolt, beside the vector math it calls.
struct BoltGrid {
    std::vector<double> x, y, r;
    BoltGrid() {
        for (int i = 0; i < 40; ++i)
            for (int j = 0; j < 50; ++j) {
                x.push_back(3.0 * j - 73.5);
                y.push_back(3.0 * i - 58.5);
            }
        r.resize(3 * x.size());
    }
    void Sweep() {
        benchmark::DoNotOptimize(BoltKernel::ForceSums(x.data(), y.data(), r.data(), x.size(), 0.34, 0.1, 0.5, 0.05));
    }
    void Floor() {
        benchmark::DoNotOptimize(
            BoltKernel::VectorMathFloor(x.data(), y.data(), r.data(), x.size(), 0.34, 0.1, 0.5, 0.05));
    }
    void PerBolt(benchmark::State& st) const {
        st.counters["per_bolt"] = benchmark::Counter(static_cast<double>(x.size()),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
    }
};

void BM_BoltSweepPerBolt(benchmark::State& st) {
    BoltGrid g;
    for (auto _ : st) g.Sweep();
    g.PerBolt(st);
}
BENCHMARK(BM_BoltSweepPerBolt);

void BM_BoltVectorMathFloorPerBolt(benchmark::State& st) {
    BoltGrid g;
    for (auto _ : st) g.Floor();
    g.PerBolt(st);
}
BENCHMARK(BM_BoltVectorMathFloorPerBolt);

// A sweep and its vector math timed in alternation, a batch of each in turn,
// so that both meet the same state of a shared machine; the medians of the
// batches give the ratio. A counter per kind in ns per element, and the ratio.
template <class Sweep, class Floor>
void SideBySide(benchmark::State& st, size_t count, Sweep sweep, Floor floor) {
    using Clock = std::chrono::steady_clock;
    constexpr int kBatch = 20;
    std::vector<double> sweeps, floors;
    auto batch = [](auto&& f) {
        const auto t0 = Clock::now();
        for (int i = 0; i < kBatch; ++i) f();
        return std::chrono::duration<double, std::nano>(Clock::now() - t0).count() / kBatch;
    };
    for (auto _ : st) {
        sweeps.push_back(batch(sweep));
        floors.push_back(batch(floor));
    }
    auto median = [](std::vector<double> v) {
        std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2), v.end());
        return v[v.size() / 2];
    };
    const double s = median(sweeps) / static_cast<double>(count), f = median(floors) / static_cast<double>(count);
    st.counters["sweep_ns"] = s;
    st.counters["floor_ns"] = f;
    st.counters["ratio"] = s / f;
}

void BM_SweepOverFloorPerElement(benchmark::State& st) {
    const WeldKernel::Elements el = BoxElements();
    const shell::Motion m{0.1, 0.5, 0.05};
    SideBySide(
        st, el.Count(), [&] { benchmark::DoNotOptimize(WeldKernel::Forces(el, m)); },
        [&] { benchmark::DoNotOptimize(WeldKernel::VectorMathFloor(el, m)); });
}
BENCHMARK(BM_SweepOverFloorPerElement)->Iterations(400);

void BM_SweepOverFloorPerBolt(benchmark::State& st) {
    BoltGrid g;
    SideBySide(st, g.x.size(), [&] { g.Sweep(); }, [&] { g.Floor(); });
}
BENCHMARK(BM_SweepOverFloorPerBolt)->Iterations(400);

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
