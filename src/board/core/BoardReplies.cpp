// The board's command line and edit commands: typed replies handed to the
// same click procedures a pointer pick uses, and the buttons of the
// selection commands, with what they show routed back to the board.
#include "board/core/BoardState.h"
#include "board/core/Viewport.h"

namespace BoardState {

using CommandLine::ReplyStatus;

Selection::EditHooks Board::Edit_Hooks() {
    Selection::EditHooks h;
    h.Repaint.Draw_Lines = [this] {
        LayoutRender::Draw_Lines(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kSelectedColor, true,
                                 Yield);
        MoveBandShown = SelectBoxShown = false;
    };
    h.Repaint.Draw_Dims = [this] {
        LayoutRender::Draw_Dims(surface_, doc_.Dims);
        surface_.Refresh();
    };
    h.Repaint.Clear_Board = [this] {
        surface_.Cls();
        MoveBandShown = SelectBoxShown = false;
        surface_.Refresh();
    };
    h.Repaint.Yield = Yield;
    h.Paint_Line = [this](const Layout::LineRec& r, int16_t color) {
        LayoutRender::Paint_Line(surface_, r, color);
    };
    h.Paint_Selection = [this](int16_t selected, int16_t other) {
        LayoutRender::Paint_Selection(surface_, doc_.Lines, selected, other);
    };
    h.Renew_Pointer = [this] { Renew_Pointer(); };
    h.Cross_Pointer = [this] { Set_Pointer(board::Pointer::Cross); };
    h.Show_Prompt = [this] { Show_Prompt(); };
    h.Show_Rotate_Marks = [this](const PointRec& p) {
        Ui.Marks.RotBox = {true, p.X, p.Y};
        Ui.Marks.RotLines = true;
    };
    h.Hide_Rotate_Marks = [this] { Hide_Rotate_Marks(); };
    h.Erase_Move_Band = [this] { Erase_Move_Band(); };
    h.Cancel_Band = [this] { Cancel_Band(); };
    h.Focus_CommandBox = [this] { Ui.CommandFocus = true; };
    h.Set_DrawMode = [this] { Set_Mode(DRAW); };
    h.Show_Message = hooks.Show_Message;
    return h;
}

// ---- Command line ---------------------------------------------------------------

void Board::CommandBox_KeyDown(int key, const std::string& text) {
    using CommandLine::CommandRoute;
    switch (
        CommandLine::CommandBox_Route(ActiveMode == DRAW, ActiveMode == SELECTION, static_cast<int16_t>(key), Sel)) {
        case CommandRoute::ReplyDraw:
            Reply_Draw(text);
            break;
        case CommandRoute::CancelSelection:
            Sel.SelectKind = 0;
            Set_Mode(SELECTION);
            break;
        case CommandRoute::ReplyRotate:
            Reply_Rotate(text);
            break;
        case CommandRoute::ReplySelect:
            Reply_Select(text);
            Renew_Pointer();
            break;
        case CommandRoute::ReplyMove:
            Reply_Move(text);
            break;
        default:
            break;
    }
}

void Board::Apply_Reply(const CommandLine::ReplyResult& r, const std::function<void()>& click) {
    switch (r.Status) {
        case ReplyStatus::Point:
            Set_CommandText("");
            TypedX = r.TypedX;
            TypedY = r.TypedY;
            TypedPoint = true;
            click();
            TypedPoint = false;
            break;
        case ReplyStatus::Invalid:
            Set_CommandText(r.BoxText);
            break;
        case ReplyStatus::Failed:
        case ReplyStatus::Done:
            Set_CommandText("");
            break;
        case ReplyStatus::Ignored:
            break;
    }
}

void Board::Reply_Draw(const std::string& text) {
    const CommandLine::PointReplyState st{static_cast<int16_t>(DrawClick), Echo.LastPt, Echo.EchoDistanceDeg,
                                          Echo.EchoDistanceRad};
    Apply_Reply(CommandLine::Reply_Draw(doc_, text, st), [this] { DrawingBoard_MouseDown(Button::Left, false, 0, 0); });
}

void Board::Reply_Move(const std::string& text) {
    const CommandLine::PointReplyState st{Sel.MoveClick, Echo.LastPt, Echo.EchoDistanceDeg, Echo.EchoDistanceRad};
    Apply_Reply(CommandLine::Reply_Move(doc_, text, st), [this] { DrawingBoard_Click(); });
}

void Board::Reply_Rotate(const std::string& text) {
    Apply_Reply(CommandLine::Reply_Rotate(doc_, Sel, text, Edit_Hooks()), [this] { DrawingBoard_Click(); });
    surface_.Refresh();
}

void Board::Reply_Select(const std::string& text) {
    Apply_Reply(CommandLine::Reply_Select(doc_, Sel, text, Edit_Hooks()), [] {});
    surface_.Refresh();
}

// ---- Edit commands ----------------------------------------------------------------

// Starting either command ends the band of a move in progress.
void Board::MoveButton_Click() {
    Erase_Move_Band();
    Selection::MoveButton_Click(doc_, Sel, Edit_Hooks());
}

void Board::RotateButton_Click() {
    Erase_Move_Band();
    Selection::RotateButton_Click(doc_, Sel, Edit_Hooks());
}

void Board::DeleteButton_Click() {
    Selection::DeleteButton_Click(doc_, ActiveMode == CALCULATION, Edit_Hooks());
    surface_.Refresh();
}

void Board::ClearButton_Click() {
    if (Selection::ClearButton_Click(doc_, ActiveMode == CALCULATION, Edit_Hooks())) {
        HoverLine = PrevHover = {};
        HoverDrawn = 0;
        Hide_Marks();
    }
    surface_.Refresh();
}

void Board::ClearDimButton_Click() {
    Selection::ClearDimButton_Click(doc_, ActiveMode == CALCULATION, Edit_Hooks());
    surface_.Refresh();
}

}  // namespace BoardState
