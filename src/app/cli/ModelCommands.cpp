// Tables of coefficients from the command line (weld-table, bolt-table), and
// the element-model runs of weld-c, capacity and bolt-c.
#include <iomanip>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "Cli.h"
#include "ModelCli.h"
#include "WeldCli.h"
#include "board/WeldUnitCapacity.h"
#include "bolt/BoltElementModel.h"
#include "bolt/BoltFunctions.h"
#include "shell/Primitives.h"
#include "weld/WeldElementModel.h"
#include "weld/WeldFunctions.h"
#include "weld/WeldStrength.h"

namespace modelcli {

namespace {

using shell::SolverModel;

int NoEquilibrium() { return cli::Fail("no convergence: the element model finds no equilibrium for this load", 3); }

int16_t Strip(int stripIndex) {
    int16_t spi = 32;
    WeldStrength::SegmentsPerInchOf(stripIndex, spi);
    return spi;
}

// "1,2.5,3": at least one number, each finite and not negative.
bool ParseList(const std::string& text, std::vector<double>& out) {
    out.clear();
    size_t start = 0;
    for (;;) {
        const size_t comma = text.find(',', start);
        const std::string part =
            prim::Trim(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        double v = 0.0;
        if (!cli::ParseDouble(part, v) || v < 0.0) return false;
        out.push_back(v);
        if (comma == std::string::npos) return true;
        start = comma + 1;
    }
}

bool TakeList(cli::Args& args, const std::string& name, std::vector<double>& out, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, name, value, present) || !present) {
        error = "needs " + name + " LIST";
        return false;
    }
    if (!ParseList(value, out)) {
        error = name + " wants numbers, 0 or more, separated by commas: " + value;
        return false;
    }
    return true;
}

bool TakeNumber(cli::Args& args, const std::string& name, double& out, bool required, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, name, value, present)) {
        error = name + " needs a value";
        return false;
    }
    if (!present) {
        if (required) error = "needs " + name;
        return !required;
    }
    if (!cli::ParseDouble(value, out)) {
        error = name + ": not a number: " + value;
        return false;
    }
    return true;
}

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

    void Print(bool csv) const {
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
            return;
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
    }
};

std::string StripText(int stripIndex) { return "strip 1/" + std::to_string(Strip(stripIndex)) + "\""; }

// One cell of the weld table by the system's iteration, stopped by the pass
// limit like the other weld commands.
std::optional<double> IterativeC(int16_t config, double L, double k, double a, double angle, int stripIndex,
                                 long maxPasses) {
    weldcli::LimitedRun run(stripIndex, maxPasses);
    const double c = WeldFunctions::Config_ByNumber(config, L, k * L, a * L, angle, WeldFunctions::kSelectC, run.state,
                                                    run.hooks, &run.report);
    if (run.report.Refused || !(run.report.Converged || run.report.Concentric)) return std::nullopt;
    return c;
}

int WeldTable(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    SolverModel model = SolverModel::Iterative;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    std::vector<double> ks, as;
    double angle = 0.0, L = 10.0;
    const bool csv = cli::TakeFlag(args, "--csv");
    if (!TakeModel(args, model, error) || !weldcli::TakeRunOptions(args, opt, error) ||
        !TakeList(args, "--k", ks, error) || !TakeList(args, "--a", as, error) ||
        !TakeNumber(args, "--angle", angle, true, error) || !TakeNumber(args, "--length", L, false, error))
        return cli::UsageError("weld-table: " + error);
    if (args.size() != 1) return cli::UsageError("weld-table needs CONFIG --k LIST --a LIST --angle DEG");
    long config = 0;
    if (!cli::ParseInt(args[0], config) || config < 1 || config > 9) return cli::UsageError("CONFIG must be 1 to 9");
    if (!(L > 0.0)) return cli::UsageError("--length must be more than 0");

    Table t;
    t.title = "Configuration " + std::to_string(config) + ", load angle " + prim::PlainText(angle) +
              ", L = " + prim::PlainText(L) + ", " + StripText(opt.stripIndex) + ", " +
              shell::SolverModelCaption(model);
    t.corner = "a\\k";
    for (double k : ks) t.columns.push_back(prim::PlainText(k));
    for (double a : as) {
        t.rows.push_back(prim::PlainText(a));
        auto& row = t.cells.emplace_back();
        for (double k : ks) {
            const int16_t c = static_cast<int16_t>(config);
            if (model == SolverModel::AiscElement) {
                WeldElementModel::ElementReport rep;
                const double v = WeldElementModel::Config_C(c, L, k * L, a * L, angle, Strip(opt.stripIndex), &rep);
                row.push_back(rep.Converged ? std::optional<double>(v) : std::nullopt);
            } else {
                row.push_back(IterativeC(c, L, k, a, angle, opt.stripIndex, opt.maxPasses));
            }
        }
    }
    t.Print(csv);
    return 0;
}

