// What the weld and layout commands share: the strip and pass-limit options,
// line coordinates, and a solver run whose pass limit stands in for the
// window's stop button.
#pragma once

#include <string>

#include "Cli.h"
#include "weld/WeldFunctions.h"

namespace weldcli {

constexpr long kDefaultMaxPasses = 100000;

// "X1,Y1,X2,Y2".
bool ParseCoords(const std::string& text, double (&v)[4]);

// --strip 4|8|16|32|64 as its list index; the index is left alone when absent.
bool TakeStripIndex(cli::Args& args, int& stripIndex, std::string& error);

// --max-passes N, N >= 0 (0 stops before the first pass).
bool TakeMaxPasses(cli::Args& args, long& maxPasses, std::string& error);

// The options every solver command takes: --strip, --max-passes, --verbose.
struct RunOptions {
    int stripIndex;
    long maxPasses = kDefaultMaxPasses;
    bool verbose = false;
};
bool TakeRunOptions(cli::Args& args, RunOptions& options, std::string& error);

// A run without a window. The display callback sets the stop flag once the
// pass limit is reached, like a click on Stop during a pass.
struct LimitedRun {
    WeldFunctions::WeldRunState state;
    WeldFunctions::WeldRunHooks hooks;
    WeldFunctions::SolveReport report;
    long maxPasses = kDefaultMaxPasses;
    double shownX = 0.0, shownY = 0.0;  // last center shown, divided by the divisor

    LimitedRun(int stripIndex, long passes);

    // After the run: with `verbose` the pass count and last center on stdout.
    // Gives 0, 1 for a refused group, or 3 when the pass limit ended the run.
    int Finish(bool verbose);
};

}  // namespace weldcli
