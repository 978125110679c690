#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/AllPairsCrossings.h"
#include "support/BoardTestDoc.h"
#include "board/core/Viewport.h"
#include "board/core/Dimensions.h"

using namespace Layout;
using namespace Viewport;
using namespace boardtest;

TEST(Viewport, WorldOriginAtLowerLeftAndZeroScaleFailsToZero) {
    LayoutDocument doc;
    Set_Viewport(doc);
    EXPECT_EQ(To_WorldY(doc, doc.ScaleHeight), 0.0f);
    EXPECT_EQ(To_WorldX(doc, 0.0), 0.0f);
    EXPECT_EQ(To_BoardX(doc, 2.5), 2.5f);
    EXPECT_FLOAT_EQ(To_BoardY(doc, 1.0), static_cast<float>(doc.ScaleHeight - 1.0));
    EXPECT_EQ(doc.OriginY, static_cast<float>(-doc.ScaleHeight));
    doc.ZoomScale = 0.0f;
    EXPECT_EQ(To_WorldX(doc, 3.0), 0.0f);
    EXPECT_EQ(To_WorldY(doc, 3.0), 0.0f);
}

TEST(Tables, CountsSlotsAndDeletion) {
    LineTable t = BlankLines();
    EXPECT_EQ(Line_Count(t), 0);
    EXPECT_TRUE(Lines_Empty(t));
    EXPECT_FALSE(Has_Line(t));
    EXPECT_EQ(Unselected_Count(t), 0);

    // The first slot is the blank row itself.
    for (const char* name : {"a", "b", "c"}) {
        ASSERT_TRUE(Add_Line_Slot(t));
        t.back() = L(0, 0, 1, 1);
        t.back().LineName = name;
    }
    ASSERT_EQ(t.size(), 3u);
    EXPECT_EQ(Line_Count(t), 3);
    EXPECT_TRUE(Has_Line(t));
    t[1].Selected = -1;
    EXPECT_EQ(Selected_Count(t), 1);
    EXPECT_EQ(Unselected_Count(t), 2);

    Delete_Line(t, 0);
    ASSERT_EQ(t.size(), 2u);
    EXPECT_EQ(t[0].LineName, "b");
    Delete_Line(t, 7);  // outside the table: nothing happens
    EXPECT_EQ(t.size(), 2u);
    Delete_Selected(t);
    ASSERT_EQ(t.size(), 1u);
    EXPECT_EQ(t[0].LineName, "c");
    Delete_Line(t, 0);
    EXPECT_TRUE(Lines_Empty(t));
    EXPECT_EQ(t.size(), 1u);

    // Deleting every row as a selection leaves the blank table too.
    t = {L(0, 0, 1, 1), L(1, 1, 2, 2)};
    for (auto& r : t) r.Selected = -1;
    Delete_Selected(t);
    ASSERT_EQ(t.size(), 1u);
    EXPECT_EQ(t[0].Exists, 0);

    // Slots stop at the 16-bit index limit.
    t.assign(kMaxTableRows, L(0, 0, 1, 1));
    EXPECT_FALSE(Add_Line_Slot(t));
    EXPECT_EQ(Line_Count(t), 32767);
}

TEST(Tables, DrawnLinesAreNumberedFromTheCounter) {
    LayoutDocument doc = Drawn({{0, 0, 3, 4}, {0, 0, 0, 10}});
    EXPECT_EQ(doc.LineCounter, 2);
    EXPECT_EQ(doc.Lines[1].LineName, "Line Number 2");
    EXPECT_DOUBLE_EQ(doc.Lines[0].Length, 5.0);
    // A deleted line's number is not used again.
    Delete_Line(doc.Lines, 1);
    Add_Drawn_Line(doc, P(0, 0), P(1, 1));
    EXPECT_EQ(doc.Lines[1].LineName, "Line Number 3");
}

