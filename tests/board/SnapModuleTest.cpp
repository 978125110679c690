#include <gtest/gtest.h>

#include "BoardTestDoc.h"
#include "board/SnapModule.h"

using namespace CartesianModule;
using namespace boardtest;

namespace {

// A horizontal line from (1, 1) to (3, 1): half-length 1, middle (2, 1).
LayoutDocument OneLine() { return DocWith({L(1, 1, 3, 1)}); }

struct LineSnapCase {
    int16_t mode;
    float tolerance;
    float expectX, expectY;  // where a hit lands for the pointer above the middle
    bool landsOnPointer;
};

class LineSnaps : public testing::TestWithParam<LineSnapCase> {};

TEST_P(LineSnaps, HitsWithinTheSlackAndMissesJustBeyond) {
    const LineSnapCase c = GetParam();
    const LayoutDocument doc = OneLine();
    const PointRec base = P(2.5f, -4.0f);

    const float inY = static_cast<float>(1.0 + OffsetForSlack(1.0, c.tolerance * 0.98));
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 2.0f, inY, c.mode, out, base));
    if (c.landsOnPointer) {
        EXPECT_FLOAT_EQ(out.X, 2.0f);
        EXPECT_FLOAT_EQ(out.Y, inY);
    } else {
        EXPECT_FLOAT_EQ(out.X, c.expectX);
        EXPECT_FLOAT_EQ(out.Y, c.expectY);
    }

    const float outY = static_cast<float>(1.0 + OffsetForSlack(1.0, c.tolerance * 1.02));
    EXPECT_FALSE(Snap_Point(doc, 2.0f, outY, c.mode, out, base));
    EXPECT_FLOAT_EQ(out.X, 2.0f);  // a miss leaves the pointer
    EXPECT_FLOAT_EQ(out.Y, outY);
}

INSTANTIATE_TEST_SUITE_P(
    Snap, LineSnaps,
    testing::Values(LineSnapCase{SnapKind::EndPoint, SnapTolerance::EndLine, 3, 1, false},  // a tie takes EndPt
                    LineSnapCase{SnapKind::MidPoint, SnapTolerance::MidPoint, 2, 1, false},
                    LineSnapCase{SnapKind::Nearest, SnapTolerance::Nearest, 0, 0, true},
                    LineSnapCase{SnapKind::Perpendicular, SnapTolerance::Perpendicular, 2.5f, 1, false}));

TEST(Snap, FreeSnapNeverFindsAnything) {
    const LayoutDocument doc = OneLine();
    PointRec out;
    EXPECT_FALSE(Snap_Point(doc, 1.0f, 1.0f, SnapKind::Free, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 1.0f);
}

TEST(Snap, EndPointOnALineTakesTheNearerEnd) {
    const LayoutDocument doc = OneLine();
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 1.4f, 1.0f, SnapKind::EndPoint, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 1.0f);
    ASSERT_TRUE(Snap_Point(doc, 2.6f, 1.0f, SnapKind::EndPoint, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 3.0f);
}

TEST(Snap, EndPointBesideAllLinesReachesAnEndWithinItsDistance) {
    const LayoutDocument doc = OneLine();
    PointRec out;
    // Straight above the start: far too much slack for the line test.
    ASSERT_TRUE(Snap_Point(doc, 1.0f, 1.0f - 0.049f, SnapKind::EndPoint, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 1.0f);
    EXPECT_FLOAT_EQ(out.Y, 1.0f);
    EXPECT_FALSE(Snap_Point(doc, 1.0f, 1.0f - 0.051f, SnapKind::EndPoint, out, P(0, 0)));
}

TEST(Snap, EndPointTakesTheFirstRowInReachNotTheNearest) {
    // Row 0 ends at (3, 1); row 1 starts at (3.03, 1.0) beside it.
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(3.03f, 1.0f, 3.03f, 3.0f)});
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 3.04f, 0.99f, SnapKind::EndPoint, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 3.0f);  // row 0, though row 1's start is nearer
}

