#include "board/core/LayoutRender.h"

#include <cmath>

#include "board/core/Viewport.h"
#include "units/core/ImperialText.h"

namespace board {

uint32_t QBColor(int index) {
    static constexpr uint32_t kTable[16] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                            0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                            0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    return kTable[index & 15];
}

}  // namespace board

namespace LayoutRender {

using board::PenMode;
using board::PenStyle;
using board::QBColor;

namespace {

void SetPen(DrawSurface& b, PenMode mode, PenStyle style, int16_t width) {
    b.DrawMode = mode;
    b.DrawStyle = style;
    b.DrawWidth = width;
}

double Sign(double v) { return v > 0 ? 1.0 : (v < 0 ? -1.0 : 0.0); }

}  // namespace

void Paint_Line(DrawSurface& board, const LineRec& line, int color) {
    SetPen(board, PenMode::Copy, PenStyle::Solid, 3);
    board.Line(line.StartPt.X, line.StartPt.Y, line.EndPt.X, line.EndPt.Y, QBColor(color));
}

void Draw_Lines(DrawSurface& board, const LineTable& t, int color, int selectedColor, bool showSelection,
                const YieldFn& yield) {
    board.Cls();
    for (const LineRec& row : t) {
        SetPen(board, PenMode::Copy, PenStyle::Solid, 3);
        if (row.Exists != 0) {
            const int c = showSelection && row.Selected != 0 ? selectedColor : color;
            board.Line(row.StartPt.X, row.StartPt.Y, row.EndPt.X, row.EndPt.Y, QBColor(c));
        }
        shell::YieldNow(yield);
    }
}

void Paint_Selection(DrawSurface& board, const LineTable& t, int selectedColor, int normalColor) {
    for (const LineRec& row : t) Paint_Line(board, row, row.Selected != 0 ? selectedColor : normalColor);
}

void Draw_Dims(DrawSurface& board, const DimTable& t) {
    for (const DimensionRec& d : t)
        if (d.Exists != 0) Draw_Dim(board, d);
}

void Draw_Dim(DrawSurface& board, const DimensionRec& d) {
    constexpr double kGap = 0.05;
    constexpr double kOverrun = 0.075;
    constexpr double kTick = 1.0 / 16.0;
    SetPen(board, PenMode::Copy, PenStyle::Solid, 1);
    board.ForeColor = board::kDimGrey;
    const PointRec p1 = d.DimP1, p2 = d.DimP2, pos = d.DimPos;
    const std::string text = Imperial::Imperial_Text(d.DimLength / 12.0, 16, 0, 0);
    if (d.DimType == 0) {
        const double s1 = Sign(static_cast<double>(pos.X) - p1.X);
        const double s2 = Sign(static_cast<double>(pos.X) - p2.X);
        board.Line(p1.X + s1 * kGap, p1.Y, pos.X + s1 * kOverrun, p1.Y, board::kDimGrey);
        board.Line(p2.X + s2 * kGap, p2.Y, pos.X + s2 * kOverrun, p2.Y, board::kDimGrey);
        board.Line(pos.X, p1.Y, pos.X, p2.Y, board::kDimGrey);
        Draw_DimLabel(board, pos.X, pos.Y, text, 0);
        Draw_Tick(board, pos.X, p1.Y, kTick);
        Draw_Tick(board, pos.X, p2.Y, kTick);
    } else if (d.DimType == 1) {
        const double s1 = Sign(static_cast<double>(pos.Y) - p1.Y);
        const double s2 = Sign(static_cast<double>(pos.Y) - p2.Y);
        board.Line(p1.X, p1.Y + s1 * kGap, p1.X, pos.Y + s1 * kOverrun, board::kDimGrey);
        board.Line(p2.X, p2.Y + s2 * kGap, p2.X, pos.Y + s2 * kOverrun, board::kDimGrey);
        board.Line(p1.X, pos.Y, p2.X, pos.Y, board::kDimGrey);
        Draw_DimLabel(board, pos.X, pos.Y, text, 1);
        Draw_Tick(board, p1.X, pos.Y, kTick);
        Draw_Tick(board, p2.X, pos.Y, kTick);
    }
    // A straight dimension (type 2) is kept in the table but not drawn.
}

void Draw_Tick(DrawSurface& board, double x, double y, double size) {
    const PenStyle style = board.DrawStyle;
    const PenMode mode = board.DrawMode;
    const uint32_t fore = board.ForeColor;
    const int16_t width = board.DrawWidth;
    SetPen(board, PenMode::Copy, PenStyle::Solid, 3);
    board.ForeColor = board::kDimGrey;
    // A slash through the point, size / 2 to each side.
    const double h = size / 2.0;
    board.Line(x - h, y + h, x + h, y - h, board::kDimGrey);
    board.DrawStyle = style;
    board.DrawMode = mode;
    board.ForeColor = fore;
    board.DrawWidth = width;
}

void Draw_DimLabel(DrawSurface& board, double x, double y, const std::string& text, int orientation) {
    board.FontName = "Tahoma";
    board.FontSize = 8.0;
    board.FontBold = false;
    board.ForeColor = board::kWhite;
    board.CurrentX = x - static_cast<double>(text.size()) * 0.2 / 9.0;
    board.CurrentY = y - (orientation == 0 ? 0.075 : 0.15);
    board.Print(text);
}

void Band_Line(DrawSurface& board, const PointRec& a, const PointRec& b) {
    SetPen(board, PenMode::Invert, PenStyle::Dot, 1);
    board.Line(a.X, a.Y, b.X, b.Y, QBColor(15));
}

void Band_Box(DrawSurface& board, float cx, float cy, float x, float y) {
    SetPen(board, PenMode::Invert, PenStyle::Dot, 1);
    const uint32_t c = QBColor(15);
    board.Line(cx, cy, x, cy, c);
    board.Line(x, cy, x, y, c);
    board.Line(x, y, cx, y, c);
    board.Line(cx, y, cx, cy, c);
}

namespace {
void GhostFigure(DrawSurface& board, double dx, double dy, uint32_t c) {
    const double l = dx + 0.05, t = dy + 0.05;
    const double r = board.ScaleWidth() + dx - 0.05, b = board.ScaleHeight() + dy - 0.05;
    board.Line(l, t, r, t, c);
    board.Line(r, t, r, b, c);
    board.Line(r, b, l, b, c);
    board.Line(l, b, l, t, c);
    const double mx = (l + r) / 2.0, my = (t + b) / 2.0;
    board.Line(mx - 0.15, my, mx + 0.15, my, c);
    board.Line(mx, my - 0.15, mx, my + 0.15, c);
}
}  // namespace

void Pan_Ghost(DrawSurface& board, PanGhost& ghost, double x, double y, float fromX, float fromY, bool final) {
    const double dx = x - fromX, dy = y - fromY;
    if (final) {
        // Ends a drag: the ghost that stands is taken away and none is drawn.
        if (ghost.Shown) {
            SetPen(board, PenMode::Invert, PenStyle::Dot, 1);
            GhostFigure(board, ghost.Dx, ghost.Dy, QBColor(4));
        }
        ghost = PanGhost{};
        return;
    }
    SetPen(board, PenMode::Invert, PenStyle::Dot, 1);
    if (ghost.Shown) GhostFigure(board, ghost.Dx, ghost.Dy, QBColor(4));
    GhostFigure(board, dx, dy, QBColor(4));
    ghost = {true, dx, dy};
}

void Repaint(DrawSurface& board, LayoutDocument& doc, bool showSelection, const YieldFn& yield) {
    Draw_Lines(board, doc.Lines, kLineColor, kSelectedColor, showSelection);
    Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound, yield);
    Draw_Dims(board, doc.Dims);
    board.Refresh();
}

}  // namespace LayoutRender
