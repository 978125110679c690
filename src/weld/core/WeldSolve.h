// The one entry for every solve of a weld group: the windows, the hand-over
// of the board and the command line call these, and only here is the model
// chosen (the program's iteration or the AISC element model). A solve takes
// the group, its load and the options, and, for the iteration, the run state
// and hooks of the window or command that runs it; it gives one record.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "shell/core/ElementForce.h"
#include "weld/core/InstantaneousCenter.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldGroup.h"

namespace weld {

struct SolveResult {
    shell::SolverModel Model = shell::SolverModel::Iterative;  // the model that solved it
    double Value = 0.0;                                        // capacity in kips; for a standard configuration its C
    bool Converged = false;      // the iteration met its tolerance; the element model found an equilibrium
    bool Concentric = false;     // the load passes through the centroid (zero arm)
    bool Refused = false;        // not solved (no weld, too many segments or elements): Value 0
    bool NoEquilibrium = false;  // the element model finds no equilibrium for this load: Value 0
    bool Stopped = false;        // the iteration's IterationStop was true when it ended
    bool Unsettled = false;      // the iteration still swung at its smallest correction step
    double Relaxation = 1.0;     // the iteration's correction factor at the end (1: never relaxed)
    int64_t Passes = 0;          // passes of the iteration; Newton steps of the element model
    int32_t Segments = 0;        // segments of the iteration's last pass; elements of the model
    // The instantaneous center from the centroid, in the group's own axes and
    // in the caller's units (the units of L for a configuration): the last
    // pass's for the iteration. At infinity when the group only translates.
    bool CenterAtInfinity = false;
    double CenterX = 0.0, CenterY = 0.0;
    // The force on every segment, for pictures of a result: no solver fills it yet.
    std::vector<shell::ElementForce> Forces;
};

// A group under its load. The iteration runs under `run` and `hooks` (the
// caller sets run.IterationStop false before it); the element model always
// ends by itself and reads neither.
SolveResult Solve(const LoadedGroup& group, const SolveOptions& options, WeldRunState& run, const WeldRunHooks& hooks);
// The same without a window: a fresh run that nothing stops.
SolveResult Solve(const LoadedGroup& group, const SolveOptions& options);

// The coefficient C of a standard configuration: its scaled shape solved at
// Fexx = 70 and D = 1/16 (those of `options` are not read), shown through
// the hooks with the scale as divisor; C per inch of scaled base length per
// sixteenth of weld in E70XX. Configurations other than 1 to 9 give 0 and
// solve nothing.
SolveResult Solve(const StandardConfig& config, const SolveOptions& options, WeldRunState& run,
                  const WeldRunHooks& hooks);
SolveResult Solve(const StandardConfig& config, const SolveOptions& options);

// The cross-check of a result solved with `options`: a call that solves the
// same case by the model it is checked against (shell::CrossCheckModel) and
// gives its value, or nothing without an equilibrium. It owns copies of all
// it reads, so it may run on another thread. Empty when the model has no
// cross-check.
using CheckFn = std::function<std::optional<double>()>;
CheckFn CrossCheck(const LoadedGroup& group, const SolveOptions& options);
CheckFn CrossCheck(const StandardConfig& config, const SolveOptions& options);

}  // namespace weld
