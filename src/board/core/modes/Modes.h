// The seven modes of the board, one class each; the board owns one of each.
#pragma once

#include "board/core/BoardState.h"
#include "board/core/CalculationDisplay.h"
#include "board/core/LayoutRender.h"
#include "board/core/SnapSearch.h"
#include "board/core/modes/BoardMode.h"

namespace BoardState {

using Layout::DimensionRec;
using Layout::PointRec;

// A board position as the singles the records hold.
inline PointRec Pt(double x, double y) {
    PointRec p;
    p.X = static_cast<float>(x);
    p.Y = static_cast<float>(y);
    return p;
}

// (x, y), pulled onto the horizontal or vertical through base with `ortho`.
inline PointRec Ortho(const PointRec& base, double x, double y, bool ortho) {
    PointRec p;
    Viewport::Ortho_Point(base, x, y, ortho, p);
    return p;
}

// DRAW: two picks or typed points make a line; with PolyMode the second
// point starts the next line.
class DrawMode : public BoardMode {
public:
    explicit DrawMode(Board& board) : BoardMode(board, DRAW, "DRAW MODE") {}
    void Enter(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    PopUp Release(Button button, bool shift, double x, double y) override;
    void Reply(Key key, const std::string& text) override;
    PromptLine Prompt() const override;
    void Cancel() override;
    void KeyDown(Key key) override;
    bool Busy() const override { return clicks_ == 1; }

private:
    int clicks_ = 0;   // 1 once the start point is down; 2 only while the line is made
    PointRec anchor_;  // the start point of the line under way
};

// SELECTION: picks and boxes select lines; the steps of a pending move or
// rotate take their points here.
class SelectionMode : public BoardMode {
public:
    explicit SelectionMode(Board& board) : BoardMode(board, SELECTION, "SELECTION MODE") {}
    void Enter(bool again) override;
    void Leave(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    PopUp Release(Button button, bool shift, double x, double y) override;
    void Click() override;
    void Reply(Key key, const std::string& text) override;
    PromptLine Prompt() const override;
    void KeyDown(Key key) override;
    bool Busy() const override;
    void Abandon() override { KeyDown(Key::Escape); }
    bool Selects() const override { return true; }
    // The pick box for picking, the window box while a box kind is set.
    void Renew_Pointer();
};

// DIMENSION: two points and the position of the dimension line.
class DimensionMode : public BoardMode {
public:
    explicit DimensionMode(Board& board) : BoardMode(board, DIMENSION, "DIMENSION MODE") {}
    void Enter(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    PromptLine Prompt() const override;
    void Cancel() override;
    void KeyDown(Key key) override;
    bool Busy() const override { return clicks_ > 0; }

private:
    void Add_Dimension(double x, double y);
    int clicks_ = 0;          // picks done; 3 only while the dimension is made
    DimensionRec dimension_;  // the dimension under construction
};

// EDIT: the line under the pointer lights up with its grips; a double or a
// right click opens its line data, Delete removes it.
class EditMode : public BoardMode {
public:
    explicit EditMode(Board& board) : BoardMode(board, EDIT, "EDIT MODE") {}
    void Enter(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    void DoubleClick() override;
    PromptLine Prompt() const override;
    void KeyDown(Key key) override;
};

// PAN: a drag moves the drawing, its ghost frame following the pointer.
class PanMode : public BoardMode {
public:
    explicit PanMode(Board& board) : BoardMode(board, PAN, "PAN MODE") {}
    void Enter(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    PopUp Release(Button button, bool shift, double x, double y) override;
    PromptLine Prompt() const override;

private:
    PointRec from_;
    LayoutRender::PanGhost ghost_;
};

// ZOOM: a dragged box fills the board.
class ZoomMode : public BoardMode {
public:
    explicit ZoomMode(Board& board) : BoardMode(board, ZOOM, "ZOOM MODE") {}
    void Enter(bool again) override;
    void Press(Button button, bool shift, double x, double y) override;
    void Move(Button held, double& x, double& y) override;
    PopUp Release(Button button, bool shift, double x, double y) override;
    PromptLine Prompt() const override;

private:
    PointRec corner_;
    bool boxShown_ = false;
};

// CALCULATION: the calculation display with the load, whose side a click picks.
class CalculationMode : public BoardMode {
public:
    explicit CalculationMode(Board& board) : BoardMode(board, CALCULATION, "CALCULATION MODE") {}
    void Enter(bool again) override;
    void Leave(bool again) override;
    void Click() override;
    void Move(Button held, double& x, double& y) override;
    PromptLine Prompt() const override;
    void Redisplay() override;
    void Zoomed() override { board_.Set_Mode(DRAW); }
    void Load_Changed() override;
    bool ShowsWorkingDisplay() const override { return false; }
    CalculationView::CalcState& Display() { return display_; }
    const CalculationView::CalcState& Display() const { return display_; }

private:
    CalculationView::CalcState display_;
};

}  // namespace BoardState
