#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/BoardTestDoc.h"
#include "board/core/CommandLine.h"
#include "board/core/LayoutFile.h"
#include "board/core/SnapSearch.h"
#include "shell/core/MathUtil.h"

using namespace CommandLine;
using namespace boardtest;
using Selection::SelectionState;

namespace {

constexpr double kEps = 1e-5;

PointReplyState At(int16_t click, float x, float y, double echoDeg = 0.0) {
    PointReplyState st;
    st.Click = click;
    st.LastPt = P(x, y);
    st.EchoDistanceDeg = echoDeg;
    st.EchoDistanceRad = echoDeg * shell::kPi / 180.0;
    return st;
}

TEST(CommandLine, PointRepliesReadIntoBoardUnits) {
    const double c30 = 2 * std::cos(shell::Radians(30)), s30 = 2 * std::sin(shell::Radians(30));
    struct Case {
        const char* text;
        int16_t click;
        double echoDeg;
        bool absolute;  // world inches, shown at (x, H - y) by the start viewport; else board units
        double ex, ey;
    } cases[] = {
        {"3'-6,2'", 0, 0, true, 42, 24},
        {" 1.5 , 2.25 ", 0, 0, true, 1.5, 2.25},
        {"0'-6\",1/2\"", 1, 0, true, 6, 0.5},
        {"-3,-4", 0, 0, true, -3, -4},
        // polar, relative to LastPt (1, 2); positive angles run counterclockwise on the screen
        {"5<0", 1, 0, false, 6, 2},
        {"5<90", 1, 0, false, 1, -3},
        {"0'-6\"<180", 1, 0, false, -5, 2},
        {"1'<270", 1, 0, false, 1, 14},
        {"2<30", 1, 0, false, 1 + c30, 2 - s30},
        // distance, along the last echoed direction
        {"5", 1, 0, false, 6, 2},
        {"5", 1, 90, false, 1, -3},
        {"5", 1, 180, false, -4, 2},
        {"5", 1, 270, false, 1, 7},
        {"5", 0, 0, false, 6, 2},
        {"2", 1, 45, false, 1 + std::sqrt(2.0), 2 - std::sqrt(2.0)},
    };
    const LayoutDocument doc;
    for (const Case& c : cases) {
        // Move reads its replies exactly as Draw does.
        for (auto reply : {&Reply_Draw, &Reply_Move}) {
            const ReplyResult r = reply(doc, c.text, At(c.click, 1.0f, 2.0f, c.echoDeg));
            ASSERT_EQ(r.Status, ReplyStatus::Point) << c.text;
            EXPECT_EQ(r.BoxText, "");
            EXPECT_NEAR(r.TypedX, c.ex, kEps) << c.text;
            EXPECT_NEAR(r.TypedY, c.absolute ? doc.ScaleHeight - c.ey : c.ey, kEps) << c.text;
        }
    }
}

TEST(CommandLine, InvalidRepliesChangeNothingAndTurnTheBoxRed) {
    const LayoutDocument doc;
    const char* bad[] = {"",    "0",     "-3",    ",5",     "5,", "<30", "5<",   "5<abc", "abc",
                         "5FT", "5-3,1", "1,2in", "5'-3\"", "5'", "1/2", "x<30", "<",     ","};
    for (const char* text : bad) {
        const ReplyResult r = Reply_Draw(doc, text, At(1, 1, 2));
        EXPECT_EQ(r.Status, ReplyStatus::Invalid) << '"' << text << '"';
        EXPECT_EQ(r.BoxText, kInvalidReply);
        EXPECT_EQ(CommandBox_Color(r.BoxText), kColorInvalid);
    }
    // Without a start point the polar form is not read: "5<30" is a bad distance.
    EXPECT_EQ(Reply_Draw(doc, "5<30", At(0, 1, 2)).Status, ReplyStatus::Invalid);
    EXPECT_EQ(CommandBox_Color(""), kColorNormal);
    EXPECT_EQ(CommandBox_Color("1.0,2.0"), kColorNormal);
}

TEST(CommandLine, ValuesBeyondASingleEndTheReplyQuietly) {
    const LayoutDocument doc;
    for (const char* text : {"1E39,0", "0,1E39", "4E38<0", "1E39"}) {
        const ReplyResult r = Reply_Draw(doc, text, At(1, 1, 2));
        EXPECT_EQ(r.Status, ReplyStatus::Failed) << text;
        EXPECT_EQ(r.BoxText, "");
    }
}

TEST(CommandLine, RelativeRepliesFollowTheZoomButAbsoluteOnesTheViewport) {
    LayoutDocument doc;
    doc.ZoomScale = 2.0f;
    doc.OriginX = 0.5f;
    ReplyResult r = Reply_Draw(doc, "5<0", At(1, 1, 2));
    EXPECT_NEAR(r.TypedX, 11.0, kEps);
    r = Reply_Draw(doc, "1,1", At(0, 0, 0));
    EXPECT_NEAR(r.TypedX, 2.5, kEps);
    EXPECT_NEAR(Viewport::To_WorldX(doc, r.TypedX), 1.0, kEps);
    EXPECT_NEAR(Viewport::To_WorldY(doc, r.TypedY), 1.0, kEps);
}

TEST(CommandLine, RotateBasePointTakesPlainNumbersOnly) {
    LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    SelectionState st;
    st.RotatePending = true;
    ReplyResult r = Reply_Rotate(doc, st, "2,3", {});
    ASSERT_EQ(r.Status, ReplyStatus::Point);
    EXPECT_NEAR(r.TypedX, 2, kEps);
    EXPECT_NEAR(r.TypedY, doc.ScaleHeight - 3, kEps);
    for (const char* text : {"2',3", "5", ",3", "2,", "a,b", ""})
        EXPECT_EQ(Reply_Rotate(doc, st, text, {}).Status, ReplyStatus::Invalid) << text;
}

TEST(CommandLine, RotateAngleTurnsTheSelectionAndEndsTheCommand) {
    LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    doc.Lines[0].Selected = -1;
    SelectionState st;
    st.RotatePending = true;
    st.RotateClick = 1;
    st.RotateBase = P(1, 1);
    int prompts = 0;
    Selection::EditHooks hooks;
    hooks.Show_Prompt = [&] { ++prompts; };

    const LayoutDocument before = doc;
    EXPECT_EQ(Reply_Rotate(doc, st, "ninety", hooks).Status, ReplyStatus::Invalid);
    EXPECT_EQ(Reply_Rotate(doc, st, "1'", hooks).Status, ReplyStatus::Invalid);
    EXPECT_EQ(doc.Lines[0].EndPt.X, before.Lines[0].EndPt.X);
    EXPECT_EQ(st.RotateClick, 1);

    const ReplyResult r = Reply_Rotate(doc, st, " 90 ", hooks);
    EXPECT_EQ(r.Status, ReplyStatus::Done);
    EXPECT_NEAR(doc.Lines[0].EndPt.X, 1, kEps);
    EXPECT_NEAR(doc.Lines[0].EndPt.Y, -1, kEps);  // up on the screen
    EXPECT_FALSE(st.RotatePending);
    EXPECT_EQ(st.RotateClick, 0);
    EXPECT_EQ(prompts, 1);
}

TEST(CommandLine, SelectRepliesSetTheKind) {
    LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(1, 2, 3, 2)});
    SelectionState st;
    struct Case {
        const char* text;
        int16_t kind;
    };
    for (const Case c : {Case{"w", 1}, Case{" C ", 2}, Case{"R", 3}}) {
        st.SelectKind = 0;
        const ReplyResult r = Reply_Select(doc, st, c.text, {});
        EXPECT_EQ(r.Status, ReplyStatus::Done);
        EXPECT_EQ(r.BoxText, "");
        EXPECT_EQ(st.SelectKind, c.kind);
    }
    st.SelectKind = 1;
    ReplyResult r = Reply_Select(doc, st, "a", {});
    EXPECT_EQ(r.Status, ReplyStatus::Done);
    EXPECT_EQ(st.SelectKind, 0);
    EXPECT_EQ(Viewport::Selected_Count(doc.Lines), 2);

    st.SelectKind = 2;
    r = Reply_Select(doc, st, "   ", {});
    EXPECT_EQ(r.Status, ReplyStatus::Ignored);
    EXPECT_EQ(r.BoxText, "   ");
    EXPECT_EQ(st.SelectKind, 2);

    r = Reply_Select(doc, st, "WC", {});
    EXPECT_EQ(r.Status, ReplyStatus::Invalid);
    EXPECT_EQ(r.BoxText, kInvalidReply);
    EXPECT_EQ(st.SelectKind, 2);
}

