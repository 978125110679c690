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
#include "shell/core/Sheet.h"
#include "weld/core/WeldSolve.h"
#include "weld/core/WeldStrength.h"

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

// --electrode, --size and --method of the capacity window, by list index;
// the first-start defaults are E90XX, 1/4" and Nominal.
const cli::Options& StrengthOptionList();
struct StrengthChoice {
    int electrode = WeldStrength::kWeldClassSetting.defaultValue;
    int size = WeldStrength::kWeldSizeSetting.defaultValue;
    int method = WeldStrength::kDesignMethodSetting.defaultValue;
};
bool ReadStrength(const cli::Parsed& p, StrengthChoice& choice, std::string& error);

// "X1,Y1,X2,Y2", four lengths in inches that fit a single.
bool ReadCoords(const std::string& what, const std::string& text, double (&v)[4], std::string& error);

// A solve of a weld command: its options and the run of the iteration,
// whose pass limit stands in for the window's stop button (the display hook
// sets the stop flag once the limit is reached, like a click on Stop during
// a pass). The element model ends by itself and reads neither.
struct LimitedRun {
    weld::SolveOptions options;
    weld::WeldRunState state;
    weld::WeldRunHooks hooks;
    weld::SolveResult result;
    long long maxPasses = kDefaultMaxPasses;
    std::optional<cli::Progress> ownProgress;
    cli::Progress* progress;  // the run's own line, or one a table shares across its cells

    LimitedRun(const RunOptions& run, shell::SolverModel model, const std::string& label);
    LimitedRun(const RunOptions& run, shell::SolverModel model, cli::Progress& shared);

    // After the solve: 0 when there is a value to print; 1 for a refused
    // group; 3 when the pass limit ended the run, the run gave up swinging
    // or the element model found no equilibrium, with one line on stderr
    // and, for --format json, an object with `head`, "converged": false and
    // the last center.
    int Check(const cli::Parsed& p, const cli::Row& head = {});
    // How the solve went, for csv and json: converged, the passes of the
    // iteration, its last center and the factor its center correction ended
    // with ("relaxed", 1 where the run never swung); the element model's
    // Newton steps ("iterations") and center (empty at infinity).
    cli::Row Fields() const;
    // The --verbose lines of text output; how a run settled goes to stderr.
    void PrintVerbose() const;

private:
    void Start(const RunOptions& run, shell::SolverModel model);
};

// --no-check: the option that leaves out the element model's cross-check.
const cli::Option& NoCheckOption();

// The cross-check of a converged result against the model it is checked
// against (weld::CrossCheck; none for the element model's own results).
// Unless --no-check is given, `other` is solved and its value, turned by
// `shown` into the unit of `system` where given, compared; where `system`
// exceeds it by more than 5 % a warning goes to stderr.
struct CrossCheck {
    bool applies = false;  // the model has a cross-check
    bool done = false;
    modelcheck::Comparison result;
    // aisc and ratio for csv and json (empty cells without a check or an
    // equilibrium; no fields where no check applies).
    cli::Row Fields() const;
};
CrossCheck CheckAgainst(const cli::Parsed& p, double system, const weld::CheckFn& other, const char* unit, int decimals,
                        const std::function<double(double)>& shown = {});

}  // namespace weldcli

// Calculation sheets from the command line: the title block options, and the
// writer that builds with Qt install (an empty writer: no sheets in this build).
namespace sheetcli {

const cli::Options& TitleOptionList();
// The title block and paper of --project, --job, --engineer, --checker,
// --date (today by default) and --paper.
bool ReadTitle(const cli::Parsed& p, sheet::TitleBlock& title, sheet::Paper& paper, std::string& error);
// --sheet OUT.pdf, with the title options, for the commands that also print a value.
const cli::Options& SheetOptionList();

// Writes the sheet to `path` on `paper`: 0, or 1 after one line on stderr.
using Writer = std::function<int(const sheet::Sheet& s, sheet::Paper paper, const std::string& path)>;
Writer& SheetWriter();
// For --sheet: the sheet `make` builds with the title block, written; 0 when
// --sheet is not given.
int WriteIfAsked(const cli::Parsed& p, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make);

}  // namespace sheetcli
