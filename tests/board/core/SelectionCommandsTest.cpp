// The arithmetic of the selection commands; their steps through the board's
// modes are in board_modes.script.
#include <gtest/gtest.h>

#include "board/core/CommandLine.h"
#include "board/core/SelectionCommands.h"
#include "support/BoardTestDoc.h"

using namespace Selection;
using namespace boardtest;

namespace {

TEST(Selection, HoverPicksWithTheWiderReachInSelection) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    const float y = static_cast<float>(1.0 + OffsetForSlack(1.0, 0.002));
    EXPECT_TRUE(Hover_Line(doc, 2, y, true).Found);
    EXPECT_FALSE(Hover_Line(doc, 2, y, false).Found);
}

// A move adds the same to both ends and MidPt follows; the stored length is
// not refreshed. A rotation turns the ends about the base point.
TEST(Selection, MoveAndRotateTurnOnlyTheSelectedRows) {
    LayoutDocument doc = DocWith({L(1, 1, 3, 1), L(1, 2, 3, 2)});
    doc.Lines[0].Length = 1.41;
    Toggle_Line(doc.Lines, 0);
    Move_Selected(P(1, 1), P(2.5f, 0.5f), doc.Lines);
    EXPECT_FLOAT_EQ(doc.Lines[0].StartPt.X, 2.5f);
    EXPECT_FLOAT_EQ(doc.Lines[0].StartPt.Y, 0.5f);
    EXPECT_FLOAT_EQ(doc.Lines[0].MidPt.X, 3.5f);
    EXPECT_EQ(doc.Lines[0].Length, 1.41);
    EXPECT_FLOAT_EQ(doc.Lines[1].StartPt.X, 1);

    struct Case {
        const char* angle;
        float ex, ey;
    };
    for (const Case& c : {Case{"90", 1, -1}, Case{"-90", 1, 3}, Case{"180", -1, 1}, Case{"360", 3, 1}}) {
        LayoutDocument one = DocWith({L(1, 1, 3, 1)});
        SelectionState st;
        Toggle_Line(one.Lines, 0);
        ASSERT_TRUE(RotateButton_Click(one, st));
        Rotate_Click(st, P(1, 1));
        EXPECT_EQ(CommandLine::Reply_Rotate(one, st, c.angle).Status, CommandLine::ReplyStatus::Done);
        EXPECT_NEAR(one.Lines[0].EndPt.X, c.ex, 1e-5) << c.angle;
        EXPECT_NEAR(one.Lines[0].EndPt.Y, c.ey, 1e-5) << c.angle;
        EXPECT_NEAR(one.Lines[0].MidPt.X, (1 + c.ex) / 2, 1e-5) << c.angle;
        EXPECT_FLOAT_EQ(one.Lines[0].StartPt.X, 1);
    }
}

}  // namespace
