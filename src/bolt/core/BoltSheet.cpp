#include "bolt/core/BoltSheet.h"

#include <algorithm>
#include <cmath>

#include "shell/core/FigureSurface.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "shell/core/ResultPicture.h"

namespace bolt {

namespace {

using sheet::Figure;

std::string Four(double v) { return prim::Trim(prim::Format(v, "0.0000")); }
std::string Number(double v) { return prim::PlainText(std::round(v * 1e4) / 1e4); }

// The pattern about its centroid, the load's anchor at the eccentricity on
// the right, and of the solve its center and the force on each bolt.
Figure Pattern_Figure(const SheetCase& c, const SolveResult& r) {
    Figure f;
    const BoltPattern& p = c.Pattern;
    const double w = (p.N - 1) * p.Sh, h = (p.M - 1) * p.Sv, size = std::max({w, h, c.Load.Ex, 1.0});
    const double m = 0.15 * size;
    f.Lines.push_back({-w / 2 - m, 0, w / 2 + m, 0, sheet::kAxis, 0.5, true, false});
    f.Lines.push_back({0, -h / 2 - m, 0, h / 2 + m, sheet::kAxis, 0.5, true, false});
    for (int i = 0; i < p.M; ++i)
        for (int j = 0; j < p.N; ++j) f.Circles.push_back({j * p.Sh - w / 2, i * p.Sv - h / 2, 3.5, sheet::kInk, false});
    const double ax = c.Load.Ex, rad = shell::Radians(c.Load.Angle), shaft = 0.3 * size;
    f.Circles.push_back({ax, 0, 2.5, sheet::kLoad, true});
    f.Lines.push_back({ax, 0, ax + std::sin(rad) * shaft, std::cos(rad) * shaft, sheet::kLoad, 1.4, false, true});
    f.Labels.push_back({ax + std::sin(rad) * shaft, std::cos(rad) * shaft, "P  " + Number(c.Load.Angle) + "\u00B0",
                        sheet::kLoad, Figure::Align::Left, 5, -4});
    if (c.Load.Ex > 0) {
        const double y = -h / 2 - 0.25 * size;
        f.Lines.push_back({0, y, ax, y, sheet::kLoad, 0.5, false, true});
        f.Lines.push_back({ax, y, 0, y, sheet::kLoad, 0.5, false, true});
        f.Labels.push_back({ax / 2, y, "ex = " + Number(c.Load.Ex) + " in", sheet::kLoad, Figure::Align::Centre, 0, 8});
    }
    if (!r.Forces.empty()) {
        // The center and the bolts' forces by the result painter of the
        // screen, on a surface that records them into the figure.
        double x0 = -w / 2, x1 = std::max(w / 2, ax), y0 = -h / 2, y1 = h / 2;
        if (!r.CenterAtInfinity)
            x0 = std::min(x0, r.CenterX), x1 = std::max(x1, r.CenterX), y0 = std::min(y0, r.CenterY),
            y1 = std::max(y1, r.CenterY);
        const double margin = 0.25 * std::max({x1 - x0, y1 - y0, 1.0});
        x0 -= margin, x1 += margin, y0 -= margin, y1 += margin;
        shell::FigureSurface surface(f, x0, y0, x1, y1, 4.0 / std::max(x1 - x0, y1 - y0));
        ResultPicture::Labels labels;
        labels.Center = "IC";
        labels.Text = 0;  // black on paper
        labels.Legend = "Max. force = " + prim::Format(ResultPicture::Largest(r), "0.000") + " x one bolt";
        ResultPicture::Draw_Results(surface, r, {surface.OriginX(0), surface.OriginY(0), surface.UnitsPerInch(), false},
                                    labels);
    }
    f.Caption = std::to_string(p.M) + " rows by " + std::to_string(p.N) + " columns at " + Number(p.Sv) + " by " +
                Number(p.Sh) + " in, ex = " + Number(c.Load.Ex) + " in, " + Number(c.Load.Angle) + "\u00B0";
    return f;
}

}  // namespace

sheet::Sheet Bolt_Sheet(const std::vector<SheetCase>& cases, shell::SolverModel model, const sheet::TitleBlock& title,
                        const std::string& version) {
    sheet::Sheet s;
    s.Title = title;
    if (s.Title.Title.empty()) s.Title.Title = "Bolt Group Coefficients";
    s.FileName = "Bolt group coefficients";
    s.Version = version;
    const shell::SolverModel other = shell::OtherModel(model);
    sheet::Table table{{"Rows", "Columns", "Sv, in", "Sh, in", "ex, in", "Angle", "C", "C'", "C other"}, {}};
    for (const SheetCase& c : cases) {
        const SolveResult r = Solve(c.Pattern, c.Load, {model, true});
        const SolveResult couple = Solve(c.Pattern, kCouple, {model});
        const SolveResult o = Solve(c.Pattern, c.Load, {other});
        s.Figures.push_back(Pattern_Figure(c, r));
        table.Rows.push_back({std::to_string(c.Pattern.M), std::to_string(c.Pattern.N), Number(c.Pattern.Sv),
                              Number(c.Pattern.Sh), Number(c.Load.Ex), Number(c.Load.Angle) + "\u00B0",
                              r.Converged ? Four(r.Value) : "-", couple.Converged ? Four(couple.Value) : "-",
                              o.Converged ? Four(o.Value) : "-"});
    }
    sheet::Section results{"Coefficients", {}, {}, {}};
    results.Rows = {{"Solver model", shell::SolverModelCaption(model)},
                    {"Other model (C other)", shell::SolverModelCaption(other)}};
    results.Tables.push_back(table);
    results.Paragraphs.push_back(
        "C is the load the group resists at the eccentricity as a multiple of one bolt's strength; C' the "
        "strongest moment under a pure couple, in bolt strengths times inches. Reference: AISC Steel Construction "
        "Manual, 13th Edition, Part 7 (instantaneous center of rotation method).");
    s.Sections.push_back(results);
    return s;
}

}  // namespace bolt