TEST(Geometry, LineKindAndPerpendicularFoot) {
    struct Case {
        LineRec l;
        int16_t kind;
        PointRec p, foot;
    } cases[] = {
        {L(1, 0, 1, 5), 1, P(4, 2), P(1, 2)},
        {L(0, 2, 5, 2), 2, P(3, 7), P(3, 2)},
        {L(0, 0, 2, 2), 4, P(2, 0), P(1, 1)},
        {L(0, 4, 4, 0), 4, P(0, 0), P(2, 2)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Line_Kind(c.l), c.kind);
        PointRec out;
        EXPECT_TRUE(Perpendicular_Foot(c.l, c.p, out));
        EXPECT_FLOAT_EQ(out.X, c.foot.X);
        EXPECT_FLOAT_EQ(out.Y, c.foot.Y);
    }
    EXPECT_EQ(Line_Kind(L(3, 3, 3, 3)), 1);  // a point is vertical
}

TEST(Geometry, LinesCross) {
    struct Case {
        const char* what;
        LineRec a, b;
        bool cross;
        PointRec at;
    } cases[] = {
        {"plus", L(0, 1, 2, 1), L(1, 0, 1, 2), true, P(1, 1)},
        {"T at the end of the vertical", L(0, 0, 4, 0), L(2, 0, 2, 3), true, P(2, 0)},
        {"T at the end of the horizontal", L(0, 0, 0, 4), L(0, 2, 3, 2), true, P(0, 2)},
        {"L corner", L(0, 0, 4, 0), L(4, 0, 4, 4), true, P(4, 0)},
        {"vertical and horizontal apart", L(0, 0, 0, 1), L(1, 2, 3, 2), false, P(0, 2)},
        {"sloped X", L(0, 0, 2, 2), L(0, 2, 2, 0), true, P(1, 1)},
        {"vertical and sloped", L(1, -5, 1, 5), L(0, 0, 2, 2), true, P(1, 1)},
        {"sloped and vertical", L(0, 0, 2, 2), L(1, -5, 1, 5), true, P(1, 1)},
        {"horizontal and sloped", L(0, 1, 5, 1), L(0, 0, 2, 2), true, P(1, 1)},
        {"sloped and horizontal", L(0, 0, 2, 2), L(0, 1, 5, 1), true, P(1, 1)},
        {"sloped segments that miss", L(0, 0, 1, 1), L(3, 0, 4, -1), false, P(0, 0)},
        // Parallel sloped lines: the division fails, x stays 0, and the test
        // runs on a's point at x = 0, which here lies on both.
        {"parallel sloped through x = 0", L(-1, -1, 1, 1), L(-1, 0, 1, 2), true, P(0, 0)},
        {"parallel sloped elsewhere", L(1, 1, 2, 2), L(1, 2, 2, 3), false, P(0, 0)},
        // Collinear lines along an axis never cross, even when they touch.
        {"vertical overlap", L(0, 0, 0, 2), L(0, 1, 0, 3), false, P(9, 9)},
        {"horizontal overlap", L(0, 0, 2, 0), L(1, 0, 3, 0), false, P(9, 9)},
        {"horizontal end to end", L(0, 0, 2, 0), L(2, 0, 3, 0), false, P(9, 9)},
    };
    for (const auto& c : cases) {
        PointRec out = P(9, 9);
        EXPECT_EQ(Lines_Cross(c.a, c.b, out), c.cross) << c.what;
        if (c.cross || c.at.X == 9) {
            EXPECT_FLOAT_EQ(out.X, c.at.X) << c.what;
            EXPECT_FLOAT_EQ(out.Y, c.at.Y) << c.what;
        }
    }
}

