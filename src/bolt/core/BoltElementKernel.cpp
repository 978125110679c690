#include "bolt/core/BoltElementKernel.h"

#include <algorithm>
#include <cmath>

#include "shell/core/MotionSolver.h"

namespace BoltKernel {

namespace {
// x^c for x > 0, through the vector exp and log.
inline double Power(double x, double c) { return std::exp(c * std::log(x)); }

// The distance r of every bolt from the center, in its velocity's units, and
// the largest.
[[gnu::always_inline]] inline double Distances(const double* x, const double* y, double* r, size_t n, double vx,
                                               double vy, double w) {
    double rmax = 0.0;
#pragma omp simd reduction(max : rmax)
    for (size_t i = 0; i < n; ++i) {
        const double ux = vx - w * y[i], uy = vy + w * x[i];
        r[i] = std::sqrt(ux * ux + uy * uy);
        rmax = std::max(rmax, r[i]);
    }
    return rmax;
}
}  // namespace

// Built with vector math (-ffast-math, OpenMP simd), as the weld element
// model's kernel: nothing here may rely on infinities or NaN; lanes that must
// not count are masked with plain selects.
__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) Sums ForceSums(
    const double* x, const double* y, double* r, size_t n, double du, double vx, double vy, double w) {
    Sums s{};
    const double rmax = Distances(x, y, r, n, vx, vy, w);
    s.rmax = rmax;
    if (!(rmax > 0.0)) return s;
    // The slopes of log rmax, at the farthest bolt.
    size_t c = 0;
    while (c + 1 < n && r[c] != rmax) ++c;
    const double cx = vx - w * y[c], cy = vy + w * x[c], cr2 = rmax * rmax;
    const double gc[3] = {cx / cr2, cy / cr2, (x[c] * cy - y[c] * cx) / cr2};

    // At a fixed rmax a bolt's force R e changes with its velocity u by
    //   R' du / rmax e e' + R / r n n'
    // (e the unit displacement, n = e turned a quarter left, R' = dR/dD).
    // As e e' + n n' = I, that is (R' du / rmax - R / r) e e' + R / r I; in
    // the motion m = (vx, vy, w), through u = G m, G' (...) G: a symmetric
    // sum of a a' with a = G' e, and the sum of G'G R / r, which needs only
    // the sums of R / r times 1, x, y and x^2 + y^2, as the resultant does.
    const double scale = du / rmax;
    double* ex = r + n;
    double* force = r + 2 * n;
    // The vector math in a loop of its own: each call clobbers the vector
    // registers, which the sums below would have to spill around it.
#pragma omp simd
    for (size_t i = 0; i < n; ++i) {
        const double E = std::exp(-10.0 * scale * r[i]);
        ex[i] = E;
        force[i] = r[i] > 0.0 ? Power(r[i] > 0.0 ? 1.0 - E : 1.0, 0.55) : 0.0;  // none at the center
    }
    double g0 = 0.0, gx = 0.0, gy = 0.0, grr = 0.0;
    double p00 = 0.0, p01 = 0.0, p02 = 0.0, p11 = 0.0, p12 = 0.0, p22 = 0.0;
#pragma omp simd reduction(+ : g0, gx, gy, grr, p00, p01, p02, p11, p12, p22)
    for (size_t i = 0; i < n; ++i) {
        const double xi = x[i], yi = y[i];
        const double ux = vx - w * yi, uy = vy + w * xi;
        const double E = ex[i], R = force[i];
        const bool moves = r[i] > 0.0;
        const double rest = moves ? 1.0 - E : 1.0;
        // One division gives 1 / r and 1 / (1 - E).
        const double Z = 1.0 / (moves ? r[i] * rest : 1.0);
        const double inv = rest * Z;
        const double gamma = R * inv;  // R / r
        const double gxi = gamma * xi, gyi = gamma * yi;
        g0 += gamma;
        gx += gxi;
        gy += gyi;
        grr += gxi * xi + gyi * yi;
        // In u rather than e: a r = (ux, uy, a2).
        const double a2 = xi * uy - yi * ux;
        const double al = (5.5 * R * E * r[i] * Z * scale - gamma) * inv * inv;
        const double a0 = al * ux, a1 = al * uy;
        p00 += a0 * ux;
        p01 += a0 * uy;
        p02 += a0 * a2;
        p11 += a1 * uy;
        p12 += a1 * a2;
        p22 += al * a2 * a2;
    }
    // The resultant of the forces R e = (R / r) u.
    const shell::WeightSums byR{g0, gx, gy, grr};
    byR.Resultant(vx, vy, w, s.fx, s.fy, s.moment);
    // The sums do not change when the motion and rmax grow together:
    // rmax d/drmax = -P m, and the slopes are P - (P m) gc'.
    double P[3][3] = {{p00, p01, p02}, {p01, p11, p12}, {p02, p12, p22}};
    byR.AddSlopes(P);
    const double mv[3] = {vx, vy, w};
    for (int i = 0; i < 3; ++i) {
        const double byMax = P[i][0] * mv[0] + P[i][1] * mv[1] + P[i][2] * mv[2];
        for (int j = 0; j < 3; ++j) s.d[i][j] = P[i][j] - byMax * gc[j];
    }
    return s;
}

// Per bolt: sqrt (r), exp (e^(-10 D)), log and exp (the power 0.55), with
// the sweep's arguments.
__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) double VectorMathFloor(
    const double* x, const double* y, double* r, size_t n, double du, double vx, double vy, double w) {
    const double rmax = Distances(x, y, r, n, vx, vy, w);
    const double scale = du / rmax;
    double sum = 0.0;
#pragma omp simd reduction(+ : sum)
    for (size_t i = 0; i < n; ++i) sum += Power(1.0 - std::exp(-10.0 * scale * r[i]), 0.55);
    return sum;
}

}  // namespace BoltKernel
