#include "WeldCli.h"

#include <ctime>
#include <iostream>

#include "ModelCli.h"
#include "shell/core/Primitives.h"
#include "weld/core/RunControl.h"
#include "weld/core/WeldStrength.h"

namespace weldcli {

const cli::Options& RunOptionList() {
    static const cli::Options options = {
        {"--strip", "4|8|16|32|64", "segments per inch of weld (default 32)"},
        {"--max-passes", "N", "stop after N passes, 0 or more (default 100000); exit 3 when reached"},
        {"--verbose", "", "also print the passes run and the last center (inches)"},
    };
    return options;
}

bool ReadRunOptions(const cli::Parsed& p, RunOptions& options, std::string& error) {
    options.verbose = p.Has("--verbose");
    if (p.Has("--strip")) {
        long long v = 0;
        const bool whole = cli::ReadWhole("--strip", p.Value("--strip"), 4, 64, v, error);
        const int index = whole ? WeldStrength::WeldStripIndexOf(static_cast<int>(v)) : -1;
        if (index < 0) {
            error = "--strip must be 4, 8, 16, 32 or 64, not " + cli::Quote(p.Value("--strip"));
            return false;
        }
        options.stripIndex = index;
    }
    if (p.Has("--max-passes") &&
        !cli::ReadWhole("--max-passes", p.Value("--max-passes"), 0, INT64_MAX, options.maxPasses, error))
        return false;
    return true;
}

bool ReadCoords(const std::string& what, const std::string& text, double (&v)[4], std::string& error) {
    size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const size_t comma = text.find(',', start);
        const bool last = i == 3;
        if (last != (comma == std::string::npos)) {
            error = what + " wants X1,Y1,X2,Y2: " + cli::Quote(text);
            return false;
        }
        const std::string part = prim::Trim(text.substr(start, last ? std::string::npos : comma - start));
        if (!cli::ReadLength(what, part, false, -cli::kSingleMax, cli::kSingleMax, v[i], error)) return false;
        start = comma + 1;
    }
    return true;
}

LimitedRun::LimitedRun(const RunOptions& run, shell::SolverModel model, const std::string& label)
    : maxPasses(run.maxPasses), ownProgress(std::in_place, label), progress(&*ownProgress) {
    Start(run, model);
}

LimitedRun::LimitedRun(const RunOptions& run, shell::SolverModel model, cli::Progress& shared)
    : maxPasses(run.maxPasses), progress(&shared) {
    Start(run, model);
}

void LimitedRun::Start(const RunOptions& run, shell::SolverModel model) {
    options.Model = model;
    WeldStrength::SegmentsPerInchOf(run.stripIndex, options.SegmentsPerInch);
    state.IterationResume = false;
    state.IterationStop = maxPasses == 0;
    hooks.Display = [this](const weld::PassShown& pass) {
        if (pass.Passes >= maxPasses) state.IterationStop = true;
        progress->Tick("pass " + std::to_string(pass.Passes + 1));
    };
}

namespace {

bool ByElements(const weld::SolveResult& r) { return r.Model == shell::SolverModel::AiscElement; }

std::string CenterText(const weld::SolveResult& r) {
    return prim::Format(r.CenterX, "0.000000000") + " " + prim::Format(r.CenterY, "0.000000000");
}

}  // namespace

int LimitedRun::Check(const cli::Parsed& p, const cli::Row& head) {
    progress->Clear();
    const weld::SolveResult& r = result;
    if (r.Refused)
        return cli::Fail(ByElements(r) ? "nothing to solve: no weld, or more than 1000000 elements"
                                       : "the group has more than 32767 segments",
                         1);
    if (r.NoEquilibrium) return modelcli::NoEquilibrium(p, head, r.CenterAtInfinity, r.CenterX, r.CenterY);
    std::string failure;
    if (r.Unsettled)
        failure = "no convergence: the center kept oscillating with the correction step at 1/" +
                  prim::Format(1.0 / r.Relaxation, "0") + " after " + std::to_string(r.Passes) +
                  " passes (last center " + CenterText(r) + ")";
    // Only a run that the pass limit stopped counts as not converged.
    else if (r.Stopped && !r.Converged)
        failure = "no convergence after " + std::to_string(maxPasses) + " passes (last center " + CenterText(r) + ")";
    if (failure.empty()) return 0;
    if (p.format == cli::Format::Json) std::cout << cli::JsonObject(head + Fields()) << "\n";
    std::cout.flush();
    return cli::Fail(failure, 3);
}

