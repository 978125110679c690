#include "board/core/CapacityHandOver.h"

#include <cmath>

#include "board/core/Viewport.h"

namespace weld {

namespace {

float LinesMin(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks, bool isX) {
    float running = 0.0f;
    for (size_t i = 0; i < lines.size(); ++i) {
        const WeldLineRec& l = lines[i];
        const double a = isX ? l.x1 : l.y1;
        const double b = isX ? l.x2 : l.y2;
        // The running value is a single: every step rounds it.
        running = static_cast<float>(i == 0 ? MinOf({a, b}) : MinOf({a, b, static_cast<double>(running)}));
        if (hooks.Yield) hooks.Yield();
    }
    ok = true;
    return running;
}

}  // namespace

float Lines_MinX(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks) {
    return LinesMin(lines, ok, hooks, true);
}

float Lines_MinY(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks) {
    return LinesMin(lines, ok, hooks, false);
}

WeldLineTable Board_WeldLines(const Layout::LayoutDocument& doc, const WeldRunHooks& hooks) {
    using Viewport::To_WorldX;
    using Viewport::To_WorldY;

    // World inches, single precision held in doubles. The point stored second
    // in the board record (StartPt) is the solver's first point.
    WeldLineTable lines(doc.Lines.size());
    for (size_t i = 0; i < doc.Lines.size(); ++i) {
        const Layout::LineRec& r = doc.Lines[i];
        lines[i].x1 = To_WorldX(doc, r.StartPt.X);
        lines[i].y1 = To_WorldY(doc, r.StartPt.Y);
        lines[i].x2 = To_WorldX(doc, r.EndPt.X);
        lines[i].y2 = To_WorldY(doc, r.EndPt.Y);
    }

    // Into the positive quadrant, lowest x and y at 0.
    bool ok = false;
    const float minX = Lines_MinX(lines, ok, hooks);
    const float minY = Lines_MinY(lines, ok, hooks);
    for (WeldLineRec& l : lines) {
        l.x1 -= minX;
        l.x2 -= minX;
        l.y1 -= minY;
        l.y2 -= minY;
    }

    // A load on the left: mirror in x so the solver always sees it on the right.
    if (doc.Load.LoadSide == 0) {
        for (WeldLineRec& l : lines) {
            l.x1 = -l.x1;
            l.x2 = -l.x2;
        }
        const float mirroredMinX = Lines_MinX(lines, ok, hooks);
        for (WeldLineRec& l : lines) {
            l.x1 -= mirroredMinX;
            l.x2 -= mirroredMinX;
        }
    }

    return lines;
}

bool Same_Group(const LoadedGroup& a, const LoadedGroup& b) {
    if (a.Ex != b.Ex || a.Angle != b.Angle || a.Lines.size() != b.Lines.size()) return false;
    constexpr double kTolerance = 1e-3;
    for (size_t i = 0; i < a.Lines.size(); ++i) {
        const WeldLineRec &p = a.Lines[i], &q = b.Lines[i];
        if (!(std::fabs(p.x1 - q.x1) <= kTolerance && std::fabs(p.y1 - q.y1) <= kTolerance &&
              std::fabs(p.x2 - q.x2) <= kTolerance && std::fabs(p.y2 - q.y2) <= kTolerance))
            return false;
    }
    return true;
}

LoadedGroup Layout_Group(const Layout::LayoutDocument& doc, const WeldRunHooks& hooks) {
    return {Board_WeldLines(doc, hooks), doc.Load.LoadEccentricity * 12.0, doc.Load.LoadAngle};
}

SolveResult Solve_Layout(const Layout::LayoutDocument& doc, const SolveOptions& options, WeldRunState& state,
                         const WeldRunHooks& hooks) {
    return Solve(Layout_Group(doc, hooks), options, state, hooks);
}

}  // namespace weld