TEST(CommandLine, EchoAfterTheFirstPointIsDistanceAndDirection) {
    const LayoutDocument doc;
    const float h = doc.ScaleHeight;
    struct Case {
        double wx, wy;  // pointer in world inches; the anchor stands at world (1, 1)
        const char* text;
        double deg;
    };
    const Case cases[] = {{4, 5, "5.0<53.1301", 53.13010235415598},
                          {1, 3, "2.0<90.0", 90},
                          {1, -1, "2.0<270.0", 270},
                          {3, 1, "2.0<0.0", 0},
                          {-1, 1, "2.0<180.0", 180},
                          {-2, -3, "5.0<233.1301", 233.13010235415598},
                          {4, -3, "5.0<306.8699", 306.86989764584405}};
    for (const Case& c : cases) {
        EchoState es;
        const EchoResult e = Echo_Draw(doc, true, 1, c.wx, h - c.wy, P(1, h - 1), es);
        EXPECT_EQ(e.Text, c.text);
        EXPECT_NEAR(es.EchoDistanceDeg, c.deg, 1e-9);
        EXPECT_NEAR(es.EchoDistanceRad, c.deg * shell::kPi / 180, 1e-9);
    }
}

TEST(CommandLine, EchoedDirectionFeedsTheDistanceReply) {
    const LayoutDocument doc;
    const float h = doc.ScaleHeight;
    EchoState es;
    Echo_Draw(doc, true, 1, 1, h - 4, P(1, h - 1), es);  // straight up in the world
    PointReplyState st{1, es.LastPt, es.EchoDistanceDeg, es.EchoDistanceRad};
    const ReplyResult r = Reply_Draw(doc, "2", st);
    EXPECT_NEAR(Viewport::To_WorldX(doc, r.TypedX), 1, kEps);
    EXPECT_NEAR(Viewport::To_WorldY(doc, r.TypedY), 3, kEps);
}

