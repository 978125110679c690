#include "shell/core/MotionSolver.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace shell {

namespace {

enum class Chart { Translation, Center };

struct Start {
    Chart chart;
    double s1;
    double s2;
};

// Scaled residuals of one point of a chart.
struct Residual {
    double g1 = 0.0;
    double g2 = 0.0;
    double load = 0.0;
    bool ok = false;
    bool slopes = false;  // j holds the derivatives of (g1, g2) by (s1, s2)
    double j[2][2] = {};

    double Norm() const { return std::max(std::fabs(g1), std::fabs(g2)); }
    double Squared() const { return g1 * g1 + g2 * g2; }
};

// Newton steps over which a run must cut its residual by a tenth.
constexpr int kStallSpan = 6;

class Solver {
public:
    Solver(const MotionProblem& problem, const ResultantFn& resultant, MotionResult& result)
        : p_(problem), f_(resultant), out_(result) {}

    // Newton from one start; true when it reached the tolerance with a load
    // in the direction of the given one.
    bool Run(const Start& start) {
        ++out_.starts;
        double s1 = start.s1, s2 = start.s2;
        Residual r = Evaluate(start.chart, s1, s2);
        if (!r.ok) return false;
        Keep(start.chart, s1, s2, r);
        double history[kStallSpan] = {};
        for (int32_t it = 0; it <= p_.maxIterations; ++it) {
            if (r.Norm() <= p_.tolerance) return Accept(start.chart, s1, s2, r);
            if (it == p_.maxIterations) break;
            // A run that creeps (a kink of the critical element holds it) is
            // given up for the next start.
            if (it >= kStallSpan && r.Norm() > 0.9 * history[it % kStallSpan]) break;
            history[it % kStallSpan] = r.Norm();
            ++out_.iterations;

            // The Jacobian as the resultant gives it, or by forward
            // differences, steps scaled to the chart.
            const double unit = start.chart == Chart::Center ? p_.length : 1.0;
            double j[2][2] = {{r.j[0][0], r.j[0][1]}, {r.j[1][0], r.j[1][1]}};
            if (!r.slopes) {
                const double h1 = 1e-7 * std::max(unit, std::fabs(s1));
                const double h2 = 1e-7 * std::max(unit, std::fabs(s2));
                if (!Column(start.chart, s1, s2, h1, 0.0, r, j, 0)) return false;
                if (!Column(start.chart, s1, s2, 0.0, h2, r, j, 1)) return false;
            }

            double d1 = 0.0, d2 = 0.0;
            const double det = j[0][0] * j[1][1] - j[0][1] * j[1][0];
            const double scale = std::fabs(j[0][0] * j[1][1]) + std::fabs(j[0][1] * j[1][0]);
            if (std::isfinite(det) && std::fabs(det) > 1e-14 * scale && scale > 0.0) {
                d1 = -(j[1][1] * r.g1 - j[0][1] * r.g2) / det;
                d2 = -(-j[1][0] * r.g1 + j[0][0] * r.g2) / det;
            } else {
                // Singular: steepest descent of the squared residual.
                d1 = -(j[0][0] * r.g1 + j[1][0] * r.g2);
                d2 = -(j[0][1] * r.g1 + j[1][1] * r.g2);
                const double len = std::hypot(d1, d2);
                if (!(len > 0.0) || !std::isfinite(len)) return false;
                d1 *= 0.1 * unit / len;
                d2 *= 0.1 * unit / len;
            }
            // Keep one step within a few group lengths of where it starts.
            const double cap = 4.0 * unit + 0.5 * std::hypot(s1, s2);
            const double stepLen = std::hypot(d1, d2);
            if (!std::isfinite(stepLen)) return false;
            if (stepLen > cap) {
                d1 *= cap / stepLen;
                d2 *= cap / stepLen;
            }

            // Backtracking on the squared residual.
            const double phi = r.Squared();
            double lambda = 1.0;
            bool moved = false;
            for (int k = 0; k < 40; ++k, lambda *= 0.5) {
                const double t1 = s1 + lambda * d1, t2 = s2 + lambda * d2;
                const Residual trial = Evaluate(start.chart, t1, t2);
                if (trial.ok && trial.Squared() <= (1.0 - 1e-4 * lambda) * phi) {
                    s1 = t1;
                    s2 = t2;
                    r = trial;
                    moved = true;
                    break;
                }
            }
            if (!moved) break;
            Keep(start.chart, s1, s2, r);
        }
        return false;
    }

