#include "weld/core/WeldElementKernel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace WeldKernel {

namespace {
constexpr double kDeg = 180.0 / std::numbers::pi;

// x^c for x > 0, through the vector exp and log, which run several times
// faster than the vector pow.
inline double Power(double x, double c) { return std::exp(c * std::log(x)); }

// A point of the group at (x, y) on a line of direction (tx, ty), under the
// motion (vx, vy, w): its velocity (ux, uy), distance r from the center of
// rotation, the components along the line (A) and across it (B), and the
// angle theta (degrees) between its velocity and the line.
struct PointMotion {
    double ux, uy, r, A, B, theta;
};

[[gnu::always_inline]] inline PointMotion MotionAt(double x, double y, double tx, double ty, double vx, double vy,
                                                   double w) {
    PointMotion m;
    m.ux = vx - w * y;
    m.uy = vy + w * x;
    m.r = std::sqrt(m.ux * m.ux + m.uy * m.uy);
    m.A = tx * m.ux + ty * m.uy;
    m.B = tx * m.uy - ty * m.ux;
    m.theta = std::atan2(std::fabs(m.B), std::fabs(m.A)) * kDeg;
    return m;
}

// Du without its cap, over the weld size.
inline double DuFree(double theta) { return 1.087 * Power(theta + 6.0, -0.65); }

// The derivatives by (vx, vy, w) of the log of the critical ratio Du / r at
// the line end (x, y). Theta changes only with the motion across the radius,
// at the rate 1 / r (sign sigma); r only with the motion along it.
void CriticalSlopes(double x, double y, double tx, double ty, double vx, double vy, double w, double (&g)[3]) {
    const PointMotion m = MotionAt(x, y, tx, ty, vx, vy, w);
    const double ex = m.ux / m.r, ey = m.uy / m.r;
    const double sigma = m.A * m.B >= 0.0 ? 1.0 : -1.0;
    const double kappa = DuFree(m.theta) < 0.17 ? -0.65 * kDeg / (m.theta + 6.0) * sigma : 0.0;
    const double gx = (-ex - kappa * ey) / m.r, gy = (-ey + kappa * ex) / m.r;
    g[0] = gx;
    g[1] = gy;
    g[2] = x * gy - y * gx;
}
}  // namespace