cli::Row LimitedRun::Fields() const {
    const weld::SolveResult& r = result;
    if (ByElements(r))
        return cli::Row{{"converged", cli::Flag(r.Converged)},
                        {"iterations", cli::Num(static_cast<double>(r.Passes))}} +
               modelcli::CenterFields(r.CenterAtInfinity, r.CenterX, r.CenterY);
    return {{"converged", cli::Flag(!(r.Stopped && !r.Converged))},
            {"passes", cli::Num(static_cast<double>(r.Passes))},
            {"center_x_in", cli::Num(r.CenterX)},
            {"center_y_in", cli::Num(r.CenterY)},
            {"relaxed", cli::Num(r.Relaxation)}};
}

void LimitedRun::PrintVerbose() const {
    const weld::SolveResult& r = result;
    if (ByElements(r)) {
        std::cout << "iterations " << r.Passes << "\n";
        std::cout << (r.CenterAtInfinity ? "center at infinity" : "center " + CenterText(r)) << "\n";
        return;
    }
    std::cout << "passes " << r.Passes << "\n";
    std::cout << "center " << CenterText(r) << "\n";
    // The window's line without its paragraph break.
    const std::string settled = RunControl::SettlingText(r.Relaxation, r.Unsettled);
    if (!settled.empty()) {
        std::cout.flush();
        std::cerr << "ferrolith-cli: " << settled.substr(settled.find_first_not_of("\r ")) << "\n";
    }
}

const cli::Option& NoCheckOption() {
    static const cli::Option option{"--no-check", "",
                                    "leave out the cross-check against the AISC element model (fields aisc, ratio)"};
    return option;
}

cli::Row CrossCheck::Fields() const {
    if (!applies) return {};
    const bool solved = done && result.solved;
    return {{"aisc", solved ? cli::Num(result.element) : cli::Cell{}},
            {"ratio", solved ? cli::Num(result.ratio) : cli::Cell{}}};
}

CrossCheck CheckAgainst(const cli::Parsed& p, double system, const weld::CheckFn& other, const char* unit, int decimals,
                        const std::function<double(double)>& shown) {
    CrossCheck check;
    check.applies = static_cast<bool>(other);
    if (!check.applies || p.Has("--no-check")) return check;
    check.done = true;
    std::optional<double> value = other();
    if (value && shown) value = shown(*value);
    check.result = modelcheck::Compare(system, value, modelcheck::kDefaultPercent);
    if (check.result.exceeds) {
        std::cout.flush();
        std::cerr << "ferrolith-cli: warning: " << modelcheck::CheckLine(check.result, unit, decimals) << ". "
                  << modelcheck::WarningLine(check.result) << "\n";
    }
    return check;
}

}  // namespace weldcli

namespace sheetcli {

const cli::Options& TitleOptionList() {
    static const cli::Options list = {
        {"--project", "TEXT", "project name in the title block"},
        {"--job", "TEXT", "job number in the title block"},
        {"--engineer", "TEXT", "engineer in the title block"},
        {"--checker", "TEXT", "checker in the title block"},
        {"--date", "TEXT", "date in the title block (default today, YYYY-MM-DD)"},
        {"--paper", "letter|a4", "paper size (default letter)"}};
    return list;
}

const cli::Options& SheetOptionList() {
    static const cli::Options list =
        cli::Options{{"--sheet", "OUT.pdf", "also write the calculation sheet as a PDF file"}} + TitleOptionList();
    return list;
}

namespace {
std::string Today() {
    const std::time_t now = std::time(nullptr);
    char buf[16];
    std::tm tm{};
    localtime_r(&now, &tm);
    std::strftime(buf, sizeof buf, "%Y-%m-%d", &tm);
    return buf;
}
}  // namespace

bool ReadTitle(const cli::Parsed& p, sheet::TitleBlock& t, sheet::Paper& paper, std::string& error) {
    t.Project = p.Value("--project");
    t.JobNumber = p.Value("--job");
    t.Engineer = p.Value("--engineer");
    t.Checker = p.Value("--checker");
    t.Date = p.Value("--date", Today());
    const std::string size = p.Value("--paper", "letter");
    if (size != "letter" && size != "a4") {
        error = "--paper must be letter or a4, not " + cli::Quote(size);
        return false;
    }
    paper = size == "a4" ? sheet::Paper::A4 : sheet::Paper::Letter;
    return true;
}

Writer& SheetWriter() {
    static Writer writer;
    return writer;
}

int WriteIfAsked(const cli::Parsed& p, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make) {
    if (!p.Has("--sheet")) return 0;
    if (!SheetWriter()) return cli::Fail("this build of ferrolith-cli makes no sheets", 1);
    sheet::TitleBlock title;
    sheet::Paper paper = sheet::Paper::Letter;
    std::string error;
    if (!ReadTitle(p, title, paper, error)) return cli::UsageError(error);
    return SheetWriter()(make(title), paper, p.Value("--sheet"));
}

}  // namespace sheetcli
