#include "board/core/SelectionCommands.h"

#include <algorithm>
#include <cmath>

#include "shell/core/GuardedMath.h"

namespace Selection {

using guarded::Narrow;

namespace {

template <class Fn, class... Args>
void Call(const Fn& fn, Args&&... args) {
    if (fn) fn(std::forward<Args>(args)...);
}

bool Ask(const EditHooks& hooks, const BoardMessages::BoardMessage& m) {
    return hooks.Show_Message ? hooks.Show_Message(m) : false;
}

// Draw_Lines, Build_Intersections, Draw_Dims: the repaint after a change of
// the drawing.
void Repaint(LayoutDocument& doc, const EditHooks& hooks) {
    Call(hooks.Repaint.Draw_Lines);
    Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound, hooks.Repaint.Yield);
    Call(hooks.Repaint.Draw_Dims);
}

void SetMean(PointRec& mid, const PointRec& a, const PointRec& b) {
    Narrow((static_cast<double>(a.X) + b.X) / 2.0, mid.X);
    Narrow((static_cast<double>(a.Y) + b.Y) / 2.0, mid.Y);
}

bool Inside(const PointRec& p, float minX, float maxX, float minY, float maxY) {
    return p.X >= minX && p.X <= maxX && p.Y >= minY && p.Y <= maxY;
}

LineRec Side(float x1, float y1, float x2, float y2) {
    LineRec l;
    l.StartPt.X = x1;
    l.StartPt.Y = y1;
    l.EndPt.X = x2;
    l.EndPt.Y = y2;
    l.Exists = -1;
    return l;
}

void TurnPoint(PointRec& p, const PointRec& base, double c, double s) {
    const double px = static_cast<double>(p.X) - base.X;
    const double py = static_cast<double>(p.Y) - base.Y;
    Narrow(base.X + c * px - s * py, p.X);
    Narrow(base.Y + s * px + c * py, p.Y);
}

bool StartCommand(const LayoutDocument& doc, const EditHooks& hooks) {
    if (Viewport::Lines_Empty(doc.Lines) || Viewport::Selected_Count(doc.Lines) == 0) {
        Ask(hooks, BoardMessages::kNoSelection);
        return false;
    }
    return true;
}

}  // namespace

// ---- Selection ------------------------------------------------------------------

void Toggle_Line(LineTable& t, int16_t index, const EditHooks& hooks) {
    if (index < 0 || static_cast<size_t>(index) >= t.size() || t[index].Exists == 0) return;
    LineRec& r = t[index];
    r.Selected = r.Selected != 0 ? 0 : -1;
    Call(hooks.Paint_Line, r, r.Selected != 0 ? kColorSelected : kColorUnselected);
}

void Select_Window(LayoutDocument& doc, SelectionState& st, const PointRec& a, const PointRec& b, bool value,
                   const EditHooks& hooks) {
    const float minX = std::min(a.X, b.X), maxX = std::max(a.X, b.X);
    const float minY = std::min(a.Y, b.Y), maxY = std::max(a.Y, b.Y);
    const LineRec sides[4] = {Side(minX, minY, maxX, minY), Side(maxX, minY, maxX, maxY), Side(maxX, maxY, minX, maxY),
                              Side(minX, maxY, minX, minY)};
    const int16_t flag = value ? -1 : 0;

    if (!Viewport::Lines_Empty(doc.Lines)) {
        for (LineRec& r : doc.Lines) {
            const bool inside = Inside(r.StartPt, minX, maxX, minY, maxY) && Inside(r.EndPt, minX, maxX, minY, maxY);
            if (inside) r.Selected = flag;
            if (st.SelectKind == Kind::Crossing || st.SelectKind == Kind::Remove) {
                for (const LineRec& side : sides) {
                    PointRec p;
                    if (Viewport::Lines_Cross(side, r, p)) {
                        r.Selected = flag;
                        break;
                    }
                }
            }
        }
        Call(hooks.Paint_Selection, kColorSelected, kColorUnselected);
    }
    st.SelectKind = Kind::Pick;
    Call(hooks.Renew_Pointer);
}

