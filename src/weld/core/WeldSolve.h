// The one entry for every solve of a weld group: the windows, the hand-over
// of the board and the command line call these, and only here is the model
// chosen (the program's iteration or the AISC element model). A solve takes
// the group, its load and the options, and, for the iteration, the run state
// and hooks of the window or command that runs it; it gives one record.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "shell/core/SolveRecord.h"
#include "weld/core/InstantaneousCenter.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldGroup.h"

namespace weld {

// The record of shell::SolveRecord with what the iteration's run control
// knows. Value is the capacity in kips, or the C of a standard configuration
// (its center then in the units of L).
struct SolveResult : shell::SolveRecord {
    bool Stopped = false;    // the iteration's IterationStop was true when it ended
    bool Unsettled = false;  // the iteration still swung at its smallest correction step
    int32_t Segments = 0;    // segments of the iteration's last pass; elements of the model
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
