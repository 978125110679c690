#include "board/BoardState.h"

#include <cmath>

#include "board/CartesianModule.h"
#include "board/DimensionModule.h"
#include "shell/Primitives.h"

namespace BoardState {

using board::Pointer;
using CartesianModule::To_WorldX;
using CartesianModule::To_WorldY;

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

bool Something_On_Board(const LayoutDocument& doc) {
    return CartesianModule::Has_Line(doc.Lines) || CartesianModule::Has_Dim(doc.Dims);
}

void Clear_Selection(PublicVariables::LineTable& t) {
    if (CartesianModule::Lines_Empty(t)) return;
    for (auto& r : t) r.Selected = 0;
}

}  // namespace

PointRec Ortho_Point(const PointRec& base, double x, double y, bool ortho) {
    if (ortho) {
        if (std::fabs(y - base.Y) < std::fabs(x - base.X)) y = base.Y;
        if (std::fabs(x - base.X) < std::fabs(y - base.Y)) x = base.X;
    }
    return Pt(x, y);
}

Board::Board(LayoutDocument& doc, board::DrawSurface& surface) : doc_(doc), surface_(surface) {}

void Board::Set_Pointer(Pointer p) {
    Ui.MousePointer = p;
    surface_.SetMousePointer(p);
}

void Board::Set_Mode(int16_t index) {
    Cancel_Band();
    if (ActiveMode == CALCULATION) Repaint(false);
    if (index != SELECTION) {
        LayoutRender::Paint_Selection(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kLineColor);
        Clear_Selection(doc_.Lines);
        surface_.Refresh();
    }
    Ui.CheckedMode = index;
    Ui.LoadParamBoxVisible = false;
    Hide_Rotate_Marks();

    const char* name = "";
    for (const ModeRow& m : kModes)
        if (m.index == index) name = m.name;
    switch (index) {
    case DRAW: ActiveMode = DRAW; Set_Pointer(Pointer::Cross); break;
    case SELECTION:
        if (ActiveMode != SELECTION) Repaint(true);
        ActiveMode = SELECTION;
        SelectKind = 0;
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
        else Ui.LoadParamBoxVisible = !CartesianModule::Lines_Empty(doc_.Lines);
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
        if (RotatePending) {
            p = RotateClick == 1 ? "[Enter Rotation Angle in degrees]" : "[Pick Rotation Base Point]";
        } else if (!MovePending) {
            if (SelectKind == 0)
                p = "[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]";
            else p = CornerPicked ? "[Pick Second Corner Point]" : "[Pick First Corner Point]";
        } else {
            p = MoveClick == 1 ? "[Pick Destination Point]" : "[Pick Base Point]";
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
    Ui.CommandText = on ? "" : kDisabledText;
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

void Board::Hide_Rotate_Marks() { Ui.RotateMarksVisible = false; }

void Board::Hide_Marks() {
    Ui.RotateMarksVisible = false;
    Ui.MarksVisible = false;
}

bool Board::Form_KeyDown(int key) {
    switch (key) {
    case KeyEscape:
        if (ActiveMode == DRAW || ActiveMode == DIMENSION) {
            Cancel_Band();
            Show_Prompt();
        } else if (ActiveMode == SELECTION) {
            LayoutRender::Paint_Selection(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kLineColor);
            Clear_Selection(doc_.Lines);
            if (RotatePending) {
                RotateClick = 0;
                Hide_Rotate_Marks();
            }
            if (hooks.Escape_Selection) hooks.Escape_Selection();
            if (MovePending) {
                MoveClick = 0;
                Hide_Rotate_Marks();
            }
            surface_.Refresh();
        }
        return true;
    case KeyDelete:
        if (ActiveMode == EDIT) {
            if (hooks.Delete_Hover) hooks.Delete_Hover();
            Ui.MarksVisible = false;
            if (CartesianModule::Lines_Empty(doc_.Lines)) doc_.LineCounter = 0;
        } else if (ActiveMode == SELECTION && !RotatePending && !MovePending) {
            if (hooks.DeleteButton_Click) hooks.DeleteButton_Click();
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
    Ui.StatusPanel1 = "  X = " + prim::Format(To_WorldX(doc_, x), "0.00000") + ",   Y = " +
                      prim::Format(To_WorldY(doc_, y), "0.00000");
}

void Board::DrawingBoard_MouseMove(Button button, bool /*shift*/, double x, double y) {
    PointerX = x;
    PointerY = y;
    const bool left = button == Button::Left;
    auto snap = [&](int mode, const PointRec& base) {
        SnapPt = Pt(x, y);
        PointRec out = SnapPt;
        const bool found = mode != 0 && hooks.Snap_Point && hooks.Snap_Point(static_cast<float>(x),
                                                                            static_cast<float>(y), mode, out, base);
        if (found) {
            SnapPt = out;
            x = out.X;
            y = out.Y;
            Ui.MarksVisible = true;
        } else {
            Ui.StatusPanel2.clear();
            Ui.MarksVisible = false;
        }
    };
    switch (ActiveMode) {
    case DIMENSION:
        snap(SnapMode == 5 ? 0 : SnapMode, AnchorPt);
        if (DimClick == 2) {
            const PointRec p = Ortho_Point(DimRec.DimMid, x, y, true);
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
    case DRAW:
        snap(SnapMode == 5 && DrawClick != 1 ? 0 : SnapMode, AnchorPt);
        if (DrawClick == 1) {
            const PointRec p = Ortho_Point(AnchorPt, x, y, OrthoMode);
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
    default: break;
    }
    PointerX = x;
    PointerY = y;
    Status_Coordinates(x, y);
}

void Board::Add_Dimension(double x, double y) {
    auto& d = DimRec;
    const PointRec p = Ortho_Point(d.DimMid, x, y, true);
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
        if (CartesianModule::Add_Dim_Slot(doc_.Dims)) {
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
                PublicVariables::LineRec drawn;
                drawn.StartPt = AnchorPt;
                drawn.EndPt = CurrentPt;
                LayoutRender::Paint_Line(surface_, drawn, LayoutRender::kLineColor);
                CartesianModule::Add_Drawn_Line(doc_, AnchorPt, CurrentPt);
                CartesianModule::Build_Intersections(doc_.Lines, doc_.Intersections, doc_.IntersectionsFound, Yield);
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
            if (!RotatePending && !MovePending && SelectKind >= 1 && SelectKind <= 3) {
                WindowCorner = Pt(x, y);
                CurrentPt = WindowCorner;
                CornerPicked = true;
            }
            break;
        default: break;
        }
    } else if (button == Button::Right && !shift) {
        Cancel_Band();
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
            CartesianModule::RepaintHooks h;
            h.Draw_Lines = [this] {
                LayoutRender::Draw_Lines(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kSelectedColor,
                                         true, Yield);
            };
            h.Draw_Dims = [this] { LayoutRender::Draw_Dims(surface_, doc_.Dims); };
            h.Clear_Board = [this] { surface_.Cls(); };
            h.Yield = Yield;
            CartesianModule::Zoom_Window(doc_, ZoomCorner, CurrentPt, h);
            surface_.Refresh();
        }
        break;
    case SELECTION:
        if (button == Button::Right && SelectKind == 0)
            popup = !RotatePending && !MovePending ? PopUp::Selection : PopUp::Osnap;
        break;
    case DRAW:
        if (button == Button::Right && shift) popup = PopUp::Osnap;
        break;
    case CALCULATION:
        if (LastButton == Button::Left && hooks.Calculation_Click) hooks.Calculation_Click();
        break;
    case PAN:
        if (left && Something_On_Board(doc_)) {
            LayoutRender::Pan_Ghost(surface_, Ghost, x, y, PanFrom.X, PanFrom.Y, true);
            surface_.Cls();
            CartesianModule::Pan_Board(doc_, x - PanFrom.X, y - PanFrom.Y, Yield);
            Repaint(true);
            PanFrom = Pt(x, y);
        }
        break;
    default: break;
    }
    Show_Prompt();
    return popup;
}

void Board::Repaint(bool showSelection) { LayoutRender::Repaint(surface_, doc_, showSelection, Yield); }

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
    CartesianModule::Zoom_Factor(doc_, factor);
    Repaint(true);
    Zoom_Done();
}

void Board::ZoomExtentButton_Click() {
    Cancel_Band();
    if (CartesianModule::Zoom_Fit(doc_, 0.925f)) Repaint(true);
    Zoom_Done();
}

void Board::Reset_View() {
    Set_Mode(DRAW);
    Show_Prompt();
    CartesianModule::Set_Viewport(doc_);
    doc_.Lines = PublicVariables::BlankLines();
    doc_.Dims = PublicVariables::BlankDims();
    surface_.Cls();
    surface_.Refresh();
}

}  // namespace BoardState