void Select_All(LayoutDocument& doc, SelectionState& st, const EditHooks& hooks) {
    if (!Viewport::Lines_Empty(doc.Lines)) {
        // One row at a time, painted after each, as the selection grows on screen.
        for (LineRec& r : doc.Lines) {
            r.Selected = -1;
            Call(hooks.Paint_Selection, kColorSelected, kColorUnselected);
        }
    }
    st.SelectKind = Kind::Pick;
    Call(hooks.Renew_Pointer);
}

void Clear_Selection(LineTable& t) {
    if (Viewport::Lines_Empty(t)) return;
    for (LineRec& r : t) r.Selected = 0;
}

void Selection_Escape(LayoutDocument& doc, SelectionState& st, const EditHooks& hooks) {
    Call(hooks.Paint_Selection, kColorUnselected, kColorUnselected);
    Clear_Selection(doc.Lines);
    if (st.RotatePending) {
        st.RotateClick = 0;
        Call(hooks.Hide_Rotate_Marks);
    }
    if (st.MovePending) {
        Call(hooks.Erase_Move_Band);
        st.MoveClick = 0;
        Call(hooks.Hide_Rotate_Marks);
    }
}

HoverRec Hover_Line(const LayoutDocument& doc, float x, float y, bool selectionMode) {
    return Viewport::Find_Line(doc.Lines, x, y, selectionMode ? kHoverToleranceSelection : kHoverTolerance);
}

std::string Hover_Status(const HoverRec& hover) {
    return hover.Found ? "  Line Found   <Line ID:  " + hover.Line.LineName + ">" : "";
}

std::string Hover_ToolTip(const HoverRec& hover) {
    // The row's index from 0, so it usually reads one less than the line's ID.
    return hover.Found ? "Line Number " + std::to_string(hover.Index) : "";
}

// ---- Move and rotate ---------------------------------------------------------

void Move_Selected(const PointRec& from, const PointRec& to, LineTable& t) {
    const double dx = static_cast<double>(to.X) - from.X;
    const double dy = static_cast<double>(to.Y) - from.Y;
    for (LineRec& r : t) {
        if (r.Selected == 0) continue;
        Narrow(r.EndPt.X + dx, r.EndPt.X);
        Narrow(r.EndPt.Y + dy, r.EndPt.Y);
        Narrow(r.StartPt.X + dx, r.StartPt.X);
        Narrow(r.StartPt.Y + dy, r.StartPt.Y);
        SetMean(r.MidPt, r.StartPt, r.EndPt);
    }
}

void Rotate_Selected(const PointRec& base, LineTable& t, double angle) {
    if (!std::isfinite(angle)) return;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    for (LineRec& r : t) {
        if (r.Selected == 0) continue;
        TurnPoint(r.StartPt, base, c, s);
        TurnPoint(r.EndPt, base, c, s);
        SetMean(r.MidPt, r.StartPt, r.EndPt);
    }
}

bool MoveButton_Click(const LayoutDocument& doc, SelectionState& st, const EditHooks& hooks) {
    Call(hooks.Hide_Rotate_Marks);
    st.RotateClick = 0;
    st.RotatePending = false;
    if (!StartCommand(doc, hooks)) return false;
    st.MoveClick = 0;
    Call(hooks.Cross_Pointer);
    st.MovePending = true;
    Call(hooks.Show_Prompt);
    Call(hooks.Focus_CommandBox);
    return true;
}

bool RotateButton_Click(const LayoutDocument& doc, SelectionState& st, const EditHooks& hooks) {
    Call(hooks.Hide_Rotate_Marks);
    st.MoveClick = 0;
    st.MovePending = false;
    if (!StartCommand(doc, hooks)) return false;
    st.RotateClick = 0;
    st.RotatePending = true;
    Call(hooks.Show_Prompt);
    Call(hooks.Focus_CommandBox);
    return true;
}

