// Weld group commands: the coefficient C of a standard configuration, its
// centroid distances, and the unit capacity of a group of lines.
#include <iostream>
#include <string>
#include <vector>

#include "Cli.h"
#include "ModelCli.h"
#include "Output.h"
#include "WeldCli.h"
#include "shell/core/AppInfo.h"
#include "shell/core/Primitives.h"
#include "weld/core/CoefficientSheet.h"
#include "weld/core/WeldSolve.h"
#include "weld/core/WeldStrength.h"

namespace {

using namespace weld;

bool ReadConfig(const std::string& text, int16_t& config, std::string& error) {
    long long v = 0;
    if (!cli::ReadWhole("CONFIG", text, 1, 9, v, error)) return false;
    config = static_cast<int16_t>(v);
    return true;
}

bool ReadLengths(const cli::Args& args, size_t first, const std::vector<const char*>& names, double* out,
                 std::string& error) {
    for (size_t i = 0; i < names.size(); ++i)
        if (!cli::ReadLength(names[i], args[first + i], false, -cli::kSingleMax, cli::kSingleMax, out[i], error))
            return false;
    return true;
}

int RunWeldC(const cli::Parsed& p) {
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    shell::SolverModel model = shell::SolverModel::Iterative;
    if (!weldcli::ReadRunOptions(p, opt, error) || !modelcli::ReadModel(p, model, error))
        return cli::UsageError(error);
    const cli::Args& args = p.positional;
    if (args.size() != 5) return cli::UsageError(p, "weld-c needs CONFIG L kL aL ANGLE");
    int16_t config = 0;
    double v[4] = {0, 0, 0, 0};
    if (!ReadConfig(args[0], config, error) || !ReadLengths(args, 1, {"L", "kL", "aL"}, v, error) ||
        !cli::ReadNumber("ANGLE", args[4], -cli::kSingleMax, cli::kSingleMax, v[3], error))
        return cli::UsageError(error);

    weldcli::LimitedRun run(opt, model, "weld-c");
    const StandardConfig shape{config, v[0], v[1], v[2], v[3]};
    run.result = Solve(shape, run.options, run.state, run.hooks);
    if (const int rc = run.Check(p, {modelcli::ModelField(model)}); rc != 0) return rc;
    const double c = run.result.Value;
    const weldcli::CrossCheck check = weldcli::CheckAgainst(p, c, CrossCheck(shape, run.options), "", 5);
    if (const int rc = sheetcli::WriteIfAsked(p, [&](const sheet::TitleBlock& title) {
            // The same run again, with the forces its picture draws.
            SolveOptions withForces = run.options;
            withForces.WithForces = true;
            CoefficientRun sheetRun{shape, withForces, Solve(shape, withForces), Other_Coefficient(shape, run.options)};
            return Coefficient_Sheet(sheetRun, title, appinfo::kVersion);
        });
        rc != 0)
        return rc;
    if (p.format != cli::Format::Text) {
        cli::WriteRows(p, {cli::Row{modelcli::ModelField(model), {"C", cli::Num(c)}} + run.Fields() + check.Fields()});
        return 0;
    }
    std::cout << prim::Trim(prim::Format(c, "0.00000")) << "\n";
    if (opt.verbose) run.PrintVerbose();
    return 0;
}

int RunWeldCentroid(const cli::Parsed& p) {
    const cli::Args& args = p.positional;
    if (args.size() != 3) return cli::UsageError(p, "weld-centroid needs CONFIG L kL");
    std::string error;
    int16_t config = 0;
    double v[2] = {0, 0};
    if (!ReadConfig(args[0], config, error) || !ReadLengths(args, 1, {"L", "kL"}, v, error))
        return cli::UsageError(error);

    // As the coefficient window shows them: the load plays no part.
    const double xL = Config_xL(config, v[0], v[1]), yL = Config_yL(config, v[0], v[1]);
    const bool midX = Centroid_IsMidpointX(config), midY = Centroid_IsMidpointY(config);
    if (p.format != cli::Format::Text) {
        // The midpoint of the group's extent, where the window writes "Midpoint".
        auto cell = [](bool mid, double value) { return mid ? cli::Txt("Midpoint") : cli::Num(value); };
        cli::WriteRows(p, {{{"xL_in", cell(midX, xL)}, {"yL_in", cell(midY, yL)}}});
        return 0;
    }
    auto text = [](bool mid, double value) -> std::string {
        return mid ? "Midpoint" : prim::Trim(prim::Format(value, "0.000"));
    };
    std::cout << text(midX, xL) << " " << text(midY, yL) << "\n";
    return 0;
}

int RunWeldUnit(const cli::Parsed& p) {
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    if (!weldcli::ReadRunOptions(p, opt, error)) return cli::UsageError(error);
    if (!p.positional.empty()) return cli::UsageError(p, "unexpected argument: " + cli::Quote(p.positional.front()));
    if (!p.Has("--line")) return cli::UsageError(p, "weld-unit needs at least one --line");
    if (!p.Has("--ex") || !p.Has("--angle")) return cli::UsageError(p, "weld-unit needs --ex and --angle");
    double ex = 0.0, angle = 0.0, fexx = 1.0, size = 1.0;
    if (!cli::ReadLength("--ex", p.Value("--ex"), false, -cli::kSingleMax, cli::kSingleMax, ex, error) ||
        !cli::ReadNumber("--angle", p.Value("--angle"), -cli::kSingleMax, cli::kSingleMax, angle, error) ||
        (p.Has("--fexx") && !cli::ReadNumber("--fexx", p.Value("--fexx"), 1e-9, 1000.0, fexx, error)) ||
        (p.Has("--size") && !cli::ReadLength("--size", p.Value("--size"), false, 1e-9, 100.0, size, error)))
        return cli::UsageError(error);

    WeldLineTable lines;
    for (const std::string& t : p.All("--line")) {
        double v[4];
        if (!weldcli::ReadCoords("--line", t, v, error)) return cli::UsageError(error);
        lines.push_back(WeldLineRec{v[0], v[1], v[2], v[3]});
    }

    weldcli::LimitedRun run(opt, shell::SolverModel::Iterative, "weld-unit");
    run.options.Fexx = fexx;
    run.options.D = size;
    const LoadedGroup group{lines, ex, angle};
    run.result = Solve(group, run.options, run.state, run.hooks);
    if (const int rc = run.Check(p); rc != 0) return rc;
    const double capacity = run.result.Value;
    const weldcli::CrossCheck check = weldcli::CheckAgainst(p, capacity, CrossCheck(group, run.options), "kips", 5);
    if (p.format != cli::Format::Text) {
        cli::WriteRows(p, {cli::Row{{"capacity_kips", cli::Num(capacity)}} + run.Fields() + check.Fields()});
        return 0;
    }
    std::cout << prim::Format(capacity, "0.00000") << "\n";
    if (opt.verbose) run.PrintVerbose();
    return 0;
}

const cli::Registrar weldC({
    "weld-c",
    "CONFIG L kL aL ANGLE",
    "coefficient C of standard weld configuration 1-9 under an eccentric load",
    weldcli::RunOptionList() + cli::Options{modelcli::ModelOption(), weldcli::NoCheckOption()} +
        sheetcli::SheetOptionList(),
    {"CONFIG  configuration number 1 to 9, as in the coefficient window",
     "L       base length (inches); kL the other leg (inches); aL the load's eccentricity (inches)",
     "ANGLE   load angle in degrees from vertical",
     "Prints C to five decimals; exit 3 and nothing on stdout when the pass limit ends the run.",
     cli::kLengthHelp},
    {"weld-c 1 10 0 0 0", "weld-c 4 10 10 5 45 --verbose", "weld-c 6 10 5 5 0 --strip 16 --format json",
     "weld-c 6 10 5 8.75 0 --model aisc", "weld-c 4 10 5 5 30 --sheet /tmp/weld-c.pdf"},
    RunWeldC,
    true});

const cli::Registrar weldCentroid({
    "weld-centroid",
    "CONFIG L kL",
    "centroid distances xL and yL of configuration 1-9, or Midpoint",
    {},
    {"CONFIG  configuration number 1 to 9; L and kL lengths in inches.",
     "Prints xL and yL to three decimals, or Midpoint where the window shows it.", cli::kLengthHelp},
    {"weld-centroid 8 10 5", "weld-centroid 8 '10\"' 5 --format csv"},
    RunWeldCentroid,
    true});

const cli::Registrar weldUnit({
    "weld-unit",
    "",
    "capacity in kips of a group of weld lines under an eccentric load",
    cli::Options{{"--line", "X1,Y1,X2,Y2", "a weld line from (X1,Y1) to (X2,Y2), inches, Y up", true, true},
                 {"--ex", "INCHES", "eccentricity of the load from the group's centroid (inches)", false, true},
                 {"--angle", "DEG", "load angle in degrees from vertical", false, true},
                 {"--fexx", "KSI", "electrode strength above 0, at most 1000 (default 1)"},
                 {"--size", "INCHES", "weld size above 0, at most 100 inches (default 1)"}} +
        weldcli::RunOptionList() + cli::Options{weldcli::NoCheckOption()},
    {"With the defaults Fexx = D = 1 the result is the unit capacity; exit 3 and nothing on",
     "stdout when the pass limit ends the run.", cli::kLengthHelp},
    {"weld-unit --line 0,0,0,3 --ex 0 --angle 0",
     "weld-unit --line 0,0,4,0 --line 0,0,0,8 --line 0,8,4,8 --ex 6 --angle 0 --fexx 70 --size '5/16\"'",
     "weld-unit --line 0,0,0,8 --ex \"1'-6\\\"\" --angle 0 --format csv"},
    RunWeldUnit,
    true});

}  // namespace
