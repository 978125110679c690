// ferrolith-cli: the analysis core without windows, for scripting and checks.
#include <algorithm>
#include <iostream>

#include "Cli.h"

#ifndef FERROLITH_VERSION
#define FERROLITH_VERSION "unknown"
#endif

namespace {

void PrintHelp(std::ostream& out) {
    out << "usage: ferrolith-cli COMMAND [ARGS]\n"
           "       ferrolith-cli help COMMAND     (or COMMAND --help): synopsis, options, units, examples\n"
           "       ferrolith-cli --version\n\ncommands:\n";
    auto cmds = cli::Commands();
    std::sort(cmds.begin(), cmds.end(),
              [](const cli::Command& a, const cli::Command& b) { return a.name < b.name; });
    for (const auto& c : cmds) out << "  " << c.name << std::string(c.name.size() < 15 ? 15 - c.name.size() : 1, ' ')
                                   << c.summary << "\n";
    out << "\n" << cli::kLengthHelp << "\n"
        << "\nOutput: commands with --format print text by default, exactly as before; csv and json give\n"
           "  labelled fields, the unit in each field name (_in inches, _ft feet, _kips, _deg degrees,\n"
           "  _ksi), numbers at full precision.\n"
           "Exit codes: 0 done, 1 the input cannot be used (file, group), 2 bad arguments,\n"
           "  3 no convergence within --max-passes (nothing on stdout except with --format json).\n";
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    if (argc < 2) {
        PrintHelp(std::cerr);
        return 2;
    }
    const std::string name = argv[1];
    if (name == "--help" || name == "-h" || (name == "help" && argc == 2)) {
        PrintHelp(std::cout);
        return 0;
    }
    if (name == "--version") {
        std::cout << "ferrolith-cli " << FERROLITH_VERSION << "\n";
        return 0;
    }
    if (name == "help") {
        if (argc > 3) return cli::UsageError("help takes one COMMAND");
        const cli::Command* c = cli::FindCommand(argv[2]);
        if (c == nullptr) return cli::UsageError("no command " + cli::Quote(argv[2]) + " (see ferrolith-cli --help)");
        std::cout << cli::HelpText(*c);
        return 0;
    }
    const cli::Command* c = cli::FindCommand(name);
    if (c == nullptr) return cli::UsageError("unknown command " + cli::Quote(name) + " (see ferrolith-cli --help)");
    const cli::Args args(argv + 2, argv + argc);
    if (std::find(args.begin(), args.end(), "--help") != args.end()) {
        std::cout << cli::HelpText(*c);
        return 0;
    }
    cli::Parsed parsed;
    std::string error;
    if (!cli::Parse(*c, args, parsed, error)) return cli::UsageError(parsed, error);
    const int rc = c->run(parsed);
    std::cout.flush();
    return rc;
}
