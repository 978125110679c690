// Tables of coefficients from the command line (weld-table, bolt-table), and
// the --model option the solver commands share.
#include <iomanip>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "Cli.h"
#include "ModelCli.h"
#include "Output.h"
#include "Progress.h"
#include "WeldCli.h"
#include "bolt/core/BoltSolve.h"
#include "shell/core/Primitives.h"
#include "weld/core/WeldSolve.h"
#include "weld/core/WeldStrength.h"

namespace modelcli {

namespace {

using shell::SolverModel;

int16_t Strip(int stripIndex) {
    int16_t spi = 32;
    WeldStrength::SegmentsPerInchOf(stripIndex, spi);
    return spi;
}

// "1,2.5,3": at least one value, each read by `read`.
template <typename Read>
bool ReadList(const std::string& name, const std::string& text, std::vector<double>& out, std::string& error,
              Read read) {
    out.clear();
    size_t start = 0;
    for (;;) {
        const size_t comma = text.find(',', start);
        const std::string part =
            prim::Trim(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        double v = 0.0;
        if (!read(name, part, v, error)) return false;
        out.push_back(v);
        if (comma == std::string::npos) return true;
        start = comma + 1;
    }
}

// Ratios such as k and a: numbers, 0 or more.
bool ReadRatio(const std::string& name, const std::string& text, double& v, std::string& error) {
    return cli::ReadNumber(name, text, 0.0, cli::kSingleMax, v, error);
}

// Lengths in inches, 0 or more.
bool ReadInches(const std::string& name, const std::string& text, double& v, std::string& error) {
    return cli::ReadLength(name, text, false, 0.0, cli::kSingleMax, v, error);
}

// Counts of bolts per row, 1 to 32767.
bool ReadCount(const std::string& name, const std::string& text, double& v, std::string& error) {
    long long n = 0;
    if (!cli::ReadWhole(name, text, 1, 32767, n, error)) return false;
    v = static_cast<double>(n);
    return true;
}

cli::Cell Value(const std::optional<double>& v) { return v ? cli::Num(*v) : cli::Cell{}; }

// A table of coefficients: rows by one parameter, columns by another, with
// optional extra columns. Cells without a value are shown as NC.
struct Table {
    std::string title;
    std::string corner;                // e.g. "a\k"
    std::vector<std::string> columns;  // column heads
    std::vector<std::string> rows;     // row heads
    std::vector<std::vector<std::optional<double>>> cells;
    const char* textPicture = "0.000";
    const char* csvPicture = "0.00000";
    // --format csv and json: one row per cell, at full precision, empty where
    // there is no value.
    std::vector<cli::Row> machine;

    int Print(const cli::Parsed& p, bool csv) const {
        if (p.format != cli::Format::Text) {
            cli::WriteRows(p, machine);
            return 0;
        }
        bool missing = false;
        if (csv) {
            std::cout << corner;
            for (const std::string& c : columns) std::cout << "," << c;
            std::cout << "\n";
            for (size_t r = 0; r < rows.size(); ++r) {
                std::cout << rows[r];
                for (const auto& v : cells[r]) std::cout << "," << (v ? prim::Format(*v, csvPicture) : "NC");
                std::cout << "\n";
            }
            return 0;
        }
        constexpr int kWidth = 9;
        std::cout << title << "\n" << std::setw(kWidth) << corner;
        for (const std::string& c : columns) std::cout << std::setw(kWidth) << c;
        std::cout << "\n";
        for (size_t r = 0; r < rows.size(); ++r) {
            std::cout << std::setw(kWidth) << rows[r];
            for (const auto& v : cells[r]) {
                missing = missing || !v;
                std::cout << std::setw(kWidth) << (v ? prim::Format(*v, textPicture) : "NC");
            }
            std::cout << "\n";
        }
        if (missing) std::cout << "NC: no convergence\n";
        return 0;
    }
};

std::string StripText(int stripIndex) { return "strip 1/" + std::to_string(Strip(stripIndex)) + "\""; }

int WeldTable(const cli::Parsed& p) {
    std::string error;
    SolverModel model = SolverModel::Iterative;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    std::vector<double> ks, as;
    double angle = 0.0, L = 10.0;
    const bool csv = p.Has("--csv");
    if (p.positional.size() != 1 || !p.Has("--k") || !p.Has("--a") || !p.Has("--angle"))
        return cli::UsageError(p, "weld-table needs CONFIG --k LIST --a LIST --angle DEG");
    long long config = 0;
    if (!ReadModel(p, model, error) || !weldcli::ReadRunOptions(p, opt, error) ||
        !cli::ReadWhole("CONFIG", p.positional[0], 1, 9, config, error) ||
        !ReadList("--k", p.Value("--k"), ks, error, ReadRatio) ||
        !ReadList("--a", p.Value("--a"), as, error, ReadRatio) ||
        !cli::ReadNumber("--angle", p.Value("--angle"), -cli::kSingleMax, cli::kSingleMax, angle, error) ||
        (p.Has("--length") &&
         !cli::ReadLength("--length", p.Value("--length"), false, 1e-9, cli::kSingleMax, L, error)))
        return cli::UsageError(error);

    Table t;
    t.title = "Configuration " + std::to_string(config) + ", load angle " + prim::PlainText(angle) +
              ", L = " + prim::PlainText(L) + ", " + StripText(opt.stripIndex) + ", " +
              shell::SolverModelCaption(model);
    t.corner = "a\\k";
    for (double k : ks) t.columns.push_back(prim::PlainText(k));
    cli::Progress progress("weld-table");
    for (double a : as) {
        t.rows.push_back(prim::PlainText(a));
        auto& row = t.cells.emplace_back();
        for (double k : ks) {
            // Each cell stopped by the pass limit like the other weld commands.
            weldcli::LimitedRun run(opt, model, progress);
            run.result = weld::Solve(weld::StandardConfig{static_cast<int16_t>(config), L, k * L, a * L, angle},
                                     run.options, run.state, run.hooks);
            row.push_back(run.result.Converged ? std::optional<double>(run.result.Value) : std::nullopt);
            t.machine.push_back({{"a", cli::Num(a)}, {"k", cli::Num(k)}, {"C", Value(row.back())}});
        }
    }
    progress.Clear();
    return t.Print(p, csv);
}

int BoltTable(const cli::Parsed& p) {
    std::string error;
    SolverModel model = SolverModel::Iterative;
    std::vector<double> ns, exs;
    double angle = 0.0, sv = 0.0, sh = 0.0;
    long long columns = 0;
    const bool csv = p.Has("--csv");
    if (p.positional.size() != 3 || !p.Has("--n") || !p.Has("--ex") || !p.Has("--angle"))
        return cli::UsageError(p, "bolt-table needs COLUMNS SV SH --n LIST --ex LIST --angle DEG");
    if (!ReadModel(p, model, error) || !cli::ReadWhole("COLUMNS", p.positional[0], 1, 32767, columns, error) ||
        !ReadInches("SV", p.positional[1], sv, error) || !ReadInches("SH", p.positional[2], sh, error) ||
        !ReadList("--n", p.Value("--n"), ns, error, ReadCount) ||
        !ReadList("--ex", p.Value("--ex"), exs, error, ReadInches) ||
        !cli::ReadNumber("--angle", p.Value("--angle"), -cli::kSingleMax, cli::kSingleMax, angle, error))
        return cli::UsageError(error);
    for (double n : ns)
        if (n * static_cast<double>(columns) > 32767)
            return cli::UsageError("--n: at most 32767 bolts in all (" + prim::PlainText(n) + " rows of " +
                                   std::to_string(columns) + ")");

    Table t;
    t.title = std::to_string(columns) + " column" + (columns == 1 ? "" : "s") + " at " + prim::PlainText(sh) +
              ", rows at " + prim::PlainText(sv) + ", load angle " + prim::PlainText(angle) + ", " +
              shell::SolverModelCaption(model);
    t.corner = "n\\ex";
    t.textPicture = "0.00";
    t.csvPicture = "0.0000";
    for (double ex : exs) t.columns.push_back(prim::PlainText(ex));
    t.columns.push_back("C'");
    cli::Progress progress("bolt-table");
    size_t done = 0;
    const std::string cells = std::to_string(ns.size() * exs.size());
    for (double nv : ns) {
        const int16_t m = static_cast<int16_t>(nv);
        const auto cols = static_cast<int16_t>(columns);
        t.rows.push_back(std::to_string(m));
        auto& row = t.cells.emplace_back();
        auto value = [](const bolt::SolveResult& r) {
            return r.Converged ? std::optional<double>(r.Value) : std::nullopt;
        };
        const bolt::BoltPattern pattern{m, cols, sv, sh};
        const bolt::SolveOptions options{model};
        for (double ex : exs) {
            row.push_back(value(bolt::Solve(pattern, {ex, angle}, options, [&] {
                progress.Tick("cell " + std::to_string(done + 1) + " of " + cells);
            })));
            ++done;
        }
        row.push_back(value(bolt::Solve(pattern, bolt::kCouple, options)));
        for (size_t i = 0; i < exs.size(); ++i)
            t.machine.push_back({{"n", cli::Num(nv)},
                                 {"ex_in", cli::Num(exs[i])},
                                 {"C", Value(row[i])},
                                 {"C_prime_in", Value(row.back())}});
    }
    progress.Clear();
    return t.Print(p, csv);
}

const cli::Option kCsvGrid{"--csv", "", "the table as a grid in csv, rounded as the text shows it"};

const cli::Registrar kWeldTable({
    "weld-table",
    "CONFIG",
    "table of C for configuration 1-9: rows a, columns k",
    cli::Options{{"--k", "LIST", "values of k, 0 or more, separated by commas", false, true},
                 {"--a", "LIST", "values of a, 0 or more, separated by commas", false, true},
                 {"--angle", "DEG", "load angle in degrees from vertical", false, true},
                 {"--length", "INCHES", "base length L (default 10)"},
                 ModelOption(),
                 weldcli::RunOptionList()[0],
                 weldcli::RunOptionList()[1],
                 kCsvGrid},
    {"Each cell is C of the configuration with kL = k x L and aL = a x L; NC marks a cell",
     "without convergence. --format csv and json give one row per cell (a, k, C; C empty",
     "where there is none) at full precision.", cli::kLengthHelp},
    {"weld-table 6 --k 0,0.5,1 --a 0.5,0.875 --angle 0 --model aisc",
     "weld-table 6 --k 0.5 --a 0.5 --angle 0 --strip 16 --format csv"},
    WeldTable,
    true});

const cli::Registrar kBoltTable({
    "bolt-table",
    "COLUMNS SV SH",
    "table of C for bolt groups: rows n bolts per row, columns ex, and C'",
    cli::Options{{"--n", "LIST", "bolts per vertical row, whole numbers from 1, by commas", false, true},
                 {"--ex", "LIST", "eccentricities (inches), by commas", false, true},
                 {"--angle", "DEG", "load angle in degrees from vertical", false, true},
                 ModelOption(),
                 kCsvGrid},
    {"COLUMNS vertical rows of bolts at gage SH (inches), bolts at pitch SV (inches).",
     "NC marks a cell without convergence. --format csv and json give one row per cell",
     "(n, ex_in, C, C_prime_in) at full precision.", cli::kLengthHelp},
    {"bolt-table 2 3 5.5 --n 2,4,6 --ex 2,6,16 --angle 0 --model aisc",
     "bolt-table 2 3 3 --n 4 --ex 6 --angle 0 --format json"},
    BoltTable,
    true});

}  // namespace

const cli::Option& ModelOption() {
    static const cli::Option option{"--model", "iterative|aisc",
                                    "the program's own iteration (default) or the AISC element model"};
    return option;
}

bool ReadModel(const cli::Parsed& p, shell::SolverModel& model, std::string& error) {
    model = shell::SolverModel::Iterative;
    if (p.Has("--model") && !shell::ParseSolverModel(p.Value("--model"), model)) {
        error = "--model must be iterative or aisc, not " + cli::Quote(p.Value("--model"));
        return false;
    }
    return true;
}

cli::Field ModelField(shell::SolverModel model) { return {"model", cli::Txt(shell::SolverModelName(model))}; }

cli::Row CenterFields(bool atInfinity, double x, double y) {
    if (atInfinity) return {{"center_x_in", {}}, {"center_y_in", {}}};
    return {{"center_x_in", cli::Num(x)}, {"center_y_in", cli::Num(y)}};
}

int NoEquilibrium(const cli::Parsed& p, const cli::Row& head, bool atInfinity, double x, double y) {
    if (p.format == cli::Format::Json)
        std::cout << cli::JsonObject(head + cli::Row{{"converged", cli::Flag(false)}} + CenterFields(atInfinity, x, y))
                  << "\n";
    std::cout.flush();
    return cli::Fail("no convergence: the element model finds no equilibrium for this load", 3);
}

}  // namespace modelcli
