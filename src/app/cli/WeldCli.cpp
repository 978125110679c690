#include "WeldCli.h"

#include <iostream>

#include "ModelCli.h"
#include "shell/core/Primitives.h"
#include "weld/core/RunControl.h"
#include "weld/core/WeldStrength.h"

namespace weldcli {

const cli::Options& RunOptionList() {
    static const cli::Options options = {
        {"--strip", "4|8|16|32|64", "segments per inch of weld (default 32)"},
        {"--max-passes", "N", "stop after N passes, 0 or more (default 100000); exit 3 when reached"},
        {"--verbose", "", "also print the passes run and the last center (inches)"},
    };
    return options;
}

bool ReadRunOptions(const cli::Parsed& p, RunOptions& options, std::string& error) {
    options.verbose = p.Has("--verbose");
    if (p.Has("--strip")) {
        long long v = 0;
        const bool whole = cli::ReadWhole("--strip", p.Value("--strip"), 4, 64, v, error);
        const int index = whole ? WeldStrength::WeldStripIndexOf(static_cast<int>(v)) : -1;
        if (index < 0) {
            error = "--strip must be 4, 8, 16, 32 or 64, not " + cli::Quote(p.Value("--strip"));
            return false;
        }
        options.stripIndex = index;
    }
    if (p.Has("--max-passes") &&
        !cli::ReadWhole("--max-passes", p.Value("--max-passes"), 0, INT64_MAX, options.maxPasses, error))
        return false;
    return true;
}

bool ReadCoords(const std::string& what, const std::string& text, double (&v)[4], std::string& error) {
    size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const size_t comma = text.find(',', start);
        const bool last = i == 3;
        if (last != (comma == std::string::npos)) {
            error = what + " wants X1,Y1,X2,Y2: " + cli::Quote(text);
            return false;
        }
        const std::string part = prim::Trim(text.substr(start, last ? std::string::npos : comma - start));
        if (!cli::ReadLength(what, part, false, -cli::kSingleMax, cli::kSingleMax, v[i], error)) return false;
        start = comma + 1;
    }
    return true;
}

LimitedRun::LimitedRun(const RunOptions& run, shell::SolverModel model, const std::string& label)
    : maxPasses(run.maxPasses), ownProgress(std::in_place, label), progress(&*ownProgress) {
    Start(run, model);
}

LimitedRun::LimitedRun(const RunOptions& run, shell::SolverModel model, cli::Progress& shared)
    : maxPasses(run.maxPasses), progress(&shared) {
    Start(run, model);
}

void LimitedRun::Start(const RunOptions& run, shell::SolverModel model) {
    options.Model = model;
    WeldStrength::SegmentsPerInchOf(run.stripIndex, options.SegmentsPerInch);
    state.IterationResume = false;
    state.IterationStop = maxPasses == 0;
    hooks.Display = [this](const weld::PassShown& pass) {
        if (pass.Passes >= maxPasses) state.IterationStop = true;
        progress->Tick("pass " + std::to_string(pass.Passes + 1));
    };
}

namespace {

bool ByElements(const weld::SolveResult& r) { return r.Model == shell::SolverModel::AiscElement; }

std::string CenterText(const weld::SolveResult& r) {
    return prim::Format(r.CenterX, "0.000000000") + " " + prim::Format(r.CenterY, "0.000000000");
}

}  // namespace

int LimitedRun::Check(const cli::Parsed& p, const cli::Row& head) {
    progress->Clear();
    const weld::SolveResult& r = result;
    if (r.Refused)
        return cli::Fail(ByElements(r) ? "nothing to solve: no weld, or more than 1000000 elements"
                                       : "the group has more than 32767 segments",
                         1);
    if (r.NoEquilibrium) return modelcli::NoEquilibrium(p, head, r.CenterAtInfinity, r.CenterX, r.CenterY);
    std::string failure;
    if (r.Unsettled)
        failure = "no convergence: the center kept oscillating with the correction step at 1/" +
                  prim::Format(1.0 / r.Relaxation, "0") + " after " + std::to_string(r.Passes) +
                  " passes (last center " + CenterText(r) + ")";
    // Only a run that the pass limit stopped counts as not converged.
    else if (r.Stopped && !r.Converged)
        failure = "no convergence after " + std::to_string(maxPasses) + " passes (last center " + CenterText(r) + ")";
    if (failure.empty()) return 0;
    if (p.format == cli::Format::Json) std::cout << cli::JsonObject(head + Fields()) << "\n";
    std::cout.flush();
    return cli::Fail(failure, 3);
}

cli::Row LimitedRun::Fields() const {
    const weld::SolveResult& r = result;
    if (ByElements(r))
        return cli::Row{{"converged", cli::Flag(r.Converged)},
                        {"iterations", cli::Num(static_cast<double>(r.Passes))}} +
               modelcli::CenterFields(r.CenterAtInfinity, r.CenterX, r.CenterY);
    return {{"converged", cli::Flag(!(r.Stopped && !r.Converged))},
            {"passes", cli::Num(static_cast<double>(r.Passes))},
            {"center_x_in", cli::Num(r.CenterX)},
            {"center_y_in", cli::Num(r.CenterY)},
            {"relaxed", cli::Num(r.Relaxation)}};
}

void LimitedRun::PrintVerbose() const {
    const weld::SolveResult& r = result;
    if (ByElements(r)) {
        std::cout << "iterations " << r.Passes << "\n";
        std::cout << (r.CenterAtInfinity ? "center at infinity" : "center " + CenterText(r)) << "\n";
        return;
    }
    std::cout << "passes " << r.Passes << "\n";
    std::cout << "center " << CenterText(r) << "\n";
    // The window's line without its paragraph break.
    const std::string settled = RunControl::SettlingText(r.Relaxation, r.Unsettled);
    if (!settled.empty()) {
        std::cout.flush();
        std::cerr << "ferrolith-cli: " << settled.substr(settled.find_first_not_of("\r ")) << "\n";
    }
}

const cli::Option& NoCheckOption() {
    static const cli::Option option{"--no-check", "",
                                    "leave out the cross-check against the AISC element model (fields aisc, ratio)"};
    return option;
}

cli::Row CrossCheck::Fields() const {
    if (!applies) return {};
    const bool solved = done && result.solved;
    return {{"aisc", solved ? cli::Num(result.element) : cli::Cell{}},
            {"ratio", solved ? cli::Num(result.ratio) : cli::Cell{}}};
}

CrossCheck CheckAgainst(const cli::Parsed& p, double system, const weld::CheckFn& other, const char* unit, int decimals,
                        const std::function<double(double)>& shown) {
    CrossCheck check;
    check.applies = static_cast<bool>(other);
    if (!check.applies || p.Has("--no-check")) return check;
    check.done = true;
    std::optional<double> value = other();
    if (value && shown) value = shown(*value);
    check.result = modelcheck::Compare(system, value, modelcheck::kDefaultPercent);
    if (check.result.exceeds) {
        std::cout.flush();
        std::cerr << "ferrolith-cli: warning: " << modelcheck::CheckLine(check.result, unit, decimals) << ". "
                  << modelcheck::WarningLine(check.result) << "\n";
    }
    return check;
}

}  // namespace weldcli
