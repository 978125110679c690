// The AISC element model of a weld group, solved to equilibrium. It stands
// beside the program's own iteration (Locate_InstantaneousCenter), which stays
// the default; both are reached through weld::Solve (WeldSolve.h). It it takes the same weld lines, strip, load angle
// and eccentricity, turns the group into the same load frame, and reports the same capacity and coefficient C, but
// gives every element its own deformation limits:
//   theta   angle between the element's force and its axis
//   Du      = 1.087 (theta + 6)^-0.65 w, at most 0.17 w
//   Dm      = 0.209 (theta + 2)^-0.32 w
//   critical ratio c = least Du / r over the weld, element deformation c r
//   p       = c r / Dm
//   R       = 0.60 Fexx (1 + 0.5 sin^1.5 theta) [p (1.9 - 0.9 p)]^0.3 x throat area
// with theta in degrees. Each line is cut into equal elements no longer than
// the strip, along its true length; the critical ratio is taken at the line
// ends, where Du / r is least along every line, so that it does not hang on
// where the last element's midpoint falls. The center is found by the
// equilibrium solver of shell/MotionSolver, which always ends: a group with no equilibrium gives Converged = false and
// a capacity of 0, never a number that does not balance.
#pragma once

#include <cstdint>
#include <vector>

#include "shell/core/ElementForce.h"

#include "shell/core/MotionSolver.h"
#include "weld/core/WeldGroup.h"

namespace WeldElementModel {

struct ElementReport {
    bool Converged = false;                   // an equilibrium was found; Capacity holds it
    bool Concentric = false;                  // the load passes through the centroid (zero arm)
    bool Refused = false;                     // no weld to solve, a bad strip, or too many elements
    double Capacity = 0.0;                    // kips; 0 unless converged
    double CentroidX = 0.0, CentroidY = 0.0;  // of the group, input coordinates
    // The group's motion at the solution (or at the best point of a failed
    // solve), in input coordinates; only its direction is meaningful.
    shell::GroupMotion Motion;
    int32_t Elements = 0;
    int32_t Iterations = 0;  // Newton steps over all starts
    int32_t Starts = 0;
    int32_t Evaluations = 0;  // element force sweeps
    double Residual = 0.0;    // scaled equilibrium residual at the end
    // The force on every element at the solution, from the centroid in the
    // input's axes (only when the options ask WithForces and it converged).
    std::vector<shell::ElementForce> Forces;
};

// Groups beyond this many elements are refused.
constexpr int32_t kMaxElements = 1000000;

// Capacity of a weld group by the element model, for the strip, Fexx and D
// of `options` (its model and display divisor are not read).
ElementReport Solve(const weld::LoadedGroup& group, const weld::SolveOptions& options);

}  // namespace WeldElementModel
