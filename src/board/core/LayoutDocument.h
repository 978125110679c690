// The layout document of the drawing board: its records, its tables and the
// viewport in which the coordinates were taken. The main window owns one
// LayoutDocument and hands it to the procedures of Viewport,
// Dimensions and LayoutFile.
#pragma once

#include <cfloat>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/core/Yield.h"

namespace Layout {

// One point in board units (Y grows downwards). Flag is true only in an entry
// of Intersections that holds a crossing.
struct PointRec {
    float X = 0.0f;
    float Y = 0.0f;
    int16_t Flag = 0;
};

// One weld line. EndPt is the second point picked, StartPt the first.
struct LineRec {
    PointRec EndPt;
    PointRec StartPt;
    PointRec MidPt;
    int16_t Exists = 0;
    int16_t Selected = 0;
    std::string LineName;  // UTF-8 in memory, Windows-1252 on disk
    double Length = 0.0;   // world inches when made or last edited
};

// One dimension. DimType 0 measures vertically, 1 horizontally, 2 straight.
struct DimensionRec {
    PointRec DimP1;
    PointRec DimP2;
    PointRec DimMid;
    PointRec DimPos;
    int16_t DimType = 0;
    int16_t DimDone = 0;
    double DimLength = 0.0;
    int16_t Exists = 0;
    int16_t DimSpare = 0;
};

// The one load of a layout. LoadSide 0 = left of the group, 1 = right;
// LoadEccentricity in feet, LoadAngle in degrees.
struct LoadRec {
    int16_t LoadSide = 0;
    PointRec LoadPoint;
    double LoadAngle = 0.0;
    double LoadEccentricity = 0.0;
    int16_t LoadPlaced = 0;
};

// Result of a hover test: a copy of the row that was hit, its index, and
// whether anything was hit at all.
struct HoverRec {
    LineRec Line;
    int16_t Index = 0;
    bool Found = false;
};

using LineTable = std::vector<LineRec>;
using DimTable = std::vector<DimensionRec>;
using PointTable = std::vector<PointRec>;

using shell::YieldFn;

// The board at its design size: 9,975 by 7,305 twips, in inches.
constexpr double kDesignScaleWidth = 9975.0 / 1440.0;
constexpr double kDesignScaleHeight = 7305.0 / 1440.0;

// The largest magnitude of a load's eccentricity (feet) and angle (degrees):
// that of a single, as every input of them takes it.
constexpr double kMaxLoadValue = FLT_MAX;

// A table row index is a signed 16-bit number: at most 32,767 rows.
constexpr size_t kMaxTableRows = 32767;

// Tables never lose their last row: a blank row 0 with Exists false is the
// empty table.
inline LineTable BlankLines() { return LineTable(1); }
inline DimTable BlankDims() { return DimTable(1); }
inline PointTable BlankPoints() { return PointTable(1); }

struct LayoutDocument {
    LineTable Lines = BlankLines();
    LineTable LinesSaved = BlankLines();
    DimTable Dims = BlankDims();
    DimTable DimsSaved = BlankDims();
    int16_t LineCounter = 0;
    LoadRec Load;

    // Viewport: board units per world inch is ZoomScale * ZoomBase; OriginX is
    // added to X on the way to the board, OriginY subtracted from -Y.
    float ZoomBase = 1.0f;
    float ZoomScale = 1.0f;
    float OriginX = 0.0f;
    float OriginY = static_cast<float>(-kDesignScaleHeight);

    // Derived from Lines by Build_Intersections; never saved.
    PointTable Intersections = BlankPoints();
    bool IntersectionsFound = false;

    // Size of the drawing surface in board units, held as singles as the
    // surface reports them. The window keeps these in step with its surface;
    // the document starts at the design size.
    float ScaleWidth = static_cast<float>(kDesignScaleWidth);
    float ScaleHeight = static_cast<float>(kDesignScaleHeight);
};

}  // namespace Layout
