#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

// The board is cleared for the calculation display, which shows the group
// fitted with its center of gravity and, when it has lines, the load.
void CalculationMode::Enter(bool /*again*/) {
    board_.Set_Pointer(board::Pointer::PickBox);
    board_.Surface().Cls();
    CalculationView::Enter_Calculation(board_, display_);
    board_.Surface().Refresh();
}

// The working display comes back, the selection not shown. Entered again
// (a refresh), the calculation display is made anew over a cleared board at
// once: the working display would only be drawn to be cleared, and its
// crossings are found again when it comes back.
void CalculationMode::Leave(bool again) {
    if (!again) board_.Repaint(false);
}

PromptLine CalculationMode::Prompt() const {
    return {board_.Doc().Load.LoadPlaced != 0
                ? "[Specify 'Load Position', 'Load Rotation Angle' and 'Load Eccentricity']"
                : "[Pick on either Left or Right to specify Load Location]",
            false};
}

// The load goes to the side of the group the click was on.
void CalculationMode::Click() {
    board_.Name_Step("Load Side", false);
    CalculationView::Calculation_Click(board_, display_);
}

// Over a segment of the run's picture the tool tip tells its force.
void CalculationMode::Move(Button /*held*/, double& x, double& y) {
    board_.Surface().SetToolTipText(CalculationView::Results_ToolTip(board_.Doc(), display_.Results, x, y));
}

// The calculation display is made anew for the view as it is now.
void CalculationMode::Redisplay() { board_.Set_Mode(CALCULATION); }

// The symbol shows the load's values, so it is drawn anew when one changes.
// The layout's change test looks at lines and dimensions only: a new load
// alone asks for no save.
void CalculationMode::Load_Changed() {
    if (!Viewport::Lines_Empty(board_.Doc().Lines)) CalculationView::Refresh_Load(board_, display_, 0);
}

}  // namespace BoardState
