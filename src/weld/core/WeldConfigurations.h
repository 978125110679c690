// The nine standard weld configurations of the coefficient calculator: their
// lines, the scale that brings the shortest given length to an inch, and
// their centroids. The coefficient C of a configuration is solved by
// weld::Solve_Coefficient (WeldSolve.h).
//
// A configuration takes the base length L, the second length kL and the
// eccentricity aL (as a length; its sign is dropped). Configuration 1 is two
// coincident vertical lines: its kL is always taken as 0.
#pragma once

#include <cstdint>

#include "weld/core/WeldGroup.h"

namespace weld {

constexpr int16_t kConfigurations = 9;

// The line table of configuration 1 to 9 for already scaled lengths (empty
// for other numbers).
WeldLineTable Config_Lines(int16_t config, double L, double kL);

// Scale of a configuration: its lengths are multiplied by this so that the
// shortest given length is at least one inch (0 when L and kL are both 0).
double Config_Scale(double L, double kL);

// One configuration under its load, as the coefficient window and weld-c
// give it: lengths in inches, the load angle in degrees.
struct StandardConfig {
    int16_t Number = 0;  // 1 to 9
    double L = 0.0, kL = 0.0, aL = 0.0, Angle = 0.0;
};

// A configuration as a solve takes it: scaled lines, the eccentricity |aL|
// times the scale and the load angle; C is per inch of BaseLength.
struct ConfigShape {
    LoadedGroup Group;
    double Scale = 0.0;
    double BaseLength = 0.0;  // L times the scale
};
ConfigShape Config_Shape(const StandardConfig& config);
bool Config_Known(int16_t config);

// The centroid distances of configuration 1 to 9 as the coefficient window
// shows them, in the units of the given L (0 for other numbers): xL from the
// left (from the back on the right for 7 and 9), yL from the bottom (from the
// top leg for 8 and 9).
double Config_xL(int16_t config, double L, double kL);
double Config_yL(int16_t config, double L, double kL);

// Centroid of a line table by exact line lengths (0 for a table of no length).
double Centroid_X(const WeldLineTable& lines);
double Centroid_Y(const WeldLineTable& lines);
// Height of the table (largest y less smallest y, the smallest starting at 0)
// less the y of its centroid: the centroid measured down from the top.
double Centroid_FromTop(const WeldLineTable& lines);

// Whether the coefficient window shows the word Midpoint in place of xL or yL
// for a configuration (1 to 5 both, 6 and 7 only yL).
bool Centroid_IsMidpointX(int16_t config);
bool Centroid_IsMidpointY(int16_t config);

}  // namespace weld
