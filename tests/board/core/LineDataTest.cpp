#include <gtest/gtest.h>

#include "board/core/LineData.h"
#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"

using namespace LineData;
using namespace boardtest;

namespace {

constexpr double kEps = 1e-4;

// A horizontal line of 2 inches from (1, 3) to (3, 3) at the start viewport.
LayoutDocument Horizontal() { return DocWith({L(1, 3, 3, 3)}); }

TEST(LineData, ApplyMovesTheEndsAboutTheBasePoint) {
    for (const casetable::Row& c : casetable::Read(FERROLITH_TEST_DATA "/board_cases.table", "line data")) {
        SCOPED_TRACE(c.line);
        LayoutDocument doc = Horizontal();
        const ApplyResult r = Apply_LineData(doc, 0, c[0], c[1], static_cast<int16_t>(c.Num(2)));
        EXPECT_TRUE(r.Changed && !r.Refused);
        const auto& row = doc.Lines[0];
        const std::vector<double> s = c.Nums(3), e = c.Nums(4);
        EXPECT_NEAR(row.StartPt.X, s[0], kEps);
        EXPECT_NEAR(row.StartPt.Y, s[1], kEps);
        EXPECT_NEAR(row.EndPt.X, e[0], kEps);
        EXPECT_NEAR(row.EndPt.Y, e[1], kEps);
        EXPECT_NEAR(row.MidPt.X, (s[0] + e[0]) / 2, kEps);
        EXPECT_NEAR(row.MidPt.Y, (s[1] + e[1]) / 2, kEps);
        EXPECT_NE(row.Selected, 0);
        EXPECT_EQ(row.Length, 0.0);  // the stored length is not refreshed
    }
}

TEST(LineData, BoxesAreRewrittenInFeetAndInchesAndTheAngleNormalised) {
    LayoutDocument doc = Horizontal();
    EXPECT_EQ(Apply_LineData(doc, 0, " 5'-3 1/2\" ", "", 0).LenBoxText, "5'-3 1/2\"");
    doc = Horizontal();
    EXPECT_EQ(Apply_LineData(doc, 0, "", "400.25", 0).RotBoxText, "40.25");
    EXPECT_NEAR(doc.Lines[0].EndPt.Y, 3 - 2 * std::sin(40.25 * 3.14159265358979 / 180), kEps);
}

TEST(LineData, RefusedLengthLeavesEverythingAloneAndEmptyBoxesOnlyRedisplay) {
    for (const char* bad : {"5FT", "5-3", "abc", "1/0"}) {
        LayoutDocument doc = Horizontal();
        const ApplyResult r = Apply_LineData(doc, 0, bad, "90", 0);
        EXPECT_TRUE(r.Refused && !r.Changed) << bad;
        EXPECT_EQ(r.LenBoxText, bad);
        EXPECT_EQ(r.RotBoxText, "90");
        EXPECT_FLOAT_EQ(doc.Lines[0].EndPt.Y, 3);
        EXPECT_EQ(doc.Lines[0].Selected, 0);
    }
    LayoutDocument doc = Horizontal();
    const ApplyResult r = Apply_LineData(doc, 0, "  ", "", 1);
    EXPECT_FALSE(r.Refused || r.Changed);
}

TEST(LineData, ZoomedDegenerateAndOutsideRows) {
    LayoutDocument doc = Horizontal();
    doc.ZoomScale = 2;  // a length follows the zoom
    Apply_LineData(doc, 0, "10", "", BasePoint::Start);
    EXPECT_NEAR(doc.Lines[0].EndPt.X, 21, kEps);
    // A line of no length keeps its place; huge values leave a line finite.
    LayoutDocument dot = DocWith({L(2, 2, 2, 2)});
    EXPECT_FALSE(Apply_LineData(dot, 0, "10", "45", BasePoint::Start).Refused);
    EXPECT_TRUE(dot.Lines[0].EndPt.X == 2 && dot.Lines[0].EndPt.Y == 2 && std::isfinite(dot.Lines[0].MidPt.X));
    Apply_LineData(doc, 0, "1E300", "1E300", BasePoint::Mid);
    Apply_LineData(doc, 0, "", "1E999", BasePoint::End);
    for (float v : {doc.Lines[0].StartPt.X, doc.Lines[0].StartPt.Y, doc.Lines[0].EndPt.X, doc.Lines[0].EndPt.Y})
        EXPECT_TRUE(std::isfinite(v));
    // A row outside the table is left alone.
    LayoutDocument empty;
    EXPECT_FALSE(Apply_LineData(doc, 3, "10", "10", 0).Changed || Apply_LineData(empty, 0, "10", "10", 0).Changed);
    EXPECT_EQ(empty.Lines[0].Exists, 0);
}

TEST(LineData, Captions) {
    const LayoutDocument doc = Horizontal();
    const float h = doc.ScaleHeight;
    LineDataTexts t = Refresh_LineData(doc, "Line Number 1", P(1, h - 2), P(13, h - 7), false);
    EXPECT_EQ(t.LineNameBox, "Line Number 1");
    EXPECT_EQ(t.StartPTy, "    Y =  2.00000");
    EXPECT_EQ(t.EndPTx, "    X =  13.00000");
    EXPECT_EQ(t.SegLen, "    L =  13.000");
    EXPECT_EQ(t.RotAng, "   \xC3\x98 =  22.61986\xC2\xB0");
    EXPECT_EQ(t.xRotAng, "   \xC3\x98 =  337.38014\xC2\xB0");

    t = Refresh_LineData(doc, "Line Number 1", P(1, h - 2), P(13, h - 7), true);
    EXPECT_EQ(t.EndPTx + t.SegLen, "    X =  1'-1\"    L =  1'-1\"");

    // The quadrant is not shown: every angle reads between 0 and 90.
    EXPECT_EQ(Refresh_LineData(doc, "", P(5, 5), P(5, 1), false).RotAng, "   \xC3\x98 =  90.0\xC2\xB0");
    EXPECT_EQ(Refresh_LineData(doc, "", P(5, 5), P(1, 5), false).RotAng, "   \xC3\x98 =  0.0\xC2\xB0");
    EXPECT_EQ(Refresh_LineData(doc, "", P(0, 0), P(-1, 1), false).RotAng, "   \xC3\x98 =  45.0\xC2\xB0");
}

}  // namespace