TEST(Snap, EndPointPrefersTheLineUnderThePointerToACloserEnd) {
    // Row 0 ends at (2, 1); the pointer is on row 1, 0.04 from row 0's end.
    const LayoutDocument doc = DocWith({L(0, 1, 2, 1), L(2.04f, 0.0f, 2.04f, 4.0f)});
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 2.04f, 1.0f, SnapKind::EndPoint, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 2.04f);
    EXPECT_FLOAT_EQ(out.Y, 0.0f);  // the nearer end of row 1
}

TEST(Snap, IntersectionWithinItsDistance) {
    const LayoutDocument doc = DocWith({L(1, 2, 5, 2), L(3, 0, 3, 4)});
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 3.0f + 0.099f, 2.0f, SnapKind::Intersection, out, P(0, 0)));
    EXPECT_FLOAT_EQ(out.X, 3.0f);
    EXPECT_FLOAT_EQ(out.Y, 2.0f);
    EXPECT_FALSE(Snap_Point(doc, 3.0f + 0.101f, 2.0f, SnapKind::Intersection, out, P(0, 0)));
}

TEST(Snap, PerpendicularOnASlopedLine) {
    const LayoutDocument doc = DocWith({L(0, 0, 4, 4)});
    PointRec out;
    ASSERT_TRUE(Snap_Point(doc, 2.0f, 2.0f, SnapKind::Perpendicular, out, P(4, 0)));
    EXPECT_NEAR(out.X, 2.0f, 1e-5);
    EXPECT_NEAR(out.Y, 2.0f, 1e-5);
    ASSERT_TRUE(Snap_Point(doc, 1.0f, 1.0f, SnapKind::Perpendicular, out, P(0, 2)));
    EXPECT_NEAR(out.X, 1.0f, 1e-5);
    EXPECT_NEAR(out.Y, 1.0f, 1e-5);
}

TEST(Snap, PerpendicularRunsFreeWithoutABase) {
    EXPECT_EQ(Effective_SnapMode(SnapKind::Perpendicular, false), SnapKind::Free);
    EXPECT_EQ(Effective_SnapMode(SnapKind::Perpendicular, true), SnapKind::Perpendicular);
    EXPECT_EQ(Effective_SnapMode(SnapKind::EndPoint, false), SnapKind::EndPoint);
}

TEST(Snap, EmptyBoardFindsNothing) {
    const LayoutDocument doc;
    PointRec out;
    for (int16_t mode = 0; mode <= 5; ++mode) EXPECT_FALSE(Snap_Point(doc, 0, 0, mode, out, P(0, 0))) << mode;
}

TEST(Ortho, PullsOntoTheNearerAxisAndKeepsTheDiagonal) {
    struct Case {
        double x, y, ex, ey;
    };
    const Case cases[] = {{3, 1, 3, 0}, {1, 3, 0, 3}, {-3, 1, -3, 0}, {1, -3, 0, -3}, {2, 2, 2, 2}, {-2, 2, -2, 2}};
    for (const Case& c : cases) {
        PointRec out;
        Ortho_Point(P(0, 0), c.x, c.y, true, out);
        EXPECT_DOUBLE_EQ(out.X, c.ex) << c.x << "," << c.y;
        EXPECT_DOUBLE_EQ(out.Y, c.ey) << c.x << "," << c.y;
        Ortho_Point(P(0, 0), c.x, c.y, false, out);
        EXPECT_DOUBLE_EQ(out.X, c.x);
        EXPECT_DOUBLE_EQ(out.Y, c.y);
    }
}

TEST(Snap, LabelsAndStatus) {
    EXPECT_EQ(Snap_Label(0), "");
    EXPECT_EQ(Snap_Label(1), "End");
    EXPECT_EQ(Snap_Label(3), "Near");
    EXPECT_EQ(Snap_Label(5), "Perpendicular");
    EXPECT_EQ(Snap_Label(9), "");
    EXPECT_EQ(Snap_ButtonCaption(5), "Perpedicular");
    EXPECT_EQ(Snap_MenuCaption(0), "Free Snap   ");
    EXPECT_EQ(Snap_Status(true, 2), "  Mid Snap Point found !");
    EXPECT_EQ(Snap_Status(false, 2), "");
    const LayoutDocument doc;
    EXPECT_EQ(Coordinate_Status(doc, 1.5, doc.ScaleHeight - 2.25), "  X = 1.50000,   Y = 2.25000");
}

}  // namespace