TEST(Geometry, IntersectionsOfABoxAndFindingThem) {
    LineTable box = {L(0, 0, 2, 0), L(2, 0, 2, 2), L(2, 2, 0, 2), L(0, 2, 0, 0)};
    PointTable result;
    bool flag = false;
    int yields = 0;
    Build_Intersections(box, result, flag, [&] { ++yields; });
    ASSERT_EQ(result.size(), 4u);  // the four corners, the parallel pairs do not count
    for (const auto& p : result) EXPECT_EQ(p.Flag, -1);
    EXPECT_TRUE(flag);
    EXPECT_EQ(yields, 0) << "a small search runs through";

    // No crossing: a blank table comes back, the flag is left as it was.
    Build_Intersections({L(0, 0, 1, 0), L(0, 5, 1, 5)}, result, flag);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].Flag, 0);
    EXPECT_TRUE(flag);

    LayoutDocument doc;
    PointRec hit;
    doc.Intersections = {P(1, 1), P(2, 2)};
    doc.Intersections[1].Flag = -1;
    EXPECT_FALSE(Find_Intersection(doc, 1.0f, 1.0f, 0.1f, hit));  // flag false
    EXPECT_TRUE(Find_Intersection(doc, 2.05f, 2.05f, 0.1f, hit));
    EXPECT_EQ(hit.X, 2.0f);
    EXPECT_FALSE(Find_Intersection(doc, 2.1f, 2.1f, 0.1f, hit));
}

// The pruned search finds what testing every pair finds, in the same order,
// up to a full table; a change that comes in while it lets events run wins.
TEST(Geometry, CrossingsAreThoseOfEveryPairInOrder) {
    std::mt19937 rng(27);
    const auto coarse = [&] { return static_cast<float>(rng() % 9) * 0.5f; };  // ties, shared ends, parallels
    LineTable lattice, grid, hatch;
    for (int i = 0; i < 200; ++i) lattice.push_back(L(coarse(), coarse(), coarse(), coarse()));
    for (int k = 0; k < 200; ++k) {  // 40,000 crossings: more than the table holds
        grid.push_back(L(0, static_cast<float>(k), 199, static_cast<float>(k)));
        grid.push_back(L(static_cast<float>(k), 0, static_cast<float>(k), 199));
    }
    for (int k = 0; k < 300; ++k) hatch.push_back(L(-1, -1 + k * 0.01f, 1, 1 + k * 0.01f));  // parallel through x = 0
    for (const LineTable* t : {&lattice, &grid, &hatch}) {
        PointTable want, got;
        bool wantFlag = false, gotFlag = false;
        reference::AllPairsCrossings(*t, want, wantFlag);
        Build_Intersections(*t, got, gotFlag);
        ASSERT_EQ(got.size(), want.size());
        for (size_t k = 0; k < want.size(); ++k)
            ASSERT_TRUE(got[k].X == want[k].X && got[k].Y == want[k].Y && got[k].Flag == want[k].Flag) << k;
        EXPECT_EQ(gotFlag, wantFlag);
    }

    PointTable result;
    bool flag = false;
    int yields = 0;
    Build_Intersections(grid, result, flag, [&] {
        if (yields++ == 0) Build_Intersections({L(0, 0, 2, 2), L(0, 2, 2, 0)}, result, flag);
    });
    EXPECT_GT(yields, 0);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].X, 1.0f);
}

TEST(Geometry, FindLineUsesPathSlack) {
    EXPECT_FALSE(Find_Line(BlankLines(), 0, 0, 1.0f).Found);
    LineTable t = {L(0, 0, 4, 0), L(0, 0, 4, 0), L(0, 1, 4, 1)};
    HoverRec h = Find_Line(t, 2.0f, 0.1f, 0.01f);
    EXPECT_TRUE(h.Found);
    EXPECT_EQ(h.Index, 0);  // of two overlapping lines the earlier row wins
    h = Find_Line(t, 2.0f, 0.95f, 0.01f);
    EXPECT_EQ(h.Index, 2);
    EXPECT_EQ(h.Line.StartPt.Y, 1.0f);
    // The zone is narrow beyond the ends: 0.1 past the end is 0.2 of slack.
    EXPECT_FALSE(Find_Line(t, 4.1f, 0.0f, 0.1f).Found);
    // Rows that do not exist are not tested.
    t[0].Exists = t[1].Exists = 0;
    EXPECT_FALSE(Find_Line(t, 2.0f, 0.0f, 0.01f).Found);
}

