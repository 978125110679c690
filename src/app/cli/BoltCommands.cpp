// ferrolith-cli bolt-c: the coefficients C and C' of one rectangular bolt group.
#include <cstdint>
#include <iostream>

#include "Cli.h"
#include "ModelCli.h"
#include "Output.h"
#include "Progress.h"
#include "WeldCli.h"
#include "bolt/core/BoltSheet.h"
#include "shell/core/AppInfo.h"
#include "bolt/core/BoltSolve.h"
#include "shell/core/Primitives.h"

namespace {

int RunBoltC(const cli::Parsed& p) {
    const cli::Args& args = p.positional;
    if (args.size() != 6) return cli::UsageError(p, "bolt-c needs M N SV SH EX ANGLE");
    std::string error;
    shell::SolverModel model = shell::SolverModel::Iterative;
    if (!modelcli::ReadModel(p, model, error)) return cli::UsageError(error);
    long long m = 0, n = 0;
    double v[4] = {};
    if (!cli::ReadWhole("M", args[0], INT32_MIN, INT32_MAX, m, error) ||
        !cli::ReadWhole("N", args[1], INT32_MIN, INT32_MAX, n, error))
        return cli::UsageError(error);
    const char* names[3] = {"SV", "SH", "EX"};
    for (int i = 0; i < 3; ++i)
        if (!cli::ReadLength(names[i], args[2 + i], false, -cli::kSingleMax, cli::kSingleMax, v[i], error))
            return cli::UsageError(error);
    if (!cli::ReadNumber("ANGLE", args[5], -cli::kSingleMax, cli::kSingleMax, v[3], error))
        return cli::UsageError(error);

    // What the bolt window takes: whole counts from 1, spacings above 0 and an
    // eccentricity of 0 or more (its cells refuse a minus sign), for every model.
    if (m < 1 || n < 1 || m > INT16_MAX || n > INT16_MAX || m * n > INT16_MAX)
        return cli::Fail("a bolt group needs from 1 to 32767 bolts (M x N); got M = " + args[0] + ", N = " + args[1], 1);
    for (int i = 0; i < 3; ++i)
        if (v[i] < 0.0 || (i < 2 && v[i] == 0.0))
            return cli::Fail(std::string(names[i]) + " must be " + (i < 2 ? "above 0" : "0 or more") + "; got " +
                                 cli::Quote(args[2 + i]),
                             1);

    const bolt::BoltPattern pattern{static_cast<int16_t>(m), static_cast<int16_t>(n), v[0], v[1]};
    const bolt::SolveOptions options{model};
    const bolt::SolveResult cPrime = bolt::Solve(pattern, bolt::kCouple, options);
    bolt::SolveResult c;
    {
        cli::Progress progress("bolt-c");
        c = bolt::Solve(pattern, {v[2], v[3]}, options, [&progress] { progress.Tick(); });
    }
    if (c.Refused || cPrime.Refused)
        return cli::Fail("a bolt group needs from 1 to 32767 bolts (M x N); got M = " + args[0] + ", N = " + args[1], 1);
    if (c.NoEquilibrium)
        return modelcli::NoEquilibrium(p, {modelcli::ModelField(model)}, c.CenterAtInfinity, c.CenterX, c.CenterY);
    // A group with no couple strength (one bolt, or all at one point) has C' = 0.
    const double cp = cPrime.Converged ? cPrime.Value : 0.0;
    if (const int rc = sheetcli::WriteIfAsked(p, [&](const sheet::TitleBlock& title) {
            return bolt::Bolt_Sheet({{pattern, {v[2], v[3]}}}, model, title, appinfo::kVersion);
        });
        rc != 0)
        return rc;
    if (p.format != cli::Format::Text) {
        cli::WriteRows(p, {{modelcli::ModelField(model),
                            {"M", cli::Num(static_cast<double>(m))},
                            {"N", cli::Num(static_cast<double>(n))},
                            {"SV_in", cli::Num(v[0])},
                            {"SH_in", cli::Num(v[1])},
                            {"EX_in", cli::Num(v[2])},
                            {"angle_deg", cli::Num(v[3])},
                            {"C", cli::Num(c.Value)},
                            {"C_prime_in", cli::Num(cp)}}});
        return 0;
    }
    std::cout << prim::Format(c.Value, "0.0000") << " " << prim::Format(cp, "0.0000") << "\n";
    return 0;
}

const cli::Registrar kBoltC({
    "bolt-c",
    "M N SV SH EX ANGLE",
    "C and C' of an M by N rectangular bolt group under an eccentric load",
    cli::Options{modelcli::ModelOption()} + sheetcli::SheetOptionList(),
    {"M, N    rows and columns of bolts (M x N from 1 to 32767 bolts)",
     "SV, SH  vertical and horizontal spacing (inches, above 0); EX eccentricity of the load",
     "        (inches, 0 or more): what the bolt window takes; other values exit 1",
     "ANGLE   load angle in degrees from vertical",
     "Prints C and C' (inches) to four decimals. Large groups take long; on a terminal a",
     "progress line shows on stderr.", cli::kLengthHelp},
    {"bolt-c 4 2 3 3 6 0", "bolt-c 4 2 3 3 \"1'-6\\\"\" 0 --format json",
     "bolt-c 3 2 3 3 6 15 --format csv --no-header", "bolt-c 6 2 3 5.5 16 0 --model aisc",
     "bolt-c 4 2 3 3 6 15 --sheet /tmp/bolt-c.pdf"},
    RunBoltC,
    true});

}  // namespace
