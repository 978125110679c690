#include <gtest/gtest.h>

#include "support/BoardTestDoc.h"
#include "board/core/SnapSearch.h"

using namespace Viewport;
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

TEST(Snap, PicksOnOneLayout) {
    // Row 0 from (1, 1) to (3, 1); row 1 starts at (3.03, 1) beside its end;
    // row 2 crosses row 0 at (2, 1); row 3 is sloped; row 5 passes 0.04 from
    // row 4's end at (12, 1).
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(3.03f, 1, 3.03f, 3), L(2, -1, 2, 2), L(5, 0, 9, 4),
                                        L(10, 1, 12, 1), L(12.04f, 0, 12.04f, 4)});
    struct Case {
        const char* what;
        float x, y;
        int16_t mode;
        PointRec base;
        bool hit;
        float ex, ey;  // where a hit lands; a miss leaves the pointer
    } cases[] = {
        {"free never snaps", 1, 1, SnapKind::Free, P(0, 0), false, 1, 1},
        {"end: the nearer end of the line", 1.4f, 1, SnapKind::EndPoint, P(0, 0), true, 1, 1},
        {"end: the other end", 2.6f, 1, SnapKind::EndPoint, P(0, 0), true, 3, 1},
        // Straight above the start: far too much slack for the line test, but within an end's reach.
        {"end: beside all lines", 1, 1 - 0.049f, SnapKind::EndPoint, P(0, 0), true, 1, 1},
        {"end: just out of reach", 1, 1 - 0.051f, SnapKind::EndPoint, P(0, 0), false, 1, 1 - 0.051f},
        {"end: the first row in reach, not the nearest", 3.04f, 0.99f, SnapKind::EndPoint, P(0, 0), true, 3, 1},
        {"end: the line under the pointer wins over a closer end", 12.04f, 1, SnapKind::EndPoint, P(0, 0), true, 12.04f,
         0},
        {"intersection within reach", 2.099f, 1, SnapKind::Intersection, P(0, 0), true, 2, 1},
        {"intersection just beyond", 2.101f, 1.0f, SnapKind::Intersection, P(0, 0), false, 2.101f, 1},
        {"perpendicular on a sloped line", 7, 2, SnapKind::Perpendicular, P(9, 0), true, 7, 2},
        {"perpendicular from the other side", 6, 1, SnapKind::Perpendicular, P(5, 2), true, 6, 1},
    };
    for (const Case& c : cases) {
        PointRec out;
        EXPECT_EQ(Snap_Point(doc, c.x, c.y, c.mode, out, c.base), c.hit) << c.what;
        EXPECT_NEAR(out.X, c.ex, 1e-5) << c.what;
        EXPECT_NEAR(out.Y, c.ey, 1e-5) << c.what;
    }
    for (int16_t mode = 0; mode <= 5; ++mode) {
        PointRec out;
        EXPECT_FALSE(Snap_Point(LayoutDocument{}, 0, 0, mode, out, P(0, 0))) << "empty board, mode " << mode;
    }
}

TEST(Snap, PerpendicularRunsFreeWithoutABase) {
    EXPECT_EQ(Effective_SnapMode(SnapKind::Perpendicular, false), SnapKind::Free);
    EXPECT_EQ(Effective_SnapMode(SnapKind::Perpendicular, true), SnapKind::Perpendicular);
    EXPECT_EQ(Effective_SnapMode(SnapKind::EndPoint, false), SnapKind::EndPoint);
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
