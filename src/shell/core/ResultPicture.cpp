#include "shell/core/ResultPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace ResultPicture {

namespace {

using shell::DrawSurface;
using shell::ElementForce;
using shell::SolveRecord;

constexpr uint32_t Rgb(double r, double g, double b) {
    auto c = [](double v) { return static_cast<uint32_t>(std::clamp(v, 0.0, 255.0)); };
    return c(r) | c(g) << 8 | c(b) << 16;
}

// The elements that get an arrow: the most loaded first, each one only when
// no arrow already taken stands within kArrowSpacing of it. A grid of cells
// smaller than the spacing holds at most one taken arrow each.
std::vector<size_t> Shown(const SolveRecord& r, const Placement& p) {
    const std::vector<ElementForce>& f = r.Forces;
    std::vector<size_t> order(f.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return Intensity(f[a]) > Intensity(f[b]); });
    const double cell = kArrowSpacing / 1.5;
    auto key = [](int64_t i, int64_t j) { return (i << 32) ^ (j & 0xFFFFFFFF); };
    std::unordered_map<int64_t, size_t> taken;
    taken.reserve(order.size());
    std::vector<size_t> shown;
    for (size_t i : order) {
        const double x = p.X(f[i].X), y = p.Y(f[i].Y);
        if (!std::isfinite(x) || !std::isfinite(y) || !(f[i].Force > 0.0)) continue;
        const int64_t cx = static_cast<int64_t>(std::floor(x / cell)), cy = static_cast<int64_t>(std::floor(y / cell));
        bool near = false;
        for (int64_t a = cx - 2; a <= cx + 2 && !near; ++a)
            for (int64_t b = cy - 2; b <= cy + 2 && !near; ++b) {
                const auto it = taken.find(key(a, b));
                if (it != taken.end())
                    near = std::hypot(p.X(f[it->second].X) - x, p.Y(f[it->second].Y) - y) < kArrowSpacing;
            }
        if (near) continue;
        taken.emplace(key(cx, cy), i);
        shown.push_back(i);
    }
    std::sort(shown.begin(), shown.end());
    return shown;
}

void Arrow(DrawSurface& s, double x, double y, double dx, double dy, double length, uint32_t color) {
    const double tx = x + dx * length, ty = y + dy * length;
    s.Line(x, y, tx, ty, color);
    const double head = std::min(0.06, 0.4 * length);
    if (head < 0.015) return;
    // Two barbs at 25 degrees either side of the shaft.
    const double c = std::cos(0.436), sn = std::sin(0.436);
    s.Line(tx, ty, tx - head * (dx * c - dy * sn), ty - head * (dy * c + dx * sn), color);
    s.Line(tx, ty, tx - head * (dx * c + dy * sn), ty - head * (dy * c - dx * sn), color);
}

// Text at (x, y), moved inside the surface.
void TextAt(DrawSurface& s, double x, double y, const std::string& text, uint32_t color) {
    const double w = s.TextWidth(text), h = s.TextHeight(), m = 0.04;
    s.CurrentX = std::clamp(x, m, std::max(m, s.ScaleWidth() - w - m));
    s.CurrentY = std::clamp(y, m, std::max(m, s.ScaleHeight() - h - m));
    s.ForeColor = color;
    s.Print(text);
}

// The place of the center's text: of the four corners around the mark and
// the two upper corners of the surface (these a little less wanted), the one
// inside the surface that covers the fewest element midpoints.
void LabelPlace(DrawSurface& s, const SolveRecord& r, const Placement& p, double x, double y, double a, double arrow,
                const std::string& text, const double (&legend)[4], double& tx, double& ty) {
    const double w = s.TextWidth(text), h = s.TextHeight(), W = s.ScaleWidth(), m = 0.04;
    const double places[6][2] = {
        {x + a, y + a * 0.5}, {x - a - w, y + a * 0.5}, {x + a, y - a - h}, {x - a - w, y - a - h}, {m, m},
        {W - w - m, m}};
    size_t best = SIZE_MAX;
    for (size_t k = 0; k < 6; ++k) {
        const double* at = places[k];
        size_t cost = at[0] < 0.0 || at[1] < 0.0 || at[0] + w > W || at[1] + h > s.ScaleHeight() ? 100000 : k / 4;
        // Never over the legend (its box: left, top, right, bottom).
        if (at[0] < legend[2] && at[0] + w > legend[0] && at[1] < legend[3] && at[1] + h > legend[1]) cost += 10000;
        auto covers = [&](double ex, double ey) {
            return ex > at[0] - 0.03 && ex < at[0] + w + 0.03 && ey > at[1] - 0.03 && ey < at[1] + h + 0.03;
        };
        // The midpoints and the arrows' tips (arrow: length per intensity).
        for (const ElementForce& e : r.Forces) {
            const double ex = p.X(e.X), ey = p.Y(e.Y), l = arrow * Intensity(e);
            cost += 2 * covers(ex, ey) + covers(ex + (p.MirrorX ? -e.DirX : e.DirX) * l, ey - e.DirY * l);
        }
        if (cost < best) {
            best = cost;
            tx = at[0];
            ty = at[1];
        }
    }
}

}  // namespace

