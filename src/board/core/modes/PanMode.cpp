#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

namespace {

bool Something_On_Board(const LayoutDocument& doc) {
    return Viewport::Has_Line(doc.Lines) || Viewport::Has_Dim(doc.Dims);
}

}  // namespace

void PanMode::Enter(bool /*again*/) { board_.Set_Pointer(board::Pointer::PanHand); }

PromptLine PanMode::Prompt() const { return {"[Pick, Drag and Drop to Pan Drawing]", false}; }

void PanMode::Press(Button button, bool /*shift*/, double x, double y) {
    if (button != Button::Left) return;
    from_ = Pt(x, y);
    ghost_ = {};
}

// While the left button is held the ghost of the board follows the pointer.
void PanMode::Move(Button held, double& x, double& y) {
    if (held != Button::Left || !Something_On_Board(board_.Doc())) return;
    LayoutRender::Pan_Ghost(board_.Surface(), ghost_, x, y, from_.X, from_.Y, false);
    board_.Surface().Refresh();
}

// The drop moves the drawing, and the origin with it, by the drag.
PopUp PanMode::Release(Button button, bool /*shift*/, double x, double y) {
    if (button != Button::Left || !Something_On_Board(board_.Doc())) return PopUp::None;
    board::DrawSurface& surface = board_.Surface();
    LayoutRender::Pan_Ghost(surface, ghost_, x, y, from_.X, from_.Y, true);
    surface.Cls();
    Viewport::Pan_Board(board_.Doc(), x - from_.X, y - from_.Y);
    board_.Repaint(true);
    from_ = Pt(x, y);
    return PopUp::None;
}

}  // namespace BoardState
