#include "board/core/modes/Modes.h"

namespace BoardState {

void EditMode::Enter(bool /*again*/) { board_.Set_Pointer(board::Pointer::PickBox); }

PromptLine EditMode::Prompt() const { return {"[Double Click or Right Click on Line Object to Edit]", false}; }

// The line under the pointer lights up with its grips and its name.
void EditMode::Move(Button /*held*/, double& /*x*/, double& /*y*/) {
    Board& b = board_;
    auto& m = b.Ui.Marks;
    if (!b.HoverLine.Found) {
        b.Ui.FindingStatus.clear();
        b.Surface().SetToolTipText("");
        m.StartBox.Visible = m.EndBox.Visible = m.MidBox.Visible = false;
        return;
    }
    b.PrevHover = b.HoverLine;
    b.HoverShown = true;
    b.Ui.FindingStatus = Selection::Hover_Status(b.HoverLine);
    LayoutRender::Paint_Line(b.Surface(), b.HoverLine.Line, LayoutRender::kSelectedColor);
    b.Surface().SetToolTipText(Selection::Hover_ToolTip(b.HoverLine));
    b.Show_Grips(b.HoverLine.Line);
    b.Surface().Refresh();
}

// The right button opens the line data as a double-click does.
void EditMode::Press(Button button, bool shift, double /*x*/, double /*y*/) {
    if (button == Button::Right && !shift) DoubleClick();
}

void EditMode::DoubleClick() {
    if (board_.HoverLine.Found && board_.hooks.Show_LineData) board_.hooks.Show_LineData(board_.HoverLine.Index);
}

// Delete removes the line under the pointer; the numbering starts again once
// the table is empty.
void EditMode::KeyDown(Key key) {
    if (key != Key::Delete) return;
    Board& b = board_;
    b.Name_Step("Delete", true);
    Selection::Edit_DeleteKey(b.Doc(), b.HoverLine, b.PrevHover, b.HoverShown, b.Edit_Hooks());
    b.Ui.Marks.StartBox.Visible = b.Ui.Marks.EndBox.Visible = b.Ui.Marks.MidBox.Visible = false;
    b.Surface().Refresh();
}

}  // namespace BoardState
