#include "WeldCli.h"

#include <iostream>

#include "shell/Primitives.h"
#include "weld/WeldStrength.h"

namespace weldcli {

bool ParseCoords(const std::string& text, double (&v)[4]) {
    size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const size_t comma = text.find(',', start);
        const bool last = i == 3;
        if (last != (comma == std::string::npos)) return false;
        const std::string part = text.substr(start, last ? std::string::npos : comma - start);
        if (!cli::ParseDouble(prim::Trim(part), v[i])) return false;
        start = comma + 1;
    }
    return true;
}

bool TakeStripIndex(cli::Args& args, int& stripIndex, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, "--strip", value, present)) {
        error = "--strip needs a value";
        return false;
    }
    if (!present) return true;
    long v = 0;
    const int index = cli::ParseInt(value, v) ? WeldStrength::WeldStripIndexOf(static_cast<int>(v)) : -1;
    if (index < 0) {
        error = "--strip must be 4, 8, 16, 32 or 64";
        return false;
    }
    stripIndex = index;
    return true;
}

bool TakeMaxPasses(cli::Args& args, long& maxPasses, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, "--max-passes", value, present)) {
        error = "--max-passes needs a value";
        return false;
    }
    if (present && (!cli::ParseInt(value, maxPasses) || maxPasses < 0)) {
        error = "--max-passes must be a whole number, 0 or more";
        return false;
    }
    return true;
}

bool TakeRunOptions(cli::Args& args, RunOptions& options, std::string& error) {
    options.verbose = cli::TakeFlag(args, "--verbose");
    return TakeStripIndex(args, options.stripIndex, error) && TakeMaxPasses(args, options.maxPasses, error);
}

LimitedRun::LimitedRun(int stripIndex, long passes) : maxPasses(passes) {
    WeldStrength::SegmentsPerInchOf(stripIndex, state.SegmentsPerInch);
    state.DisplayTarget = WeldFunctions::kDisplayCapacity;
    state.IterationResume = 0;
    state.IterationStop = maxPasses == 0 ? -1 : 0;
    hooks.DisplayCapacity = [this](double, double x, double y, double divisor, bool) {
        shownX = divisor != 0.0 ? x / divisor : x;
        shownY = divisor != 0.0 ? y / divisor : y;
        if (report.Passes >= maxPasses) state.IterationStop = -1;
    };
}

int LimitedRun::Finish(bool verbose) {
    if (verbose) {
        std::cout << "passes " << report.Passes << "\n";
        std::cout << "center " << prim::Format(shownX, "0.000000000") << " " << prim::Format(shownY, "0.000000000")
                  << "\n";
    }
    if (report.Refused) return cli::Fail("the group has more than 32767 segments", 1);
    // Only a run that the pass limit stopped counts as not converged.
    if (state.IterationStop != 0 && !report.Converged) {
        std::cout.flush();
        return cli::Fail("no convergence after " + std::to_string(maxPasses) + " passes", 3);
    }
    return 0;
}

}  // namespace weldcli
