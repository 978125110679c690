#include "bolt/core/BoltElementModel.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "bolt/core/BoltElementKernel.h"
#include "shell/core/MathUtil.h"

namespace BoltElementModel {

namespace {

struct Bolts {
    std::vector<double> x, y;         // in the load frame (or the group's axes for C')
    mutable std::vector<double> rho;  // scratch of the force sweep, three a bolt

    double Gyration() const {
        double s = 0.0;
        for (size_t i = 0; i < x.size(); ++i) s += x[i] * x[i] + y[i] * y[i];
        const double g = x.empty() ? 0.0 : std::sqrt(s / static_cast<double>(x.size()));
        return g > 0.0 && std::isfinite(g) ? g : 1.0;
    }
};

// Bolts laid out row by row from the bottom left about the centroid, as the
// system's solver lays them out; each point goes through `place`.
template <class Place>
bool LayOut(int16_t m, int16_t n, double sv, double sh, Place place) {
    const int32_t count = static_cast<int32_t>(m) * static_cast<int32_t>(n);
    if (m < 1 || n < 1 || count > 32767 || !std::isfinite(sv) || !std::isfinite(sh)) return false;
    for (int32_t i = 0; i < m; ++i)
        for (int32_t j = 0; j < n; ++j) place(sh * j - sh * (n - 1) / 2.0, sv * i - sv * (m - 1) / 2.0);
    return true;
}

// Outside the vector-math file, so the finiteness tests hold.
shell::Resultant Forces(const Bolts& b, const shell::Motion& m) {
    const BoltKernel::Sums s =
        BoltKernel::ForceSums(b.x.data(), b.y.data(), b.rho.data(), b.x.size(), kUltimateDeformation, m.vx, m.vy, m.w);
    shell::Resultant out;
    if (!(s.rmax > 0.0) || !std::isfinite(s.rmax)) return out;
    out.fx = s.fx;
    out.fy = s.fy;
    out.moment = s.moment;
    out.ok = std::isfinite(s.fx) && std::isfinite(s.fy) && std::isfinite(s.moment);
    shell::SetSlopes(out, s.d);
    return out;
}

// The force of every bolt for the motion m, each along its displacement, the
// farthest at the ultimate deformation, turned back into the group's axes.
void BoltForces(const Bolts& b, const shell::LoadFrame& frame, const shell::Motion& m, BoltReport& rep) {
    double rmax = 0.0;
    for (size_t i = 0; i < b.x.size(); ++i) rmax = std::max(rmax, std::hypot(m.vx - m.w * b.y[i], m.vy + m.w * b.x[i]));
    if (!(rmax > 0.0)) return;
    for (size_t i = 0; i < b.x.size(); ++i) {
        const double ux = m.vx - m.w * b.y[i], uy = m.vy + m.w * b.x[i], r = std::hypot(ux, uy);
        shell::ElementForce e;
        frame.BackVector(b.x[i], b.y[i], e.X, e.Y);
        e.ArmX = e.X;
        e.ArmY = e.Y;
        e.Line = static_cast<int32_t>(i);
        e.Deformation = r / rmax;
        if (r > 0.0) {
            e.Force = BoltForce(kUltimateDeformation * r / rmax);
            frame.BackVector(ux / r, uy / r, e.DirX, e.DirY);
        }
        rep.Forces.push_back(e);
    }
}

void Finish(const shell::MotionResult& res, BoltReport& rep) {
    rep.Iterations = res.iterations;
    rep.Starts = res.starts;
    rep.Evaluations = res.evaluations;
    rep.Residual = res.residual;
    rep.Converged = res.converged;
    rep.Value = res.converged ? res.load : 0.0;
}

}  // namespace

double BoltForce(double delta) { return std::pow(1.0 - std::exp(-10.0 * delta), 0.55); }

BoltReport BoltGroup_C(int16_t m, int16_t n, double sv, double sh, double ex, double angle, bool withForces) {
    BoltReport rep;
    if (!std::isfinite(ex) || !std::isfinite(angle)) {
        rep.Refused = true;
        return rep;
    }
    const shell::LoadFrame frame(0.0, 0.0, shell::Radians(angle));
    Bolts b;
    if (!LayOut(m, n, sv, sh, [&](double x0, double y0) {
            double X, Y;
            frame.ToLoad(x0, y0, X, Y);
            b.x.push_back(X);
            b.y.push_back(Y);
        })) {
        rep.Refused = true;
        return rep;
    }
    b.rho.assign(3 * b.x.size(), 0.0);

    shell::MotionProblem problem;
    problem.arm = frame.Arm(ex);
    problem.length = b.Gyration();
    problem.force = static_cast<double>(b.x.size());
    rep.Concentric = problem.arm == 0.0;
    const shell::MotionResult res =
        shell::SolveMotion(problem, [&b](const shell::Motion& mo) { return Forces(b, mo); });
    Finish(res, rep);
    rep.Motion = frame.Back(res.motion);
    if (withForces && res.converged) BoltForces(b, frame, res.motion, rep);
    return rep;
}

BoltReport BoltGroup_CPrime(int16_t m, int16_t n, double sv, double sh, bool withForces) {
    BoltReport rep;
    Bolts b;
    if (!LayOut(m, n, sv, sh, [&](double x0, double y0) {
            b.x.push_back(x0);
            b.y.push_back(y0);
        })) {
        rep.Refused = true;
        return rep;
    }
    b.rho.assign(3 * b.x.size(), 0.0);

    shell::MotionProblem problem;
    problem.pureMoment = true;
    problem.length = b.Gyration();
    problem.force = static_cast<double>(b.x.size());
    const shell::MotionResult res =
        shell::SolveMotion(problem, [&b](const shell::Motion& mo) { return Forces(b, mo); });
    Finish(res, rep);
    rep.Motion = shell::LoadFrame().Back(res.motion);
    if (withForces && res.converged) BoltForces(b, shell::LoadFrame(), res.motion, rep);
    return rep;
}

}  // namespace BoltElementModel
