// The one entry for every solve of a bolt group: the bolt window and the
// command line call this, and only here is the model chosen (the program's
// iteration or the AISC element model). A solve takes the pattern, the load
// and the options, and gives one record.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "shell/core/ResultPicture.h"
#include "shell/core/SolveRecord.h"
#include "shell/core/Yield.h"

namespace bolt {

// A rectangular bolt pattern: M rows up at pitch Sv, N columns across at
// gage Sh (inches), laid out about its centroid.
struct BoltPattern {
    int16_t M = 0, N = 0;
    double Sv = 0.0, Sh = 0.0;
};

// The load: at eccentricity Ex (inches) and Angle degrees from the vertical,
// or a pure couple (C', the strongest moment the group resists).
struct BoltLoad {
    double Ex = 0.0, Angle = 0.0;
    bool Couple = false;
};
inline constexpr BoltLoad kCouple{0.0, 0.0, true};

struct SolveOptions {
    shell::SolverModel Model = shell::SolverModel::Iterative;
    bool WithForces = false;  // also give the force on every bolt (SolveRecord::Forces)
};

// The record of shell::SolveRecord. Value is C, the load as a multiple of
// one bolt's strength, or for a couple C', in the unit of the spacings. The
// iteration always ends converged; the element model may find no
// equilibrium (one bolt under a moment). The center is taken from the
// centroid, x across and y up.
using SolveResult = shell::SolveRecord;

// Solves the pattern under the load. The iteration lets window events run
// through `yield` at every bolt and pass; the element model never yields.
SolveResult Solve(const BoltPattern& pattern, const BoltLoad& load, const SolveOptions& options,
                  const shell::YieldFn& yield = nullptr);

// The cross-check of a result solved with `options`: a call that solves the
// same case by the model it is checked against (shell::CrossCheckModel) and
// gives its value, or nothing without an equilibrium; it owns copies of all
// it reads. Empty when the model has no cross-check.
std::function<std::optional<double>()> CrossCheck(const BoltPattern& pattern, const BoltLoad& load,
                                                  const SolveOptions& options);

}  // namespace bolt

namespace bolt {

// The pattern's bolts for a picture of a result, laid out as the solvers lay
// them out (about the centroid, x across, y up); none when the pattern is no
// count of bolts from 1 to 32,767.
ResultPicture::Outline Pattern_Outline(const BoltPattern& pattern);
// The center from the centroid in inches, and the largest bolt force as a
// share of one bolt's strength.
ResultPicture::Labels Pattern_Labels(const SolveResult& result);

}  // namespace bolt
