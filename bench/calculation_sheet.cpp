// A calculation sheet made and written to PDF bytes (the run already made,
// as the windows have it): the largest example, and a group of 100 lines.
#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "board/core/CapacitySheet.h"
#include "board/core/LayoutFile.h"
#include "board/core/Viewport.h"
#include "shell/print/SheetPrinter.h"

namespace {

// The sheet of `doc` from a run solved once, then made again each iteration.
void MakeSheets(benchmark::State& st, const Layout::LayoutDocument& doc) {
    const capsheet::Inputs in;
    const capsheet::Run run = capsheet::Solve_Both(doc, in, 20000);
    size_t bytes = 0;
    for (auto _ : st) {
        const sheet::Sheet s = capsheet::Capacity_Sheet(doc, in, run, {}, "bench.wld", "1.1");
        bytes = sheetprint::PdfBytes(s, sheet::Paper::Letter).size();
        benchmark::DoNotOptimize(bytes);
    }
    st.counters["pdf_KiB"] = static_cast<double>(bytes) / 1024;
    st.counters["converged"] = run.Result.Converged ? 1 : 0;
}

void BM_LargestExample(benchmark::State& st) {
    Layout::LayoutDocument doc;
    LayoutFile::Read_Layout_Checked(doc, FERROLITH_SOURCE_DIR "/examples/box-inclined.wld");
    MakeSheets(st, doc);
}
BENCHMARK(BM_LargestExample)->Unit(benchmark::kMillisecond);

// 100 lines: a comb of 50 teeth of 2 in on a back of 50 pieces.
void BM_HundredLines(benchmark::State& st) {
    Layout::LayoutDocument doc;
    Viewport::Set_Viewport(doc);
    for (int i = 0; i < 50; ++i) {
        const float x = 0.05f * static_cast<float>(i);
        Viewport::Add_Drawn_Line(doc, {1.0f + x, 1.0f}, {1.05f + x, 1.0f});
        Viewport::Add_Drawn_Line(doc, {1.0f + x, 1.0f}, {1.0f + x, 1.1f});
    }
    doc.Load.LoadEccentricity = 1.0;
    MakeSheets(st, doc);
}
BENCHMARK(BM_HundredLines)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
