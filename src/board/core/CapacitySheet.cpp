#include "board/core/CapacitySheet.h"

#include <cmath>
#include <cstdio>

#include "board/core/CapacityHandOver.h"
#include "board/core/Viewport.h"
#include "shell/core/ModelCheck.h"
#include "shell/core/Primitives.h"
#include "weld/core/GroupFigure.h"
#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldStrength.h"

namespace capsheet {

namespace {

using shell::SolverModel;

std::string Fixed(double v, int decimals) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
    std::string s(buf);
    // No "-0.0000" for a value that rounds to nothing.
    if (s.find_first_not_of("-0.") == std::string::npos && s[0] == '-') s.erase(0, 1);
    return s;
}

weld::SolveOptions Options(const Inputs& in, SolverModel model) {
    weld::SolveOptions o;
    o.Model = model;
    WeldStrength::SegmentsPerInchOf(in.Strip, o.SegmentsPerInch);
    return o;
}

// A solve that stops after `maxPasses` passes of the iteration.
weld::SolveResult Limited(const Layout::LayoutDocument& doc, const weld::SolveOptions& o, int64_t maxPasses) {
    weld::WeldRunState state;
    state.IterationStop = false;
    weld::WeldRunHooks hooks;
    hooks.Display = [&](const weld::PassShown& p) {
        if (p.Passes >= maxPasses) state.IterationStop = true;
    };
    return weld::Solve_Layout(doc, o, state, hooks);
}

std::string Trimmed(std::string_view s) { return prim::Trim(std::string(s)); }

}  // namespace

std::optional<double> Other_Model(const Layout::LayoutDocument& doc, const Inputs& in, int64_t maxPasses) {
    const weld::SolveResult r = Limited(doc, Options(in, shell::OtherModel(in.Model)), maxPasses);
    if (!r.Converged || r.Stopped) return std::nullopt;
    return r.Value;
}

Run Solve_Both(const Layout::LayoutDocument& doc, const Inputs& in, int64_t maxPasses) {
    Run run;
    weld::SolveOptions o = Options(in, in.Model);
    o.WithForces = true;
    run.Result = Limited(doc, o, maxPasses);
    if (run.Result.Stopped) run.Result.Converged = false;
    if (run.Result.Converged) run.Other = Other_Model(doc, in, maxPasses);
    return run;
}

