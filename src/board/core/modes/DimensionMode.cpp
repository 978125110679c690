#include <cmath>

#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

void DimensionMode::Enter(bool /*again*/) { board_.Set_Pointer(board::Pointer::Cross); }

PromptLine DimensionMode::Prompt() const {
    static const char* const kPrompts[] = {"[Pick First Dimension Point]", "[Pick Second Dimension Point]",
                                           "[Pick Dimension Position]"};
    return {clicks_ <= 2 ? kPrompts[clicks_] : "", false};
}

void DimensionMode::Cancel() {
    if (clicks_ == 2 || clicks_ == 3) {
        LayoutRender::Band_Line(board_.Surface(), dimension_.DimMid, board_.CurrentPt);
        board_.Surface().Refresh();
    }
    clicks_ = 0;
}

void DimensionMode::KeyDown(Key key) {
    if (key != Key::Escape) return;
    Cancel();
    board_.Show_Prompt();
}

// The two measured points, then the position of the dimension line.
void DimensionMode::Press(Button button, bool /*shift*/, double x, double y) {
    if (button != Button::Left) return;
    DimensionRec& d = dimension_;
    ++clicks_;
    if (clicks_ == 1) {
        d = {};
        d.DimP1 = board_.SnapPt;
    } else if (clicks_ == 2) {
        d.DimP2 = board_.SnapPt;
        d.DimMid =
            Pt((static_cast<double>(d.DimP1.X) + d.DimP2.X) / 2.0, (static_cast<double>(d.DimP1.Y) + d.DimP2.Y) / 2.0);
        d.DimDone = -1;
        board_.CurrentPt = d.DimMid;
    } else {
        Add_Dimension(x, y);
    }
}

// A perpendicular needs a start point, which a dimension never has; the
// position of the dimension line is always held on an axis through the middle.
void DimensionMode::Move(Button /*held*/, double& x, double& y) {
    Board& b = board_;
    const bool found = b.Snap(Viewport::Effective_SnapMode(static_cast<int16_t>(b.SnapMode), false), PointRec{}, x, y);
    b.Snap_Feedback(found, x, y);
    if (clicks_ != 2) {
        b.CurrentPt = Pt(x, y);
        return;
    }
    const PointRec p = Ortho(dimension_.DimMid, x, y, true);
    x = p.X;
    y = p.Y;
    LayoutRender::Band_Line(b.Surface(), dimension_.DimMid, b.CurrentPt);
    b.CurrentPt = p;
    LayoutRender::Band_Line(b.Surface(), dimension_.DimMid, b.CurrentPt);
    b.Surface().Refresh();
}

// The position straight beside the middle measures across, straight above or
// below it along; elsewhere the dimension measures the straight distance.
void DimensionMode::Add_Dimension(double x, double y) {
    LayoutDocument& doc = board_.Doc();
    DimensionRec& d = dimension_;
    const PointRec p = Ortho(d.DimMid, x, y, true);
    d.DimPos = p;
    const double w1x = Viewport::To_WorldX(doc, d.DimP1.X), w2x = Viewport::To_WorldX(doc, d.DimP2.X);
    const double w1y = Viewport::To_WorldY(doc, d.DimP1.Y), w2y = Viewport::To_WorldY(doc, d.DimP2.Y);
    if (p.X == d.DimMid.X) {
        d.DimType = 1;
        d.DimLength = std::fabs(w1x - w2x);
    } else if (p.Y == d.DimMid.Y) {
        d.DimType = 0;
        d.DimLength = std::fabs(w1y - w2y);
    } else {
        d.DimType = 2;
        d.DimLength = std::hypot(w1x - w2x, w1y - w2y);
    }
    Cancel();
    if (d.DimDone != 0) {
        d.Exists = -1;
        if (Viewport::Add_Dim_Slot(doc.Dims)) {
            doc.Dims.back() = d;
            LayoutRender::Draw_Dim(board_.Surface(), d);
            board_.Surface().Refresh();
        }
    }
    d.DimDone = 0;
}

}  // namespace BoardState