    // Scaled residual of a start, for ordering the starts (infinite where
    // the motion gives no force).
    double Probe(const Start& start) {
        const Residual r = Evaluate(start.chart, start.s1, start.s2);
        return r.ok ? r.Norm() : INFINITY;
    }

private:
    Motion ToMotion(Chart chart, double s1, double s2) const {
        const double L = p_.length;
        if (chart == Chart::Translation) return Motion{s1, 1.0, s2 / L};
        // Center at (s1, s2), turning counterclockwise.
        return Motion{s2 / L, -s1 / L, 1.0 / L};
    }

    Residual Evaluate(Chart chart, double s1, double s2) {
        Residual r;
        if (!std::isfinite(s1) || !std::isfinite(s2)) return r;
        ++out_.evaluations;
        const Resultant f = f_(ToMotion(chart, s1, s2));
        if (!f.ok) return r;
        const double F = p_.force, L = p_.length;
        // The residuals as combinations of (fx, fy, moment).
        const double c2y = p_.pureMoment ? 1.0 / F : -p_.arm / (F * L);
        const double c2m = p_.pureMoment ? 0.0 : 1.0 / (F * L);
        r.g1 = f.fx / F;
        r.g2 = c2y * f.fy + c2m * f.moment;
        r.load = p_.pureMoment ? f.moment : f.fy;
        r.ok = std::isfinite(r.g1) && std::isfinite(r.g2) && std::isfinite(r.load);
        if (r.ok && f.slopes) {
            // The chart moves (vx, vy, w) along these directions.
            const double dm[2][3] = {
                {chart == Chart::Translation ? 1.0 : 0.0, chart == Chart::Translation ? 0.0 : -1.0 / L, 0.0},
                {chart == Chart::Translation ? 0.0 : 1.0 / L, 0.0, chart == Chart::Translation ? 1.0 / L : 0.0}};
            for (int c = 0; c < 2; ++c) {
                double dfx = 0.0, dfy = 0.0, dmo = 0.0;
                for (int k = 0; k < 3; ++k) {
                    dfx += f.d[0][k] * dm[c][k];
                    dfy += f.d[1][k] * dm[c][k];
                    dmo += f.d[2][k] * dm[c][k];
                }
                r.j[0][c] = dfx / F;
                r.j[1][c] = c2y * dfy + c2m * dmo;
            }
            r.slopes = std::isfinite(r.j[0][0]) && std::isfinite(r.j[0][1]) && std::isfinite(r.j[1][0]) &&
                       std::isfinite(r.j[1][1]);
        }
        return r;
    }

    // One column of the Jacobian; a step that leaves the valid region is
    // taken the other way.
    bool Column(Chart chart, double s1, double s2, double h1, double h2, const Residual& r, double (&j)[2][2],
                int col) {
        Residual e = Evaluate(chart, s1 + h1, s2 + h2);
        double h = h1 + h2;
        if (!e.ok) {
            e = Evaluate(chart, s1 - h1, s2 - h2);
            h = -h;
            if (!e.ok) return false;
        }
        j[0][col] = (e.g1 - r.g1) / h;
        j[1][col] = (e.g2 - r.g2) / h;
        return std::isfinite(j[0][col]) && std::isfinite(j[1][col]);
    }

    void Keep(Chart chart, double s1, double s2, const Residual& r) {
        if (haveBest_ && r.Norm() >= out_.residual) return;
        haveBest_ = true;
        out_.residual = r.Norm();
        out_.motion = ToMotion(chart, s1, s2);
        out_.load = r.load;
    }

    bool Accept(Chart chart, double s1, double s2, const Residual& r) {
        // The balancing load (or couple) must act the way the given one does.
        if (!(r.load > 0.0)) return false;
        out_.converged = true;
        out_.residual = r.Norm();
        out_.motion = ToMotion(chart, s1, s2);
        out_.load = r.load;
        return true;
    }

