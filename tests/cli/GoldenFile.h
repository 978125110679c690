// The golden files of tests/cli. Each *.golden file holds cases:
//
//   # a comment
//   $ command<TAB>arg<TAB>arg        (arguments separated by tabs, kept verbatim;
//                                     a leading "@ROOT@" is the source tree)
//   expected stdout line
//   ...
//   ? 0                              (expected exit code)
//
// Blank lines between cases are ignored; an expected output of nothing is
// written as no lines between "$" and "?".
//
// Each table is the one source of its cases. The calculator's key sequences
// and the plain feet-and-inch and words cases are replayed in-process through
// the core by the calc and units tests; the program replays the rest, where
// its own option parsing, messages and exit codes are what is tested.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

namespace golden {

struct GoldenCase {
    std::string file;
    int line = 0;
    std::vector<std::string> args;  // args[0] is the command
    std::string expected;
    int exitCode = 0;
};

// Names a case by file and line in test output.
inline void PrintTo(const GoldenCase& c, std::ostream* os) { *os << c.file << ":" << c.line; }

inline std::vector<std::string> SplitTabs(const std::string& s) {
    std::vector<std::string> out(1);
    for (char c : s) {
        if (c == '\t')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

// The cases of one file; `root` replaces "@ROOT@" at the start of an argument.
inline std::vector<GoldenCase> LoadFile(const std::filesystem::path& f, const std::string& root) {
    std::vector<GoldenCase> cases;
    std::ifstream in(f);
    std::string line;
    int n = 0;
    GoldenCase* open = nullptr;
    while (std::getline(in, line)) {
        ++n;
        if (open == nullptr) {
            if (line.rfind("$ ", 0) == 0) {
                std::vector<std::string> args = SplitTabs(line.substr(2));
                for (auto& a : args)
                    if (a.rfind("@ROOT@", 0) == 0) a = root + a.substr(6);
                cases.push_back({f.filename().string(), n, args, "", 0});
                open = &cases.back();
            }
            continue;
        }
        if (line.rfind("? ", 0) == 0) {
            open->exitCode = std::stoi(line.substr(2));
            open = nullptr;
        } else {
            open->expected += line + "\n";
        }
    }
    return cases;
}

// A calculator case of key tokens alone, with no option or mode switch.
inline bool PlainCalcKeys(const GoldenCase& c) {
    if (c.args.empty() || c.args[0] != "calc" || c.exitCode != 0) return false;
    return std::none_of(c.args.begin() + 1, c.args.end(), [](const std::string& t) {
        return t.rfind("--", 0) == 0 || t.find(':') != std::string::npos || t == "deg" || t == "rad" ||
               t == "grad" || t == "norm";
    });
}

// A feet-and-inch or words case that only calls the core: arch-value TEXT,
// arch-text FEET --mode 0|1 or --words, words NUMBER; exit 0 (or 1 for a text
// arch-value refuses).
inline bool PlainUnits(const GoldenCase& c) {
    const auto& a = c.args;
    if (a.size() == 2 && a[0] == "arch-value") return c.exitCode == 0 || c.exitCode == 1;
    if (c.exitCode != 0) return false;
    if (a.size() == 4 && a[0] == "arch-text") return a[2] == "--mode";
    if (a.size() == 3 && a[0] == "arch-text") return a[2] == "--words";
    return a.size() == 2 && a[0] == "words";
}

inline bool ReplayedInProcess(const GoldenCase& c) { return PlainCalcKeys(c) || PlainUnits(c); }

}  // namespace golden