TEST(Measures, BoundsTotalsAndCentroids) {
    LayoutDocument doc;
    bool found = true;
    float v = 7.0f;
    Bound_MinX(doc, found, v);
    EXPECT_FALSE(found);
    EXPECT_EQ(Min_X(doc.Lines, found), 0.0f);
    EXPECT_FALSE(found);

    doc.Lines = {L(1, 2, 3, 2), L(3, 2, 3, 6)};
    EXPECT_EQ(Min_X(doc.Lines, found), 1.0f);
    EXPECT_EQ(Max_Y(doc.Lines, found), 6.0f);
    EXPECT_TRUE(found);

    // Dimensions widen the bounds; alone they still give one.
    doc.Dims = {Dim(0.5f, 2, 3, 2, 2, 7)};
    Bound_MinX(doc, found, v);
    EXPECT_TRUE(found);
    EXPECT_EQ(v, 0.5f);
    Bound_MaxY(doc, found, v);
    EXPECT_EQ(v, 7.0f);
    LayoutDocument dimsOnly;
    dimsOnly.Dims = doc.Dims;
    Bound_MaxX(dimsOnly, found, v);
    EXPECT_TRUE(found);
    EXPECT_EQ(v, 3.0f);

    // Weights 2 and 4: x = (2*2 + 3*4) / 6, y = (2*2 + 4*4) / 6.
    EXPECT_DOUBLE_EQ(Centroid_X(doc.Lines), 16.0 / 6.0);
    EXPECT_DOUBLE_EQ(Centroid_Y(doc.Lines), 20.0 / 6.0);
    EXPECT_EQ(Centroid_X(BlankLines()), 0.0);
    EXPECT_DOUBLE_EQ(Line_Total(doc, doc.Lines), 6.0);
}

TEST(Zoom, FactorMovesWorldPositionsKeepsLengthsAndItsInverseReturns) {
    LayoutDocument doc = Drawn({{0.5, 0.5, 4, 3}, {1, 1, 4, 5}});
    doc.Dims = {Dim(1, 1, 2, 1, 1.5f, 0.5f)};
    const LayoutDocument before = doc;
    Zoom_Factor(doc, 0.95f);
    const LineRec& l = doc.Lines[1];
    const double len = std::hypot(To_WorldX(doc, l.EndPt.X) - To_WorldX(doc, l.StartPt.X),
                                  To_WorldY(doc, l.EndPt.Y) - To_WorldY(doc, l.StartPt.Y));
    EXPECT_NEAR(len, 5.0, 1e-5);
    // The origin is not rescaled, so positions in the world move.
    EXPECT_GT(std::fabs(To_WorldY(doc, l.StartPt.Y) - To_WorldY(before, before.Lines[1].StartPt.Y)), 1e-3);
    Zoom_Factor(doc, 1.0f / 0.95f);
    for (size_t i = 0; i < doc.Lines.size(); ++i) {
        EXPECT_NEAR(doc.Lines[i].StartPt.X, before.Lines[i].StartPt.X, 1e-5);
        EXPECT_NEAR(doc.Lines[i].EndPt.Y, before.Lines[i].EndPt.Y, 1e-5);
        EXPECT_NEAR(doc.Lines[i].MidPt.X, before.Lines[i].MidPt.X, 1e-5);
    }
    EXPECT_NEAR(doc.Dims[0].DimPos.Y, before.Dims[0].DimPos.Y, 1e-5);
    EXPECT_NEAR(doc.ZoomScale, 1.0f, 1e-6);
}

TEST(Zoom, PanKeepsWorldCoordinates) {
    LayoutDocument doc = Drawn({{0.25, 0.5, 3, 2}, {2, 0, 2, 4}});
    doc.Dims = {Dim(1, 1, 2, 1, 1.5f, 0.5f)};
    std::vector<float> world;
    auto record = [&](const LayoutDocument& d) {
        std::vector<float> w;
        for (const auto& l : d.Lines)
            w.insert(w.end(), {To_WorldX(d, l.StartPt.X), To_WorldY(d, l.StartPt.Y), To_WorldX(d, l.EndPt.X),
                               To_WorldY(d, l.EndPt.Y)});
        return w;
    };
    world = record(doc);
    Pan_Board(doc, 0.5, -0.25);
    EXPECT_EQ(record(doc), world);
    EXPECT_EQ(doc.Dims[0].DimPos.X, 2.0f);
}

