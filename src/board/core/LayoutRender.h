// The working display of the board: the weld lines with their pens, the
// selection, the dimensions, and the inverting figures (rubber band, boxes,
// pan ghost) that drawing twice removes.
#pragma once

#include "board/core/DrawSurface.h"
#include "board/core/LayoutDocument.h"

namespace LayoutRender {

using board::DrawSurface;
using Layout::DimensionRec;
using Layout::DimTable;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::LineTable;
using Layout::PointRec;
using Layout::YieldFn;

// Colour numbers of the line pens.
constexpr int kLineColor = 5;
constexpr int kSelectedColor = 13;

// One line with the solid copy pen, width 3, in colour number `color`.
void Paint_Line(DrawSurface& board, const LineRec& line, int color);
// Clears the board and draws every existing row; selected rows in
// `selectedColor` when `showSelection`. Events run after each row.
void Draw_Lines(DrawSurface& board, const LineTable& t, int color, int selectedColor, bool showSelection,
                const YieldFn& yield = {});
// Redraws every row in its selection colour, without clearing.
void Paint_Selection(DrawSurface& board, const LineTable& t, int selectedColor, int normalColor);

void Draw_Dims(DrawSurface& board, const DimTable& t);
void Draw_Dim(DrawSurface& board, const DimensionRec& d);
void Draw_Tick(DrawSurface& board, double x, double y, double size);
void Draw_DimLabel(DrawSurface& board, double x, double y, const std::string& text, int orientation);

// Dotted inverting figures, width 1.
void Band_Line(DrawSurface& board, const PointRec& a, const PointRec& b);
void Band_Box(DrawSurface& board, float cx, float cy, float x, float y);

// The pan ghost: a frame the size of the board moved by (x, y) - from, with a
// cross at its center. Remembers where it stands between calls.
struct PanGhost {
    bool Shown = false;
    double Dx = 0.0, Dy = 0.0;
};
void Pan_Ghost(DrawSurface& board, PanGhost& ghost, double x, double y, float fromX, float fromY, bool final);

// The full repaint of the working display: lines, crossings, dimensions;
// `yield` lets window events run inside a long crossing search.
void Repaint(DrawSurface& board, LayoutDocument& doc, bool showSelection, const YieldFn& yield = {});

}  // namespace LayoutRender
