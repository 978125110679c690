#include "board/core/BoardState.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/RecordingSurface.h"
#include "board/core/Viewport.h"

using namespace BoardState;
using board::PenMode;
using board::Pointer;
using Layout::LayoutDocument;

namespace {

struct Fixture {
    LayoutDocument doc;
    RecordingSurface surface;
    Board board{doc, surface};
    Fixture() { board.Set_Mode(DRAW); }
    // A pointer move then a press and release there, as the window sends them.
    void Click(double x, double y, Button b = Button::Left) {
        board.DrawingBoard_MouseMove(Button::None, false, x, y);
        board.DrawingBoard_MouseDown(b, false, x, y);
        board.DrawingBoard_MouseUp(b, false, x, y);
    }
};

struct ModeCase {
    int16_t index;
    const char* label;
    const char* prompt;
    bool box;
    Pointer pointer;
};

TEST(BoardState, EveryModeSetsItsCaptionPromptBoxAndPointer) {
    const ModeCase cases[] = {
        {DRAW, "   Active Mode:  DRAW MODE", "[Pick Start Point]      -> Input Format: 'X,Y'", true, Pointer::Cross},
        {SELECTION, "   Active Mode:  SELECTION MODE",
         "[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]", true, Pointer::PickBox},
        {DIMENSION, "   Active Mode:  DIMENSION MODE", "[Pick First Dimension Point]", false, Pointer::Cross},
        {EDIT, "   Active Mode:  EDIT MODE", "[Double Click or Right Click on Line Object to Edit]", false,
         Pointer::PickBox},
        {PAN, "   Active Mode:  PAN MODE", "[Pick, Drag and Drop to Pan Drawing]", false, Pointer::PanHand},
        {ZOOM, "   Active Mode:  ZOOM MODE", "[Specify Zoom Window]", false, Pointer::Cross},
        {CALCULATION, "   Active Mode:  CALCULATION MODE",
         "[Pick on either Left or Right to specify Load Location]", false, Pointer::PickBox},
    };
    for (const ModeCase& c : cases) {
        Fixture f;
        f.board.Set_Mode(c.index);
        EXPECT_EQ(f.board.Mode().Index(), c.index);
        EXPECT_EQ(f.board.Ui.ModeCaption, c.label);
        EXPECT_EQ(f.board.Ui.Prompt, c.prompt);
        EXPECT_EQ(f.board.Ui.CommandBoxEnabled, c.box) << c.label;
        EXPECT_EQ(f.board.Ui.CommandText, c.box ? "" : " <CommandLine response disabled>");
        EXPECT_EQ(f.board.Ui.CheckedMode, c.index);
        EXPECT_EQ(f.surface.LastPointer, c.pointer) << c.label;
        EXPECT_FALSE(f.board.Ui.LoadParamBoxVisible) << "empty table shows no load panel";
    }
}

TEST(BoardState, AnUnknownIndexKeepsTheModeAndShowsNoName) {
    Fixture f;
    f.board.Set_Mode(5);
    EXPECT_EQ(f.board.Mode().Index(), DRAW);
    EXPECT_EQ(f.board.Ui.ModeCaption, "   Active Mode:  ");
}

TEST(BoardState, SelectionPromptsFollowTheCommandState) {
    Fixture f;
    f.board.Set_Mode(SELECTION);
    Board& b = f.board;
    auto& sel = b.Sel;
    struct Step {
        std::function<void()> set;
        const char* prompt;
    };
    const Step steps[] = {{[&] { sel.SelectKind = 1; }, "[Pick First Corner Point]"},
                          {[&] { sel.CornerPicked = true; }, "[Pick Second Corner Point]"},
                          {[&] { sel.MovePending = true; }, "[Pick Base Point]"},
                          {[&] { sel.MoveClick = 1; }, "[Pick Destination Point]"},
                          {[&] { sel.RotatePending = true; }, "[Pick Rotation Base Point]"},
                          {[&] { sel.RotateClick = 1; }, "[Enter Rotation Angle in degrees]"}};
    for (const Step& s : steps) {
        s.set();
        b.Show_Prompt();
        EXPECT_EQ(b.Ui.Prompt, s.prompt);
    }
    // A pending command survives a mode change.
    b.Set_Mode(DRAW);
    EXPECT_TRUE(sel.RotatePending);
    EXPECT_TRUE(sel.MovePending);
}

TEST(BoardState, LeavingSelectionClearsItEnteringKeepsIt) {
    Fixture f;
    Viewport::Add_Drawn_Line(f.doc, {1, 1, 0}, {2, 1, 0});
    f.doc.Lines[0].Selected = -1;
    f.board.Set_Mode(SELECTION);
    EXPECT_EQ(f.doc.Lines[0].Selected, -1);
    f.surface.Ops.clear();
    f.board.Set_Mode(SELECTION);
    EXPECT_TRUE(f.surface.OfKind("Cls").empty()) << "no repaint when already in SELECTION";
    f.board.Set_Mode(EDIT);
    EXPECT_EQ(f.doc.Lines[0].Selected, 0);
}

TEST(BoardState, TwoClicksDrawALineAndThePolyChainGoesOn) {
    Fixture f;
    f.Click(1.0, 4.0);
    EXPECT_EQ(f.board.Ui.Prompt.substr(0, 18), "[Pick Next Point] ");
    EXPECT_EQ(f.board.Ui.Prompt,
              "[Pick Next Point]       -> Input Format: 'X,Y' or 'Distance<Angle' or 'Distance'");
    f.board.DrawingBoard_MouseMove(Button::None, false, 2.0, 4.0);
    f.board.DrawingBoard_MouseDown(Button::Left, false, 2.0, 4.0);
    ASSERT_EQ(Viewport::Line_Count(f.doc.Lines), 1);
    EXPECT_EQ(f.doc.Lines[0].LineName, "Line Number 1");
    EXPECT_FLOAT_EQ(f.doc.Lines[0].StartPt.X, 1.0f);
    EXPECT_FLOAT_EQ(f.doc.Lines[0].EndPt.X, 2.0f);
    EXPECT_NEAR(f.doc.Lines[0].Length, 1.0, 1e-6);
    EXPECT_EQ(f.board.Ui.Prompt, "[Pick Start Point]      -> Input Format: 'X,Y'");

    f.board.PolyBox_Click(true);
    f.Click(3.0, 4.0);
    f.Click(3.0, 3.0);
    EXPECT_EQ(f.board.Ui.Prompt.substr(0, 18), "[Pick Next Point] ") << "chain continues";
    f.board.DrawingBoard_MouseMove(Button::None, false, 4.0, 3.0);
    f.board.DrawingBoard_MouseDown(Button::Left, false, 4.0, 3.0);
    EXPECT_EQ(Viewport::Line_Count(f.doc.Lines), 3);
    EXPECT_FLOAT_EQ(f.doc.Lines[2].StartPt.Y, 3.0f);
    // F9 ends the chain: the band is erased.
    f.surface.Ops.clear();
    EXPECT_TRUE(f.board.Form_KeyDown(Key::F9));
    EXPECT_FALSE(f.board.PolyMode);
    EXPECT_FALSE(f.board.Ui.PolyBox);
    ASSERT_EQ(f.surface.OfKind("Line").size(), 1u);
    EXPECT_EQ(f.surface.Ops[0].Mode, PenMode::Invert);
}

TEST(BoardState, DeleteKeyRoutesByMode) {
    Fixture f;
    Viewport::Add_Drawn_Line(f.doc, {1, 1, 0}, {2, 1, 0});
    Viewport::Add_Drawn_Line(f.doc, {1, 2, 0}, {2, 2, 0});
    f.doc.Lines[0].Selected = -1;
    f.board.Form_KeyDown(Key::Delete);  // DRAW: nothing
    f.board.Set_Mode(SELECTION);
    f.doc.Lines[0].Selected = -1;
    f.board.Sel.MovePending = true;
    f.board.Form_KeyDown(Key::Delete);  // during a move: nothing
    EXPECT_EQ(Viewport::Line_Count(f.doc.Lines), 2);
    f.board.Sel.MovePending = false;
    f.board.Form_KeyDown(Key::Delete);  // Delete Selection
    ASSERT_EQ(Viewport::Line_Count(f.doc.Lines), 1);
    f.board.Set_Mode(EDIT);
    f.board.DrawingBoard_MouseMove(Button::None, false, 1.5, 2.0);
    f.board.Form_KeyDown(Key::Delete);  // the line under the pointer
    EXPECT_TRUE(Viewport::Lines_Empty(f.doc.Lines));
    EXPECT_EQ(f.doc.LineCounter, 0) << "empty table after the delete";
    EXPECT_FALSE(f.board.Ui.Marks.MidBox.Visible);
}

TEST(BoardState, ThreePicksMakeADimensionOfTheRightKind) {
    Fixture f;
    f.board.Set_Mode(DIMENSION);
    f.Click(1.0, 1.0);
    EXPECT_EQ(f.board.Ui.Prompt, "[Pick Second Dimension Point]");
    f.Click(3.0, 2.0);
    EXPECT_EQ(f.board.Ui.Prompt, "[Pick Dimension Position]");
    // Ortho always holds for the position: straight above the middle.
    f.board.DrawingBoard_MouseMove(Button::None, false, 2.1, 0.5);
    f.board.DrawingBoard_MouseDown(Button::Left, false, 2.1, 0.5);
    ASSERT_EQ(Viewport::Line_Count(f.doc.Dims), 1);
    const auto& d = f.doc.Dims[0];
    EXPECT_EQ(d.DimType, 1);
    EXPECT_NEAR(d.DimLength, 2.0, 1e-6);
    EXPECT_FLOAT_EQ(d.DimPos.X, 2.0f);
    EXPECT_EQ(f.board.Ui.Prompt, "[Pick First Dimension Point]");
}

TEST(BoardState, ZoomWindowFillsTheBoardWithTheBox) {
    Fixture f;
    Viewport::Add_Drawn_Line(f.doc, {1, 1, 0}, {2, 1, 0});
    f.board.Set_Mode(ZOOM);
    f.board.DrawingBoard_MouseDown(Button::Left, false, 1.0, 0.5);
    f.board.DrawingBoard_MouseMove(Button::Left, false, 2.0, 1.5);
    f.board.DrawingBoard_MouseUp(Button::Left, false, 2.0, 1.5);
    // The box was 1 by 1: the zoom is the board's smaller side.
    EXPECT_NEAR(f.doc.ZoomScale, f.doc.ScaleHeight, 1e-5);
    const auto& l = f.doc.Lines[0];
    EXPECT_NEAR(l.EndPt.X - l.StartPt.X, f.doc.ScaleHeight, 1e-4);
    EXPECT_NEAR(l.MidPt.X, f.doc.ScaleWidth / 2, 1e-4);
}

TEST(BoardState, ZoomButtonsAndFitLeaveCalculationForDraw) {
    Fixture f;
    Viewport::Add_Drawn_Line(f.doc, {1, 1, 0}, {2, 2, 0});
    f.board.Set_Mode(CALCULATION);
    const float fitted = f.doc.ZoomScale;
    f.board.Zoom_Button(1.05f);
    EXPECT_EQ(f.board.Mode().Index(), DRAW);
    EXPECT_FLOAT_EQ(f.doc.ZoomScale, fitted * 1.05f);
    f.board.ZoomExtentButton_Click();
    EXPECT_NEAR(f.doc.Lines[0].MidPt.X, f.doc.ScaleWidth / 2, 1e-4);
}

}  // namespace
