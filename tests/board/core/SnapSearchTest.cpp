#include <gtest/gtest.h>

#include "board/core/SelectionCommands.h"
#include "board/core/SnapSearch.h"
#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"

using namespace Viewport;
using namespace boardtest;

namespace {

const std::string kCases = FERROLITH_TEST_DATA "/board_cases.table";

PointRec At(const std::vector<double>& v) { return P(static_cast<float>(v[0]), static_cast<float>(v[1])); }

// A tie of the two ends takes EndPt; a perpendicular drops from (2.5, -4).
TEST(Snap, LineSnapsHitWithinTheSlackAndMissJustBeyond) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    for (const casetable::Row& c : casetable::Read(kCases, "line snaps")) {
        const auto mode = static_cast<int16_t>(c.Num(0));
        const float in = static_cast<float>(1.0 + OffsetForSlack(1.0, c.Num(1) * 0.98));
        const float out = static_cast<float>(1.0 + OffsetForSlack(1.0, c.Num(1) * 1.02));
        PointRec at;
        ASSERT_TRUE(Snap_Point(doc, 2.0f, in, mode, at, P(2.5f, -4.0f))) << mode;
        const PointRec want = c[2] == "pointer" ? P(2, in) : At(c.Nums(2));
        EXPECT_TRUE(at.X == want.X && at.Y == want.Y) << mode;
        EXPECT_FALSE(Snap_Point(doc, 2.0f, out, mode, at, P(2.5f, -4.0f))) << mode;
        EXPECT_TRUE(at.X == 2.0f && at.Y == out) << "a miss leaves the pointer";
    }
}

TEST(Snap, PicksOnOneLayout) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(3.03f, 1, 3.03f, 3), L(2, -1, 2, 2), L(5, 0, 9, 4),
                                        L(10, 1, 12, 1), L(12.04f, 0, 12.04f, 4)});
    for (const casetable::Row& c : casetable::Read(kCases, "snap picks")) {
        const PointRec at = At(c.Nums(1)), want = At(c.Nums(5));
        PointRec out;
        EXPECT_EQ(Snap_Point(doc, at.X, at.Y, static_cast<int16_t>(c.Num(2)), out, At(c.Nums(3))), c[4] == "yes")
            << c[0];
        EXPECT_NEAR(out.X, want.X, 1e-5) << c[0];
        EXPECT_NEAR(out.Y, want.Y, 1e-5) << c[0];
    }
    PointRec out;
    for (int16_t mode = 0; mode <= 5; ++mode) EXPECT_FALSE(Snap_Point({}, 0, 0, mode, out, {})) << "empty, " << mode;
}

TEST(Snap, HoverPicksWithTheWiderReachInSelection) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    const float y = static_cast<float>(1.0 + OffsetForSlack(1.0, 0.002));
    EXPECT_TRUE(Selection::Hover_Line(doc, 2, y, true).Found);
    EXPECT_FALSE(Selection::Hover_Line(doc, 2, y, false).Found);
}

TEST(Snap, PerpendicularRunsFreeWithoutABase) {
    EXPECT_TRUE(Effective_SnapMode(SnapKind::Perpendicular, false) == SnapKind::Free &&
                Effective_SnapMode(SnapKind::Perpendicular, true) == SnapKind::Perpendicular &&
                Effective_SnapMode(SnapKind::EndPoint, false) == SnapKind::EndPoint);
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
