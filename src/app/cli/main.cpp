// ferrolith-cli: the analysis core without windows, for scripting and checks.
#include "Cli.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "shell/Primitives.h"

namespace cli {

namespace {
std::vector<Command>& Table() {
    static std::vector<Command> table;
    return table;
}
}  // namespace

Registrar::Registrar(Command c) { Table().push_back(std::move(c)); }

const std::vector<Command>& Commands() { return Table(); }

int UsageError(const std::string& message) { return Fail(message, 2); }

int Fail(const std::string& message, int code) {
    std::cerr << "ferrolith-cli: " << message << "\n";
    return code;
}

bool ParseDouble(const std::string& text, double& out) {
    if (text.empty()) return false;
    const char* first = text.data();
    const char* last = first + text.size();
    if (*first == '+') ++first;
    double v = 0.0;
    auto [ptr, ec] = std::from_chars(first, last, v);
    if (ec != std::errc() || ptr != last || !std::isfinite(v)) return false;
    out = v;
    return true;
}

bool ParseInt(const std::string& text, long& out) {
    if (text.empty()) return false;
    long v = 0;
    auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec != std::errc() || ptr != text.data() + text.size()) return false;
    out = v;
    return true;
}

bool TakeOption(Args& args, const std::string& name, std::string& value, bool& present) {
    present = false;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] != name) continue;
        if (i + 1 >= args.size()) return false;
        value = args[i + 1];
        present = true;
        args.erase(args.begin() + static_cast<long>(i), args.begin() + static_cast<long>(i) + 2);
        return true;
    }
    return true;
}

bool TakeFlag(Args& args, const std::string& name) {
    auto it = std::find(args.begin(), args.end(), name);
    if (it == args.end()) return false;
    args.erase(it);
    return true;
}

bool TakeRepeated(Args& args, const std::string& name, std::vector<std::string>& values) {
    for (;;) {
        std::string v;
        bool present = false;
        if (!TakeOption(args, name, v, present)) return false;
        if (!present) return true;
        values.push_back(v);
    }
}

}  // namespace cli

namespace {

void PrintHelp(std::ostream& out) {
    out << "usage: ferrolith-cli COMMAND [ARGS]\n\ncommands:\n";
    auto cmds = cli::Commands();
    std::sort(cmds.begin(), cmds.end(),
              [](const cli::Command& a, const cli::Command& b) { return a.name < b.name; });
    for (const auto& c : cmds) {
        out << "  " << c.usage << "\n      " << c.summary << "\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    if (argc < 2) {
        PrintHelp(std::cerr);
        return 2;
    }
    std::string name = argv[1];
    if (name == "--help" || name == "-h" || name == "help") {
        PrintHelp(std::cout);
        return 0;
    }
    for (const auto& c : cli::Commands()) {
        if (c.name != name) continue;
        cli::Args args(argv + 2, argv + argc);
        if (std::find(args.begin(), args.end(), "--help") != args.end()) {
            std::cout << "usage: ferrolith-cli " << c.usage << "\n" << c.summary << "\n";
            return 0;
        }
        int rc = c.run(args);
        std::cout.flush();
        return rc;
    }
    return cli::UsageError("unknown command '" + name + "' (see ferrolith-cli --help)");
}
