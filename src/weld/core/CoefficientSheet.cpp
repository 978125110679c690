#include "weld/core/CoefficientSheet.h"

#include <cmath>
#include <cstdio>

#include "shell/core/Primitives.h"
#include "weld/core/GroupFigure.h"
#include "weld/core/WeldCoefficient.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldStrength.h"

namespace weld {

namespace {

std::string Five(double v) { return prim::Trim(prim::Format(v, "0.00000")); }
std::string Number(double v) { return prim::PlainText(std::round(v * 1e4) / 1e4); }

}  // namespace

std::optional<double> Other_Coefficient(const StandardConfig& config, const SolveOptions& options, int64_t maxPasses) {
    SolveOptions other = options;
    other.Model = shell::OtherModel(options.Model);
    WeldRunState state;
    state.IterationStop = false;
    WeldRunHooks hooks;
    hooks.Display = [&](const PassShown& p) {
        if (p.Passes >= maxPasses) state.IterationStop = true;
    };
    const SolveResult r = Solve(config, other, state, hooks);
    if (!r.Converged || r.Stopped) return std::nullopt;
    return r.Value;
}

sheet::Sheet Coefficient_Sheet(const CoefficientRun& run, const sheet::TitleBlock& title, const std::string& version) {
    sheet::Sheet s;
    s.Title = title;
    if (s.Title.Title.empty()) s.Title.Title = "Weld Group Coefficient";
    s.FileName = "Configuration " + std::to_string(run.Config.Number);
    s.Version = version;
    const StandardConfig& c = run.Config;
    const ConfigShape shape = Config_Shape(c);

    // The shape as solved (scaled), its center back from the units of L.
    SolveResult scaled = run.Result;
    scaled.CenterX *= shape.Scale;
    scaled.CenterY *= shape.Scale;
    for (shell::ElementForce& e : scaled.Forces) {
        e.X *= shape.Scale;
        e.Y *= shape.Scale;
    }
    sheet::Figure f = Group_Figure(shape.Group.Lines, {}, {false, shape.Group.Ex, c.Angle}, &scaled, false, "k/in");
    f.Caption = "Configuration " + std::to_string(c.Number) + " drawn at its solved scale (" +
                Number(shape.Scale) + " x the given lengths), its load, the center (IC) and the segment forces";
    s.Figures.push_back(std::move(f));

    const double k = c.L != 0 ? c.kL / c.L : 0, a = c.L != 0 ? std::fabs(c.aL) / c.L : 0;
    int16_t spi = 0;
    spi = run.Options.SegmentsPerInch;
    sheet::Section inputs{"Inputs", {}, {}, {}};
    inputs.Rows = {{"Configuration", std::to_string(c.Number)},
                   {"Base length L", Number(c.L) + " in"},
                   {"Length kL", Number(c.kL) + " in   (k = " + Number(k) + ")"},
                   {"Eccentricity aL", Number(std::fabs(c.aL)) + " in   (a = " + Number(a) + ")"},
                   {"Load angle \u03B8 from vertical", Number(c.Angle) + "\u00B0"},
                   {"Weld segment iteration length", "1/" + std::to_string(spi) + "\""},
                   {"Solver model", shell::SolverModelCaption(run.Options.Model)}};
    s.Sections.push_back(inputs);

    sheet::Section results{"Results", {}, {}, {}};
    const char* other = shell::SolverModelCaption(shell::OtherModel(run.Options.Model));
    results.Rows = {
        {prim::Trim(std::string(WeldCoefficient::kResultCaption)), Five(run.Result.Value)},
        {std::string(other) + " (for comparison)",
         run.Other ? Five(*run.Other) + "   (" +
                         (run.Result.Value > 0 ? prim::Format((*run.Other - run.Result.Value) / run.Result.Value * 100, "0.0")
                                               : std::string("-")) +
                         " %)"
                   : std::string("no converged value for this load")},
        {"Centroid distance xL", Centroid_IsMidpointX(c.Number) ? "Midpoint" : Number(Config_xL(c.Number, c.L, c.kL)) + " in"},
        {"Centroid distance yL", Centroid_IsMidpointY(c.Number) ? "Midpoint" : Number(Config_yL(c.Number, c.L, c.kL)) + " in"},
        {"Passes", std::to_string(run.Result.Passes)}};
    results.Paragraphs.push_back(
        "C is the load as a multiple of C1 D L: per inch of base length L, per sixteenth of weld size D, in E70XX "
        "electrode (C1 = 1); the capacity of the group is P = C C1 D L.");
    s.Sections.push_back(results);
    sheet::Section method{"Method", {}, {}, {}};
    method.Paragraphs.push_back(
        "Instantaneous center of rotation method for eccentrically loaded weld groups; reference: AISC Steel "
        "Construction Manual, 13th Edition, Part 8.");
    s.Sections.push_back(method);
    return s;
}

}  // namespace weld