double Intensity(const ElementForce& e) { return e.Length > 0.0 ? e.Force / e.Length : e.Force; }

uint32_t StressColor(double share) {
    const double t = std::clamp(std::isfinite(share) ? share : 1.0, 0.0, 1.0);
    if (t < 0.5) return Rgb(0, 400 * t + 20, 255 * (1 - 2 * t) + 40 * 2 * t);
    return Rgb(255 * (2 * t - 1) + 40 * (2 - 2 * t), 220 * (2 - 2 * t), 0);
}

double Largest(const SolveRecord& r) {
    double most = 0.0;
    for (const ElementForce& e : r.Forces) most = std::max(most, Intensity(e));
    return most;
}

void Draw_Results(DrawSurface& s, const SolveRecord& r, const Placement& p, const Labels& labels) {
    const double W = s.ScaleWidth(), H = s.ScaleHeight();
    s.DrawMode = shell::PenMode::Copy;
    s.DrawStyle = shell::PenStyle::Solid;
    double least = INFINITY;
    for (const ElementForce& e : r.Forces) least = std::min(least, Intensity(e));
    const double most = Largest(r);
    if (most > 0.0) {
        const double longest = kLongestArrow * std::min(W, H);
        s.DrawWidth = 2;
        for (size_t i : Shown(r, p)) {
            const ElementForce& e = r.Forces[i];
            const double share = most > least ? (Intensity(e) - least) / (most - least) : 1.0;
            const double dx = p.MirrorX ? -e.DirX : e.DirX, dy = -e.DirY;
            Arrow(s, p.X(e.X), p.Y(e.Y), dx, dy, longest * Intensity(e) / most, StressColor(share));
        }
    }

    s.FontName = "Tahoma";
    s.FontSize = 8.0;
    s.FontBold = false;
    // The legend: a bar of the colours from the least to the most stressed,
    // with the largest force above it, in a corner on the right.
    const bool legend = !labels.Legend.empty() && most > 0.0;
    const double bar = 0.9, m = 0.15, th = s.TextHeight();
    const double lx = W - std::max(bar, s.TextWidth(labels.Legend)) - m;
    const double ly = labels.LegendAtTop ? m + th + 0.06 : H - m - 0.04;
    const double box[4] = {legend ? lx - 0.05 : W, ly - th - 0.1, W, ly + 0.08};
    if (!r.CenterAtInfinity && !r.Forces.empty()) {
        const double x = p.X(r.CenterX), y = p.Y(r.CenterY), a = 0.09;
        if (x >= 0.0 && x <= W && y >= 0.0 && y <= H) {
            s.DrawWidth = 2;
            s.Line(x - a, y, x + a, y, kCenterColor);
            s.Line(x, y - a, x, y + a, kCenterColor);
            s.Circle(x, y, a * 0.6, kCenterColor);
            if (!labels.Center.empty()) {
                double tx = 0.0, ty = 0.0;
                LabelPlace(s, r, p, x, y, a, most > 0.0 ? kLongestArrow * std::min(W, H) / most : 0.0, labels.Center,
                           box, tx, ty);
                TextAt(s, tx, ty, labels.Center, kCenterColor);
            }
        }
    }

    if (legend) {
        const double x0 = lx, y0 = ly;
        TextAt(s, x0, y0 - th - 0.06, labels.Legend, labels.Text);
        s.DrawWidth = 6;
        constexpr int kSteps = 12;
        for (int k = 0; k < kSteps; ++k)
            s.Line(x0 + bar * k / kSteps, y0, x0 + bar * (k + 1) / kSteps, y0, StressColor((k + 0.5) / kSteps));
    }
    s.DrawWidth = 1;
}

