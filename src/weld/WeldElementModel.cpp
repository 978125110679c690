#include "weld/WeldElementModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "shell/MotionSolver.h"
#include "weld/WeldElementKernel.h"

namespace WeldElementModel {

namespace {

using WeldFunctions::WeldLineRec;

double Length(const WeldLineRec& l) { return std::hypot(l.x2 - l.x1, l.y2 - l.y1); }

// Cuts every line of positive length into equal elements no longer than the
// strip and records both line ends as probes of the critical ratio.
bool BuildElements(const WeldLineTable& lines, const shell::LoadFrame& frame, double Fexx, double D,
                   int16_t spi, WeldKernel::Elements& el) {
    const double throat = std::numbers::sqrt2 / 2 * D;
    int64_t total = 0;
    for (const WeldLineRec& l : lines) {
        const double len = Length(l);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        total += std::max<int64_t>(1, static_cast<int64_t>(std::ceil(len * spi - 1e-9)));
        if (total > kMaxElements) return false;
    }
    el.Reserve(static_cast<size_t>(total));
    for (const WeldLineRec& l : lines) {
        const double len = Length(l);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        const int64_t n = std::max<int64_t>(1, static_cast<int64_t>(std::ceil(len * spi - 1e-9)));
        double x1, y1, x2, y2;
        frame.ToLoad(l.x1, l.y1, x1, y1);
        frame.ToLoad(l.x2, l.y2, x2, y2);
        const double tx = (x2 - x1) / len, ty = (y2 - y1) / len;
        const double k = 0.6 * Fexx * throat * (len / static_cast<double>(n));
        for (int64_t j = 0; j < n; ++j) {
            const double t = (static_cast<double>(j) + 0.5) / static_cast<double>(n);
            el.Add(x1 + t * (x2 - x1), y1 + t * (y2 - y1), tx, ty, k);
        }
        el.AddProbe(x1, y1, tx, ty);
        el.AddProbe(x2, y2, tx, ty);
    }
    return el.Count() > 0;
}

}  // namespace

ElementReport Solve(const WeldLineTable& lines, double ex, double angle, double Fexx, double D,
                    int16_t SegmentsPerInch) {
    ElementReport rep;
    if (SegmentsPerInch <= 0 || !std::isfinite(ex) || !std::isfinite(angle) ||
        !std::isfinite(Fexx) || !std::isfinite(D) || !(Fexx > 0.0) || !(D > 0.0)) {
        rep.Refused = true;
        return rep;
    }

    // Centroid by exact lengths, as the system's solver takes it.
    double sumL = 0.0, sumX = 0.0, sumY = 0.0;
    for (const WeldLineRec& l : lines) {
        const double len = Length(l);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        sumL += len;
        sumX += (l.x1 + l.x2) / 2 * len;
        sumY += (l.y1 + l.y2) / 2 * len;
    }
    if (!(sumL > 0.0) || !std::isfinite(sumX) || !std::isfinite(sumY)) {
        rep.Refused = true;
        return rep;
    }
    const shell::LoadFrame frame(sumX / sumL, sumY / sumL, WeldFunctions::Radians(angle));
    const double arm = frame.Arm(ex);
    rep.CentroidX = frame.cx;
    rep.CentroidY = frame.cy;
    rep.Concentric = arm == 0.0;

    WeldKernel::Elements el;
    el.D = D;
    if (!BuildElements(lines, frame, Fexx, D, SegmentsPerInch, el)) {
        rep.Refused = true;
        return rep;
    }
    rep.Elements = static_cast<int32_t>(el.Count());

    shell::MotionProblem problem;
    problem.arm = arm;
    problem.length = el.Gyration();
    problem.force = el.Strength();
    const shell::MotionResult res = shell::SolveMotion(
        problem, [&el](const shell::Motion& m) { return WeldKernel::Forces(el, m); });

    rep.Iterations = res.iterations;
    rep.Starts = res.starts;
    rep.Evaluations = res.evaluations;
    rep.Residual = res.residual;
    rep.Converged = res.converged;
    rep.Capacity = res.converged ? res.load : 0.0;

    rep.Motion = frame.Back(res.motion);
    return rep;
}

double Config_C(int16_t config, double L, double kL, double aL, double Angle,
                int16_t SegmentsPerInch, ElementReport* report) {
    ElementReport scratch;
    ElementReport& rep = report ? *report : scratch;
    rep = ElementReport{};
    if (config < 1 || config > 9) return 0.0;
    if (config == 1) kL = 0.0;  // two coincident lines, whatever kL says
    const double s = WeldFunctions::Config_Scale(L, kL);
    L *= s;
    kL *= s;
    const double ex = std::fabs(aL) * s;
    rep = Solve(WeldFunctions::Config_Lines(config, L, kL), ex, Angle, 70.0, 0.0625,
                SegmentsPerInch);
    if (!rep.Converged || !(L > 0.0)) return 0.0;
    // Per inch of scaled base length, per sixteenth of weld.
    return rep.Capacity / L / 16 / 0.0625;
}

}  // namespace WeldElementModel
