// Table operations on the dimension table: moving and scaling with the
// drawing, extents for the fit to extents, and the empty test. Drawing a
// dimension belongs to the window.
#pragma once

#include "board/core/LayoutDocument.h"

namespace Dimensions {

using Layout::DimTable;
using Layout::YieldFn;

// Adds (dx, dy) to the four points of every existing row; lets window events
// run after each row.
void Shift_Dims(DimTable& t, double dx, double dy, bool& ok, const YieldFn& yield = {});
// Multiplies the four points of every existing row by f.
void Scale_Dims(DimTable& t, float f, bool& ok);

// Extremes over DimPos, DimMid, DimP1 and DimP2 of all existing rows; found
// false and 0 for an empty table.
float Dims_MinX(const DimTable& t, bool& found);
float Dims_MinY(const DimTable& t, bool& found);
float Dims_MaxX(const DimTable& t, bool& found);
float Dims_MaxY(const DimTable& t, bool& found);

// True when the table is only its blank row.
bool Dims_Empty(const DimTable& t);

}  // namespace Dimensions