// This file is built with vector math (-ffast-math, OpenMP simd): the loops
// below run several elements at a time through the vector versions of atan2,
// exp, log and sqrt. Nothing here may rely on infinities or NaN: lanes that
// must not count are masked with plain selects, and the caller checks the
// sums for finiteness.
// Built three times, for processors with AVX-512, with AVX2 and FMA, and for
// any x86-64; the loader picks one (eight, four or two lanes).
__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) Sums ForceSums(const Elements& el,
                                                                                             double vx, double vy,
                                                                                             double w) {
    Sums s{};
    const double D = el.D;

    // The critical ratio. Along a line, r grows and so does theta (its
    // cosine is the center's distance from the line over r) with the
    // distance from the foot of the perpendicular through the center, and Du
    // falls with theta: Du / r is least at one of the two line ends, so they
    // alone are searched.
    const double* px = el.px.data();
    const double* py = el.py.data();
    const double* ptx = el.ptx.data();
    const double* pty = el.pty.data();
    double* ratio = el.ratio.data();
    const size_t np = el.px.size();
    double crit = kNoRatio;
#pragma omp simd reduction(min : crit)
    for (size_t i = 0; i < np; ++i) {
        const PointMotion m = MotionAt(px[i], py[i], ptx[i], pty[i], vx, vy, w);
        const double du = D * std::min(DuFree(m.theta), 0.17);
        ratio[i] = m.r > 0.0 ? du / m.r : kNoRatio;
        crit = std::min(crit, ratio[i]);
    }
    s.crit = crit;
    if (!(crit < kNoRatio)) return s;
    size_t c = 0;
    while (c + 1 < np && ratio[c] != crit) ++c;
    double gc[3];
    CriticalSlopes(px[c], py[c], ptx[c], pty[c], vx, vy, w, gc);

    // Forces of the elements at the deformation the critical ratio allows,
    // and their slopes. With e the unit displacement and n = e turned a
    // quarter left, an element's force R e changes with its velocity u, at a
    // fixed critical ratio, by
    //   (R / r) [g e e' + h sigma e n' + n n']
    // where g = r dR/dr / R (through p), h = dR/dtheta / R (theta in
    // radians), and sigma = +-1 the sense of the turn of u that opens theta.
    // As e e' + n n' = I, the bracket is e c' + I with c = (g - 1) e +
    // h sigma n. Through u = G m, with the rows of G' (1, 0, -y) and (0, 1,
    // x), the sums change with the motion m by the sum of (G' e)(G' c)' R / r
    // and of G'G R / r; the second needs only the sums of R / r times 1, x, y
    // and x^2 + y^2, from which the resultant follows as well.
    const double* x = el.x.data();
    const double* y = el.y.data();
    const double* tx = el.tx.data();
    const double* ty = el.ty.data();
    const double* k = el.k.data();
    const size_t n = el.x.size();
    const double pScale = crit / (0.209 * D);
    double g0 = 0.0, gx = 0.0, gy = 0.0, grr = 0.0;
    double a00 = 0.0, a01 = 0.0, a02 = 0.0, a10 = 0.0, a11 = 0.0, a12 = 0.0, a20 = 0.0, a21 = 0.0, a22 = 0.0;
    // The vector math first, in a loop of its own, a block of elements at a
    // time: each call clobbers the vector registers, which the sums below
    // would have to spill around it.
    constexpr size_t kBlock = 256;
    // The factors of the slopes that depend on p and theta alone go there
    // too: their divisions run while the calls keep the multipliers busy.
    alignas(64) double rs[kBlock], slopesT[kBlock], slopesP[kBlock], curves[kBlock];
    for (size_t b = 0; b < n; b += kBlock) {
        const size_t nb = std::min(kBlock, n - b);
        const double *xb = x + b, *yb = y + b, *txb = tx + b, *tyb = ty + b, *kb = k + b;
#pragma omp simd
        for (size_t i = 0; i < nb; ++i) {
            const PointMotion m = MotionAt(xb[i], yb[i], txb[i], tyb[i], vx, vy, w);
            const double t2 = m.theta + 2.0;
            const double p = pScale * m.r * Power(t2, 0.32);  // c r / Dm
            const double q = p * (1.9 - 0.9 * p);
            const double g = (0.57 - 0.54 * p) / (1.9 - 0.9 * p);
            rs[i] = m.r;
            slopesP[i] = g - 1.0;
            slopesT[i] = g * (0.32 * kDeg) / t2;  // h, as far as it comes through p
            curves[i] = q > 0.0 ? Power(q > 0.0 ? q : 1.0, 0.3) : 0.0;  // 0 at the center
        }
#pragma omp simd reduction(+ : g0, gx, gy, grr, a00, a01, a02, a10, a11, a12, a20, a21, a22)
        for (size_t i = 0; i < nb; ++i) {
            const double xi = xb[i], yi = yb[i];
            const double ux = vx - w * yi, uy = vy + w * xi;
            const double A = txb[i] * ux + tyb[i] * uy, B = txb[i] * uy - tyb[i] * ux;
            const double r = rs[i], curve = curves[i];
            // An element at the center has no deformation and no force.
            const bool loaded = curve > 0.0;
            const double inv = 1.0 / (loaded ? r : 1.0);
            const double sinT = std::fabs(B) * inv, cosT = std::fabs(A) * inv;
            const double root = std::sqrt(sinT);
            const double kQ = kb[i] * curve;
            const double gamma = kQ * (1.0 + 0.5 * sinT * root) * inv;  // R / r
            const double gxi = gamma * xi, gyi = gamma * yi;
            g0 += gamma;
            gx += gxi;
            gy += gyi;
            grr += gxi * xi + gyi * yi;

            const double beta = gamma * slopesT[i] + 0.75 * kQ * inv * root * cosT;  // R h / r
            // In u rather than e: (G' e) r = (ux, uy, a2), c r = (c0, c1).
            const double inv2 = inv * inv;
            const double al = gamma * slopesP[i] * inv2, be = (A * B >= 0.0 ? beta : -beta) * inv2;
            const double c0 = al * ux - be * uy, c1 = al * uy + be * ux, c2 = xi * c1 - yi * c0;
            const double a2 = xi * uy - yi * ux;
            a00 += ux * c0;
            a01 += ux * c1;
            a02 += ux * c2;
            a10 += uy * c0;
            a11 += uy * c1;
            a12 += uy * c2;
            a20 += a2 * c0;
            a21 += a2 * c1;
            a22 += a2 * c2;
        }
    }
    // The resultant of the forces R e = (R / r) u.
    const shell::WeightSums byR{g0, gx, gy, grr};
    byR.Resultant(vx, vy, w, s.fx, s.fy, s.moment);
    double P[3][3] = {{a00, a01, a02}, {a10, a11, a12}, {a20, a21, a22}};
    byR.AddSlopes(P);
    // The sums do not change when the motion and 1 / crit grow together, so
    // their change with crit follows from P: crit d/dcrit = P m. With gc the
    // slopes of log crit, the slopes are P + (P m) gc'.
    const double mv[3] = {vx, vy, w};
    for (int i = 0; i < 3; ++i) {
        const double byCrit = P[i][0] * mv[0] + P[i][1] * mv[1] + P[i][2] * mv[2];
        for (int j = 0; j < 3; ++j) s.d[i][j] = P[i][j] + byCrit * gc[j];
    }
    return s;
}

// The calls of a sweep with the arguments it gives them, and nothing else.
__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) double VectorMathFloor(
    const Elements& el, const shell::Motion& mo) {
    const double* x = el.x.data();
    const double* y = el.y.data();
    const double* tx = el.tx.data();
    const double* ty = el.ty.data();
    const double* px = el.px.data();
    const double* py = el.py.data();
    const double* ptx = el.ptx.data();
    const double* pty = el.pty.data();
    double crit = kNoRatio;
    // Per line end: sqrt (r), atan2 (theta), log and exp (Du).
#pragma omp simd reduction(min : crit)
    for (size_t i = 0; i < el.px.size(); ++i) {
        const PointMotion m = MotionAt(px[i], py[i], ptx[i], pty[i], mo.vx, mo.vy, mo.w);
        crit = std::min(crit, DuFree(m.theta) / m.r);
    }
    // Per element: sqrt (r), atan2 (theta), log and exp (Dm), log and exp
    // (the force curve), sqrt (sin^1.5).
    double sum = 0.0;
#pragma omp simd reduction(+ : sum)
    for (size_t i = 0; i < el.x.size(); ++i) {
        const PointMotion m = MotionAt(x[i], y[i], tx[i], ty[i], mo.vx, mo.vy, mo.w);
        const double p = crit * m.r * Power(m.theta + 2.0, 0.32);
        sum += Power(p * (1.9 - 0.9 * p), 0.3) + std::sqrt(std::fabs(m.B) / m.r);
    }
    return sum;
}

}  // namespace WeldKernel
