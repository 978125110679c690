#include <gtest/gtest.h>

#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"
#include "board/core/SnapSearch.h"

using namespace Viewport;
using namespace boardtest;

namespace {

const std::string kCases = FERROLITH_TEST_DATA "/board_cases.table";

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

PointRec At(const std::vector<double>& v) { return P(static_cast<float>(v[0]), static_cast<float>(v[1])); }

TEST(Snap, PicksOnOneLayout) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(3.03f, 1, 3.03f, 3), L(2, -1, 2, 2), L(5, 0, 9, 4),
                                        L(10, 1, 12, 1), L(12.04f, 0, 12.04f, 4)});
    for (const casetable::Row& c : casetable::Read(kCases, "snap picks")) {
        const PointRec at = At(c.Nums(1)), want = At(c.Nums(5));
        PointRec out;
        EXPECT_EQ(Snap_Point(doc, at.X, at.Y, static_cast<int16_t>(c.Num(2)), out, At(c.Nums(3))), c[4] == "yes") << c[0];
        EXPECT_NEAR(out.X, want.X, 1e-5) << c[0];
        EXPECT_NEAR(out.Y, want.Y, 1e-5) << c[0];
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
    for (const casetable::Row& c : casetable::Read(kCases, "ortho")) {
        const std::vector<double> p = c.Nums(0), want = c.Nums(1);
        PointRec out;
        Ortho_Point(P(0, 0), p[0], p[1], true, out);
        EXPECT_DOUBLE_EQ(out.X, want[0]) << c.line;
        EXPECT_DOUBLE_EQ(out.Y, want[1]) << c.line;
        Ortho_Point(P(0, 0), p[0], p[1], false, out);
        EXPECT_DOUBLE_EQ(out.X, p[0]);
    }
}

// The captions as users have always seen them, the misspelt one included.
TEST(Snap, Captions) {
    EXPECT_EQ(Snap_ButtonCaption(5), "Perpedicular");
    EXPECT_EQ(Snap_MenuCaption(0), "Free Snap   ");
    EXPECT_EQ(Snap_Label(9), "");
}

}  // namespace