    const MotionProblem& p_;
    const ResultantFn& f_;
    MotionResult& out_;
    bool haveBest_ = false;
};

// The first starts of a solve: the elastic solution, in the chart that suits
// the arm, then in the other one. For a pure moment: the centroid.
std::vector<Start> ElasticStarts(const MotionProblem& p) {
    const double L = p.length, a = p.arm;
    if (p.pureMoment) return {{Chart::Center, 0.0, 0.0}};
    // The elastic center lies L^2 / arm from the centroid, opposite the load.
    const Start trans{Chart::Translation, 0.0, a / L};
    if (!(a > 0.0)) return {trans};
    const Start center{Chart::Center, -L * L / a, 0.0};
    if (a < L) return {trans, center};
    return {center, trans};
}

// Where the elastic starts fail: a spread of rotations on both sides of a
// pure translation and of centers around the group, tried in the order of
// their residuals. Asymmetric groups under small arms may turn against the
// load's own sense, which is why both sides are there.
std::vector<Start> SpreadStarts(const MotionProblem& p, Solver& solver) {
    const double L = p.length;
    std::vector<Start> spread;
    if (!p.pureMoment) {
        for (double w : {0.01, 0.03, 0.1, 0.3, 1.0, 3.0}) {
            spread.push_back({Chart::Translation, 0.0, w});
            spread.push_back({Chart::Translation, 0.0, -w});
        }
    }
    for (double x : {-2.0, -1.0, -0.5, 0.0, 0.5, 1.0})
        for (double y : {-0.5, 0.0, 0.5})
            if (x != 0.0 || y != 0.0) spread.push_back({Chart::Center, x * L, y * L});
    std::vector<std::pair<double, Start>> scored;
    for (const Start& s : spread) scored.push_back({solver.Probe(s), s});
    std::stable_sort(scored.begin(), scored.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
    std::vector<Start> list;
    for (const auto& [score, s] : scored)
        if (std::isfinite(score)) list.push_back(s);
    return list;
}

}  // namespace

void SetSlopes(Resultant& r, const double (&d)[3][3]) {
    r.slopes = true;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            r.d[i][j] = d[i][j];
            r.slopes = r.slopes && std::isfinite(d[i][j]);
        }
}

MotionResult SolveMotion(const MotionProblem& problem, const ResultantFn& resultant) {
    MotionResult result;
    if (!(problem.length > 0.0) || !(problem.force > 0.0) || !std::isfinite(problem.length) ||
        !std::isfinite(problem.force) || !(problem.arm >= 0.0) || !std::isfinite(problem.arm))
        return result;
    Solver solver(problem, resultant, result);
    // The elastic starts settle most groups; the spread is scored only where
    // they fail.
    for (const Start& s : ElasticStarts(problem))
        if (solver.Run(s)) return result;
    for (const Start& s : SpreadStarts(problem, solver))
        if (solver.Run(s)) return result;
    return result;
}

LoadFrame::LoadFrame(double centroidX, double centroidY, double radians)
    : cx(centroidX), cy(centroidY), cosA(std::cos(radians)), sinA(std::sin(radians)), sgn(cosA < 0.0 ? -1.0 : 1.0) {}

void LoadFrame::ToLoad(double x, double y, double& X, double& Y) const {
    const double dx = x - cx, dy = y - cy;
    X = (dx * cosA - dy * sinA) * sgn;
    Y = dx * sinA + dy * cosA;
}

double LoadFrame::Arm(double ex) const { return std::fabs(cosA * ex); }

void LoadFrame::BackVector(double X, double Y, double& x, double& y) const {
    const double Xs = X * sgn;
    x = Xs * cosA + Y * sinA;
    y = -Xs * sinA + Y * cosA;
}

GroupMotion LoadFrame::Back(const Motion& m) const {
    // Velocities turn back as vectors; the mirror reverses the rotation.
    GroupMotion g;
    BackVector(m.vx, m.vy, g.VX, g.VY);
    g.W = m.w * sgn;
    g.Translation = g.W == 0.0;
    if (!g.Translation) {
        g.CenterX = cx - g.VY / g.W;
        g.CenterY = cy + g.VX / g.W;
    }
    return g;
}

}  // namespace shell
