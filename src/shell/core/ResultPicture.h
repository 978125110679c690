// The picture of a solved group: the instantaneous center as a marked cross
// with its coordinates, the force on every element as an arrow from its
// midpoint (its length in proportion to the force, its colour from the least
// to the most stressed), and a legend with the largest force. One routine
// paints it on any DrawSurface: the board over its calculation display, and
// the small pictures of the capacity, coefficient and bolt windows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/core/DrawSurface.h"
#include "shell/core/SolveRecord.h"

namespace ResultPicture {

// Where the group stands on the surface: the point (x, y) of the group's
// axes (inches from the centroid, Y up) is drawn at
// (OriginX + Scale x, OriginY - Scale y), x negated when MirrorX.
struct Placement {
    double OriginX = 0.0, OriginY = 0.0;  // the centroid on the surface
    double Scale = 1.0;                   // surface units per inch of the group
    bool MirrorX = false;                 // the solver saw the group mirrored (load on the left)
    double X(double gx) const { return OriginX + Scale * (MirrorX ? -gx : gx); }
    double Y(double gy) const { return OriginY - Scale * gy; }
};

// The texts of the picture, written by the caller in its own units.
struct Labels {
    std::string Center;  // beside the center's mark; none when empty
    std::string Legend;  // the largest force; no legend when empty
    uint32_t Text = shell::kWhite;  // colour of the legend's text (black on a white picture)
    bool LegendAtTop = false;       // the legend in the upper right corner (the lower one is taken)
};

// The longest arrow as a share of the shorter side of the surface, and the
// least distance between the midpoints of two arrows drawn (surface units):
// of elements closer together only the most loaded one gets its arrow.
constexpr double kLongestArrow = 0.12;
constexpr double kArrowSpacing = 0.15;
// The colour of the center's mark (bright cyan), which no arrow takes.
constexpr uint32_t kCenterColor = 0xFFFF00;

// What an arrow's length and colour follow: the force per inch of weld, or
// the force of a bolt (Length 0).
double Intensity(const shell::ElementForce& e);
// From blue (0, the least stressed) over green to red (1, the most).
uint32_t StressColor(double share);
// The largest intensity of the record (0 without forces).
double Largest(const shell::SolveRecord& r);

// Arrows, then the center's mark and its text, then the legend in the
// lower right corner. Texts stay inside the surface.
void Draw_Results(shell::DrawSurface& s, const shell::SolveRecord& r, const Placement& p, const Labels& labels);

// The element whose midpoint lies nearest (x, y) on the surface, within
// `tolerance` surface units; -1 when none does.
int Element_At(const shell::SolveRecord& r, const Placement& p, double x, double y, double tolerance);

// A group to show in a small picture of its own: weld lines (x1, y1, x2, y2)
// and bolts (x, y) in the solver's coordinates; Centroid gives the point
// the forces are measured from (lines by length, bolts by count).
struct Outline {
    std::vector<std::array<double, 4>> Lines;
    std::vector<std::array<double, 2>> Bolts;
    void Centroid(double& x, double& y) const;
};

// Fits the outline (with the center when it is near) into a surface of
// w by h units with a margin, the centroid at its place.
Placement Fit(const Outline& o, const shell::SolveRecord& r, double w, double h, bool mirrorX);

// The group (lines in the surface's line colour, bolts as circles) and then
// its results, for the small pictures.
void Draw_Group(shell::DrawSurface& s, const Outline& o, const shell::SolveRecord& r, const Placement& p,
                const Labels& labels);

}  // namespace ResultPicture
