#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

void DrawMode::Enter(bool /*again*/) { board_.Set_Pointer(board::Pointer::Cross); }

PromptLine DrawMode::Prompt() const {
    if (clicks_ == 0) return {"[Pick Start Point]      -> Input Format: 'X,Y'", true};
    if (clicks_ == 1) return {"[Pick Next Point]       -> Input Format: 'X,Y' or 'Distance<Angle' or 'Distance'", true};
    return {"", true};
}

void DrawMode::Cancel() {
    if (clicks_ == 1) {
        LayoutRender::Band_Line(board_.Surface(), anchor_, board_.CurrentPt);
        board_.Surface().Refresh();
    }
    clicks_ = 0;
}

void DrawMode::KeyDown(Key key) {
    if (key != Key::Escape) return;
    Cancel();
    board_.Show_Prompt();
}

// The first pick or typed point anchors the line, the second makes it.
void DrawMode::Press(Button button, bool /*shift*/, double /*x*/, double /*y*/) {
    if (button != Button::Left) return;
    Board& b = board_;
    if (++clicks_ == 1) {
        PointRec p = b.SnapPt;
        if (b.TypedPoint) {
            p = Pt(b.TypedX, b.TypedY);
            b.CurrentPt = p;
        }
        anchor_ = p;
        return;
    }
    clicks_ = 0;
    board::DrawSurface& surface = b.Surface();
    LayoutDocument& doc = b.Doc();
    const PointRec old = b.CurrentPt;
    if (b.TypedPoint) b.CurrentPt = Pt(b.TypedX, b.TypedY);
    LayoutRender::Band_Line(surface, anchor_, old);
    Layout::LineRec drawn;
    drawn.StartPt = anchor_;
    drawn.EndPt = b.CurrentPt;
    LayoutRender::Paint_Line(surface, drawn, LayoutRender::kLineColor);
    Viewport::Add_Drawn_Line(doc, anchor_, b.CurrentPt);
    Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound, b.Yield);
    if (b.PolyMode) {
        anchor_ = b.CurrentPt;
        clicks_ = 1;
    }
    surface.Refresh();
}

// The pointer snaps, and after the first point pulls the rubber band, which
// ortho keeps on an axis; the command box echoes it in a form to type.
void DrawMode::Move(Button /*held*/, double& x, double& y) {
    Board& b = board_;
    const bool found =
        b.Snap(Viewport::Effective_SnapMode(static_cast<int16_t>(b.SnapMode), clicks_ == 1), anchor_, x, y);
    b.Snap_Feedback(found, x, y);
    if (clicks_ == 1) {
        const PointRec p = Ortho(anchor_, x, y, b.OrthoMode);
        x = p.X;
        y = p.Y;
        LayoutRender::Band_Line(b.Surface(), anchor_, b.CurrentPt);
        b.CurrentPt = p;
        LayoutRender::Band_Line(b.Surface(), anchor_, b.CurrentPt);
        b.Surface().Refresh();
    } else {
        b.CurrentPt = Pt(x, y);
    }
    b.Show_Echo(
        CommandLine::Echo_Draw(b.Doc(), b.Ui.CommandBoxEnabled, static_cast<int16_t>(clicks_), x, y, anchor_, b.Echo));
}

PopUp DrawMode::Release(Button button, bool shift, double /*x*/, double /*y*/) {
    return button == Button::Right && shift ? PopUp::Osnap : PopUp::None;
}

void DrawMode::Reply(Key key, const std::string& text) {
    if (key != Key::Enter) return;
    Board& b = board_;
    const CommandLine::PointReplyState st{static_cast<int16_t>(clicks_), b.Echo.LastPt, b.Echo.EchoDistanceDeg,
                                          b.Echo.EchoDistanceRad};
    b.Apply_Reply(CommandLine::Reply_Draw(b.Doc(), text, st), &Board::Press_Typed);
}

}  // namespace BoardState
