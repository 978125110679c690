#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

using board::Pointer;
using Selection::Kind::Pick;

namespace {

// A box kind is set: window, crossing or remove.
bool Boxing(const Selection::SelectionState& sel) {
    return sel.SelectKind >= Selection::Kind::Window && sel.SelectKind <= Selection::Kind::Remove;
}

bool Pending(const Selection::SelectionState& sel) { return sel.RotatePending || sel.MovePending; }

}  // namespace

void SelectionMode::Enter(bool again) {
    if (!again) board_.Repaint(true);
    board_.Sel.SelectKind = Pick;
    board_.Set_Pointer(Pointer::PickBox);
}

// A move keeps pending across modes; its band comes back with the next move here.
void SelectionMode::Leave(bool again) {
    if (again) return;
    board_.Erase_Move_Band();
    board_.Erase_Select_Box();
}

void SelectionMode::Renew_Pointer() {
    if (&board_.Mode() == this)
        board_.Set_Pointer(board_.Sel.SelectKind == Pick ? Pointer::PickBox : Pointer::WindowBox);
}

PromptLine SelectionMode::Prompt() const {
    const Selection::SelectionState& sel = board_.Sel;
    if (sel.RotatePending)
        return {sel.RotateClick == 1 ? "[Enter Rotation Angle in degrees]" : "[Pick Rotation Base Point]", true};
    if (sel.MovePending) return {sel.MoveClick == 1 ? "[Pick Destination Point]" : "[Pick Base Point]", true};
    if (sel.SelectKind == Pick)
        return {"[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]", true};
    return {sel.CornerPicked ? "[Pick Second Corner Point]" : "[Pick First Corner Point]", true};
}

// Esc unselects everything and sends a pending command back to its first
// step; Delete deletes the selection unless a command is pending.
void SelectionMode::KeyDown(Key key) {
    Board& b = board_;
    if (key == Key::Escape) {
        Selection::Selection_Escape(b.Doc(), b.Sel, b.Edit_Hooks());
        b.Surface().Refresh();
    } else if (key == Key::Delete && !Pending(b.Sel)) {
        b.DeleteButton_Click();
    }
}

// A box with its first corner down, or a move or rotate past its base point.
bool SelectionMode::Busy() const {
    const Selection::SelectionState& sel = board_.Sel;
    return sel.CornerPicked || (sel.MovePending && sel.MoveClick == 1) || (sel.RotatePending && sel.RotateClick == 1);
}

void SelectionMode::Press(Button button, bool /*shift*/, double x, double y) {
    Selection::SelectionState& sel = board_.Sel;
    if (button != Button::Left || Pending(sel) || !Boxing(sel)) return;
    board_.Erase_Select_Box();
    sel.WindowCorner = Pt(x, y);
    board_.CurrentPt = sel.WindowCorner;
    sel.CornerPicked = true;
}

// The steps of a pending command snap; a move pulls its band from the base
// point. A box kind drags its box while the left button is held.
void SelectionMode::Move(Button held, double& x, double& y) {
    Board& b = board_;
    Selection::SelectionState& sel = b.Sel;
    bool found = false;
    if (sel.RotatePending && sel.RotateClick == 0)
        found = b.Snap(Viewport::Effective_SnapMode(static_cast<int16_t>(b.SnapMode), false), PointRec{}, x, y);
    if (sel.MovePending) {
        found = b.Snap(Viewport::Effective_SnapMode(static_cast<int16_t>(b.SnapMode), sel.MoveClick == 1), sel.MoveBase,
                       x, y);
        if (sel.MoveClick != 1) {
            b.CurrentPt = Pt(x, y);
        } else {
            const PointRec p = Ortho(sel.MoveBase, x, y, b.OrthoMode);
            x = p.X;
            y = p.Y;
            b.Erase_Move_Band();
            b.CurrentPt = p;
            b.Draw_Move_Band();
            b.Surface().Refresh();
        }
    }
    b.Snap_Feedback(found, x, y);
    if (held == Button::Left && Boxing(sel) && sel.CornerPicked) {
        b.Erase_Select_Box();
        b.CurrentPt = Pt(x, y);
        LayoutRender::Band_Box(b.Surface(), sel.WindowCorner.X, sel.WindowCorner.Y, b.CurrentPt.X, b.CurrentPt.Y);
        b.SelectBoxShown = true;
        b.Surface().Refresh();
    }
    const LayoutDocument& doc = b.Doc();
    if (sel.RotatePending)
        b.Show_Echo(CommandLine::Echo_RotateBase(doc, sel.RotateClick, x, y));
    else if (!sel.MovePending)
        b.Show_Echo(CommandLine::Echo_Corner(doc, sel.SelectKind, x, y));
    else
        b.Show_Echo(CommandLine::Echo_Move(doc, b.Ui.CommandBoxEnabled, sel.MoveClick, x, y, sel.MoveBase, b.Echo));
}

