#include "weld/WeldElementKernel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace WeldKernel {

namespace {
constexpr double kDeg = 180.0 / std::numbers::pi;
}

void Elements::Reserve(size_t n) {
    for (auto* v : {&x, &y, &tx, &ty, &k, &rho, &dm, &sinT, &ux, &uy}) v->reserve(n);
}

void Elements::Add(double X, double Y, double TX, double TY, double K) {
    x.push_back(X);
    y.push_back(Y);
    tx.push_back(TX);
    ty.push_back(TY);
    k.push_back(K);
    for (auto* v : {&rho, &dm, &sinT, &ux, &uy}) v->push_back(0.0);
}

void Elements::AddProbe(double X, double Y, double TX, double TY) {
    px.push_back(X);
    py.push_back(Y);
    ptx.push_back(TX);
    pty.push_back(TY);
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

double DeltaU(double thetaDeg, double D) {
    return D * std::min(1.087 * std::pow(thetaDeg + 6.0, -0.65), 0.17);
}

double DeltaM(double thetaDeg, double D) { return 0.209 * D * std::pow(thetaDeg + 2.0, -0.32); }

shell::Resultant Forces(const Elements& el, const shell::Motion& m) {
    shell::Resultant out;
    const size_t n = el.x.size();
    const double D = el.D;
    double crit = std::numeric_limits<double>::infinity();

    // Critical ratio over the line ends.
    for (size_t i = 0; i < el.px.size(); ++i) {
        const double ux = m.vx - m.w * el.py[i];
        const double uy = m.vy + m.w * el.px[i];
        const double r = std::sqrt(ux * ux + uy * uy);
        if (!(r > 0.0)) continue;
        const double a = std::fabs(el.ptx[i] * ux + el.pty[i] * uy);
        const double b = std::fabs(el.ptx[i] * uy - el.pty[i] * ux);
        const double theta = std::atan2(b, a) * kDeg;
        crit = std::min(crit, DeltaU(theta, D) / r);
    }

    // Angles, limits and directions of the elements.
    for (size_t i = 0; i < n; ++i) {
        const double ux = m.vx - m.w * el.y[i];
        const double uy = m.vy + m.w * el.x[i];
        const double r = std::sqrt(ux * ux + uy * uy);
        el.rho[i] = r;
        if (!(r > 0.0)) continue;  // at the center: no deformation, no force
        const double a = std::fabs(el.tx[i] * ux + el.ty[i] * uy);
        const double b = std::fabs(el.tx[i] * uy - el.ty[i] * ux);
        const double theta = std::atan2(b, a) * kDeg;
        el.dm[i] = DeltaM(theta, D);
        el.sinT[i] = b / r;
        el.ux[i] = ux / r;
        el.uy[i] = uy / r;
        crit = std::min(crit, DeltaU(theta, D) / r);
    }
    if (!std::isfinite(crit)) return out;

    // Forces of the elements at the deformation the critical one allows.
    double fx = 0.0, fy = 0.0, mo = 0.0;
    for (size_t i = 0; i < n; ++i) {
        const double r = el.rho[i];
        if (!(r > 0.0)) continue;
        const double p = crit * r / el.dm[i];
        const double s = el.sinT[i];
        const double R = el.k[i] * (1.0 + 0.5 * s * std::sqrt(s)) * std::pow(p * (1.9 - 0.9 * p), 0.3);
        fx += R * el.ux[i];
        fy += R * el.uy[i];
        mo += R * (el.x[i] * el.uy[i] - el.y[i] * el.ux[i]);
    }
    out.fx = fx;
    out.fy = fy;
    out.moment = mo;
    out.ok = std::isfinite(fx) && std::isfinite(fy) && std::isfinite(mo);
    return out;
}

}  // namespace WeldKernel