sheet::Sheet Capacity_Sheet(const Layout::LayoutDocument& doc, const Inputs& in, const Run& run,
                            const sheet::TitleBlock& title, const std::string& fileName, const std::string& version) {
    sheet::Sheet s;
    s.Title = title;
    if (s.Title.Title.empty()) s.Title.Title = "Weld Group Capacity";
    s.FileName = fileName;
    s.Version = version;

    double fexx = 0, size = 0, factor = 0;
    std::string caption;
    WeldStrength::ElectrodeStrengthOf(in.Electrode, fexx);
    WeldStrength::WeldSizeInchesOf(in.Size, size);
    WeldStrength::MethodOf(in.Method, factor, caption);
    const weld::SolveResult& r = run.Result;
    const double unit = r.Value;
    const double shown = WeldStrength::DisplayedCapacity(fexx, unit, size, factor);

    // The drawing in world inches, Y up, as the board shows the layout.
    weld::WeldLineTable lines;
    std::vector<std::string> names;
    for (const Layout::LineRec& l : doc.Lines) {
        if (l.Exists == 0) continue;
        lines.push_back({Viewport::To_WorldX(doc, l.StartPt.X), Viewport::To_WorldY(doc, l.StartPt.Y),
                         Viewport::To_WorldX(doc, l.EndPt.X), Viewport::To_WorldY(doc, l.EndPt.Y)});
        names.push_back(l.LineName);
    }
    const weld::FigureLoad load{doc.Load.LoadSide == 0, doc.Load.LoadEccentricity * 12.0, doc.Load.LoadAngle};
    // The forces in the kips of the chosen method, as the board shows them.
    shell::SolveRecord shownRun = r;
    for (shell::ElementForce& e : shownRun.Forces) e.Force *= fexx * size * factor;
    sheet::Figure figure = weld::Group_Figure(lines, names, load, &shownRun, true, "k/in");
    figure.Caption = "The weld group, its load, the instantaneous center (IC) and the force on each segment";
    s.Figures.push_back(std::move(figure));

    double total = 0;
    for (const weld::WeldLineRec& l : lines) total += weld::ExactLength(l);

    sheet::Section inputs{"Inputs", {}, {}, {}};
    inputs.Rows = {
        {"Electrode", Trimmed(WeldStrength::kElectrodeItems[static_cast<size_t>(in.Electrode)]) +
                          "  (Fexx = " + prim::PlainText(fexx) + " ksi)"},
        {"Weld size D", Trimmed(WeldStrength::kSizeItems[static_cast<size_t>(in.Size)])},
        {"Weld segment iteration length", Trimmed(WeldStrength::kWeldStripItems[static_cast<size_t>(in.Strip)])},
        {"Solver model", shell::SolverModelCaption(in.Model)},
        {"Design method", Trimmed(WeldStrength::kDesignMethodItems[static_cast<size_t>(in.Method)])},
        {"Load side", doc.Load.LoadSide == 0 ? "Left" : "Right"},
        {"Load angle from vertical", prim::PlainText(doc.Load.LoadAngle) + "\u00B0"},
        {"Eccentricity from the centroid", weld::Inches_Text(std::fabs(doc.Load.LoadEccentricity) * 12.0)},
        {"Weld lines", std::to_string(lines.size()) + ", total length " + weld::Inches_Text(total)},
    };
    s.Sections.push_back(inputs);

    sheet::Section results{"Results", {}, {}, {}};
    results.Rows.push_back({caption, Trimmed(WeldStrength::CapacityText(shown))});
    // C as the tables of eccentric weld groups give it: Rn = C C1 D l, with
    // D in sixteenths and C1 the electrode's strength over 70 ksi.
    const double nominal = WeldStrength::DisplayedCapacity(fexx, unit, size, 1.0);
    const double sixteenths = size * 16, c1 = fexx / 70.0;
    if (total > 0)
        results.Rows.push_back({"Coefficient C = Rn / (C1 D l)",
                                Fixed(nominal / (c1 * sixteenths * total), 4) + "   (C1 = " + Fixed(c1, 3) +
                                    ", D = " + prim::PlainText(sixteenths) + " sixteenths, l = " +
                                    prim::PlainText(std::round(total * 1e4) / 1e4) + " in)"});
    results.Rows.push_back({"Instantaneous center from the centroid",
                            r.CenterAtInfinity ? std::string("at infinity (the group translates)")
                                               : "x = " + Fixed((load.Left ? -1 : 1) * r.CenterX, 4) +
                                                     " in, y = " + Fixed(r.CenterY, 4) + " in"});
    results.Rows.push_back(
        {in.Model == SolverModel::Iterative ? "Passes of the iteration" : "Newton steps of the element model",
         std::to_string(r.Passes) +
             (r.Relaxation < 1.0 ? ", correction step relaxed to 1/" + prim::PlainText(std::round(1 / r.Relaxation))
                                 : std::string(", no relaxation needed"))});
    const SolverModel other = shell::OtherModel(in.Model);
    const std::string otherText =
        run.Other ? Trimmed(WeldStrength::CapacityText(WeldStrength::DisplayedCapacity(fexx, *run.Other, size, factor))) +
                        " kips (" + (shown > 0 ? Fixed((WeldStrength::DisplayedCapacity(fexx, *run.Other, size, factor) -
                                                        shown) / shown * 100, 1)
                                               : std::string("-")) +
                        " %)"
                  : std::string("no converged result for this load");
    results.Rows.push_back({std::string(shell::SolverModelCaption(other)) + " (for comparison)", otherText});
    if (in.Model == SolverModel::Iterative && run.Other) {
        const modelcheck::Comparison c = modelcheck::Compare(shown,
            WeldStrength::DisplayedCapacity(fexx, *run.Other, size, factor), modelcheck::kDefaultPercent);
        if (c.exceeds) results.Paragraphs.push_back(modelcheck::WarningLine(c));
    }
    sheet::Table methods{{"Method", "Factor", "Capacity, kips"}, {}};
    const char* const factors[] = {"-", "\u03A9 = 2.00", "\u03C6 = 0.75"};
    for (int i = 0; i < 3; ++i) {
        double f = 0;
        std::string name;
        WeldStrength::MethodOf(i, f, name);
        methods.Rows.push_back({Trimmed(WeldStrength::kDesignMethodItems[static_cast<size_t>(i)]), factors[i],
                                Trimmed(WeldStrength::CapacityText(WeldStrength::DisplayedCapacity(fexx, unit, size, f)))});
    }
    results.Tables.push_back(methods);
    s.Sections.push_back(results);

    sheet::Section method{"Method", {}, {}, {}};
    method.Paragraphs.push_back(
        "The capacity is found by the instantaneous center of rotation method: the weld group is taken to turn "
        "about one point, each segment resists in proportion to the deformation that turn gives it, and the "
        "center is the point at which the segments' forces balance the eccentric load.");
    if (in.Model == SolverModel::AiscElement)
        method.Paragraphs.push_back(
            "AISC element model: each element's strength is R = 0.60 Fexx (1 + 0.5 sin^1.5 \u03B8) "
            "[p (1.9 - 0.9 p)]^0.3 times its throat area, with p = \u0394 / \u0394m, \u0394u = 1.087 (\u03B8 + 6)^-0.65 w "
            "(at most 0.17 w) and \u0394m = 0.209 (\u03B8 + 2)^-0.32 w; the element with the least \u0394u / r reaches "
            "\u0394u.");
    else
        method.Paragraphs.push_back(
            "System iteration: the program's own trial-center iteration, corrected until the force and moment "
            "residuals fall below its tolerance; its result is compared above with the AISC element model.");
    method.Paragraphs.push_back("Reference: AISC Steel Construction Manual, 13th Edition, Part 8.");
    s.Sections.push_back(method);
    return s;
}

}  // namespace capsheet
