// What an import keeps and drops, and the limits it refuses; the exchange
// with another program's drawings is tested by dxf_exchange.py.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "board/core/DxfFile.h"
#include "board/core/DxfLayout.h"
#include "board/core/CapacityHandOver.h"
#include "board/core/Viewport.h"
#include "support/BoardTestDoc.h"
#include "support/TempFolder.h"

namespace {

Dxf::Drawing DrawingOf(std::vector<Dxf::Segment> segments, int layers = 1) {
    Dxf::Drawing d;
    for (int i = 0; i < layers; ++i) d.Layers.push_back("L" + std::to_string(i));
    d.Segments = std::move(segments);
    return d;
}

}  // namespace

TEST(DxfImport, KeepsWeldLinesAndCountsWhatItDrops) {
    Dxf::Drawing d = DrawingOf({{0, 0, 0, 254, 0},                 // 10 in, in mm
                                {0, 254, 0, 0, 0},                 // the same, drawn the other way: duplicate
                                {0, 0, 0.5, 0, 0},                 // 1/50 in: not longer than 1/32"
                                {3, 3, 3, 3, 0},                   // zero length
                                {0, 0, 1e300, 0, 0},               // out of range
                                {0, 0, 127, 0, 1}},                // layer 1
                               2);
    d.Skipped = 3;
    EXPECT_EQ(DxfLayout::UsableCounts(d), (std::vector<int32_t>{4, 1}));
    Layout::LayoutDocument doc;
    DxfLayout::ImportOptions options;
    options.units = Dxf::Units::Millimetres;
    options.shortest = 1.0 / 32;
    const DxfLayout::ImportResult r = DxfLayout::Import(doc, d, options);
    ASSERT_EQ(r.error, DxfLayout::ImportError::None);
    EXPECT_EQ(DxfLayout::SummaryText(r.summary),
              "Imported 2 weld lines; dropped 1 not longer than the strip, 1 of zero length, 1 out of range, 1 "
              "duplicate; skipped 3 arcs, circles, curves, texts or blocks.");
    EXPECT_EQ(doc.Lines[1].LineName, "Line Number 2");
    EXPECT_EQ(Viewport::To_WorldX(doc, doc.Lines[1].EndPt.X), 5.0f);

    // Only the chosen layer; added to the open layout, numbered on from it.
    options.layers = {false, true};
    options.replace = false;
    ASSERT_EQ(DxfLayout::Import(doc, d, options).summary.added, 1);
    EXPECT_EQ(Viewport::Line_Count(doc.Lines), 3);
    EXPECT_EQ(doc.Lines.back().LineName, "Line Number 3");
}

TEST(DxfImport, RefusalsLeaveTheLayoutAsItWas) {
    Layout::LayoutDocument doc;
    DxfLayout::ImportOptions options;
    const DxfLayout::ImportResult none = DxfLayout::Import(doc, DrawingOf({{1, 1, 1, 1, 0}}), options);
    EXPECT_EQ(DxfLayout::ErrorText(none), "The drawing holds no straight segment that can be a weld line.");
    std::vector<Dxf::Segment> many;
    for (int i = 0; i < 32768; ++i) many.push_back({0, double(i), 10, double(i), 0});
    const DxfLayout::ImportResult tooMany = DxfLayout::Import(doc, DrawingOf(many), options);
    EXPECT_EQ(DxfLayout::ErrorText(tooMany), "The drawing would give 32768 weld lines; a layout holds at most 32767.");
    EXPECT_EQ(Viewport::Line_Count(doc.Lines), 0);
}

class DxfRead : public testutil::TempFolder {};

TEST_F(DxfRead, ACancelledReadEndsAtOnce) {
    const std::string path = P("big.dxf");
    {
        std::ofstream out(path);
        out << "  0\nSECTION\n  2\nENTITIES\n";
        for (int i = 0; i < 20000; ++i) out << "  0\nLINE\n  8\n0\n 10\n0\n 20\n" << i << "\n 11\n5\n 21\n" << i << "\n";
        out << "  0\nENDSEC\n  0\nEOF\n";
    }
    Dxf::Drawing d;
    ASSERT_EQ(Dxf::Read(path, d), Dxf::ReadError::None);
    EXPECT_EQ(d.Segments.size(), 20000u);
    int calls = 0;
    EXPECT_EQ(Dxf::Read(path, d, [&](double) { return ++calls < 2; }), Dxf::ReadError::Cancelled);
    EXPECT_LT(d.Segments.size(), 20000u);
    EXPECT_EQ(Dxf::Read(P("none.dxf"), d), Dxf::ReadError::CannotOpen);
}

TEST(DxfExport, ARunOfTheLayoutGoesOnResults) {
    Layout::LayoutDocument doc = boardtest::Drawn({{1, 1, 1, 11}, {1, 1, 5, 1}, {1, 11, 5, 11}});
    doc.Load.LoadEccentricity = 0.75;
    doc.Load.LoadSide = 1;
    Viewport::Zoom_Fit(doc, 0.925f);  // as the calculation display shows it
    weld::SolveOptions o;
    o.WithForces = true;
    const weld::SolveResult run = weld::Solve(weld::Layout_Group(doc), o);
    ASSERT_TRUE(run.Converged);
    const Dxf::Output plain = DxfLayout::ExportOf(doc), with = DxfLayout::ExportOf(doc, &run);
    auto on = [](const Dxf::Output& out, const char* layer) {
        return std::count_if(out.Lines.begin(), out.Lines.end(), [&](const Dxf::Line& l) { return l.layer == layer; });
    };
    EXPECT_EQ(on(plain, "RESULTS"), 0);
    EXPECT_EQ(on(with, "WELD"), 3);
    EXPECT_GT(on(with, "RESULTS"), 20);  // arrows and the center's cross
    // The center's text: 1.643 in left of the centroid, as the sheet of this run says.
    const auto ic = std::find_if(with.Texts.begin(), with.Texts.end(),
                                 [](const Dxf::Text& t) { return t.layer == "RESULTS" && t.text.rfind("IC", 0) == 0; });
    ASSERT_NE(ic, with.Texts.end());
    EXPECT_EQ(ic->text, "IC  x = -1 5/8\"   y = 0\"");
}
