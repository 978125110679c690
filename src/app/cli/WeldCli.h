// What the weld and layout commands share: the strip and pass-limit options,
// line coordinates, and a solver run whose pass limit stands in for the
// window's stop button.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "Cli.h"
#include "Output.h"
#include "Progress.h"
#include "shell/core/ModelCheck.h"
#include "weld/core/InstantaneousCenter.h"

namespace weldcli {

constexpr long long kDefaultMaxPasses = 100000;

// --strip, --max-passes and --verbose, as every solver command takes them.
// (A function: the command tables of other files are built during static initialisation.)
const cli::Options& RunOptionList();

struct RunOptions {
    int stripIndex;
    long long maxPasses = kDefaultMaxPasses;
    bool verbose = false;
};
bool ReadRunOptions(const cli::Parsed& p, RunOptions& options, std::string& error);

// "X1,Y1,X2,Y2", four lengths in inches that fit a single.
bool ReadCoords(const std::string& what, const std::string& text, double (&v)[4], std::string& error);

// A run without a window. The display callback sets the stop flag once the
// pass limit is reached, like a click on Stop during a pass.
struct LimitedRun {
    weld::WeldRunState state;
    weld::WeldRunHooks hooks;
    weld::SolveReport report;
    long long maxPasses = kDefaultMaxPasses;
    double shownX = 0.0, shownY = 0.0;  // last center shown, divided by the divisor
    std::optional<cli::Progress> ownProgress;
    cli::Progress* progress;  // the run's own line, or one a table shares across its cells

    LimitedRun(int stripIndex, long long passes, const std::string& label);
    LimitedRun(int stripIndex, long long passes, cli::Progress& shared);

    // After the run: 0 when there is a result to print; 1 for a refused
    // group; 3 when the pass limit ended the run, with one line on stderr and,
    // for --format json, an object with `head`, "converged": false and the last center.
    int Check(const cli::Parsed& p, const cli::Row& head = {});
    // converged, passes, the last center and the factor the center
    // correction ended with ("relaxed", 1 where the run never swung), for
    // csv and json.
    cli::Row RunFields() const;
    // The --verbose lines of text output; how the run settled goes to stderr.
    void PrintVerbose() const;

private:
    void Start(int stripIndex);
};

// --no-check: the option that leaves out the element model's cross-check.
const cli::Option& NoCheckOption();

// The cross-check of a converged result of the iteration against the AISC
// element model on the same case. Unless --no-check is given, `element`
// (the element model's value in the unit of `system`) is solved; where the
// iteration exceeds it by more than 5 % a warning goes to stderr.
struct CrossCheck {
    bool done = false;
    modelcheck::Comparison result;
    // aisc and ratio for csv and json (empty cells without a check or an
    // equilibrium).
    cli::Row Fields() const;
};
CrossCheck CheckAgainstElementModel(const cli::Parsed& p, double system,
                                    const std::function<std::optional<double>()>& element, const char* unit,
                                    int decimals);

}  // namespace weldcli
