#include "weld/core/GroupFigure.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "shell/core/FigureSurface.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "shell/core/ResultPicture.h"
#include "units/core/ImperialText.h"
#include "weld/core/WeldConfigurations.h"

namespace weld {

namespace {

using sheet::Figure;

std::string Degrees(double d) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.1f", d);
    std::string s(buf);
    if (s.size() > 2 && s.compare(s.size() - 2, 2, ".0") == 0) s.resize(s.size() - 2);
    return s + "\u00B0";
}

constexpr size_t kMostLabelledLines = 40;  // beyond, the labels would hide the group

}  // namespace

std::string Inches_Text(double inches) { return Imperial::Imperial_Text(inches / 12.0, 16, 0, 0); }

sheet::Figure Group_Figure(const WeldLineTable& lines, const std::vector<std::string>& names, const FigureLoad& load,
                           const shell::SolveRecord* run, bool lengths, const std::string& legendUnit) {
    Figure f;
    const double cx = Centroid_X(lines), cy = Centroid_Y(lines);
    double minX = cx, maxX = cx, minY = cy, maxY = cy;
    for (const WeldLineRec& l : lines) {
        minX = std::min({minX, l.x1, l.x2});
        maxX = std::max({maxX, l.x1, l.x2});
        minY = std::min({minY, l.y1, l.y2});
        maxY = std::max({maxY, l.y1, l.y2});
    }
    const double size = std::max({maxX - minX, maxY - minY, 1.0});

    // The centroid's axes, a little beyond the group.
    const double m = 0.12 * size;
    f.Lines.push_back({minX - m, cy, maxX + m, cy, sheet::kAxis, 0.5, true, false});
    f.Lines.push_back({cx, minY - m, cx, maxY + m, sheet::kAxis, 0.5, true, false});
    f.Labels.push_back({cx, cy, "CG", sheet::kAxis, Figure::Align::Left, 4, 8});

    const bool labelled = lines.size() <= kMostLabelledLines;
    for (size_t i = 0; i < lines.size(); ++i) {
        const WeldLineRec& l = lines[i];
        f.Lines.push_back({l.x1, l.y1, l.x2, l.y2, sheet::kInk, 2.0, false, false});
        if (!labelled || (!lengths && (i >= names.size() || names[i].empty()))) continue;
        double angle = shell::Degrees(std::atan2(l.y2 - l.y1, l.x2 - l.x1));
        if (angle < 0) angle += 180;
        if (angle >= 180) angle -= 180;
        const std::string name = i < names.size() && !names[i].empty() ? names[i] + "  " : "";
        // Outside the group: beside a steep line, on the side away from the
        // centroid, a third of the way along (the middle is where the center
        // and the axes of a symmetric group fall); above or below any other
        // line from its middle outwards.
        const std::string text = lengths ? name + Inches_Text(ExactLength(l)) + "  " + Degrees(angle) : names[i];
        const double mx = (l.x1 + l.x2) / 2, my = (l.y1 + l.y2) / 2;
        if (std::fabs(angle - 90) < 30) {
            const bool left = mx < cx;
            f.Labels.push_back({l.x1 + (l.x2 - l.x1) / 3, l.y1 + (l.y2 - l.y1) / 3, text, sheet::kInk,
                                left ? Figure::Align::Right : Figure::Align::Left, left ? -6.0 : 6.0, 0.0});
        } else {
            f.Labels.push_back({mx, my, text, sheet::kInk, Figure::Align::Left, 2.0, my >= cy ? -8.0 : 8.0});
        }
    }

    // The load: its anchor at the eccentricity, the arrow away from it.
    const double side = load.Left ? -1 : 1;
    const double ax = cx + side * std::fabs(load.Ex), ay = cy;
    const double w = shell::Radians(load.Angle);
    const double dx = side * std::sin(w), dy = std::cos(w), shaft = 0.3 * size;
    f.Circles.push_back({ax, ay, 2.5, sheet::kLoad, true});
    f.Lines.push_back({ax, ay, ax + dx * shaft, ay + dy * shaft, sheet::kLoad, 1.4, false, true});
    f.Labels.push_back({ax + dx * shaft, ay + dy * shaft, "P  " + Degrees(load.Angle), sheet::kLoad,
                        load.Left ? Figure::Align::Right : Figure::Align::Left, side * 5, -4});
    if (std::fabs(load.Ex) > 0) {
        const double y = minY - 0.2 * size;
        f.Lines.push_back({cx, y, ax, y, sheet::kLoad, 0.5, false, true});
        f.Lines.push_back({ax, y, cx, y, sheet::kLoad, 0.5, false, true});
        f.Lines.push_back({ax, ay, ax, y, sheet::kAxis, 0.4, true, false});
        f.Labels.push_back({(cx + ax) / 2, y, "e = " + Inches_Text(std::fabs(load.Ex)), sheet::kLoad,
                            Figure::Align::Centre, 0, 8});
    }

    if (run == nullptr || run->Forces.empty()) return f;
    // The run's center, forces and legend, drawn by the result painter of
    // the screen on a surface that records them into the figure: the group
    // and its center with a margin for the arrows, about four surface units
    // (paper inches, near enough) across.
    double x0 = minX, x1 = maxX, y0 = minY, y1 = maxY;
    if (!run->CenterAtInfinity) {
        const double icx = cx + side * run->CenterX, icy = cy + run->CenterY;
        x0 = std::min(x0, icx), x1 = std::max(x1, icx), y0 = std::min(y0, icy), y1 = std::max(y1, icy);
    }
    const double margin = 0.25 * std::max({x1 - x0, y1 - y0, 1.0});
    x0 -= margin, x1 += margin, y0 -= margin, y1 += margin;
    shell::FigureSurface surface(f, x0, y0, x1, y1, 4.0 / std::max(x1 - x0, y1 - y0));
    const ResultPicture::Placement where{surface.OriginX(cx), surface.OriginY(cy), surface.UnitsPerInch(), load.Left};
    ResultPicture::Labels labels;
    labels.Center = "IC";
    labels.Text = 0;  // black on paper
    if (!legendUnit.empty())
        labels.Legend = "Max. force = " + prim::Format(ResultPicture::Largest(*run), "0.000") + " " + legendUnit;
    ResultPicture::Draw_Results(surface, *run, where, labels);
    return f;
}

}  // namespace weld
