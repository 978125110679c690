#include "board/LayoutRender.h"

#include <gtest/gtest.h>

#include "RecordingSurface.h"
#include "board/CartesianModule.h"

using namespace PublicVariables;
using board::PenMode;
using board::PenStyle;
using board::QBColor;

namespace {

LineRec MakeLine(float x1, float y1, float x2, float y2, bool selected = false) {
    LineRec r;
    r.StartPt = {x1, y1, 0};
    r.EndPt = {x2, y2, 0};
    r.MidPt = {(x1 + x2) / 2, (y1 + y2) / 2, 0};
    r.Exists = -1;
    r.Selected = selected ? -1 : 0;
    return r;
}

TEST(LayoutRender, ColourTableIsTheSixteenStandardColours) {
    EXPECT_EQ(QBColor(0), 0x000000u);
    EXPECT_EQ(QBColor(4), 0x000080u);   // red, blue-green-red order
    EXPECT_EQ(QBColor(5), 0x800080u);   // magenta
    EXPECT_EQ(QBColor(11), 0xFFFF00u);  // bright cyan
    EXPECT_EQ(QBColor(13), 0xFF00FFu);  // bright magenta
    EXPECT_EQ(QBColor(15), 0xFFFFFFu);
}

TEST(LayoutRender, DrawLinesClearsThenPaintsEachRowWithItsPen) {
    RecordingSurface s;
    LineTable t = {MakeLine(1, 1, 2, 1), MakeLine(1, 2, 1, 3, true)};
    LayoutRender::Draw_Lines(s, t, 5, 13, true);
    ASSERT_EQ(s.Ops.size(), 3u);
    EXPECT_EQ(s.Ops[0].Kind, "Cls");
    EXPECT_EQ(s.Ops[1].Color, QBColor(5));
    EXPECT_EQ(s.Ops[2].Color, QBColor(13));
    for (int i : {1, 2}) {
        EXPECT_EQ(s.Ops[i].Mode, PenMode::Copy);
        EXPECT_EQ(s.Ops[i].Style, PenStyle::Solid);
        EXPECT_EQ(s.Ops[i].Width, 3);
    }
    // From StartPt to EndPt.
    EXPECT_EQ(s.Ops[1].X1, 1);
    EXPECT_EQ(s.Ops[1].X2, 2);

    s.Ops.clear();
    LayoutRender::Draw_Lines(s, t, 5, 13, false);
    EXPECT_EQ(s.Ops[2].Color, QBColor(5)) << "selection not shown";
}

TEST(LayoutRender, BlankTableDrawsNothingButTheClear) {
    RecordingSurface s;
    LayoutRender::Draw_Lines(s, BlankLines(), 5, 13, true);
    LayoutRender::Draw_Dims(s, BlankDims());
    ASSERT_EQ(s.Ops.size(), 1u);
    EXPECT_EQ(s.Ops[0].Kind, "Cls");
}

TEST(LayoutRender, PaintSelectionDoesNotClearOrTestExists) {
    RecordingSurface s;
    LineTable t = {MakeLine(0, 0, 1, 1, true), MakeLine(0, 0, 2, 2)};
    t[1].Exists = 0;
    LayoutRender::Paint_Selection(s, t, 13, 5);
    ASSERT_EQ(s.Ops.size(), 2u);
    EXPECT_EQ(s.Ops[0].Color, QBColor(13));
    EXPECT_EQ(s.Ops[1].Color, QBColor(5));
}

DimensionRec VerticalDim() {
    DimensionRec d;
    d.DimP1 = {1.0f, 1.0f, 0};
    d.DimP2 = {1.0f, 3.0f, 0};
    d.DimMid = {1.0f, 2.0f, 0};
    d.DimPos = {2.0f, 2.0f, 0};
    d.DimType = 0;
    d.DimLength = 24.0;
    d.Exists = -1;
    return d;
}

TEST(LayoutRender, VerticalDimensionHasGapOverrunLineLabelAndTicks) {
    RecordingSurface s;
    LayoutRender::Draw_Dim(s, VerticalDim());
    const auto lines = s.OfKind("Line");
    ASSERT_EQ(lines.size(), 5u);
    // Extension lines start 0.05 from the point and run 0.075 past the dimension line.
    EXPECT_DOUBLE_EQ(lines[0].X1, 1.05);
    EXPECT_DOUBLE_EQ(lines[0].X2, 2.075);
    EXPECT_EQ(lines[0].Color, 0x404040u);
    EXPECT_EQ(lines[0].Width, 1);
    // The dimension line at DimPos.X.
    EXPECT_EQ(lines[2].X1, 2.0);
    EXPECT_EQ(lines[2].X2, 2.0);
    // Ticks at both ends, width 3, centred on the points.
    EXPECT_EQ(lines[3].Width, 3);
    EXPECT_DOUBLE_EQ((lines[3].X1 + lines[3].X2) / 2, 2.0);
    EXPECT_DOUBLE_EQ((lines[3].Y1 + lines[3].Y2) / 2, 1.0);
    const auto prints = s.OfKind("Print");
    ASSERT_EQ(prints.size(), 1u);
    EXPECT_EQ(prints[0].Text, "2'-0\"");
    EXPECT_EQ(prints[0].Color, 0xFFFFFFu);
    EXPECT_DOUBLE_EQ(prints[0].X1, 2.0 - 5 * 0.2 / 9.0);
    EXPECT_DOUBLE_EQ(prints[0].Y1, 2.0 - 0.075);
    // The tick put the pen back.
    EXPECT_EQ(s.DrawWidth, 1);
}

TEST(LayoutRender, HorizontalDimensionAndTheStraightKind) {
    DimensionRec d = VerticalDim();
    d.DimP2 = {3.0f, 1.0f, 0};
    d.DimPos = {2.0f, 2.0f, 0};
    d.DimType = 1;
    RecordingSurface s;
    LayoutRender::Draw_Dim(s, d);
    const auto lines = s.OfKind("Line");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_DOUBLE_EQ(lines[0].Y1, 1.05);
    EXPECT_DOUBLE_EQ(lines[0].Y2, 2.075);
    EXPECT_DOUBLE_EQ(s.OfKind("Print")[0].Y1, 2.0 - 0.15);

    d.DimType = 2;
    RecordingSurface s2;
    LayoutRender::Draw_Dim(s2, d);
    EXPECT_TRUE(s2.Ops.empty());
}

TEST(LayoutRender, PositionOnAMeasuredPointLeavesNoGap) {
    DimensionRec d = VerticalDim();
    d.DimPos.X = 1.0f;
    RecordingSurface s;
    LayoutRender::Draw_Dim(s, d);
    const auto lines = s.OfKind("Line");
    EXPECT_DOUBLE_EQ(lines[0].X1, 1.0);
    EXPECT_DOUBLE_EQ(lines[0].X2, 1.0);
}

TEST(LayoutRender, BandsAndBoxesUseTheDottedInvertingPen) {
    RecordingSurface s;
    LayoutRender::Band_Line(s, {0, 0, 0}, {1, 1, 0});
    LayoutRender::Band_Box(s, 0, 0, 2, 1);
    ASSERT_EQ(s.Ops.size(), 5u);
    for (const auto& o : s.Ops) {
        EXPECT_EQ(o.Mode, PenMode::Invert);
        EXPECT_EQ(o.Style, PenStyle::Dot);
        EXPECT_EQ(o.Width, 1);
    }
}

TEST(LayoutRender, PanGhostErasesTheOldFrameBeforeDrawingTheNew) {
    RecordingSurface s;
    LayoutRender::PanGhost g;
    LayoutRender::Pan_Ghost(s, g, 1.0, 1.0, 0.0f, 0.0f, false);
    EXPECT_EQ(s.Ops.size(), 6u);
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, false);
    ASSERT_EQ(s.Ops.size(), 18u);
    // The second call first repeats the first frame exactly (which removes it).
    for (int i = 0; i < 6; ++i) EXPECT_EQ(s.Ops[6 + i].X1, s.Ops[i].X1);
    EXPECT_DOUBLE_EQ(s.Ops[12].X1, 2.05);
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, true);
    EXPECT_EQ(s.Ops.size(), 24u);
    EXPECT_FALSE(g.Shown);
}

}  // namespace
