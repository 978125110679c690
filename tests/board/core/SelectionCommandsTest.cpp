#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/BoardTestDoc.h"
#include "board/core/CommandLine.h"
#include "board/core/LayoutFile.h"
#include "board/core/SelectionCommands.h"

using namespace Selection;
using namespace boardtest;

namespace {

constexpr double kEps = 1e-5;

// Records what the window would be asked to show.
struct Recorder {
    std::vector<std::string> messages;
    int prompts = 0, repaints = 0, drawMode = 0;
    bool answerYes = true;

    EditHooks Hooks() {
        EditHooks h;
        h.Show_Message = [this](const BoardMessages::BoardMessage& m) {
            messages.push_back(m.Text);
            return m.YesNo && answerYes;
        };
        h.Show_Prompt = [this] { ++prompts; };
        h.Repaint.Draw_Lines = [this] { ++repaints; };
        h.Set_DrawMode = [this] { ++drawMode; };
        return h;
    }
};

std::vector<int16_t> SelectedRows(const LayoutDocument& doc) {
    std::vector<int16_t> rows;
    for (size_t i = 0; i < doc.Lines.size(); ++i)
        if (doc.Lines[i].Selected != 0) rows.push_back(static_cast<int16_t>(i));
    return rows;
}

// Row 0 wholly inside the box (1,1)-(4,4), row 1 half in and half out, row 2
// outside, row 3 a sloped line through the box with both ends outside.
LayoutDocument BoxScene() { return DocWith({L(2, 2, 3, 3), L(3, 2, 6, 2), L(5, 5, 6, 6), L(0, 2.5f, 5, 3)}); }

// ---- Box selection ------------------------------------------------------------------

TEST(Selection, WindowTakesOnlyLinesWhollyInsideCrossingAlsoThoseCut) {
    struct Case {
        int16_t kind;
        std::vector<int16_t> selected;
    };
    for (const Case& c : {Case{Kind::Window, {0}}, Case{Kind::Crossing, {0, 1, 3}}}) {
        // The corners in every order select the same lines.
        const PointRec corners[4][2] = {{P(1, 1), P(4, 4)}, {P(4, 4), P(1, 1)}, {P(1, 4), P(4, 1)}, {P(4, 1), P(1, 4)}};
        for (const auto& pair : corners) {
            LayoutDocument doc = BoxScene();
            SelectionState st;
            st.SelectKind = c.kind;
            Select_Window(doc, st, pair[0], pair[1], true);
            EXPECT_EQ(SelectedRows(doc), c.selected) << "kind " << c.kind;
            EXPECT_EQ(st.SelectKind, Kind::Pick);
        }
    }
}

TEST(Selection, RemoveTakesCutLinesOutOfTheSelection) {
    LayoutDocument doc = BoxScene();
    SelectionState st;
    Select_All(doc, st);
    st.SelectKind = Kind::Remove;
    Select_Window(doc, st, P(1, 1), P(4, 4), false);
    EXPECT_EQ(SelectedRows(doc), std::vector<int16_t>{2});

    // A box that touches nothing changes nothing, and the kind still returns to 0.
    st.SelectKind = Kind::Remove;
    Select_Window(doc, st, P(0.1f, 0.1f), P(0.2f, 0.2f), false);
    EXPECT_EQ(SelectedRows(doc), std::vector<int16_t>{2});
    EXPECT_EQ(st.SelectKind, Kind::Pick);
}

TEST(Selection, HoverPicksWithTheWiderReachInSelection) {
    const LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
    const float y = static_cast<float>(1.0 + OffsetForSlack(1.0, 0.002));
    EXPECT_NE(Hover_Line(doc, 2, y, true).Found, 0);
    EXPECT_EQ(Hover_Line(doc, 2, y, false).Found, 0);
    const auto hover = Hover_Line(doc, 2, 1, false);
    EXPECT_EQ(Hover_Status(hover), "  Line Found   <Line ID:  Line Number 1>");
    EXPECT_EQ(Hover_ToolTip(hover), "Line Number 0");
}

TEST(Selection, EscapeClearsTheSelectionAndSendsCommandsBackToTheirFirstStep) {
    LayoutDocument doc = BoxScene();
    SelectionState st;
    Select_All(doc, st);
    st.MovePending = true;
    st.MoveClick = 1;
    int erased = 0;
    EditHooks hooks;
    hooks.Erase_Move_Band = [&] { ++erased; };
    Selection_Escape(doc, st, hooks);
    EXPECT_TRUE(SelectedRows(doc).empty());
    EXPECT_EQ(st.MoveClick, 0);
    EXPECT_TRUE(st.MovePending);  // the command stays alive
    EXPECT_EQ(erased, 1);
}

// ---- Move and rotate ---------------------------------------------------------------

TEST(Selection, MoveByPickedPointsMovesTheSelectionOnly) {
    LayoutDocument doc = BoxScene();
    doc.Lines[0].Length = 1.41;
    SelectionState st;
    Toggle_Line(doc.Lines, 0);
    Recorder rec;
    ASSERT_TRUE(MoveButton_Click(doc, st, rec.Hooks()));
    EXPECT_TRUE(st.MovePending);
    Move_Click(doc, st, P(1, 1), rec.Hooks());
    EXPECT_EQ(st.MoveClick, 1);
    Move_Click(doc, st, P(2.5f, 0.5f), rec.Hooks());
    EXPECT_FALSE(st.MovePending);
    EXPECT_EQ(st.MoveClick, 0);
    const LineRec& r = doc.Lines[0];
    EXPECT_FLOAT_EQ(r.StartPt.X, 3.5f);
    EXPECT_FLOAT_EQ(r.StartPt.Y, 1.5f);
    EXPECT_FLOAT_EQ(r.EndPt.X, 4.5f);
    EXPECT_FLOAT_EQ(r.MidPt.X, 4.0f);
    EXPECT_FLOAT_EQ(r.MidPt.Y, 2.0f);
    EXPECT_EQ(r.Length, 1.41);                              // not refreshed by a move
    EXPECT_FLOAT_EQ(doc.Lines[1].StartPt.X, 3);             // unselected rows stay
    EXPECT_EQ(SelectedRows(doc), std::vector<int16_t>{0});  // ready to move again
    EXPECT_EQ(rec.repaints, 1);
}

TEST(Selection, RotateByAPickedBaseAndATypedAngle) {
    struct Case {
        const char* angle;
        float ex, ey;
    };
    for (const Case& c : {Case{"90", 1, -1}, Case{"-90", 1, 3}, Case{"180", -1, 1}, Case{"360", 3, 1}}) {
        LayoutDocument doc = DocWith({L(1, 1, 3, 1)});
        SelectionState st;
        Toggle_Line(doc.Lines, 0);
        Recorder rec;
        ASSERT_TRUE(RotateButton_Click(doc, st, rec.Hooks()));
        Rotate_Click(st, P(1, 1), rec.Hooks());
        EXPECT_EQ(st.RotateClick, 1);
        const auto r = CommandLine::Reply_Rotate(doc, st, c.angle, rec.Hooks());
        EXPECT_EQ(r.Status, CommandLine::ReplyStatus::Done);
        EXPECT_NEAR(doc.Lines[0].EndPt.X, c.ex, kEps) << c.angle;
        EXPECT_NEAR(doc.Lines[0].EndPt.Y, c.ey, kEps) << c.angle;
        EXPECT_NEAR(doc.Lines[0].StartPt.X, 1, kEps);
        EXPECT_NEAR(doc.Lines[0].MidPt.X, (1 + c.ex) / 2, kEps);
        EXPECT_FALSE(st.RotatePending);
    }
}

TEST(Selection, StartingOneCommandCancelsTheOther) {
    LayoutDocument doc = BoxScene();
    SelectionState st;
    Toggle_Line(doc.Lines, 0);
    ASSERT_TRUE(RotateButton_Click(doc, st));
    Rotate_Click(st, P(1, 1));
    ASSERT_TRUE(MoveButton_Click(doc, st));
    EXPECT_FALSE(st.RotatePending);
    EXPECT_EQ(st.RotateClick, 0);
    EXPECT_TRUE(st.MovePending);
}

// Each command refuses an empty board or an empty selection with its warning
// and changes nothing.
TEST(Selection, CommandsWithNothingToWorkOnSayWhy) {
    const std::string none = BoardMessages::kNoSelection.Text;
    const std::string empty = BoardMessages::kBoardEmpty.Text;
    struct Case {
        const char* name;
        LayoutDocument doc;
        std::function<void(LayoutDocument&, SelectionState&, const EditHooks&)> run;
        std::string message;
    };
    const Case cases[] = {
        {"move, none selected", BoxScene(), [](auto& d, auto& st, auto& h) { EXPECT_FALSE(MoveButton_Click(d, st, h)); }, none},
        {"rotate, empty board", LayoutDocument{}, [](auto& d, auto& st, auto& h) { EXPECT_FALSE(RotateButton_Click(d, st, h)); }, none},
        {"delete selection, empty board", LayoutDocument{}, [](auto& d, auto&, auto& h) { DeleteButton_Click(d, false, h); }, none},
        {"delete all, empty board", LayoutDocument{}, [](auto& d, auto&, auto& h) { EXPECT_FALSE(ClearButton_Click(d, false, h)); }, empty},
    };
    for (const Case& c : cases) {
        LayoutDocument doc = c.doc;
        const auto before = LayoutFile::Layout_Bytes(doc);
        SelectionState st;
        Recorder rec;
        c.run(doc, st, rec.Hooks());
        EXPECT_EQ(rec.messages, std::vector<std::string>{c.message}) << c.name;
        EXPECT_EQ(LayoutFile::Layout_Bytes(doc), before) << c.name;
        EXPECT_FALSE(st.MovePending) << c.name;
        EXPECT_FALSE(st.RotatePending) << c.name;
    }
}

// Clear Dimensions repaints the working display, but not the calculation display.
TEST(Selection, ClearDimensionsRepaintsOnlyOutsideCalculation) {
    for (bool inCalculation : {false, true}) {
        LayoutDocument doc = BoxScene();
        doc.Dims[0].Exists = -1;
        Recorder rec;
        ClearDimButton_Click(doc, inCalculation, rec.Hooks());
        EXPECT_EQ(Viewport::Line_Count(doc.Dims), 0);
        EXPECT_EQ(rec.repaints, inCalculation ? 0 : 1);
    }
}

// ---- Deleting -----------------------------------------------------------------------

TEST(Selection, DeleteSelectionKeepsTheRestInOrder) {
    LayoutDocument doc = BoxScene();
    Toggle_Line(doc.Lines, 1);
    Toggle_Line(doc.Lines, 3);
    Recorder rec;
    DeleteButton_Click(doc, false, rec.Hooks());
    ASSERT_EQ(doc.Lines.size(), 2u);
    EXPECT_EQ(doc.Lines[0].LineName, "Line Number 1");
    EXPECT_EQ(doc.Lines[1].LineName, "Line Number 3");
    EXPECT_TRUE(rec.messages.empty());
    EXPECT_EQ(doc.LineCounter, 4);

    DeleteButton_Click(doc, false, rec.Hooks());  // none selected: no message, no change
    EXPECT_EQ(doc.Lines.size(), 2u);
    EXPECT_TRUE(rec.messages.empty());
}

TEST(Selection, DeletingEveryLineAsksTheDeleteAllQuestion) {
    for (bool yes : {true, false}) {
        LayoutDocument doc = BoxScene();
        doc.ZoomScale = 2;
        doc.Load.LoadPlaced = -1;
        SelectionState st;
        Select_All(doc, st);
        Recorder rec;
        rec.answerYes = yes;
        DeleteButton_Click(doc, true, rec.Hooks());
        EXPECT_EQ(rec.messages, std::vector<std::string>{"Are you sure you really want to Delete Drawing?  "});
        EXPECT_EQ(Viewport::Lines_Empty(doc.Lines), yes);
        EXPECT_EQ(doc.LineCounter, yes ? 0 : 4);
        EXPECT_EQ(doc.ZoomScale, yes ? 1.0f : 2.0f);
        EXPECT_EQ(doc.Load.LoadPlaced, yes ? 0 : -1);
        EXPECT_EQ(rec.drawMode, yes ? 1 : 0);  // Delete All from CALCULATION goes to DRAW
        if (yes) {
            PointRec out;
            EXPECT_FALSE(Viewport::Find_Intersection(doc, 2.9f, 2.9f, 1.0f, out));
            ASSERT_TRUE(Viewport::Add_Drawn_Line(doc, P(0, 0), P(1, 1)));
            EXPECT_EQ(doc.Lines[0].LineName, "Line Number 1");
        }
    }
}

TEST(Selection, DeletingEveryLineBesideDimensionsAsksNothing) {
    LayoutDocument doc = BoxScene();
    doc.Dims[0].Exists = -1;
    SelectionState st;
    Select_All(doc, st);
    Recorder rec;
    DeleteButton_Click(doc, false, rec.Hooks());
    EXPECT_TRUE(rec.messages.empty());
    EXPECT_TRUE(Viewport::Lines_Empty(doc.Lines));
    EXPECT_EQ(doc.Dims[0].Exists, -1);
    EXPECT_EQ(doc.LineCounter, 4);  // numbering runs on
}

}  // namespace