int Element_At(const SolveRecord& r, const Placement& p, double x, double y, double tolerance) {
    int found = -1;
    double best = tolerance;
    for (size_t i = 0; i < r.Forces.size(); ++i) {
        const double d = std::hypot(p.X(r.Forces[i].X) - x, p.Y(r.Forces[i].Y) - y);
        if (d <= best) {
            best = d;
            found = static_cast<int>(i);
        }
    }
    return found;
}

void Outline::Centroid(double& x, double& y) const {
    double sl = 0.0, sx = 0.0, sy = 0.0;
    for (const auto& l : Lines) {
        const double len = std::hypot(l[2] - l[0], l[3] - l[1]);
        sl += len;
        sx += (l[0] + l[2]) / 2 * len;
        sy += (l[1] + l[3]) / 2 * len;
    }
    for (const auto& b : Bolts) {
        sl += 1.0;
        sx += b[0];
        sy += b[1];
    }
    x = sl > 0.0 ? sx / sl : 0.0;
    y = sl > 0.0 ? sy / sl : 0.0;
}

Placement Fit(const Outline& o, const SolveRecord& r, double w, double h, bool mirrorX) {
    double cx = 0.0, cy = 0.0;
    o.Centroid(cx, cy);
    double x0 = 0.0, x1 = 0.0, y0 = 0.0, y1 = 0.0;
    auto grow = [&](double x, double y) {
        x0 = std::min(x0, x);
        x1 = std::max(x1, x);
        y0 = std::min(y0, y);
        y1 = std::max(y1, y);
    };
    for (const auto& l : o.Lines) {
        grow(l[0] - cx, l[1] - cy);
        grow(l[2] - cx, l[3] - cy);
    }
    for (const auto& b : o.Bolts) grow(b[0] - cx, b[1] - cy);
    // A center far off (a small arm) would shrink the group to a dot.
    const double size = std::max({x1 - x0, y1 - y0, 1e-9});
    if (!r.CenterAtInfinity && std::fabs(r.CenterX) < size && std::fabs(r.CenterY) < size) grow(r.CenterX, r.CenterY);
    if (mirrorX) {
        const double left = -x1;
        x1 = -x0;
        x0 = left;
    }
    // Room for the arrows around the group.
    const double margin = kLongestArrow * std::min(w, h) * 0.7 + 0.06;
    // The legend's band along the lower edge stays clear of the group.
    const double legend = 0.4, above = h - legend;
    Placement p;
    p.MirrorX = mirrorX;
    p.Scale = std::min((w - 2 * margin) / std::max(x1 - x0, 1e-9), (above - 2 * margin) / std::max(y1 - y0, 1e-9));
    if (!(p.Scale > 0.0) || !std::isfinite(p.Scale)) p.Scale = 1.0;
    p.OriginX = w / 2 - p.Scale * (x0 + x1) / 2;
    p.OriginY = above / 2 + p.Scale * (y0 + y1) / 2;
    return p;
}

void Draw_Group(DrawSurface& s, const Outline& o, const SolveRecord& r, const Placement& p, const Labels& labels) {
    double cx = 0.0, cy = 0.0;
    o.Centroid(cx, cy);
    s.DrawMode = shell::PenMode::Copy;
    s.DrawStyle = shell::PenStyle::Solid;
    s.DrawWidth = 3;
    const uint32_t weld = 0x800080;  // the board's line colour
    for (const auto& l : o.Lines) s.Line(p.X(l[0] - cx), p.Y(l[1] - cy), p.X(l[2] - cx), p.Y(l[3] - cy), weld);
    s.DrawWidth = 2;
    // Bolts no larger than a third of the least spacing, seen from the first
    // bolt of a regular pattern.
    double spacing = INFINITY;
    for (size_t i = 1; i < o.Bolts.size(); ++i)
        spacing = std::min(spacing, std::hypot(o.Bolts[i][0] - o.Bolts[0][0], o.Bolts[i][1] - o.Bolts[0][1]));
    const double radius = std::min(0.06, spacing * p.Scale / 3);
    for (const auto& b : o.Bolts) s.Circle(p.X(b[0] - cx), p.Y(b[1] - cy), radius, 0xC0C0C0);
    Draw_Results(s, r, p, labels);
}

}  // namespace ResultPicture
