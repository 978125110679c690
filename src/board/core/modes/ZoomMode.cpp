#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

void ZoomMode::Enter(bool /*again*/) { board_.Set_Pointer(board::Pointer::Cross); }

PromptLine ZoomMode::Prompt() const { return {"[Specify Zoom Window]", false}; }

void ZoomMode::Press(Button button, bool /*shift*/, double x, double y) {
    if (button != Button::Left) return;
    corner_ = Pt(x, y);
    board_.CurrentPt = corner_;
    boxShown_ = false;
}

// The box follows the pointer while the left button is held.
void ZoomMode::Move(Button held, double& x, double& y) {
    if (held != Button::Left) return;
    Board& b = board_;
    if (boxShown_) LayoutRender::Band_Box(b.Surface(), corner_.X, corner_.Y, b.CurrentPt.X, b.CurrentPt.Y);
    b.CurrentPt = Pt(x, y);
    LayoutRender::Band_Box(b.Surface(), corner_.X, corner_.Y, b.CurrentPt.X, b.CurrentPt.Y);
    boxShown_ = true;
    b.Surface().Refresh();
}

PopUp ZoomMode::Release(Button button, bool /*shift*/, double x, double y) {
    if (button != Button::Left) return PopUp::None;
    Board& b = board_;
    if (boxShown_) LayoutRender::Band_Box(b.Surface(), corner_.X, corner_.Y, b.CurrentPt.X, b.CurrentPt.Y);
    boxShown_ = false;
    b.CurrentPt = Pt(x, y);
    Viewport::Zoom_Window(b.Doc(), corner_, b.CurrentPt, b.Edit_Hooks().Repaint);
    b.Surface().Refresh();
    return PopUp::None;
}

}  // namespace BoardState
