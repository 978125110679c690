// Full repaint of the working display on the board's image: 1,000 lines
// with their crossings and 200 dimensions.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <memory>

#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/core/LayoutRender.h"
#include "board/core/BoardState.h"
#include "board/core/CalculationDisplay.h"
#include "board/core/CapacityHandOver.h"

using Layout::LayoutDocument;

namespace {

LayoutDocument BigLayout() {
    LayoutDocument doc;
    // Short strokes spread over the board in a grid, some crossing.
    for (int i = 0; i < 1000; ++i) {
        const float x = 0.3f + static_cast<float>(i % 40) * 0.16f;
        const float y = 0.3f + static_cast<float>(i / 40) * 0.18f;
        const float a = static_cast<float>(i) * 0.7f;
        Viewport::Add_Drawn_Line(doc, {x, y, 0}, {x + 0.2f * std::cos(a), y + 0.2f * std::sin(a), 0});
    }
    for (int i = 0; i < 200; ++i) {
        Viewport::Add_Dim_Slot(doc.Dims);
        auto& d = doc.Dims.back();
        const float x = 0.4f + static_cast<float>(i % 20) * 0.3f;
        const float y = 0.4f + static_cast<float>(i / 20) * 0.45f;
        d.DimP1 = {x, y, 0};
        d.DimP2 = {x, y + 0.3f, 0};
        d.DimMid = {x, y + 0.15f, 0};
        d.DimPos = {x + 0.1f, y + 0.15f, 0};
        d.DimType = static_cast<int16_t>(i % 2);
        if (d.DimType == 1) {
            d.DimP2 = {x + 0.25f, y, 0};
            d.DimPos = {x + 0.125f, y - 0.1f, 0};
        }
        d.DimLength = 3.5;
        d.Exists = -1;
    }
    return doc;
}

void BM_FullRepaint(benchmark::State& state) {
    BoardSurface surface;
    surface.resize(surface.minimumSize());
    LayoutDocument doc = BigLayout();
    for (auto _ : state) {
        LayoutRender::Repaint(surface, doc, true);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(BM_FullRepaint)->Unit(benchmark::kMillisecond);

void BM_DrawOnly(benchmark::State& state) {
    BoardSurface surface;
    surface.resize(surface.minimumSize());
    LayoutDocument doc = BigLayout();
    for (auto _ : state) {
        LayoutRender::Draw_Lines(surface, doc.Lines, 5, 13, true);
        LayoutRender::Draw_Dims(surface, doc.Dims);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(BM_DrawOnly)->Unit(benchmark::kMillisecond);

void BM_Intersections(benchmark::State& state) {
    LayoutDocument doc = BigLayout();
    for (auto _ : state)
        Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound);
}
BENCHMARK(BM_Intersections)->Unit(benchmark::kMillisecond);

// The calculation display of the same 1,000 lines with the forces of one
// solve of the element model at 8 segments per inch kept on the board.
struct BoardWithResults {
    BoardSurface surface;
    LayoutDocument doc = BigLayout();
    BoardState::Board board{doc, surface};
    BoardWithResults() {
        surface.resize(surface.minimumSize());
        board.Set_Mode(BoardState::CALCULATION);
        weld::SolveOptions options;
        options.Model = shell::SolverModel::AiscElement;
        options.SegmentsPerInch = 8;
        options.WithForces = true;
        const weld::LoadedGroup group = weld::Layout_Group(doc);
        board.Show_Results(weld::Solve(group, options), group);
    }
};

// The whole display drawn anew (the fit, the center of gravity, the labels,
// the load) with the results over it (Arg 1) and without them (Arg 0).
void BM_CalculationRepaint(benchmark::State& state) {
    BoardWithResults b;
    b.board.Set_Show_Results(state.range(0) != 0);
    for (auto _ : state) {
        b.board.RefreshButton_Click();
        benchmark::DoNotOptimize(b.surface.Image().constBits());
    }
    const CalculationView::RunResults& r = b.board.Load_Inputs().Results;
    state.counters["drawn"] = r.Drawn ? 1 : 0;
    state.counters["forces"] = static_cast<double>(r.Record.Forces.size());
}
BENCHMARK(BM_CalculationRepaint)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The first display of a board that has shown no text yet: the labels are
// laid out for the first time, as when a layout is opened and calculated.
void BM_CalculationFirstDisplay(benchmark::State& state) {
    const LayoutDocument start = BigLayout();
    weld::SolveOptions options;
    options.Model = shell::SolverModel::AiscElement;
    options.SegmentsPerInch = 8;
    options.WithForces = true;
    const weld::LoadedGroup group = weld::Layout_Group(start);
    const weld::SolveResult run = weld::Solve(group, options);
    for (auto _ : state) {
        state.PauseTiming();
        auto surface = std::make_unique<BoardSurface>();
        surface->resize(surface->minimumSize());
        LayoutDocument doc = start;
        auto board = std::make_unique<BoardState::Board>(doc, *surface);
        board->Show_Results(run, group);
        state.ResumeTiming();
        board->Set_Mode(BoardState::CALCULATION);
        benchmark::DoNotOptimize(surface->Image().constBits());
        state.PauseTiming();
        board.reset();
        surface.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_CalculationFirstDisplay)->Unit(benchmark::kMillisecond);

// The results alone, drawn over the display the board already shows.
void BM_ResultsOverlay(benchmark::State& state) {
    BoardWithResults b;
    CalculationView::RunResults r = b.board.Load_Inputs().Results;
    for (auto _ : state) {
        CalculationView::Draw_Run_Results(b.surface, b.doc, r.Where.OriginX, r.Where.OriginY, r);
        benchmark::DoNotOptimize(b.surface.Image().constBits());
    }
    state.counters["drawn"] = r.Drawn ? 1 : 0;
}
BENCHMARK(BM_ResultsOverlay)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