TEST(Zoom, WindowCentersTheBoxAndRepaintsInOrder) {
    LayoutDocument doc = Drawn({{1, 1, 2, 1}});
    std::vector<std::string> calls;
    bool autoRedraw = false;
    RepaintHooks hooks;
    hooks.Draw_Lines = [&] { calls.push_back("lines"); };
    hooks.Draw_Dims = [&] { calls.push_back("dims"); };
    hooks.Clear_Board = [&] { calls.push_back("clear"); };
    hooks.Set_AutoRedraw = [&](bool on) {
        calls.push_back(on ? "auto on" : "auto off");
        return std::exchange(autoRedraw, on);
    };
    const LineRec l = doc.Lines[0];
    Zoom_Window(doc, P(l.StartPt.X, 0), P(l.EndPt.X, 0), hooks);  // h = 0: fit the width
    EXPECT_EQ(calls, (std::vector<std::string>{"auto on", "clear", "lines", "dims", "auto off"}));
    EXPECT_FLOAT_EQ(doc.ZoomScale, static_cast<float>(doc.ScaleWidth));
    EXPECT_FLOAT_EQ(doc.Lines[0].MidPt.X, static_cast<float>(doc.ScaleWidth / 2));
    EXPECT_NEAR(Line_Total(doc, doc.Lines), 1.0, 1e-6);

    calls.clear();
    Zoom_Window(doc, P(1, 1), P(1, 1), hooks);  // no box: nothing happens
    EXPECT_TRUE(calls.empty());
}

TEST(Zoom, FitToExtents) {
    LayoutDocument empty;
    EXPECT_FALSE(Zoom_Fit(empty, 0.925f));

    LayoutDocument doc = Drawn({{0, 0, 10, 0}, {0, 0, 0, 4}});
    ASSERT_TRUE(Zoom_Fit(doc, 0.925f));
    bool found = false;
    EXPECT_NEAR(Max_X(doc.Lines, found) - Min_X(doc.Lines, found), doc.ScaleWidth * 0.925, 1e-4);
    EXPECT_NEAR((Max_Y(doc.Lines, found) + Min_Y(doc.Lines, found)) / 2, doc.ScaleHeight / 2, 1e-4);
    EXPECT_NEAR(Line_Total(doc, doc.Lines), 14.0, 1e-4);

    // A lone point collapses everything onto the center, quietly.
    LayoutDocument dot = Drawn({{1, 1, 1, 1}});
    ASSERT_TRUE(Zoom_Fit(dot, 0.925f));
    EXPECT_EQ(dot.ZoomScale, 0.0f);
    EXPECT_FLOAT_EQ(dot.Lines[0].StartPt.X, static_cast<float>(dot.ScaleWidth / 2));
    EXPECT_EQ(To_WorldX(dot, 1.0), 0.0f);
}

TEST(WholeDrawing, ShiftAndScaleKeepMidpoints) {
    LineTable t = {L(1, 1, 3, 5)};
    bool ok = false;
    int yields = 0;
    Shift_Lines(t, 1.0, -1.0, ok, [&] { ++yields; });
    EXPECT_TRUE(ok);
    EXPECT_EQ(yields, 1);
    EXPECT_EQ(t[0].StartPt.X, 2.0f);
    EXPECT_EQ(t[0].MidPt.Y, 2.0f);
    ok = false;
    Scale_Lines(t, 2.0f, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(t[0].EndPt.X, 8.0f);
    EXPECT_EQ(t[0].MidPt.X, 6.0f);
    EXPECT_EQ(t[0].MidPt.Y, 4.0f);
    // An overflowing shift leaves the coordinate as it was.
    Shift_Lines(t, 1e300, 0.0, ok);
    EXPECT_EQ(t[0].StartPt.X, 4.0f);
}
