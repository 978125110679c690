#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "board/core/Viewport.h"
#include "support/AllPairsCrossings.h"
#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"

using namespace Layout;
using namespace Viewport;
using namespace boardtest;

namespace {
const std::string kCases = FERROLITH_TEST_DATA "/board_cases.table";
LineRec Line(const std::vector<double>& v) {
    return L(static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2]), static_cast<float>(v[3]));
}
}  // namespace

TEST(Viewport, WorldOriginAtLowerLeftAndZeroScaleFailsToZero) {
    LayoutDocument doc;
    Set_Viewport(doc);
    EXPECT_EQ(To_WorldY(doc, doc.ScaleHeight), 0.0f);
    EXPECT_FLOAT_EQ(To_BoardY(doc, 1.0), static_cast<float>(doc.ScaleHeight - 1.0));
    doc.ZoomScale = 0.0f;
    EXPECT_TRUE(To_WorldX(doc, 3.0) == 0.0f && To_WorldY(doc, 3.0) == 0.0f);
}

// The order of the rows and the blank table are kept by the board's deletes
// (board_modes.script); here the ends of a table.
TEST(Tables, SlotsAndDeletionAtTheEndsOfATable) {
    LineTable t = BlankLines();
    EXPECT_FALSE(Has_Line(t));
    ASSERT_TRUE(Add_Line_Slot(t));  // the first slot is the blank row itself
    EXPECT_EQ(t.size(), 1u);
    Delete_Line(t, 7);  // outside the table: nothing happens
    EXPECT_EQ(t.size(), 1u);
    // Slots stop at the 16-bit index limit.
    t.assign(kMaxTableRows, L(0, 0, 1, 1));
    EXPECT_FALSE(Add_Line_Slot(t));
    EXPECT_EQ(Line_Count(t), 32767);
}

TEST(Geometry, LineKindAndPerpendicularFoot) {
    for (const casetable::Row& c : casetable::Read(kCases, "perpendicular feet")) {
        const LineRec l = Line(c.Nums(0));
        EXPECT_EQ(Line_Kind(l), c.Num(1));
        const std::vector<double> p = c.Nums(2), foot = c.Nums(3);
        PointRec out;
        EXPECT_TRUE(Perpendicular_Foot(l, P(static_cast<float>(p[0]), static_cast<float>(p[1])), out));
        EXPECT_FLOAT_EQ(out.X, static_cast<float>(foot[0])) << c.line;
        EXPECT_FLOAT_EQ(out.Y, static_cast<float>(foot[1])) << c.line;
    }
    EXPECT_EQ(Line_Kind(L(3, 3, 3, 3)), 1);  // a point is vertical
}

TEST(Geometry, LinesCross) {
    for (const casetable::Row& c : casetable::Read(kCases, "lines cross")) {
        PointRec out = P(9, 9);
        EXPECT_EQ(Lines_Cross(Line(c.Nums(1)), Line(c.Nums(2)), out), c[3] == "yes") << c[0];
        if (c[4] == "-") continue;
        EXPECT_FLOAT_EQ(out.X, static_cast<float>(c.Nums(4)[0])) << c[0];
        EXPECT_FLOAT_EQ(out.Y, static_cast<float>(c.Nums(4)[1])) << c[0];
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
    EXPECT_TRUE(flag && yields == 0) << "a small search runs through";

    // No crossing: a blank table comes back, the flag is left as it was.
    Build_Intersections({L(0, 0, 1, 0), L(0, 5, 1, 5)}, result, flag);
    EXPECT_TRUE(result.size() == 1u && result[0].Flag == 0 && flag);
    // Only a flagged entry is a crossing.
    LayoutDocument doc;
    doc.Intersections = {P(1, 1)};
    PointRec hit;
    EXPECT_FALSE(Find_Intersection(doc, 1.0f, 1.0f, 0.1f, hit));
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
    LineTable t = {L(0, 0, 4, 0), L(0, 0, 4, 0), L(0, 1, 4, 1)};
    EXPECT_EQ(Find_Line(t, 2.0f, 0.1f, 0.01f).Index, 0);  // of two overlapping lines the earlier row wins
    EXPECT_EQ(Find_Line(t, 2.0f, 0.95f, 0.01f).Line.StartPt.Y, 1.0f);
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
    doc.Lines = {L(1, 2, 3, 2), L(3, 2, 3, 6)};
    EXPECT_EQ(Max_Y(doc.Lines, found), 6.0f);

    // Dimensions widen the bounds, DimPos included; alone they still give one.
    doc.Dims = {Dim(0.5f, 2, 3, 2, 2, 7), Dim(-9, -9, 9, 9, 9, 9, false)};
    Bound_MinX(doc, found, v);
    EXPECT_TRUE(found && v == 0.5f);
    Bound_MaxY(doc, found, v);
    EXPECT_EQ(v, 7.0f);
    LayoutDocument dimsOnly;
    dimsOnly.Dims = doc.Dims;
    Bound_MaxX(dimsOnly, found, v);
    EXPECT_TRUE(found && v == 3.0f);

    // Weights 2 and 4: x = (2*2 + 3*4) / 6, y = (2*2 + 4*4) / 6.
    EXPECT_DOUBLE_EQ(Centroid_X(doc.Lines), 16.0 / 6.0);
    EXPECT_DOUBLE_EQ(Centroid_Y(doc.Lines), 20.0 / 6.0);
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
    EXPECT_NEAR(doc.Lines[1].EndPt.Y, before.Lines[1].EndPt.Y, 1e-5);
    EXPECT_NEAR(doc.Lines[1].MidPt.X, before.Lines[1].MidPt.X, 1e-5);
    EXPECT_NEAR(doc.Dims[0].DimPos.Y, before.Dims[0].DimPos.Y, 1e-5);
    EXPECT_NEAR(doc.ZoomScale, 1.0f, 1e-6);
    // An overflowing shift leaves the coordinate as it was.
    bool ok = false;
    Shift_Lines(doc.Lines, 1e300, 0.0, ok);
    EXPECT_NEAR(doc.Lines[0].StartPt.X, before.Lines[0].StartPt.X, 1e-5);
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