bool ParseCount(const std::string& text, int16_t& out) {
    long v = 0;
    if (!cli::ParseInt(text, v) || v < 1 || v > 32767) return false;
    out = static_cast<int16_t>(v);
    return true;
}

int BoltTable(const cli::Args& input) {
    cli::Args args = input;
    std::string error;
    SolverModel model = SolverModel::Iterative;
    std::vector<double> ns, exs;
    double angle = 0.0;
    const bool csv = cli::TakeFlag(args, "--csv");
    if (!TakeModel(args, model, error) || !TakeList(args, "--n", ns, error) || !TakeList(args, "--ex", exs, error) ||
        !TakeNumber(args, "--angle", angle, true, error))
        return cli::UsageError("bolt-table: " + error);
    if (args.size() != 3) return cli::UsageError("bolt-table needs COLUMNS SV SH --n LIST --ex LIST --angle DEG");
    int16_t columns = 0;
    double sv = 0.0, sh = 0.0;
    if (!ParseCount(args[0], columns)) return cli::UsageError("COLUMNS must be a whole number from 1 to 32767");
    if (!cli::ParseDouble(args[1], sv)) return cli::UsageError("SV is not a number: " + args[1]);
    if (!cli::ParseDouble(args[2], sh)) return cli::UsageError("SH is not a number: " + args[2]);
    for (double n : ns)
        if (n != static_cast<int16_t>(n) || n < 1 || n * columns > 32767)
            return cli::UsageError("--n wants whole numbers of bolts from 1 up, at most 32767 bolts in all");

    Table t;
    t.title = std::to_string(columns) + " column" + (columns == 1 ? "" : "s") + " at " + prim::PlainText(sh) +
              ", rows at " + prim::PlainText(sv) + ", load angle " + prim::PlainText(angle) + ", " +
              shell::SolverModelCaption(model);
    t.corner = "n\\ex";
    t.textPicture = "0.00";
    t.csvPicture = "0.0000";
    for (double ex : exs) t.columns.push_back(prim::PlainText(ex));
    t.columns.push_back("C'");
    for (double nv : ns) {
        const int16_t m = static_cast<int16_t>(nv);
        t.rows.push_back(std::to_string(m));
        auto& row = t.cells.emplace_back();
        auto value = [&](const BoltElementModel::BoltReport& rep) {
            return rep.Converged ? std::optional<double>(rep.Value) : std::nullopt;
        };
        for (double ex : exs) {
            if (model == SolverModel::AiscElement)
                row.push_back(value(BoltElementModel::BoltGroup_C(m, columns, sv, sh, ex, angle)));
            else
                row.push_back(BoltFunctions::BoltGroup_C(m, columns, sv, sh, ex, angle));
        }
        if (model == SolverModel::AiscElement)
            row.push_back(value(BoltElementModel::BoltGroup_CPrime(m, columns, sv, sh)));
        else
            row.push_back(BoltFunctions::BoltGroup_CPrime(m, columns, sv, sh));
    }
    t.Print(csv);
    return 0;
}