void Move_Click(LayoutDocument& doc, SelectionState& st, const PointRec& point, const EditHooks& hooks) {
    if (!st.MovePending) return;
    if (st.MoveClick == 0) {
        st.MoveBase = point;
        st.MoveClick = 1;
        Call(hooks.Show_Prompt);
        return;
    }
    if (st.MoveClick != 1) return;
    st.MoveDest = point;
    st.MoveClick = 2;
    Move_Selected(st.MoveBase, st.MoveDest, doc.Lines);
    Repaint(doc, hooks);
    Call(hooks.Renew_Pointer);
    st.MoveClick = 0;
    st.MovePending = false;
    Call(hooks.Show_Prompt);
}

void Rotate_Click(SelectionState& st, const PointRec& point, const EditHooks& hooks) {
    if (!st.RotatePending || st.RotateClick != 0) return;
    st.RotateBase = point;
    Call(hooks.Show_Rotate_Marks, st.RotateBase);
    st.RotateClick = 1;
    Call(hooks.Show_Prompt);
}

void Finish_Rotate(LayoutDocument& doc, SelectionState& st, double angle, const EditHooks& hooks) {
    Rotate_Selected(st.RotateBase, doc.Lines, angle);
    Repaint(doc, hooks);
    Call(hooks.Hide_Rotate_Marks);
    st.RotateClick = 0;
    st.RotatePending = false;
    Call(hooks.Show_Prompt);
}

// ---- Deleting ---------------------------------------------------------------------

void DeleteButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks) {
    if (Viewport::Lines_Empty(doc.Lines)) {
        Ask(hooks, BoardMessages::kNoSelection);
        return;
    }
    const int16_t selected = Viewport::Selected_Count(doc.Lines);
    if (selected != Viewport::Line_Count(doc.Lines) || Viewport::Line_Count(doc.Dims) != 0) {
        // With dimensions on the board, deleting every line keeps them, asks
        // nothing and lets the numbering run on.
        if (selected > 0) {
            Viewport::Delete_Selected(doc.Lines);
            Repaint(doc, hooks);
        }
        Call(hooks.Focus_CommandBox);
        return;
    }
    ClearButton_Click(doc, inCalculation, hooks);
}

bool ClearButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks) {
    if (Viewport::Lines_Empty(doc.Lines) && Viewport::Line_Count(doc.Dims) == 0) {
        Call(hooks.Repaint.Clear_Board);
        Ask(hooks, BoardMessages::kBoardEmpty);
        return false;
    }
    const bool yes = Ask(hooks, BoardMessages::kConfirmDeleteAll);
    if (yes) {
        doc.LineCounter = 0;
        Call(hooks.Cancel_Band);
        Call(hooks.Repaint.Clear_Board);
        doc.Lines = Layout::BlankLines();
        doc.Dims = Layout::BlankDims();
        // The crossings belong to the lines that are gone: an intersection
        // snap must not find them on the empty board.
        doc.Intersections = Layout::BlankPoints();
        Viewport::Set_Viewport(doc);
        doc.Load.LoadPlaced = 0;
        if (inCalculation) Call(hooks.Set_DrawMode);
    }
    Call(hooks.Focus_CommandBox);
    return yes;
}

void ClearDimButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks) {
    doc.Dims = Layout::BlankDims();
    if (inCalculation) return;
    Call(hooks.Repaint.Draw_Lines);
    Call(hooks.Repaint.Draw_Dims);
}

bool Delete_Hover(LayoutDocument& doc, HoverRec& hover, HoverRec& prevHover, bool& hoverShown,
                  const EditHooks& hooks) {
    if (!hover.Found) return false;
    hover.Found = false;
    prevHover.Found = false;
    Viewport::Delete_Line(doc.Lines, hover.Index);
    Repaint(doc, hooks);
    hoverShown = false;
    return true;
}

void Edit_DeleteKey(LayoutDocument& doc, HoverRec& hover, HoverRec& prevHover, bool& hoverShown,
                    const EditHooks& hooks) {
    Delete_Hover(doc, hover, prevHover, hoverShown, hooks);
    if (Viewport::Lines_Empty(doc.Lines)) doc.LineCounter = 0;
}

}  // namespace Selection
