#include <gtest/gtest.h>

#include <string>

#include "board/core/CommandLine.h"
#include "shell/core/MathUtil.h"
#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"

using namespace CommandLine;
using namespace boardtest;
using Selection::SelectionState;

namespace {

constexpr double kEps = 1e-5;
const std::string kCases = FERROLITH_TEST_DATA "/board_cases.table";

PointReplyState At(int16_t click, float x, float y, double echoDeg = 0.0) {
    return {click, P(x, y), echoDeg, echoDeg * shell::kPi / 180.0};
}

TEST(CommandLine, PointRepliesReadIntoBoardUnits) {
    for (const casetable::Row& c : casetable::Read(kCases, "point replies")) {
        LayoutDocument doc;
        if (c[3].find("zoomed") != std::string::npos) {
            doc.ZoomScale = 2.0f;
            doc.OriginX = 0.5f;
        }
        const bool world = c[3].find("world") != std::string::npos;
        // Move reads its replies exactly as Draw does.
        for (auto reply : {&Reply_Draw, &Reply_Move}) {
            const ReplyResult r = reply(doc, c[2], At(static_cast<int16_t>(c.Num(0)), 1.0f, 2.0f, c.Num(1)));
            ASSERT_EQ(r.Status, ReplyStatus::Point) << "line " << c.line;
            EXPECT_EQ(r.BoxText, "");
            EXPECT_NEAR(world ? Viewport::To_WorldX(doc, r.TypedX) : r.TypedX, c.Num(4), kEps) << "line " << c.line;
            EXPECT_NEAR(world ? Viewport::To_WorldY(doc, r.TypedY) : r.TypedY, c.Num(5), kEps) << "line " << c.line;
        }
    }
}

TEST(CommandLine, RefusedRepliesChangeNothing) {
    LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    doc.Lines[0].Selected = -1;
    for (const casetable::Row& c : casetable::Read(kCases, "refused replies")) {
        SelectionState st;
        st.RotatePending = true;
        st.RotateClick = static_cast<int16_t>(c.Num(1));
        const ReplyResult r =
            c[0] == "point" ? Reply_Draw(doc, c[2], At(st.RotateClick, 1, 2)) : Reply_Rotate(doc, st, c[2]);
        const bool invalid = c[3] == "invalid";
        EXPECT_EQ(r.Status, invalid ? ReplyStatus::Invalid : ReplyStatus::Failed) << "line " << c.line;
        EXPECT_EQ(r.BoxText, invalid ? kInvalidReply : "");
        EXPECT_TRUE(st.RotatePending);
    }
    EXPECT_EQ(doc.Lines[0].EndPt.X, 3.0f);
    EXPECT_EQ(CommandBox_Color(kInvalidReply), kColorInvalid);
    EXPECT_EQ(CommandBox_Color("1.0,2.0"), kColorNormal);
}

TEST(CommandLine, EchoAfterTheFirstPointIsDistanceAndDirection) {
    const LayoutDocument doc;
    const float h = doc.ScaleHeight;
    for (const casetable::Row& c : casetable::Read(kCases, "echoes")) {
        EchoState es;
        const std::vector<double> at = c.Nums(0);
        EXPECT_EQ(Echo_Draw(doc, true, 1, at[0], h - at[1], P(1, h - 1), es).Text, c[1]);
        EXPECT_NEAR(es.EchoDistanceDeg, c.Num(2), 1e-9);
        EXPECT_NEAR(es.EchoDistanceRad, c.Num(2) * shell::kPi / 180, 1e-9);
    }
}

TEST(CommandLine, EchoBeforeTheFirstPointOnTheAnchorAndOfCorners) {
    const LayoutDocument doc;
    const float h = doc.ScaleHeight;
    EchoState es;
    // Before the first point: the world position, focused and selected.
    EchoResult e = Echo_Draw(doc, true, 0, 1.5, h - 2.25, P(7, 8), es);
    EXPECT_TRUE(e.SetText && e.Focus && e.SelectAll && e.Text == "1.5,2.25");
    // On the anchor: empty, without focus, and the last direction stands.
    es.EchoDistanceDeg = 45;
    e = Echo_Draw(doc, true, 1, 2, 3, P(2, 3), es);
    EXPECT_TRUE(e.SetText && !e.Focus && e.Text.empty() && es.EchoDistanceDeg == 45);
    EXPECT_FALSE(Echo_Draw(doc, false, 1, 2, 4, P(2, 3), es).SetText);
    // The corners of a box kind, and a rotate's base point until the angle is asked.
    EXPECT_EQ(Echo_Corner(doc, 1, 2, h - 1).Text, "2.0,1.0");
    EXPECT_TRUE(Echo_Corner(doc, 3, 2, h - 1).SetText);
    EXPECT_FALSE(Echo_Corner(doc, 0, 2, h - 1).SetText || Echo_Corner(doc, 4, 2, h - 1).SetText);
    EXPECT_TRUE(Echo_RotateBase(doc, 0, 2, h - 1).Text == "2.0,1.0" && !Echo_RotateBase(doc, 1, 2, h - 1).SetText);
}

}  // namespace