const cli::Registrar kWeldTable(
    {"weld-table",
     "weld-table CONFIG --k LIST --a LIST --angle DEG [--length L] [--model iterative|aisc] [--strip N] "
     "[--max-passes N] [--csv]",
     "table of C for configuration 1-9: rows a, columns k (lists separated by commas; L = 10 unless given); "
     "NC marks a cell without convergence",
     WeldTable});

const cli::Registrar kBoltTable(
    {"bolt-table", "bolt-table COLUMNS SV SH --n LIST --ex LIST --angle DEG [--model iterative|aisc] [--csv]",
     "table of C for bolt groups of COLUMNS vertical rows at gage SH, bolts at pitch SV: rows n bolts per "
     "row, columns ex, and C'; NC marks a cell without convergence",
     BoltTable});

}  // namespace

bool TakeModel(cli::Args& args, shell::SolverModel& model, std::string& error) {
    std::string value;
    bool present = false;
    if (!cli::TakeOption(args, "--model", value, present)) {
        error = "--model needs iterative or aisc";
        return false;
    }
    if (present && !shell::ParseSolverModel(value, model)) {
        error = "--model must be iterative or aisc";
        return false;
    }
    return true;
}

int WeldC(int16_t config, const double (&v)[4], int stripIndex, bool verbose) {
    WeldElementModel::ElementReport rep;
    const double c = WeldElementModel::Config_C(config, v[0], v[1], v[2], v[3], Strip(stripIndex), &rep);
    if (rep.Refused) return cli::Fail("nothing to solve: no weld, or more than 1000000 elements", 1);
    if (!rep.Converged) return NoEquilibrium();
    std::cout << prim::Trim(prim::Format(c, "0.00000")) << "\n";
    if (verbose) {
        // As the system's run shows it: from the centroid, in the units of L.
        const double s = WeldFunctions::Config_Scale(v[0], config == 1 ? 0.0 : v[1]);
        std::cout << "iterations " << rep.Iterations << "\n";
        if (rep.Motion.Translation)
            std::cout << "center at infinity\n";
        else
            std::cout << "center " << prim::Format((rep.Motion.CenterX - rep.CentroidX) / s, "0.000000000") << " "
                      << prim::Format((rep.Motion.CenterY - rep.CentroidY) / s, "0.000000000") << "\n";
    }
    return 0;
}

int Capacity(const PublicVariables::LayoutDocument& doc, int stripIndex, double fexx, double size, double factor,
             const std::string& caption) {
    const WeldElementModel::ElementReport rep = WeldFunctions::Weld_ElementCapacity(1.0, 1.0, doc, Strip(stripIndex));
    if (rep.Refused) return cli::Fail("nothing to solve: no weld, or more than 1000000 elements", 1);
    if (!rep.Converged) return NoEquilibrium();
    const double shown = WeldStrength::DisplayedCapacity(fexx, rep.Capacity, size, factor);
    std::cout << prim::Trim(WeldStrength::CapacityText(shown)) << "\n" << caption << "\n";
    return 0;
}

int BoltC(int16_t m, int16_t n, const double (&v)[4]) {
    const BoltElementModel::BoltReport c = BoltElementModel::BoltGroup_C(m, n, v[0], v[1], v[2], v[3]);
    const BoltElementModel::BoltReport cp = BoltElementModel::BoltGroup_CPrime(m, n, v[0], v[1]);
    if (c.Refused || cp.Refused)
        return cli::Fail("a bolt group needs from 1 to 32767 bolts (M x N); got M = " + std::to_string(m) +
                             ", N = " + std::to_string(n),
                         1);
    if (!c.Converged) return NoEquilibrium();
    // A group with no couple strength (one bolt, or all at one point) has C' = 0.
    std::cout << prim::Format(c.Value, "0.0000") << " " << prim::Format(cp.Converged ? cp.Value : 0.0, "0.0000")
              << "\n";
    return 0;
}

}  // namespace modelcli
