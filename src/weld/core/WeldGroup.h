// What every solve of a weld group takes: the lines of the group, the load
// on it, and the options of the solve (which model, the strip, electrode
// strength and weld size).
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "shell/core/SolverModel.h"

namespace weld {

// One straight weld line as the solvers see it, in inches, Y up. Callers fill
// the four coordinates; Angle and Slope are written by the iteration after it
// has rotated its copy of the group.
struct WeldLineRec {
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    double Angle = 0.0;  // LineAngle, radians, -pi/2 .. pi/2
    double Slope = 0.0;  // LineSlope of the two end points
};

using WeldLineTable = std::vector<WeldLineRec>;

// Length of a line as the iteration and the centroids take it (not hypot:
// the bits of every result hang on this form).
inline double ExactLength(const WeldLineRec& ln) {
    const double dy = std::fabs(ln.y2 - ln.y1);
    const double dx = std::fabs(ln.x2 - ln.x1);
    return std::sqrt(dy * dy + dx * dx);
}

// A weld group under one eccentric load.
struct LoadedGroup {
    WeldLineTable Lines;  // inches, Y up (a solve works on a copy)
    double Ex = 0.0;      // eccentricity of the load, inches, on the +x side of the group
    double Angle = 0.0;   // load angle in degrees (0: load along +y)
};

struct SolveOptions {
    shell::SolverModel Model = shell::SolverModel::Iterative;
    // Segments per inch of weld: 4, 8, 16, 32 or 64 (the strip of WeldStripBox).
    int16_t SegmentsPerInch = 32;
    // Electrode strength (ksi) and weld size (in). The capacity is
    // proportional to both, so callers usually solve at 1 and scale.
    double Fexx = 1.0;
    double D = 1.0;
    // Divides only the coordinates the iteration shows through its display hook.
    double DisplayDivisor = 1.0;
    // Also give the force on every segment (SolveRecord::Forces); the
    // solves that do not ask pay nothing for it.
    bool WithForces = false;
};

}  // namespace weld
