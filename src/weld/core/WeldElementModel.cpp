#include "weld/core/WeldElementModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "shell/core/MathUtil.h"
#include "shell/core/MotionSolver.h"
#include "weld/core/WeldElementKernel.h"

namespace WeldElementModel {

namespace {

using weld::WeldLineRec;

double Length(const WeldLineRec& l) { return std::hypot(l.x2 - l.x1, l.y2 - l.y1); }

// Elements of a line: the fewest equal pieces no longer than the strip, at
// least one; beyond kMaxElements the count is only said to be too many.
int64_t ElementCount(double len, int16_t spi) {
    const double n = std::ceil(len * spi - 1e-9);
    if (!(n <= kMaxElements)) return kMaxElements + 1;
    return std::max<int64_t>(1, static_cast<int64_t>(n));
}

// Cuts every line of positive length into equal elements no longer than the
// strip and records both line ends as probes of the critical ratio.
bool BuildElements(const weld::WeldLineTable& lines, const shell::LoadFrame& frame, double Fexx, double D, int16_t spi,
                   WeldKernel::Elements& el) {
    const double throat = std::numbers::sqrt2 / 2 * D;
    int64_t total = 0;
    for (const WeldLineRec& l : lines) {
        const double len = Length(l);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        total += ElementCount(len, spi);
        if (total > kMaxElements) return false;
    }
    el.Reserve(static_cast<size_t>(total));
    for (const WeldLineRec& l : lines) {
        const double len = Length(l);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        const int64_t n = ElementCount(len, spi);
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

// The force of every element for the motion m (load frame), as the kernel
// sums it, turned back into the group's axes; the elements are those of
// BuildElements, walked again for their lines' indices.
constexpr double kDeg = 180.0 / std::numbers::pi;  // as the kernel turns its angles

std::vector<shell::ElementForce> ElementForces(const WeldKernel::Elements& el, const weld::WeldLineTable& lines,
                                               const shell::LoadFrame& frame, int16_t spi, const shell::Motion& m) {
    double crit = WeldKernel::kNoRatio;
    for (size_t i = 0; i < el.px.size(); ++i) {
        const double ux = m.vx - m.w * el.py[i], uy = m.vy + m.w * el.px[i];
        const double r = std::hypot(ux, uy);
        const double theta =
            std::atan2(std::fabs(el.ptx[i] * uy - el.pty[i] * ux), std::fabs(el.ptx[i] * ux + el.pty[i] * uy)) * kDeg;
        if (r > 0.0) crit = std::min(crit, WeldKernel::DeltaU(theta, el.D) / r);
    }
    std::vector<shell::ElementForce> out;
    if (!(crit < WeldKernel::kNoRatio)) return out;
    out.reserve(el.Count());
    size_t i = 0;
    for (size_t line = 0; line < lines.size(); ++line) {
        const double len = Length(lines[line]);
        if (!(len > 0.0) || !std::isfinite(len)) continue;
        const int64_t n = ElementCount(len, spi);
        for (int64_t j = 0; j < n; ++j, ++i) {
            const double ux = m.vx - m.w * el.y[i], uy = m.vy + m.w * el.x[i];
            const double r = std::hypot(ux, uy);
            const double A = el.tx[i] * ux + el.ty[i] * uy, B = el.tx[i] * uy - el.ty[i] * ux;
            const double theta = std::atan2(std::fabs(B), std::fabs(A)) * kDeg;
            shell::ElementForce e;
            frame.BackVector(el.x[i], el.y[i], e.X, e.Y);
            e.ArmX = e.X;
            e.ArmY = e.Y;
            e.Length = len / static_cast<double>(n);
            e.Line = static_cast<int32_t>(line);
            e.Theta = theta;
            if (r > 0.0) {
                const double p = crit * r / WeldKernel::DeltaM(theta, el.D);
                const double q = p * (1.9 - 0.9 * p);
                const double sinT = std::fabs(B) / r;
                e.Force = q > 0.0 ? el.k[i] * std::pow(q, 0.3) * (1.0 + 0.5 * std::pow(sinT, 1.5)) : 0.0;
                frame.BackVector(ux / r, uy / r, e.DirX, e.DirY);
                e.Deformation = crit * r / WeldKernel::DeltaU(theta, el.D);
            }
            out.push_back(e);
        }
    }
    return out;
}

}  // namespace

}  // namespace WeldElementModel

namespace WeldKernel {

void Elements::Reserve(size_t n) {
    for (auto* v : {&x, &y, &tx, &ty, &k}) v->reserve(n);
}

void Elements::Add(double X, double Y, double TX, double TY, double K) {
    x.push_back(X);
    y.push_back(Y);
    tx.push_back(TX);
    ty.push_back(TY);
    k.push_back(K);
}

void Elements::AddProbe(double X, double Y, double TX, double TY) {
    px.push_back(X);
    py.push_back(Y);
    ptx.push_back(TX);
    pty.push_back(TY);
    ratio.push_back(0.0);
}

double Elements::Gyration() const {
    double sk = 0.0, skr = 0.0;
    for (size_t i = 0; i < x.size(); ++i) {
        sk += k[i];
        skr += k[i] * (x[i] * x[i] + y[i] * y[i]);
    }
    const double g = sk > 0.0 ? std::sqrt(skr / sk) : 0.0;
    return g > 0.0 && std::isfinite(g) ? g : 1.0;
}

double Elements::Strength() const {
    double s = 0.0;
    for (double v : k) s += v;
    return s;
}

double DeltaU(double thetaDeg, double D) { return D * std::min(1.087 * std::pow(thetaDeg + 6.0, -0.65), 0.17); }

double DeltaM(double thetaDeg, double D) { return 0.209 * D * std::pow(thetaDeg + 2.0, -0.32); }

// Outside the vector-math file, so the finiteness tests hold.
shell::Resultant Forces(const Elements& el, const shell::Motion& m) {
    const Sums s = ForceSums(el, m.vx, m.vy, m.w);
    shell::Resultant out;
    out.fx = s.fx;
    out.fy = s.fy;
    out.moment = s.moment;
    out.ok = s.crit < kNoRatio && std::isfinite(s.fx) && std::isfinite(s.fy) && std::isfinite(s.moment);
    shell::SetSlopes(out, s.d);
    return out;
}

}  // namespace WeldKernel

namespace WeldElementModel {

ElementReport Solve(const weld::LoadedGroup& group, const weld::SolveOptions& options) {
    const weld::WeldLineTable& lines = group.Lines;
    const double ex = group.Ex, angle = group.Angle, Fexx = options.Fexx, D = options.D;
    const int16_t SegmentsPerInch = options.SegmentsPerInch;
    ElementReport rep;
    if (SegmentsPerInch <= 0 || !std::isfinite(ex) || !std::isfinite(angle) || !std::isfinite(Fexx) ||
        !std::isfinite(D) || !(Fexx > 0.0) || !(D > 0.0)) {
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
    const shell::LoadFrame frame(sumX / sumL, sumY / sumL, shell::Radians(angle));
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
    const shell::MotionResult res =
        shell::SolveMotion(problem, [&el](const shell::Motion& m) { return WeldKernel::Forces(el, m); });

    rep.Iterations = res.iterations;
    rep.Starts = res.starts;
    rep.Evaluations = res.evaluations;
    rep.Residual = res.residual;
    rep.Converged = res.converged;
    rep.Capacity = res.converged ? res.load : 0.0;

    rep.Motion = frame.Back(res.motion);
    if (options.WithForces && res.converged) rep.Forces = ElementForces(el, lines, frame, SegmentsPerInch, res.motion);
    return rep;
}

}  // namespace WeldElementModel
