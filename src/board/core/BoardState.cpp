#include "board/core/BoardState.h"

#include <cmath>

#include "board/core/Viewport.h"
#include "board/core/Dimensions.h"
#include "board/core/SnapSearch.h"
#include "shell/core/Primitives.h"

namespace BoardState {

using board::Pointer;
using Viewport::Ortho_Point;
using Viewport::To_WorldX;
using Viewport::To_WorldY;

namespace {

struct ModeRow {
    int16_t index;
    const char* name;
};
constexpr ModeRow kModes[] = {{DRAW, "DRAW MODE"},         {SELECTION, "SELECTION MODE"}, {DIMENSION, "DIMENSION MODE"},
                              {EDIT, "EDIT MODE"},         {PAN, "PAN MODE"},             {ZOOM, "ZOOM MODE"},
                              {CALCULATION, "CALCULATION MODE"}};

PointRec Pt(double x, double y) {
    PointRec p;
    p.X = static_cast<float>(x);
    p.Y = static_cast<float>(y);
    return p;
}

PointRec Ortho(const PointRec& base, double x, double y, bool ortho) {
    PointRec p;
    Ortho_Point(base, x, y, ortho, p);
    return p;
}

bool Something_On_Board(const LayoutDocument& doc) {
    return Viewport::Has_Line(doc.Lines) || Viewport::Has_Dim(doc.Dims);
}

void Place(board::BoardMarks::Box& box, const PointRec& p) {
    box.Visible = true;
    box.X = p.X;
    box.Y = p.Y;
}

}  // namespace

Board::Board(LayoutDocument& doc, board::DrawSurface& surface) : doc_(doc), surface_(surface) {}

void Board::Set_Pointer(Pointer p) {
    Ui.MousePointer = p;
    surface_.SetMousePointer(p);
}

// The SELECTION pointer: the pick box for picking, the window box while a box kind is set.
void Board::Renew_Pointer() {
    if (ActiveMode == SELECTION) Set_Pointer(Sel.SelectKind == 0 ? Pointer::PickBox : Pointer::WindowBox);
}

void Board::Set_Mode(int16_t index) {
    Cancel_Band();
    // A move keeps pending across modes; its band comes back with the next move in SELECTION.
    if (ActiveMode == SELECTION && index != SELECTION) {
        Erase_Move_Band();
        Erase_Select_Box();
    }
    if (ActiveMode == CALCULATION) Repaint(false);
    if (index != SELECTION) {
        LayoutRender::Paint_Selection(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kLineColor);
        Selection::Clear_Selection(doc_.Lines);
        surface_.Refresh();
    }
    Ui.CheckedMode = index;
    Ui.LoadParamBoxVisible = false;
    Hide_Rotate_Marks();
    // The lines were painted anew above or are painted anew below.
    Drop_Pointer_Feedback();

    const char* name = "";
    for (const ModeRow& m : kModes)
        if (m.index == index) name = m.name;
    switch (index) {
    case DRAW: ActiveMode = DRAW; Set_Pointer(Pointer::Cross); break;
    case SELECTION:
        if (ActiveMode != SELECTION) Repaint(true);
        ActiveMode = SELECTION;
        Sel.SelectKind = 0;
        Set_Pointer(Pointer::PickBox);
        break;
    case DIMENSION: ActiveMode = DIMENSION; Set_Pointer(Pointer::Cross); break;
    case EDIT: ActiveMode = EDIT; Set_Pointer(Pointer::PickBox); break;
    case PAN: ActiveMode = PAN; Set_Pointer(Pointer::PanHand); break;
    case ZOOM: ActiveMode = ZOOM; Set_Pointer(Pointer::Cross); break;
    case CALCULATION:
        ActiveMode = CALCULATION;
        Set_Pointer(Pointer::PickBox);
        surface_.Cls();
        if (hooks.Enter_Calculation) hooks.Enter_Calculation();
        else Ui.LoadParamBoxVisible = !Viewport::Lines_Empty(doc_.Lines);
        surface_.Refresh();
        break;
    default: break;
    }
    DrawClick = 0;
    DimClick = 0;
    Show_Prompt();
    Ui.DumLabel = std::string("   Active Mode:  ") + name;
}

void Board::Show_Prompt() {
    std::string& p = Ui.CommandName;
    p.clear();
    bool on = false;
    switch (ActiveMode) {
    case DRAW:
        on = true;
        if (DrawClick == 0) p = "[Pick Start Point]      -> Input Format: 'X,Y'";
        else if (DrawClick == 1)
            p = "[Pick Next Point]       -> Input Format: 'X,Y' or 'Distance<Angle' or 'Distance'";
        break;
    case SELECTION:
        on = true;
        if (Sel.RotatePending != 0) {
            p = Sel.RotateClick == 1 ? "[Enter Rotation Angle in degrees]" : "[Pick Rotation Base Point]";
        } else if (Sel.MovePending == 0) {
            if (Sel.SelectKind == 0)
                p = "[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]";
            else p = Sel.CornerPicked != 0 ? "[Pick Second Corner Point]" : "[Pick First Corner Point]";
        } else {
            p = Sel.MoveClick == 1 ? "[Pick Destination Point]" : "[Pick Base Point]";
        }
        break;
    case DIMENSION:
        if (DimClick == 0) p = "[Pick First Dimension Point]";
        else if (DimClick == 1) p = "[Pick Second Dimension Point]";
        else if (DimClick == 2) p = "[Pick Dimension Position]";
        break;
    case EDIT: p = "[Double Click or Right Click on Line Object to Edit]"; break;
    case PAN: p = "[Pick, Drag and Drop to Pan Drawing]"; break;
    case ZOOM: p = "[Specify Zoom Window]"; break;
    case CALCULATION:
        p = doc_.Load.LoadPlaced != 0 ? "[Specify 'Load Position', 'Load Rotation Angle' and 'Load Eccentricity']"
                                      : "[Pick on either Left or Right to specify Load Location]";
        break;
    default: break;
    }
    Ui.CommandBoxEnabled = on;
    Set_CommandText(on ? "" : kDisabledText);
}

void Board::Set_CommandText(const std::string& text) {
    Ui.CommandText = text;
    ++Ui.CommandTextSerial;
}

void Board::Cancel_Band() {
    if (ActiveMode == DRAW && DrawClick == 1) {
        LayoutRender::Band_Line(surface_, AnchorPt, CurrentPt);
        surface_.Refresh();
    } else if (ActiveMode == DIMENSION && (DimClick == 2 || DimClick == 3)) {
        LayoutRender::Band_Line(surface_, DimRec.DimMid, CurrentPt);
        surface_.Refresh();
    }
    DimClick = 0;
    DrawClick = 0;
}

void Board::Hide_Rotate_Marks() {
    Ui.Marks.RotBox.Visible = false;
    Ui.Marks.RotLines = false;
}

void Board::Hide_Marks() { Ui.Marks = {}; }

void Board::Show_Grips(const Layout::LineRec& line) {
    Place(Ui.Marks.StartBox, line.StartPt);
    Place(Ui.Marks.EndBox, line.EndPt);
    Place(Ui.Marks.MidBox, line.MidPt);
}

bool Board::Form_KeyDown(int key) {
    switch (key) {
    case KeyEscape:
        if (ActiveMode == DRAW || ActiveMode == DIMENSION) {
            Cancel_Band();
            Show_Prompt();
        } else if (ActiveMode == SELECTION) {
            Selection::Selection_Escape(doc_, Sel, Edit_Hooks());
            surface_.Refresh();
        }
        return true;
    case KeyDelete:
        if (ActiveMode == EDIT) {
            Selection::Edit_DeleteKey(doc_, HoverLine, PrevHover, HoverDrawn, Edit_Hooks());
            Ui.Marks.StartBox.Visible = Ui.Marks.EndBox.Visible = Ui.Marks.MidBox.Visible = false;
            surface_.Refresh();
        } else if (ActiveMode == SELECTION && Sel.RotatePending == 0 && Sel.MovePending == 0) {
            DeleteButton_Click();
        }
        return true;
    case KeyF8:
        Ui.OrthoBox = !Ui.OrthoBox;
        OrthoBox_Click(Ui.OrthoBox);
        return true;
    case KeyF9:
        Ui.PolyBox = !Ui.PolyBox;
        PolyBox_Click(Ui.PolyBox);
        return true;
    default: return false;
    }
}

void Board::OrthoBox_Click(bool checked) {
    Ui.OrthoBox = checked;
    OrthoMode = checked;
}

void Board::PolyBox_Click(bool checked) {
    Ui.PolyBox = checked;
    PolyMode = checked;
    if (!checked) Cancel_Band();
}

void Board::SnapButton_Click(int index) {
    if (index >= 0 && index <= 5) SnapMode = index;
}

void Board::Status_Coordinates(double x, double y) {
    Ui.StatusPanel1 = Viewport::Coordinate_Status(doc_, x, y);
}

// One snap search at the pointer; on a hit (x, y) move to the snapped point.
bool Board::Snap(int mode, const PointRec& base, double& x, double& y) {
    SnapPt = Pt(x, y);
    PointRec out = SnapPt;
    if (!Viewport::Snap_Point(doc_, static_cast<float>(x), static_cast<float>(y), static_cast<int16_t>(mode),
                                     out, base))
        return false;
    SnapPt = out;
    x = out.X;
    y = out.Y;
    return true;
}

void Board::Snap_Feedback(bool found, double x, double y) {
    Ui.StatusPanel2 = Viewport::Snap_Status(found, static_cast<int16_t>(SnapMode));
    if (found) Place(Ui.Marks.PickBox, Pt(x, y));
    else Ui.Marks.PickBox.Visible = false;
}

// EDIT: the line under the pointer lights up with its grips and its name.
void Board::Hover_Feedback() {
    auto& m = Ui.Marks;
    if (HoverLine.Found == 0) {
        Ui.StatusPanel2.clear();
        surface_.SetToolTipText("");
        m.StartBox.Visible = m.EndBox.Visible = m.MidBox.Visible = false;
        return;
    }
    PrevHover = HoverLine;
    HoverDrawn = -1;
    Ui.StatusPanel2 = Selection::Hover_Status(HoverLine);
    LayoutRender::Paint_Line(surface_, HoverLine.Line, LayoutRender::kSelectedColor);
    surface_.SetToolTipText(Selection::Hover_ToolTip(HoverLine));
    Show_Grips(HoverLine.Line);
    surface_.Refresh();
}

void Board::Draw_Move_Band() {
    LayoutRender::Band_Line(surface_, Sel.MoveBase, CurrentPt);
    MoveBandShown = !MoveBandShown;
}

void Board::Erase_Move_Band() {
    if (MoveBandShown) Draw_Move_Band();
}

void Board::Erase_Select_Box() {
    if (SelectBoxShown)
        LayoutRender::Band_Box(surface_, Sel.WindowCorner.X, Sel.WindowCorner.Y, CurrentPt.X, CurrentPt.Y);
    SelectBoxShown = false;
}

void Board::DrawingBoard_MouseMove(Button button, bool /*shift*/, double x, double y) {
    PointerX = x;
    PointerY = y;
    const bool left = button == Button::Left;
    HoverLine = Selection::Hover_Line(doc_, static_cast<float>(x), static_cast<float>(y),
                                            ActiveMode == SELECTION);
    switch (ActiveMode) {
    case DIMENSION: {
        // A perpendicular needs a start point, which a dimension never has.
        const bool found = Snap(Viewport::Effective_SnapMode(SnapMode, false), AnchorPt, x, y);
        Snap_Feedback(found, x, y);
        if (DimClick == 2) {
            const PointRec p = Ortho(DimRec.DimMid, x, y, true);
            x = p.X;
            y = p.Y;
            LayoutRender::Band_Line(surface_, DimRec.DimMid, CurrentPt);
            CurrentPt = p;
            LayoutRender::Band_Line(surface_, DimRec.DimMid, CurrentPt);
            surface_.Refresh();
        } else {
            CurrentPt = Pt(x, y);
        }
        break;
    }
    case DRAW: {
        const bool found = Snap(Viewport::Effective_SnapMode(SnapMode, DrawClick == 1), AnchorPt, x, y);
        Snap_Feedback(found, x, y);
        if (DrawClick == 1) {
            const PointRec p = Ortho(AnchorPt, x, y, OrthoMode);
            x = p.X;
            y = p.Y;
            LayoutRender::Band_Line(surface_, AnchorPt, CurrentPt);
            CurrentPt = p;
            LayoutRender::Band_Line(surface_, AnchorPt, CurrentPt);
            surface_.Refresh();
        } else {
            CurrentPt = Pt(x, y);
        }
        break;
    }
    case EDIT: Hover_Feedback(); break;
    case PAN:
        if (left && Something_On_Board(doc_)) {
            LayoutRender::Pan_Ghost(surface_, Ghost, x, y, PanFrom.X, PanFrom.Y, false);
            surface_.Refresh();
        }
        break;
    case ZOOM:
        if (left) {
            if (ZoomBoxShown) LayoutRender::Band_Box(surface_, ZoomCorner.X, ZoomCorner.Y, CurrentPt.X, CurrentPt.Y);
            CurrentPt = Pt(x, y);
            LayoutRender::Band_Box(surface_, ZoomCorner.X, ZoomCorner.Y, CurrentPt.X, CurrentPt.Y);
            ZoomBoxShown = true;
            surface_.Refresh();
        }
        break;
    case SELECTION: {
        bool found = false;
        if (Sel.RotatePending != 0 && Sel.RotateClick == 0)
            found = Snap(Viewport::Effective_SnapMode(SnapMode, false), AnchorPt, x, y);
        if (Sel.MovePending != 0) {
            found = Snap(Viewport::Effective_SnapMode(SnapMode, Sel.MoveClick == 1), Sel.MoveBase, x, y);
            if (Sel.MoveClick != 1) {
                CurrentPt = Pt(x, y);
            } else {
                const PointRec p = Ortho(Sel.MoveBase, x, y, OrthoMode);
                x = p.X;
                y = p.Y;
                Erase_Move_Band();
                CurrentPt = p;
                Draw_Move_Band();
                surface_.Refresh();
            }
        }
        Snap_Feedback(found, x, y);
        if (left && Sel.SelectKind >= 1 && Sel.SelectKind <= 3 && Sel.CornerPicked != 0) {
            Erase_Select_Box();
            CurrentPt = Pt(x, y);
            LayoutRender::Band_Box(surface_, Sel.WindowCorner.X, Sel.WindowCorner.Y, CurrentPt.X, CurrentPt.Y);
            SelectBoxShown = true;
            surface_.Refresh();
        }
        break;
    }
    default: break;
    }
    if (HoverLine.Found == 0 && HoverDrawn != 0) {
        HoverDrawn = 0;
        if (PrevHover.Found != 0) {
            LayoutRender::Paint_Line(surface_, PrevHover.Line, LayoutRender::kLineColor);
            surface_.Refresh();
        }
    }
    PointerX = x;
    PointerY = y;
    const bool on = Ui.CommandBoxEnabled;
    if (ActiveMode == DRAW) {
        Show_Echo(CommandLine::Echo_Draw(doc_, on, static_cast<int16_t>(DrawClick), x, y, AnchorPt, Echo));
    } else if (ActiveMode == SELECTION) {
        if (Sel.RotatePending != 0) Show_Echo(CommandLine::Echo_RotateBase(doc_, Sel.RotateClick, x, y));
        else if (Sel.MovePending == 0) Show_Echo(CommandLine::Echo_Corner(doc_, Sel.SelectKind, x, y));
        else Show_Echo(CommandLine::Echo_Move(doc_, on, Sel.MoveClick, x, y, Sel.MoveBase, Echo));
    }
    Status_Coordinates(x, y);
}

void Board::Show_Echo(const CommandLine::EchoResult& e) {
    if (e.SetText) Set_CommandText(e.Text);
    Ui.CommandFocus = Ui.CommandFocus || e.Focus;
    Ui.CommandSelectAll = Ui.CommandSelectAll || e.SelectAll;
}

void Board::Add_Dimension(double x, double y) {
    auto& d = DimRec;
    const PointRec p = Ortho(d.DimMid, x, y, true);
    d.DimPos = p;
    const double w1x = To_WorldX(doc_, d.DimP1.X), w2x = To_WorldX(doc_, d.DimP2.X);
    const double w1y = To_WorldY(doc_, d.DimP1.Y), w2y = To_WorldY(doc_, d.DimP2.Y);
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
    Cancel_Band();
    if (d.DimDone != 0) {
        d.Exists = -1;
        if (Viewport::Add_Dim_Slot(doc_.Dims)) {
            doc_.Dims.back() = d;
            LayoutRender::Draw_Dim(surface_, d);
            surface_.Refresh();
        }
    }
    DimClick = 0;
    d.DimDone = 0;
}

void Board::DrawingBoard_MouseDown(Button button, bool shift, double x, double y) {
    LastButton = button;
    if (button == Button::Left) {
        switch (ActiveMode) {
        case DIMENSION:
            ++DimClick;
            if (DimClick == 1) {
                DimRec = {};
                DimRec.DimP1 = SnapPt;
            } else if (DimClick == 2) {
                DimRec.DimP2 = SnapPt;
                DimRec.DimMid = Pt((static_cast<double>(DimRec.DimP1.X) + DimRec.DimP2.X) / 2.0,
                                   (static_cast<double>(DimRec.DimP1.Y) + DimRec.DimP2.Y) / 2.0);
                DimRec.DimDone = -1;
                CurrentPt = DimRec.DimMid;
            } else {
                Add_Dimension(x, y);
            }
            break;
        case DRAW:
            ++DrawClick;
            if (DrawClick == 1) {
                PointRec p = SnapPt;
                if (TypedPoint) {
                    p = Pt(TypedX, TypedY);
                    CurrentPt = p;
                }
                AnchorPt = p;
            } else {
                DrawClick = 0;
                const PointRec old = CurrentPt;
                if (TypedPoint) CurrentPt = Pt(TypedX, TypedY);
                LayoutRender::Band_Line(surface_, AnchorPt, old);
                Layout::LineRec drawn;
                drawn.StartPt = AnchorPt;
                drawn.EndPt = CurrentPt;
                LayoutRender::Paint_Line(surface_, drawn, LayoutRender::kLineColor);
                Viewport::Add_Drawn_Line(doc_, AnchorPt, CurrentPt);
                Viewport::Build_Intersections(doc_.Lines, doc_.Intersections, doc_.IntersectionsFound, Yield);
                if (PolyMode) {
                    AnchorPt = CurrentPt;
                    DrawClick = 1;
                }
                surface_.Refresh();
            }
            break;
        case PAN:
            PanFrom = Pt(x, y);
            Ghost = {};
            break;
        case ZOOM:
            ZoomCorner = Pt(x, y);
            CurrentPt = ZoomCorner;
            ZoomBoxShown = false;
            break;
        case SELECTION:
            if (Sel.RotatePending == 0 && Sel.MovePending == 0 && Sel.SelectKind >= 1 && Sel.SelectKind <= 3) {
                Erase_Select_Box();
                Sel.WindowCorner = Pt(x, y);
                CurrentPt = Sel.WindowCorner;
                Sel.CornerPicked = -1;
            }
            break;
        default: break;
        }
    } else if (button == Button::Right && !shift) {
        Cancel_Band();
        if (ActiveMode == EDIT) DrawingBoard_DblClick();
    }
    Show_Prompt();
}

PopUp Board::DrawingBoard_MouseUp(Button button, bool shift, double x, double y) {
    PopUp popup = PopUp::None;
    const bool left = button == Button::Left;
    switch (ActiveMode) {
    case ZOOM:
        if (left) {
            if (ZoomBoxShown) LayoutRender::Band_Box(surface_, ZoomCorner.X, ZoomCorner.Y, CurrentPt.X, CurrentPt.Y);
            ZoomBoxShown = false;
            CurrentPt = Pt(x, y);
            Viewport::RepaintHooks h = Edit_Hooks().Repaint;
            Viewport::Zoom_Window(doc_, ZoomCorner, CurrentPt, h);
            surface_.Refresh();
        }
        break;
    case SELECTION:
        if (left && Sel.SelectKind >= 1 && Sel.SelectKind <= 3) {
            Erase_Select_Box();
            Selection::Select_Window(doc_, Sel, Sel.WindowCorner, CurrentPt,
                                           Sel.SelectKind != Selection::Kind::Remove, Edit_Hooks());
            Sel.CornerPicked = 0;
            surface_.Refresh();
        } else if (button == Button::Right && Sel.SelectKind == 0) {
            popup = Sel.RotatePending == 0 && Sel.MovePending == 0 ? PopUp::Selection : PopUp::Osnap;
        }
        break;
    case DRAW:
        if (button == Button::Right && shift) popup = PopUp::Osnap;
        break;
    case PAN:
        if (left && Something_On_Board(doc_)) {
            LayoutRender::Pan_Ghost(surface_, Ghost, x, y, PanFrom.X, PanFrom.Y, true);
            surface_.Cls();
            Viewport::Pan_Board(doc_, x - PanFrom.X, y - PanFrom.Y);
            Repaint(true);
            PanFrom = Pt(x, y);
        }
        break;
    default: break;
    }
    Ui.CommandFocus = true;
    Show_Prompt();
    return popup;
}

void Board::DrawingBoard_Click() {
    if (LastButton != Button::Left) return;
    if (ActiveMode == SELECTION) Selection_Click();
    else if (ActiveMode == CALCULATION && hooks.Calculation_Click) hooks.Calculation_Click();
}

// A left click, or a typed point, in SELECTION: a step of a pending rotate or
// move, or else a pick that toggles the line under the pointer.
void Board::Selection_Click() {
    const bool typed = TypedPoint;
    if (Sel.RotatePending != 0) {
        if (Sel.RotateClick == 0)
            Selection::Rotate_Click(Sel, typed ? Pt(TypedX, TypedY) : Pt(PointerX, PointerY), Edit_Hooks());
    } else if (Sel.MovePending != 0) {
        const PointRec p = typed ? Pt(TypedX, TypedY) : CurrentPt;
        Erase_Move_Band();
        Selection::Move_Click(doc_, Sel, p, Edit_Hooks());
        surface_.Refresh();
    } else if (Sel.SelectKind == 0 && HoverLine.Found != 0) {
        Selection::Toggle_Line(doc_.Lines, HoverLine.Index, Edit_Hooks());
        surface_.Refresh();
    }
}

void Board::DrawingBoard_DblClick() {
    if (ActiveMode != EDIT || HoverLine.Found == 0) return;
    if (hooks.Show_LineData) hooks.Show_LineData(HoverLine.Index);
}

void Board::Repaint(bool showSelection) {
    LayoutRender::Repaint(surface_, doc_, showSelection, Yield);
    MoveBandShown = SelectBoxShown = false;
    Drop_Pointer_Feedback();
}

// After a repaint or a change of mode the last pointer test is out of date:
// the view may have moved, or the hovered line been edited. Every line stands
// in its own colour, so no highlight is left to undo, and the Delete key of
// EDIT finds no line until the pointer moves over one again. The snap box,
// the grips and the texts that told of them go with it.
void Board::Drop_Pointer_Feedback() {
    HoverLine.Found = 0;
    HoverDrawn = 0;
    auto& m = Ui.Marks;
    m.PickBox.Visible = m.StartBox.Visible = m.MidBox.Visible = m.EndBox.Visible = false;
    Ui.StatusPanel2.clear();
    surface_.SetToolTipText("");
}

void Board::RefreshButton_Click() {
    Cancel_Band();
    if (ActiveMode == CALCULATION) Set_Mode(CALCULATION);
    else Repaint(true);
}

void Board::Zoom_Done() {
    if (ActiveMode == CALCULATION) Set_Mode(DRAW);
    Cancel_Band();
    Show_Prompt();
    surface_.Refresh();
}

void Board::Zoom_Button(float factor) {
    Cancel_Band();
    Viewport::Zoom_Factor(doc_, factor);
    Repaint(true);
    Zoom_Done();
}

void Board::ZoomExtentButton_Click() {
    Cancel_Band();
    if (Viewport::Zoom_Fit(doc_, 0.925f)) Repaint(true);
    Zoom_Done();
}

void Board::Reset_View() {
    Set_Mode(DRAW);
    Show_Prompt();
    Viewport::Set_Viewport(doc_);
    doc_.Lines = Layout::BlankLines();
    doc_.Dims = Layout::BlankDims();
    doc_.Intersections = Layout::BlankPoints();
    HoverLine = PrevHover = {};
    HoverDrawn = 0;
    Hide_Marks();
    surface_.Cls();
    MoveBandShown = SelectBoxShown = false;
    surface_.Refresh();
}

}  // namespace BoardState
