// What every solve of a group gives, whichever the subsystem and the model:
// the value, how the solve ended, the instantaneous center and room for the
// force on each element. weld::SolveResult and bolt::SolveResult are this
// record, the weld one with what only its run control knows.
#pragma once

#include <cstdint>
#include <vector>

#include "shell/core/ElementForce.h"
#include "shell/core/MotionSolver.h"
#include "shell/core/SolverModel.h"

namespace shell {

struct SolveRecord {
    SolverModel Model = SolverModel::Iterative;  // the model that solved it
    double Value = 0.0;                          // capacity, C or C': 0 when refused or without an equilibrium
    bool Converged = false;      // the iteration met its tolerance; the element model found an equilibrium
    bool Concentric = false;     // the load passes through the centroid (zero arm)
    bool Refused = false;        // not solved: nothing to solve, or too large a group
    bool NoEquilibrium = false;  // the element model finds no equilibrium for this load
    double Relaxation = 1.0;     // the iteration's correction factor at the end (1: never relaxed)
    int64_t Passes = 0;          // passes of the iteration; Newton steps of the element model
    // The instantaneous center from the centroid, in the group's own axes,
    // at the end of the solve; at infinity when the group only translates.
    bool CenterAtInfinity = false;
    double CenterX = 0.0, CenterY = 0.0;
    // The force on every element, for pictures of a result; filled only when
    // the solve was asked for it (the options' WithForces).
    std::vector<ElementForce> Forces;

    // The outcome of an element model's solve: converged or not, refused or
    // not, and its motion (at the solution, or at the best point of a solve
    // that found none) with its center taken from (fromX, fromY).
    void SetElementOutcome(bool converged, bool refused, const GroupMotion& motion, double fromX, double fromY) {
        Model = SolverModel::AiscElement;
        Converged = converged;
        Refused = refused;
        NoEquilibrium = !refused && !converged;
        CenterAtInfinity = motion.Translation;
        if (!CenterAtInfinity) {
            CenterX = motion.CenterX - fromX;
            CenterY = motion.CenterY - fromY;
        }
    }
};

}  // namespace shell
