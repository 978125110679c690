// The AISC element model of a rectangular bolt group, solved to equilibrium,
// beside the program's own iteration (bolt), which stays the
// default. Same pattern, spacings, eccentricity and load angle as
// BoltGroup_C; every bolt follows R = Rult (1 - e^(-10 D))^0.55 with D in
// inches, in proportion to its distance from the instantaneous center, the
// farthest bolt at 0.34 in. The center is found by shell/MotionSolver, so a
// solve always ends; where no equilibrium exists (one bolt under a moment,
// every bolt at one point) the result says so instead of giving a number.
#pragma once

#include <cstdint>
#include <vector>

#include "shell/core/ElementForce.h"
#include "shell/core/MotionSolver.h"

namespace BoltElementModel {

// Deformation of the farthest bolt, inches.
constexpr double kUltimateDeformation = 0.34;

struct BoltReport {
    bool Converged = false;   // an equilibrium was found
    bool Concentric = false;  // zero arm: the bolts share the load equally
    bool Refused = false;     // m x n is not a count of bolts from 1 to 32767
    // C: the load over Rult. C': the couple over Rult, in the unit of the
    // spacings. 0 unless converged.
    double Value = 0.0;
    // Motion at the solution in the group's own axes (x across, y up, origin
    // at the centroid); only its direction is meaningful.
    shell::GroupMotion Motion;
    int32_t Iterations = 0;
    int32_t Starts = 0;
    int32_t Evaluations = 0;
    double Residual = 0.0;
    // The force on every bolt at the solution, in units of Rult (converged
    // solves asked withForces only).
    std::vector<shell::ElementForce> Forces;
};

// C of an m by n group (m bolts up at spacing sv, n across at spacing sh)
// under a load at eccentricity ex and angle `angle` degrees from the vertical.
BoltReport BoltGroup_C(int16_t m, int16_t n, double sv, double sh, double ex, double angle, bool withForces = false);

// C' of the same group: the strongest couple it resists.
BoltReport BoltGroup_CPrime(int16_t m, int16_t n, double sv, double sh, bool withForces = false);

// Force of one bolt at deformation delta (inches), as a fraction of Rult.
double BoltForce(double delta);

}  // namespace BoltElementModel
