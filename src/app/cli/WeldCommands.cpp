// Weld group commands: the coefficient C of a standard configuration, its
// centroid distances, and the unit capacity of a group of lines.
#include <iostream>
#include <string>
#include <vector>

#include "Cli.h"
#include "shell/Primitives.h"
#include "weld/WeldFunctions.h"
#include "weld/WeldStrength.h"

namespace {

using namespace WeldFunctions;

constexpr long kDefaultMaxPasses = 100000;

bool ParseConfig(const std::string& text, int16_t& config) {
    long v = 0;
    if (!cli::ParseInt(text, v) || v < 1 || v > 9) return false;
    config = static_cast<int16_t>(v);
    return true;
}

// --strip N: segments per inch, one of the five list settings.
bool TakeStrip(cli::Args& args, int16_t& spi, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, "--strip", value, present)) {
        error = "--strip needs a value";
        return false;
    }
    if (!present) return true;
    long v = 0;
    if (!cli::ParseInt(value, v) || WeldStrength::WeldStripIndexOf(static_cast<int>(v)) < 0) {
        error = "--strip must be 4, 8, 16, 32 or 64";
        return false;
    }
    spi = static_cast<int16_t>(v);
    return true;
}

bool TakeMaxPasses(cli::Args& args, long& maxPasses, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, "--max-passes", value, present)) {
        error = "--max-passes needs a value";
        return false;
    }
    if (!present) return true;
    if (!cli::ParseInt(value, maxPasses) || maxPasses < 0) {
        error = "--max-passes must be a whole number, 0 or more";
        return false;
    }
    return true;
}

bool TakeDouble(cli::Args& args, const std::string& name, double& out, bool& present,
                std::string& error) {
    std::string value;
    if (!cli::TakeOption(args, name, value, present)) {
        error = name + " needs a value";
        return false;
    }
    if (present && !cli::ParseDouble(value, out)) {
        error = name + ": not a number: " + value;
        return false;
    }
    return true;
}

// A run without a window: the pass limit stands in for the user's stop
// button, set through the display callback like a click during a pass.
struct CliRun {
    WeldRunState state;
    WeldRunHooks hooks;
    SolveReport report;
    long maxPasses = kDefaultMaxPasses;
    double shownX = 0.0, shownY = 0.0;

    explicit CliRun(int16_t spi, long passes) : maxPasses(passes) {
        state.SegmentsPerInch = spi;
        state.DisplayTarget = kDisplayCapacity;
        state.IterationResume = 0;
        state.IterationStop = maxPasses == 0 ? -1 : 0;
        hooks.DisplayCapacity = [this](double, double x, double y, double divisor, bool) {
            shownX = divisor != 0.0 ? x / divisor : x;
            shownY = divisor != 0.0 ? y / divisor : y;
            if (report.Passes >= maxPasses) state.IterationStop = -1;
        };
    }

    // Exit code after the run: 0, or 3 when the pass limit ended it.
    int Finish(bool verbose) {
        if (verbose) {
            std::cout << "passes " << report.Passes << "\n";
            std::cout << "center " << prim::Format(shownX, "0.000000000") << " "
                      << prim::Format(shownY, "0.000000000") << "\n";
        }
        if (report.Refused) return cli::Fail("the group has more than 32767 segments", 1);
        if (!report.Converged) {
            std::cout.flush();
            return cli::Fail("no convergence after " + std::to_string(maxPasses) + " passes", 3);
        }
        return 0;
    }
};

int RunWeldC(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    int16_t spi = 32;
    long maxPasses = kDefaultMaxPasses;
    const bool verbose = cli::TakeFlag(args, "--verbose");
    if (!TakeStrip(args, spi, error) || !TakeMaxPasses(args, maxPasses, error))
        return cli::UsageError(error);
    if (args.size() != 5) return cli::UsageError("weld-c needs CONFIG L kL aL ANGLE");
    int16_t config = 0;
    if (!ParseConfig(args[0], config)) return cli::UsageError("CONFIG must be 1 to 9");
    double v[4] = {0, 0, 0, 0};
    for (int i = 0; i < 4; ++i)
        if (!cli::ParseDouble(args[static_cast<size_t>(i) + 1], v[i]))
            return cli::UsageError("not a number: " + args[static_cast<size_t>(i) + 1]);

    CliRun run(spi, maxPasses);
    const double c = Config_ByNumber(config, v[0], v[1], v[2], v[3], kSelectC, run.state,
                                     run.hooks, &run.report);
    std::cout << prim::Trim(prim::Format(c, "0.00000")) << "\n";
    return run.Finish(verbose);
}

