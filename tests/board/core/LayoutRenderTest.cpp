#include <gtest/gtest.h>

#include "board/core/LayoutRender.h"
#include "board/core/Viewport.h"
#include "support/BoardTestDoc.h"
#include "support/RecordingSurface.h"

using namespace Layout;
using namespace boardtest;
using board::PenMode;
using board::PenStyle;

namespace {

TEST(LayoutRender, LinesClearThenPaintEachRowWithItsPen) {
    RecordingSurface s;
    LineTable t = {L(1, 1, 2, 1), L(1, 2, 1, 3)};
    t[1].Selected = -1;
    // Pens 4 and 11 are red and bright cyan, stored blue-green-red.
    LayoutRender::Draw_Lines(s, t, 4, 11, true);
    ASSERT_EQ(s.Ops.size(), 3u);
    EXPECT_EQ(s.Ops[0].Kind, "Cls");
    EXPECT_EQ(s.Ops[1].Color, 0x000080u);
    EXPECT_EQ(s.Ops[2].Color, 0xFFFF00u);
    EXPECT_TRUE(s.Ops[1].Mode == PenMode::Copy && s.Ops[1].Style == PenStyle::Solid && s.Ops[1].Width == 3);
    EXPECT_EQ(s.Ops[1].X2, 2) << "from StartPt to EndPt";
    s.Ops.clear();
    LayoutRender::Draw_Lines(s, t, 4, 11, false);
    EXPECT_EQ(s.Ops[2].Color, 0x000080u) << "selection not shown";
}

// A dimension: two extension lines from 0.05 off the points to 0.075 past the
// dimension line, the line itself, a tick at each end and the length above.
TEST(LayoutRender, DimensionsByTheirKind) {
    DimensionRec d = Dim(1, 1, 1, 3, 2, 2);
    d.DimLength = 24.0;
    RecordingSurface s;
    LayoutRender::Draw_Dim(s, d);
    auto lines = s.OfKind("Line");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(lines[0].X1 == 1.05 && lines[0].X2 == 2.075 && lines[2].X1 == 2.0 && lines[3].Width == 3);
    EXPECT_EQ(s.OfKind("Print").at(0).Text, "2'-0\"");
    EXPECT_EQ(s.DrawWidth, 1) << "the tick put the pen back";

    d.DimP2 = P(3, 1);
    d.DimType = 1;
    s.Ops.clear();
    LayoutRender::Draw_Dim(s, d);
    EXPECT_DOUBLE_EQ(s.OfKind("Line").at(0).Y1, 1.05);
    d.DimType = 2;  // a straight dimension is not drawn
    LayoutRender::Draw_Dim(s, d);
    EXPECT_EQ(s.Ops.size(), 6u);
}

TEST(LayoutRender, BandsBoxesAndPanGhostUseTheDottedInvertingPen) {
    RecordingSurface s;
    LayoutRender::Band_Line(s, P(0, 0), P(1, 1));
    LayoutRender::Band_Box(s, 0, 0, 2, 1);
    LayoutRender::PanGhost g;
    LayoutRender::Pan_Ghost(s, g, 1.0, 1.0, 0.0f, 0.0f, false);
    ASSERT_EQ(s.Ops.size(), 11u);
    for (const auto& o : s.Ops) EXPECT_TRUE(o.Mode == PenMode::Invert && o.Style == PenStyle::Dot && o.Width == 1);
    // The ghost erases the old frame (by drawing it again) before the new.
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, false);
    ASSERT_EQ(s.Ops.size(), 23u);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(s.Ops[11 + i].X1, s.Ops[5 + i].X1);
    LayoutRender::Pan_Ghost(s, g, 2.0, 1.0, 0.0f, 0.0f, true);
    EXPECT_FALSE(g.Shown);
}

}  // namespace