// The left button ends a box; the right one asks for the selection menu, or
// for the snaps while a command is pending.
PopUp SelectionMode::Release(Button button, bool /*shift*/, double /*x*/, double /*y*/) {
    Board& b = board_;
    Selection::SelectionState& sel = b.Sel;
    if (button == Button::Left && Boxing(sel)) {
        b.Erase_Select_Box();
        Selection::Select_Window(b.Doc(), sel, sel.WindowCorner, b.CurrentPt, sel.SelectKind != Selection::Kind::Remove,
                                 b.Edit_Hooks());
        sel.CornerPicked = false;
        b.Surface().Refresh();
    } else if (button == Button::Right && sel.SelectKind == Pick) {
        return Pending(sel) ? PopUp::Osnap : PopUp::Selection;
    }
    return PopUp::None;
}

// A left click, or a typed point: a step of a pending rotate or move, or
// else a pick that toggles the line under the pointer.
void SelectionMode::Click() {
    Board& b = board_;
    Selection::SelectionState& sel = b.Sel;
    const bool typed = b.TypedPoint;
    if (sel.RotatePending) {
        if (sel.RotateClick == 0)
            Selection::Rotate_Click(sel, typed ? Pt(b.TypedX, b.TypedY) : Pt(b.PointerX, b.PointerY), b.Edit_Hooks());
    } else if (sel.MovePending) {
        const PointRec p = typed ? Pt(b.TypedX, b.TypedY) : b.CurrentPt;
        b.Erase_Move_Band();
        Selection::Move_Click(b.Doc(), sel, p, b.Edit_Hooks());
        b.Surface().Refresh();
    } else if (sel.SelectKind == Pick && b.HoverLine.Found) {
        Selection::Toggle_Line(b.Doc().Lines, b.HoverLine.Index, b.Edit_Hooks());
        b.Surface().Refresh();
    }
}

// Esc starts the selection again; Enter reads the reply the pending command
// waits for: an angle or base point, a point of the move, or a box kind.
void SelectionMode::Reply(Key key, const std::string& text) {
    Board& b = board_;
    Selection::SelectionState& sel = b.Sel;
    if (key == Key::Escape) {
        sel.SelectKind = Pick;
        b.Set_Mode(SELECTION);
    } else if (key != Key::Enter) {
        return;
    } else if (sel.RotatePending) {
        b.Apply_Reply(CommandLine::Reply_Rotate(b.Doc(), sel, text, b.Edit_Hooks()), &Board::DrawingBoard_Click);
        b.Surface().Refresh();
    } else if (sel.MovePending) {
        const CommandLine::PointReplyState st{sel.MoveClick, b.Echo.LastPt, b.Echo.EchoDistanceDeg,
                                              b.Echo.EchoDistanceRad};
        b.Apply_Reply(CommandLine::Reply_Move(b.Doc(), text, st), &Board::DrawingBoard_Click);
    } else {
        b.Apply_Reply(CommandLine::Reply_Select(b.Doc(), sel, text, b.Edit_Hooks()), nullptr);
        b.Surface().Refresh();
        Renew_Pointer();
    }
}

}  // namespace BoardState