int RunWeldCentroid(const cli::Args& input) {
    const cli::Args& args = input;
    if (args.size() != 3) return cli::UsageError("weld-centroid needs CONFIG L kL");
    int16_t config = 0;
    if (!ParseConfig(args[0], config)) return cli::UsageError("CONFIG must be 1 to 9");
    double L = 0.0, kL = 0.0;
    if (!cli::ParseDouble(args[1], L)) return cli::UsageError("not a number: " + args[1]);
    if (!cli::ParseDouble(args[2], kL)) return cli::UsageError("not a number: " + args[2]);

    // As the coefficient window shows them: the load plays no part.
    WeldRunState state;
    WeldRunHooks hooks;
    auto text = [&](bool midpoint, int16_t selector) -> std::string {
        if (midpoint) return "Midpoint";
        const double d = Config_ByNumber(config, L, kL, 0.0, 0.0, selector, state, hooks);
        return prim::Trim(prim::Format(d, "0.000"));
    };
    std::cout << text(Centroid_IsMidpointX(config), kSelectXL) << " "
              << text(Centroid_IsMidpointY(config), kSelectYL) << "\n";
    return 0;
}

bool ParseLine(const std::string& text, WeldLineRec& line) {
    double v[4];
    size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const size_t comma = text.find(',', start);
        const bool last = i == 3;
        if (last != (comma == std::string::npos)) return false;
        const std::string part = text.substr(start, last ? std::string::npos : comma - start);
        if (!cli::ParseDouble(part, v[i])) return false;
        start = comma + 1;
    }
    line.x1 = v[0];
    line.y1 = v[1];
    line.x2 = v[2];
    line.y2 = v[3];
    return true;
}

int RunWeldUnit(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    int16_t spi = 32;
    long maxPasses = kDefaultMaxPasses;
    const bool verbose = cli::TakeFlag(args, "--verbose");
    if (!TakeStrip(args, spi, error) || !TakeMaxPasses(args, maxPasses, error))
        return cli::UsageError(error);
    std::vector<std::string> lineTexts;
    if (!cli::TakeRepeated(args, "--line", lineTexts)) return cli::UsageError("--line needs a value");
    double ex = 0.0, angle = 0.0, fexx = 1.0, size = 1.0;
    bool hasEx = false, hasAngle = false, present = false;
    if (!TakeDouble(args, "--ex", ex, hasEx, error) ||
        !TakeDouble(args, "--angle", angle, hasAngle, error) ||
        !TakeDouble(args, "--fexx", fexx, present, error) ||
        !TakeDouble(args, "--size", size, present, error))
        return cli::UsageError(error);
    if (!args.empty()) return cli::UsageError("unexpected argument: " + args.front());
    if (lineTexts.empty()) return cli::UsageError("weld-unit needs at least one --line");
    if (!hasEx || !hasAngle) return cli::UsageError("weld-unit needs --ex and --angle");

    WeldLineTable lines;
    for (const std::string& t : lineTexts) {
        WeldLineRec line;
        if (!ParseLine(t, line)) return cli::UsageError("--line wants X1,Y1,X2,Y2: " + t);
        lines.push_back(line);
    }

    CliRun run(spi, maxPasses);
    const double capacity =
        Locate_InstantaneousCenter(lines, ex, angle, fexx, size, 1.0, run.state, run.hooks, &run.report);
    std::cout << prim::Format(capacity, "0.00000") << "\n";
    return run.Finish(verbose);
}

const cli::Registrar weldC({"weld-c",
                            "weld-c CONFIG L kL aL ANGLE [--strip 4|8|16|32|64] [--max-passes N] "
                            "[--verbose]",
                            "coefficient C of standard weld configuration 1-9 (--verbose: passes "
                            "and last center); exit 3 when the pass limit (default 100000) is reached",
                            RunWeldC});

const cli::Registrar weldCentroid({"weld-centroid", "weld-centroid CONFIG L kL",
                                   "centroid distances xL and yL of configuration 1-9, or Midpoint",
                                   RunWeldCentroid});

const cli::Registrar weldUnit({"weld-unit",
                               "weld-unit --line X1,Y1,X2,Y2 [--line ...] --ex INCHES --angle DEG "
                               "[--fexx F] [--size D] [--strip N] [--max-passes N] [--verbose]",
                               "capacity in kips of a group of lines (inches, Y up; Fexx = D = 1 "
                               "unless given); exit 3 when the pass limit is reached",
                               RunWeldUnit});

}  // namespace
