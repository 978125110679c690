#include "bolt/core/BoltSolver.h"

#include <cmath>
#include <vector>

#include "shell/core/GuardedMath.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "shell/core/Settling.h"

namespace bolt {

namespace {

// A statement of the solver that would fault (division by zero, overflow, an
// invalid operation) is skipped and its target keeps its value. Every guarded
// statement computes its value first and stores it only when it is finite.
constexpr auto Store = guarded::Let;
using guarded::Divide;

// One bolt: along and across the load line in BoltGroup_C, the unrotated
// vertical and horizontal coordinates in BoltGroup_CPrime.
struct BoltRec {
    double first = 0.0;
    double second = 0.0;
};

// Allocates the table for m x n bolts. The count is a 16-bit product: a group
// with no bolt or more than 32,767 of them cannot be laid out.
bool AllocateBolts(int16_t m, int16_t n, std::vector<BoltRec>& bolts) {
    const int32_t count = static_cast<int32_t>(m) * static_cast<int32_t>(n);
    if (count < 1 || count > 32767) return false;
    bolts.assign(static_cast<size_t>(count), BoltRec{});
    return true;
}

// Walks the layout row by row from the bottom left, with the group's centroid
// as origin, handing each bolt's (y0, x0) to `place` with its running index.
template <class Place>
void LayOut(int16_t m, int16_t n, double sv, double sh, Place place) {
    int32_t k = 0;
    for (int32_t i = 0; i <= m - 1; ++i) {
        for (int32_t j = 0; j <= n - 1; ++j) {
            double y0 = 0.0;
            double x0 = 0.0;
            Store(y0, sv * i - sv * (m - 1) / 2.0);
            Store(x0, sh * j - sh * (n - 1) / 2.0);
            place(k, y0, x0);
            ++k;
        }
    }
}

// The forces of the pass about (Iu, Iv), as its force pass forms them: each
// bolt pushes at right angles to its radius, the farthest at the ultimate
// deformation; turned back from the load's frame (u along the load, v across).
void PassForces(const std::vector<BoltRec>& bolts, int16_t m, int16_t n, double sv, double sh, double Iu, double Iv,
                double dmax, double cosA, double sinA, double s, std::vector<shell::ElementForce>& out) {
    const double Rmax = 74.0 * std::pow(1.0 - std::exp(-10.0 * 0.34), 0.55);
    LayOut(m, n, sv, sh, [&](int32_t k, double y0, double x0) {
        const double du = bolts[k].first - Iu, dv = bolts[k].second - Iv;
        const double d = std::sqrt(du * du + dv * dv);
        if (!(d > 0.0) || !(dmax > 0.0)) return;
        const double R = 74.0 * std::pow(1.0 - std::exp(-10.0 * d * 0.34 / dmax), 0.55);
        const double fu = dv / d, fv = -du / d;
        out.push_back(
            {x0, y0, x0, y0, R / Rmax, s * fv * cosA + fu * sinA, fu * cosA - s * fv * sinA, 0.0, k, 0.0, d / dmax});
    });
}

}  // namespace

std::optional<double> BoltGroup_C(int16_t m, int16_t n, double sv, double sh, double ex, double angle,
                                  const YieldFn& Yield, BoltRunInfo* info, std::vector<shell::ElementForce>* forces) {
    std::vector<BoltRec> bolts;
    if (!AllocateBolts(m, n, bolts)) return std::nullopt;
    const double count = static_cast<double>(static_cast<int32_t>(m) * n);
    auto yield = [&Yield] {
        if (Yield) Yield();
    };
    if (info != nullptr) *info = BoltRunInfo{};

    double a = 0.0;
    Store(a, shell::Radians(angle));
    const double cosA = std::cos(a);
    const double sinA = std::sin(a);
    double e = 0.0;
    Store(e, std::fabs(cosA * ex));
    const double s = (prim::Sgn(cosA) == -1) ? -1.0 : 1.0;

    // No arm: the bolts share the load equally, each at its full strength.
    if (e == 0.0) {
        if (forces != nullptr)
            LayOut(m, n, sv, sh, [&](int32_t k, double y0, double x0) {
                forces->push_back({x0, y0, x0, y0, 1.0, sinA, cosA, 0.0, k, 0.0, 1.0});
            });
        return count;
    }

    // Rotate every bolt into the load's frame: the load line runs along u at
    // distance e on the positive v side.
    LayOut(m, n, sv, sh, [&](int32_t k, double y0, double x0) {
        Store(bolts[k].first, cosA * y0 + x0 * sinA);
        Store(bolts[k].second, s * (x0 * cosA - sinA * y0));
    });

    double Iu = 0.0;
    double Iv = 0.0;
    double Rmax = 0.0;
    Store(Rmax, 74.0 * std::pow(1.0 - std::exp(-10.0 * 0.34), 0.55));

    // Locals of the pass keep their values between bolts and passes, so a
    // skipped statement leaves the previous value in place.
    double du = 0.0, dv = 0.0, d = 0.0, dmax = 0.0, delta = 0.0, R = 0.0;
    double SumM = 0.0, SumA = 0.0, SumB = 0.0, SumD2 = 0.0;
    double P = 0.0, rA = 0.0, rB = 0.0, f = 0.0;
    int64_t pass = 0;
    bool done = false;
    // Settling: a run that swings about its fixed point (a residual keeps
    // changing sign while it is above the tolerance) gets half the center
    // correction at the end of each block of passes. A run that creeps
    // toward the point keeps its full step, which is what gets it there.
    shell::Settling settling(kBoltSettling);

    double passU = 0.0, passV = 0.0;  // the center of the pass
    while (!done) {
        ++pass;
        passU = Iu;
        passV = Iv;

        // Distance pass: the most distant bolt from the trial center.
        dmax = 0.0;
        for (const BoltRec& b : bolts) {
            Store(du, b.first - Iu);
            Store(dv, b.second - Iv);
            Store(d, std::sqrt(du * du + dv * dv));
            dmax = shell::MaxOf({dmax, d});
            yield();
        }

        // Force pass: deformation in proportion to the distance, the most
        // distant bolt at the ultimate deformation; forces normalised by its force.
        SumM = 0.0;
        SumA = 0.0;
        SumB = 0.0;
        SumD2 = 0.0;
        for (const BoltRec& b : bolts) {
            Store(du, b.first - Iu);
            Store(dv, b.second - Iv);
            Store(d, std::sqrt(du * du + dv * dv));
            Divide(d * 0.34, dmax, delta);
            Store(R, 74.0 * std::pow(1.0 - std::exp(-10.0 * delta), 0.55));
            double ratio = 0.0;
            if (Divide(R, Rmax, ratio)) Store(SumM, SumM + d * ratio);
            double along = 0.0;
            if (Divide(dv, d, along) && Divide(R, Rmax, ratio)) Store(SumA, SumA + along * ratio);
            double across = 0.0;
            if (Divide(du, d, across) && Divide(R, Rmax, ratio)) Store(SumB, SumB + across * ratio);
            Store(SumD2, SumD2 + d * d);
            yield();
        }

        // The load that balances the moment of the bolt forces about the center.
        Divide(SumM, e - Iv, P);

        Store(rA, P - SumA);
        Store(rB, -SumB);
        done = std::fabs(rA) <= 1e-05 && std::fabs(rB) <= 1e-05;
        settling.Observe(Iu, Iv, rA, rB);
        const double scale = settling.Factor();

        // Move the center; the update still runs in the pass that converges.
        Divide(SumD2, SumM * count, f);
        Store(Iv, Iv - rA * f * scale);
        Store(Iu, Iu - rB * f * scale);
        yield();
    }

    if (info != nullptr) {
        info->Passes = pass > INT32_MAX ? INT32_MAX : static_cast<int32_t>(pass);
        info->Halvings = settling.Halvings();
        info->Relaxation = settling.Factor();
        // Back from the load's frame (u along the load, v across it).
        info->CenterX = s * Iv * cosA + Iu * sinA;
        info->CenterY = Iu * cosA - s * Iv * sinA;
    }
    if (forces != nullptr) PassForces(bolts, m, n, sv, sh, passU, passV, dmax, cosA, sinA, s, *forces);
    double C = 0.0;
    Store(C, (SumA + P) / 2.0);
    return C;
}

std::optional<double> BoltGroup_CPrime(int16_t m, int16_t n, double sv, double sh) {
    std::vector<BoltRec> bolts;
    if (!AllocateBolts(m, n, bolts)) return std::nullopt;

    double dmax = 0.0;
    double sum = 0.0;
    LayOut(m, n, sv, sh, [&](int32_t k, double y0, double x0) {
        bolts[k].first = y0;
        bolts[k].second = x0;
        double r = 0.0;
        Store(r, std::sqrt(x0 * x0 + y0 * y0));
        dmax = shell::MaxOf({dmax, r});
    });

    // Distances from the centroid, which stays put; no force scale.
    double d = 0.0;
    double w = 0.0;
    for (const BoltRec& b : bolts) {
        Store(d, std::sqrt(b.first * b.first + b.second * b.second));
        double exponent = 0.0;
        if (Divide((d * -10.0) * 0.34, dmax, exponent)) Store(w, std::exp(exponent));
        Store(sum, sum + d * std::pow(1.0 - w, 0.55));
    }
    return sum;
}

}  // namespace bolt
