// Weld group commands: the coefficient C of a standard configuration, its
// centroid distances, and the unit capacity of a group of lines.
#include <iostream>
#include <string>
#include <vector>

#include "Cli.h"
#include "ModelCli.h"
#include "WeldCli.h"
#include "shell/Primitives.h"
#include "weld/WeldFunctions.h"
#include "weld/WeldStrength.h"

namespace {

using namespace WeldFunctions;

bool ParseConfig(const std::string& text, int16_t& config) {
    long v = 0;
    if (!cli::ParseInt(text, v) || v < 1 || v > 9) return false;
    config = static_cast<int16_t>(v);
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

int RunWeldC(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    shell::SolverModel model = shell::SolverModel::Iterative;
    if (!weldcli::TakeRunOptions(args, opt, error) || !modelcli::TakeModel(args, model, error))
        return cli::UsageError(error);
    if (args.size() != 5) return cli::UsageError("weld-c needs CONFIG L kL aL ANGLE");
    int16_t config = 0;
    if (!ParseConfig(args[0], config)) return cli::UsageError("CONFIG must be 1 to 9");
    double v[4] = {0, 0, 0, 0};
    for (int i = 0; i < 4; ++i)
        if (!cli::ParseDouble(args[static_cast<size_t>(i) + 1], v[i]))
            return cli::UsageError("not a number: " + args[static_cast<size_t>(i) + 1]);

    if (model == shell::SolverModel::AiscElement) return modelcli::WeldC(config, v, opt.stripIndex, opt.verbose);
    weldcli::LimitedRun run(opt.stripIndex, opt.maxPasses);
    const double c = Config_ByNumber(config, v[0], v[1], v[2], v[3], kSelectC, run.state,
                                     run.hooks, &run.report);
    std::cout << prim::Trim(prim::Format(c, "0.00000")) << "\n";
    return run.Finish(opt.verbose);
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

int RunWeldUnit(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    if (!weldcli::TakeRunOptions(args, opt, error)) return cli::UsageError(error);
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
        double v[4];
        if (!weldcli::ParseCoords(t, v)) return cli::UsageError("--line wants X1,Y1,X2,Y2: " + t);
        lines.push_back(WeldLineRec{v[0], v[1], v[2], v[3]});
    }

    weldcli::LimitedRun run(opt.stripIndex, opt.maxPasses);
    const double capacity =
        Locate_InstantaneousCenter(lines, ex, angle, fexx, size, 1.0, run.state, run.hooks, &run.report);
    std::cout << prim::Format(capacity, "0.00000") << "\n";
    return run.Finish(opt.verbose);
}

const cli::Registrar weldC({"weld-c",
                            "weld-c CONFIG L kL aL ANGLE [--strip 4|8|16|32|64] [--max-passes N] "
                            "[--verbose] [--model iterative|aisc]",
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
