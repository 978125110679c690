#include <gtest/gtest.h>

#include "support/BoardTestDoc.h"
#include "support/RecordingSurface.h"
#include "board/core/Viewport.h"
#include "board/core/LayoutRender.h"

using namespace Layout;
using namespace boardtest;
using board::PenMode;
using board::PenStyle;

namespace {

TEST(LayoutRender, DrawLinesClearsThenPaintsEachRowWithItsPen) {
    RecordingSurface s;
    LineTable t = {L(1, 1, 2, 1), L(1, 2, 1, 3)};
    t[1].Selected = -1;
    // Pens 4 and 11 are red and bright cyan, stored blue-green-red.
    LayoutRender::Draw_Lines(s, t, 4, 11, true);
    ASSERT_EQ(s.Ops.size(), 3u);
    EXPECT_EQ(s.Ops[0].Kind, "Cls");
    EXPECT_EQ(s.Ops[1].Color, 0x000080u);
    EXPECT_EQ(s.Ops[2].Color, 0xFFFF00u);
    for (int i : {1, 2}) {
        EXPECT_EQ(s.Ops[i].Mode, PenMode::Copy);
        EXPECT_EQ(s.Ops[i].Style, PenStyle::Solid);
        EXPECT_EQ(s.Ops[i].Width, 3);
    }
    // From StartPt to EndPt.
    EXPECT_EQ(s.Ops[1].X1, 1);
    EXPECT_EQ(s.Ops[1].X2, 2);

    s.Ops.clear();
    LayoutRender::Draw_Lines(s, t, 4, 11, false);
    EXPECT_EQ(s.Ops[2].Color, 0x000080u) << "selection not shown";

    // Selection paint neither clears nor asks whether a row exists.
    s.Ops.clear();
    t[0].Exists = 0;
    LayoutRender::Paint_Selection(s, t, 13, 5);
    ASSERT_EQ(s.Ops.size(), 2u);
    EXPECT_EQ(s.Ops[0].Color, board::QBColor(5));
    EXPECT_EQ(s.Ops[1].Color, board::QBColor(13));

    // A blank table draws nothing but the clear.
    s.Ops.clear();
    LayoutRender::Draw_Lines(s, BlankLines(), 5, 13, true);
    LayoutRender::Draw_Dims(s, BlankDims());
    ASSERT_EQ(s.Ops.size(), 1u);
    EXPECT_EQ(s.Ops[0].Kind, "Cls");
}

DimensionRec VerticalDim() {
    DimensionRec d = Dim(1, 1, 1, 3, 2, 2);
    d.DimLength = 24.0;
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

    // Positioned on a measured point: no gap.
    DimensionRec on = VerticalDim();
    on.DimPos.X = 1.0f;
    RecordingSurface s2;
    LayoutRender::Draw_Dim(s2, on);
    EXPECT_DOUBLE_EQ(s2.OfKind("Line")[0].X1, 1.0);
    EXPECT_DOUBLE_EQ(s2.OfKind("Line")[0].X2, 1.0);
}

TEST(LayoutRender, HorizontalDimensionAndTheStraightKind) {
    DimensionRec d = VerticalDim();
    d.DimP2 = P(3, 1);
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

TEST(LayoutRender, BandsBoxesAndPanGhostUseTheDottedInvertingPen) {
    RecordingSurface s;
    LayoutRender::Band_Line(s, P(0, 0), P(1, 1));
    LayoutRender::Band_Box(s, 0, 0, 2, 1);
    ASSERT_EQ(s.Ops.size(), 5u);
    for (const auto& o : s.Ops) {
        EXPECT_EQ(o.Mode, PenMode::Invert);
        EXPECT_EQ(o.Style, PenStyle::Dot);
        EXPECT_EQ(o.Width, 1);
    }

    // The ghost erases the old frame (by drawing it again) before the new.
    s.Ops.clear();
    LayoutRender::PanGhost g;
    LayoutRender::Pan_Ghost(s, g, 1.0, 1.0, 0.0f, 0.0f, false);
    EXPECT_EQ(s.Ops.size(), 6u);
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, false);
    ASSERT_EQ(s.Ops.size(), 18u);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(s.Ops[6 + i].X1, s.Ops[i].X1);
    EXPECT_DOUBLE_EQ(s.Ops[12].X1, 2.05);
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, true);
    EXPECT_EQ(s.Ops.size(), 24u);
    EXPECT_FALSE(g.Shown);
}

}  // namespace
