// The capacity window's run path against the headless solver on one layout.
//   WindowRun     the whole run in CapacityWindow (offscreen): passes shown in
//                 the display through the throttled pump
//   WindowOpenOnly  opening the window with a run that has nothing to iterate
//   HeadlessRun   the same solve with no window, no display and no yield
//   StopLatency   at each strip, a Stop click during a run: time from the
//                 moment the click was due to the end of the run (this
//                 includes the wait for the next event pump)
// The pass rate ratio is HeadlessRun / (WindowRun - WindowOpenOnly): both
// run the same passes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>

#include "board/core/Viewport.h"
#include "board/core/CapacityHandOver.h"
#include "shell/ui/SettingsStore.h"
#include "board/ui/CapacityWindow.h"
#include "weld/core/WeldStrength.h"

namespace {

using Layout::LayoutDocument;

// A closed box 50 by 180 in, load on the right at 30 degrees, 2 ft out:
// long enough to time, small enough for 1/64" (29,440 segments).
LayoutDocument BenchLayout() {
    namespace cm = Viewport;
    LayoutDocument doc;
    const double pts[4][4] = {{0, 0, 50, 0}, {50, 0, 50, 180}, {50, 180, 0, 180}, {0, 180, 0, 0}};
    for (const auto& p : pts) {
        Layout::PointRec a, b;
        a.X = cm::To_BoardX(doc, p[0]);
        a.Y = cm::To_BoardY(doc, p[1]);
        b.X = cm::To_BoardX(doc, p[2]);
        b.Y = cm::To_BoardY(doc, p[3]);
        cm::Add_Drawn_Line(doc, a, b);
    }
    doc.Load.LoadSide = 1;
    doc.Load.LoadAngle = 30;
    doc.Load.LoadEccentricity = 2;
    doc.Load.LoadPlaced = -1;
    return doc;
}

void SetStrip(int index) {
    settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "WeldStrip", QString::number(index));
    settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "SolverModel", "iterative");
}

void WaitForEnd(CapacityWindow& frm) {
    auto* cbox = frm.findChild<QLineEdit*>("CBox");
    while (frm.RunActive() || cbox->text().isEmpty()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

constexpr int kStrip = 2;  // 1/16"

// Times opening the window on `doc` until its run has ended.
void TimeWindowRuns(benchmark::State& st, const LayoutDocument& doc) {
    SetStrip(kStrip);
    for (auto _ : st) {
        CapacityWindow frm(doc);
        QElapsedTimer t;
        t.start();
        frm.show();
        WaitForEnd(frm);
        st.SetIterationTime(t.nsecsElapsed() / 1e9);
        frm.hide();
    }
}

void WindowRun(benchmark::State& st) { TimeWindowRuns(st, BenchLayout()); }
BENCHMARK(WindowRun)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

// Opening the window and a run with nothing to iterate (load through the
// centroid): the fixed cost inside WindowRun that is no pass.
void WindowOpenOnly(benchmark::State& st) {
    LayoutDocument doc = BenchLayout();
    doc.Load.LoadEccentricity = 0;
    TimeWindowRuns(st, doc);
}
BENCHMARK(WindowOpenOnly)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

void HeadlessRun(benchmark::State& st) {
    const LayoutDocument doc = BenchLayout();
    for (auto _ : st) {
        weld::WeldRunState state;
        weld::SolveOptions options;
        WeldStrength::SegmentsPerInchOf(kStrip, options.SegmentsPerInch);
        state.IterationStop = false;
        const weld::SolveResult r = weld::Solve_Layout(doc, options, state, {});
        benchmark::DoNotOptimize(r.Value);
        st.counters["passes"] = static_cast<double>(r.Passes);
    }
}
BENCHMARK(HeadlessRun)->Unit(benchmark::kMillisecond)->Iterations(3);

void StopLatency(benchmark::State& st) {
    const LayoutDocument doc = BenchLayout();
    SetStrip(static_cast<int>(st.range(0)));
    double worst = 0;
    for (auto _ : st) {
        CapacityWindow frm(doc);
        auto* stop = frm.findChild<QPushButton*>("StopIterationButton");
        QElapsedTimer t;
        t.start();
        constexpr qint64 kClickAtMs = 30;  // every strip is still running then
        QTimer::singleShot(kClickAtMs, &frm, [stop] { stop->click(); });
        frm.show();
        WaitForEnd(frm);
        const double latency = (t.nsecsElapsed() - kClickAtMs * 1000000) / 1e9;
        worst = std::max(worst, latency);
        st.SetIterationTime(latency);
        frm.hide();
    }
    st.counters["worst_ms"] = worst * 1000;
}
BENCHMARK(StopLatency)->DenseRange(0, 4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
