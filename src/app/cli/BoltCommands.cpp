// ferrolith-cli bolt-c: the coefficients C and C' of one rectangular bolt group.
#include <cstdint>
#include <iostream>

#include "Cli.h"
#include "ModelCli.h"
#include "bolt/BoltFunctions.h"
#include "shell/Primitives.h"

namespace {

bool ParseCount(const std::string& text, int16_t& out) {
    long v = 0;
    if (!cli::ParseInt(text, v) || v < INT16_MIN || v > INT16_MAX) return false;
    out = static_cast<int16_t>(v);
    return true;
}

int RunBoltC(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    shell::SolverModel model = shell::SolverModel::Iterative;
    if (!modelcli::TakeModel(args, model, error)) return cli::UsageError(error);
    if (args.size() != 6) return cli::UsageError("bolt-c needs M N SV SH EX ANGLE");
    int16_t m = 0, n = 0;
    if (!ParseCount(args[0], m)) return cli::UsageError("M is not a whole number: " + args[0]);
    if (!ParseCount(args[1], n)) return cli::UsageError("N is not a whole number: " + args[1]);
    double v[4] = {};
    const char* names[4] = {"SV", "SH", "EX", "ANGLE"};
    for (int i = 0; i < 4; ++i)
        if (!cli::ParseDouble(args[2 + i], v[i]))
            return cli::UsageError(std::string(names[i]) + " is not a number: " + args[2 + i]);

    if (model == shell::SolverModel::AiscElement) return modelcli::BoltC(m, n, v);
    const auto cPrime = BoltFunctions::BoltGroup_CPrime(m, n, v[0], v[1]);
    const auto c = BoltFunctions::BoltGroup_C(m, n, v[0], v[1], v[2], v[3]);
    if (!cPrime || !c)
        return cli::Fail("a bolt group needs from 1 to 32767 bolts (M x N); got M = " + args[0] +
                             ", N = " + args[1],
                         1);
    std::cout << prim::Format(*c, "0.0000") << " " << prim::Format(*cPrime, "0.0000") << "\n";
    return 0;
}

const cli::Registrar kBoltC({"bolt-c", "bolt-c M N SV SH EX ANGLE [--model iterative|aisc]",
                             "C and C' of an M by N bolt group at spacings SV, SH, eccentricity EX "
                             "and load angle ANGLE degrees",
                             RunBoltC});

}  // namespace
