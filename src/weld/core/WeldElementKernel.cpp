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
// rotation, the sine component b, the angle theta (degrees) between its
// velocity and the line, and the ultimate deformation du at that angle.
struct PointMotion {
    double ux, uy, r, b, theta, du;
};

[[gnu::always_inline]] inline PointMotion MotionAt(double x, double y, double tx, double ty, double vx, double vy,
                                                   double w, double D) {
    PointMotion m;
    m.ux = vx - w * y;
    m.uy = vy + w * x;
    m.r = std::sqrt(m.ux * m.ux + m.uy * m.uy);
    const double a = std::fabs(tx * m.ux + ty * m.uy);
    m.b = std::fabs(tx * m.uy - ty * m.ux);
    m.theta = std::atan2(m.b, a) * kDeg;
    m.du = D * std::min(1.087 * Power(m.theta + 6.0, -0.65), 0.17);
    return m;
}
}  // namespace

// This file is built with vector math (-ffast-math, OpenMP simd): the loops
// below run two or more elements at a time through the vector versions of
// atan2, pow and sqrt. Nothing here may rely on infinities or NaN: lanes that
// must not count are masked with plain selects, and the caller checks the
// sums for finiteness.
// Built three times, for processors with AVX-512, with AVX2 and FMA, and for
// any x86-64; the loader picks one (eight, four or two lanes).
__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) Sums ForceSums(const Elements& el,
                                                                                             double vx, double vy,
                                                                                             double w) {
    const size_t n = el.x.size();
    const double D = el.D;
    double crit = kNoRatio;

    // Critical ratio over the line ends.
    const double* px = el.px.data();
    const double* py = el.py.data();
    const double* ptx = el.ptx.data();
    const double* pty = el.pty.data();
    const size_t np = el.px.size();
#pragma omp simd reduction(min : crit)
    for (size_t i = 0; i < np; ++i) {
        const PointMotion m = MotionAt(px[i], py[i], ptx[i], pty[i], vx, vy, w, D);
        const double ratio = m.r > 0.0 ? m.du / m.r : kNoRatio;
        crit = std::min(crit, ratio);
    }

    // Angles, limits and directions of the elements.
    const double* x = el.x.data();
    const double* y = el.y.data();
    const double* tx = el.tx.data();
    const double* ty = el.ty.data();
    double* rho = el.rho.data();
    double* dm = el.dm.data();
    double* sinT = el.sinT.data();
    double* ex = el.ux.data();
    double* ey = el.uy.data();
#pragma omp simd reduction(min : crit)
    for (size_t i = 0; i < n; ++i) {
        const PointMotion m = MotionAt(x[i], y[i], tx[i], ty[i], vx, vy, w, D);
        // An element at the center has no deformation and no force.
        const double inv = m.r > 0.0 ? 1.0 / m.r : 0.0;
        rho[i] = m.r;
        dm[i] = 0.209 * D * Power(m.theta + 2.0, -0.32);
        sinT[i] = m.b * inv;
        ex[i] = m.ux * inv;
        ey[i] = m.uy * inv;
        const double ratio = m.r > 0.0 ? m.du * inv : kNoRatio;
        crit = std::min(crit, ratio);
    }

    // Forces of the elements at the deformation the critical one allows.
    const double* k = el.k.data();
    double fx = 0.0, fy = 0.0, mo = 0.0;
#pragma omp simd reduction(+ : fx, fy, mo)
    for (size_t i = 0; i < n; ++i) {
        const double p = crit * rho[i] / dm[i];
        const double s = sinT[i];
        const double q = p * (1.9 - 0.9 * p);  // 0 for an element at the center
        const double R = q > 0.0 ? k[i] * (1.0 + 0.5 * s * std::sqrt(s)) * Power(q, 0.3) : 0.0;
        fx += R * ex[i];
        fy += R * ey[i];
        mo += R * (x[i] * ey[i] - y[i] * ex[i]);
    }
    return Sums{fx, fy, mo, crit};
}

__attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"))) double VectorMathFloor(
    const Elements& el, const shell::Motion& mo) {
    const double* x = el.x.data();
    const double* y = el.y.data();
    const double* tx = el.tx.data();
    const double* ty = el.ty.data();
    const double* px = el.px.data();
    const double* py = el.py.data();
    double sum = 0.0;
#pragma omp simd reduction(+ : sum)
    for (size_t i = 0; i < el.px.size(); ++i) {
        const double ux = mo.vx - mo.w * py[i], uy = mo.vy + mo.w * px[i];
        const double t = std::atan2(uy, ux);
        sum += Power(t + 6.0, -0.65);
    }
#pragma omp simd reduction(+ : sum)
    for (size_t i = 0; i < el.x.size(); ++i) {
        const double ux = mo.vx - mo.w * y[i], uy = mo.vy + mo.w * x[i];
        const double r = std::sqrt(ux * ux + uy * uy);
        const double t = std::atan2(tx[i] * uy, ty[i] * ux);
        sum += Power(t + 6.0, -0.65) + Power(t + 2.0, -0.32) + Power(r, 0.3) + std::sqrt(t);
    }
    return sum;
}

}  // namespace WeldKernel
