#include "WeldCli.h"

#include <iostream>

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

LimitedRun::LimitedRun(int stripIndex, long long passes, const std::string& label)
    : maxPasses(passes), ownProgress(std::in_place, label), progress(&*ownProgress) {
    Start(stripIndex);
}

LimitedRun::LimitedRun(int stripIndex, long long passes, cli::Progress& shared)
    : maxPasses(passes), progress(&shared) {
    Start(stripIndex);
}

void LimitedRun::Start(int stripIndex) {
    WeldStrength::SegmentsPerInchOf(stripIndex, state.SegmentsPerInch);
    state.DisplayTarget = weld::kDisplayCapacity;
    state.IterationResume = 0;
    state.IterationStop = maxPasses == 0 ? -1 : 0;
    hooks.DisplayCapacity = [this](double, double x, double y, double divisor, bool) {
        shownX = divisor != 0.0 ? x / divisor : x;
        shownY = divisor != 0.0 ? y / divisor : y;
        if (report.Passes >= maxPasses) state.IterationStop = -1;
        progress->Tick("pass " + std::to_string(report.Passes + 1));
    };
}

int LimitedRun::Check(const cli::Parsed& p, const cli::Row& head) {
    progress->Clear();
    if (report.Refused) return cli::Fail("the group has more than 32767 segments", 1);
    if (report.Unsettled) {
        if (p.format == cli::Format::Json) std::cout << cli::JsonObject(head + RunFields()) << "\n";
        std::cout.flush();
        return cli::Fail("no convergence: the center kept oscillating with the correction step at 1/" +
                             prim::Format(1.0 / report.Relaxation, "0") + " after " + std::to_string(report.Passes) +
                             " passes (last center " + prim::Format(shownX, "0.000000000") + " " +
                             prim::Format(shownY, "0.000000000") + ")",
                         3);
    }
    // Only a run that the pass limit stopped counts as not converged.
    if (state.IterationStop != 0 && !report.Converged) {
        if (p.format == cli::Format::Json) std::cout << cli::JsonObject(head + RunFields()) << "\n";
        std::cout.flush();
        return cli::Fail("no convergence after " + std::to_string(maxPasses) + " passes (last center " +
                             prim::Format(shownX, "0.000000000") + " " + prim::Format(shownY, "0.000000000") +
                             ")",
                         3);
    }
    return 0;
}

cli::Row LimitedRun::RunFields() const {
    const bool converged = !(state.IterationStop != 0 && !report.Converged);
    return {{"converged", cli::Flag(converged)},
            {"passes", cli::Num(static_cast<double>(report.Passes))},
            {"center_x_in", cli::Num(shownX)},
            {"center_y_in", cli::Num(shownY)},
            {"relaxed", cli::Num(report.Relaxation)}};
}

void LimitedRun::PrintVerbose() const {
    std::cout << "passes " << report.Passes << "\n";
    std::cout << "center " << prim::Format(shownX, "0.000000000") << " " << prim::Format(shownY, "0.000000000")
              << "\n";
    // The window's line without its paragraph break.
    const std::string settled = RunControl::SettlingText(report.Relaxation, report.Unsettled);
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
    const bool solved = done && result.solved;
    return {{"aisc", solved ? cli::Num(result.element) : cli::Cell{}},
            {"ratio", solved ? cli::Num(result.ratio) : cli::Cell{}}};
}

CrossCheck CheckAgainstElementModel(const cli::Parsed& p, double system,
                                    const std::function<std::optional<double>()>& element, const char* unit,
                                    int decimals) {
    CrossCheck check;
    if (p.Has("--no-check")) return check;
    check.done = true;
    check.result = modelcheck::Compare(system, element(), modelcheck::kDefaultPercent);
    if (check.result.exceeds) {
        std::cout.flush();
        std::cerr << "ferrolith-cli: warning: " << modelcheck::CheckLine(check.result, unit, decimals) << ". "
                  << modelcheck::WarningLine(check.result) << "\n";
    }
    return check;
}

}  // namespace weldcli
