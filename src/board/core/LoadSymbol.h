// The load symbol of the calculation display: an anchor and an arrow for the
// load P at its angle Ø, and a dimension from the group's center of gravity
// to the load with the eccentricity written under it. It is only a picture
// of the load record; nothing here feeds the solver.
#pragma once

#include <cstdint>
#include <string>

#include "board/core/DrawSurface.h"
#include "board/core/LayoutDocument.h"

namespace LoadSymbol {

using board::DrawSurface;
using Layout::LineTable;
using Layout::PointRec;

// Draws the whole symbol for the group `lines`: the load anchored at
// `loadPoint` on side `loadSide` (0 left of the group, 1 right), at
// `loadAngle` degrees from the vertical, `eccentricity` feet from the center
// of gravity. Nothing is drawn for an empty table.
void Draw_LoadSymbol(DrawSurface& board, const LineTable& lines, const PointRec& loadPoint, int16_t loadSide,
                     double loadAngle, double eccentricity);

// The arrow from the anchor: a circle at the anchor, the shaft, the head and
// "P" beyond it, and the angle beside the shaft unless it is 0. Up serves an
// arrow that rises on the board, Down one that falls or lies flat; on the
// left side the direction is mirrored, as the solver mirrors the group.
void Draw_LoadArrowUp(DrawSurface& board, const PointRec& anchor, int16_t loadSide, double loadAngle);
void Draw_LoadArrowDown(DrawSurface& board, const PointRec& anchor, int16_t loadSide, double loadAngle);

// Places the load beside the group at the present view: a margin of half
// the group's left offset (at most half the board's height), on side
// `loadSide` (0 left, 1 right), at the height of the group's center of
// gravity. A board without lines gets no load placed.
void Place_Beside(Layout::LayoutDocument& doc, int16_t loadSide);

// An angle in the format "0.####" without a dangling point: 30 gives "30",
// 22.5 gives "22.5".
std::string Angle_Text(double degrees);

}  // namespace LoadSymbol