TEST(CommandLine, EchoBeforeTheFirstPointOnTheAnchorAndOfCorners) {
    const LayoutDocument doc;
    const float h = doc.ScaleHeight;
    EchoState es;
    // Before the first point: the world position, focused and selected.
    EchoResult e = Echo_Draw(doc, true, 0, 1.5, h - 2.25, P(7, 8), es);
    EXPECT_TRUE(e.SetText && e.Focus && e.SelectAll);
    EXPECT_EQ(e.Text, "1.5,2.25");
    EXPECT_FLOAT_EQ(es.LastPt.X, 7.0f);
    // On the anchor: empty, without focus, and the last direction stands.
    es.EchoDistanceDeg = 45;
    e = Echo_Draw(doc, true, 1, 2, 3, P(2, 3), es);
    EXPECT_TRUE(e.SetText);
    EXPECT_EQ(e.Text, "");
    EXPECT_FALSE(e.Focus);
    EXPECT_EQ(es.EchoDistanceDeg, 45);
    EXPECT_FALSE(Echo_Draw(doc, false, 1, 2, 4, P(2, 3), es).SetText);

    EXPECT_EQ(Echo_Corner(doc, 1, 2, h - 1).Text, "2.0,1.0");
    EXPECT_TRUE(Echo_Corner(doc, 3, 2, h - 1).SetText);
    EXPECT_FALSE(Echo_Corner(doc, 0, 2, h - 1).SetText);
    EXPECT_FALSE(Echo_Corner(doc, 4, 2, h - 1).SetText);
    EXPECT_EQ(Echo_RotateBase(doc, 0, 2, h - 1).Text, "2.0,1.0");
    EXPECT_FALSE(Echo_RotateBase(doc, 1, 2, h - 1).SetText);
}

}  // namespace
