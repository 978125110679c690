// The board's geometry kernel: board <-> world conversion, table counts and
// slots, whole-drawing shift and scale, bounds, centroids, hit tests,
// crossings, and the zoom and pan operations that rewrite the tables.
//
// Board units grow downwards; world inches grow upwards. All stored
// coordinates are singles, so every zoom rounds the drawing a little.
// Statements that can fail (division by zero, overflow on narrowing to a
// single) are skipped: their target keeps its value and the next one runs.
#pragma once

#include <cstdint>
#include <functional>

#include "board/core/LayoutDocument.h"

namespace Viewport {

using Layout::DimTable;
using Layout::HoverRec;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::LineTable;
using Layout::PointRec;
using Layout::PointTable;
using Layout::YieldFn;

// What a zoom needs from the window to repaint the working display. Any of
// them may be left empty (nothing drawn). Build_Intersections between
// Draw_Lines and Draw_Dims is done here, on the document.
struct RepaintHooks {
    std::function<void()> Draw_Lines;          // Draw_Lines(board, Lines, 5, 13, true)
    std::function<void()> Draw_Dims;           // Draw_Dims(board, Dims)
    std::function<void()> Clear_Board;         // clear and refresh the surface
    std::function<bool(bool)> Set_AutoRedraw;  // sets AutoRedraw, returns the old value
    YieldFn Yield;                             // lets window events run inside a long crossing search
    bool FindCrossings = true;                 // false for a fit that another fit follows at once
};

// ---- Conversions (double in, single out) -------------------------------------
float To_WorldX(const LayoutDocument& doc, double x);
float To_WorldY(const LayoutDocument& doc, double y);
float To_BoardX(const LayoutDocument& doc, double x);
float To_BoardY(const LayoutDocument& doc, double y);
// Whether both world coordinates of p fit a single, so that no conversion of
// it fails and turns it to 0. A collapsed view (scale 0, the fit of a lone
// point) converts every point to 0 and counts as fitting.
bool World_Fits(const LayoutDocument& doc, const PointRec& p);

// ---- Counts and slots ---------------------------------------------------------
int16_t Line_Count(const LineTable& t);
int16_t Line_Count(const DimTable& t);
bool Lines_Empty(const LineTable& t);
bool Has_Line(const LineTable& t);
bool Has_Dim(const DimTable& t);
int16_t Selected_Count(const LineTable& t);
int16_t Unselected_Count(const LineTable& t);

// Each takes the blank row of an empty table, or appends a row. False (table
// untouched) when the table already holds the most rows an index can reach.
bool Add_Line_Slot(LineTable& t);
bool Add_Dim_Slot(DimTable& t);
bool Add_Intersection_Slot(PointTable& t);

// Removes one row, keeping the order of the rest; the last row leaves a blank
// table. An index outside the table changes nothing.
void Delete_Line(LineTable& t, int16_t index);
// Keeps the unselected rows in order; with none left the table is blank.
void Delete_Selected(LineTable& t);

// Appends a drawn line from the first pick to the second, as DRAW does: the
// mean as MidPt, the next "Line Number ", the world length; LineCounter grows.
// False (nothing changed) when the table is full.
bool Add_Drawn_Line(LayoutDocument& doc, const PointRec& anchor, const PointRec& current);

// ---- Whole-drawing operations ---------------------------------------------------
void Shift_Lines(LineTable& t, double dx, double dy, bool& ok, const YieldFn& yield = {});
void Scale_Lines(LineTable& t, float f, bool& ok);

// ---- Bounds and measures --------------------------------------------------------
float Min_X(const LineTable& t, bool& found);
float Min_Y(const LineTable& t, bool& found);
float Max_X(const LineTable& t, bool& found);
float Max_Y(const LineTable& t, bool& found);
// Over Lines and Dims together; found is false only when both are empty.
void Bound_MinX(const LayoutDocument& doc, bool& found, float& value);
void Bound_MinY(const LayoutDocument& doc, bool& found, float& value);
void Bound_MaxX(const LayoutDocument& doc, bool& found, float& value);
void Bound_MaxY(const LayoutDocument& doc, bool& found, float& value);

// Sum of the world lengths of all rows, recomputed from the points.
double Line_Total(const LayoutDocument& doc, const LineTable& t);
// Length-weighted centroid in board units; 0 when the total length is 0.
double Centroid_X(const LineTable& t);
double Centroid_Y(const LineTable& t);

// ---- Point tests -----------------------------------------------------------------
HoverRec Find_Line(const LineTable& t, float x, float y, float tol);
bool Find_Intersection(const LayoutDocument& doc, float x, float y, float tol, PointRec& out);
// 1 vertical, 2 horizontal, 4 sloped (exact comparisons).
int16_t Line_Kind(const LineRec& line);
bool Perpendicular_Foot(const LineRec& line, const PointRec& p, PointRec& out);
bool Lines_Cross(const LineRec& a, const LineRec& b, PointRec& out);
// Replaces result by the crossings of every pair of rows, in the order of the
// rows, as far as the table holds them; sets flag when one is found and never
// clears it. Only pairs whose bounding boxes meet are tested. A long search
// calls yield now and then; when a newer search starts inside it (a change of
// the drawing that came in), it stops and leaves result and flag to that one.
void Build_Intersections(const LineTable& t, PointTable& result, bool& flag,
                         const YieldFn& yield = {});

// ---- Viewport, zoom and pan -------------------------------------------------------
void Set_Viewport(LayoutDocument& doc);
void Zoom_Factor(LayoutDocument& doc, float f, const RepaintHooks& hooks = {});
void Zoom_Window(LayoutDocument& doc, const PointRec& a, const PointRec& b,
                 const RepaintHooks& hooks = {});
// Fit to extents. False, with nothing done, when the board holds nothing.
bool Zoom_Fit(LayoutDocument& doc, float k, const RepaintHooks& hooks = {});
// Moves the drawing by (dx, dy) board units and the origin with it.
void Pan_Board(LayoutDocument& doc, double dx, double dy, const YieldFn& yield = {});

}  // namespace Viewport
