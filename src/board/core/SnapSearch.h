// Object snap and the ortho constraint: where a pointer position lands once
// it is pulled onto the geometry of the drawing. Plain geometry over the
// document, in board units, so that a snap radius on the screen stays the
// same whatever the zoom.
#pragma once

#include <cstdint>
#include <string>

#include "board/core/Viewport.h"

namespace Viewport {

// The snap modes, in the order of the snap buttons.
namespace SnapKind {
constexpr int16_t Free = 0;
constexpr int16_t EndPoint = 1;
constexpr int16_t MidPoint = 2;
constexpr int16_t Nearest = 3;
constexpr int16_t Intersection = 4;
constexpr int16_t Perpendicular = 5;
}  // namespace SnapKind

// Reach of each snap. The line tests measure path slack (Find_Line), the
// point tests plain distance, hence the very different figures.
namespace SnapTolerance {
constexpr float EndLine = 0.0025f;  // EndPoint: a line under the pointer
constexpr float EndPoint = 0.05f;   // EndPoint: an end within this distance
constexpr float MidPoint = 0.001f;
constexpr float Nearest = 0.0001f;
constexpr float Intersection = 0.1f;
constexpr float Perpendicular = 0.01f;
}  // namespace SnapTolerance

// Looks for a snap point near the pointer (x, y). `out` starts as the pointer
// and holds the snapped point on a hit. `base` is the point a perpendicular
// is dropped from. True when a snap point was found.
bool Snap_Point(const LayoutDocument& doc, float x, float y, int16_t mode, PointRec& out, const PointRec& base);

// The snap mode a pointer move runs with: a perpendicular needs a point to
// drop it from, so without one it runs as a free move.
int16_t Effective_SnapMode(int16_t snapMode, bool haveBase);

// With `ortho`, pulls (x, y) onto the horizontal or vertical through `base`,
// whichever is nearer; an exact diagonal stays. `out` gets the point as
// singles with Flag 0.
void Ortho_Point(const PointRec& base, double x, double y, bool ortho, PointRec& out);

// The word of a snap mode in the status bar ("" for Free Snap).
std::string Snap_Label(int16_t mode);
// The caption of a snap option button and of its menu entry.
std::string Snap_ButtonCaption(int16_t mode);
std::string Snap_MenuCaption(int16_t mode);
// The status bar's snap panel: "" when nothing was found.
std::string Snap_Status(bool found, int16_t mode);
// The status bar's coordinate panel for a board position.
std::string Coordinate_Status(const LayoutDocument& doc, double x, double y);

}  // namespace Viewport
