// Robustness of the weld element model over the ranges of the coefficient
// tables. Every solve must end either converged, with an equilibrium that a
// separate computation here confirms from the returned motion alone, or with
// the plain no-convergence result.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numbers>
#include <vector>

#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldElementModel.h"

using namespace WeldElementModel;
using weld::WeldLineRec;
using weld::WeldLineTable;

namespace {

ElementReport SolveElements(const weld::LoadedGroup& group, double Fexx, double D, int16_t spi) {
    weld::SolveOptions o;
    o.SegmentsPerInch = spi;
    o.Fexx = Fexx;
    o.D = D;
    return Solve(group, o);
}

const double kK[] = {0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.2, 1.4, 1.6, 1.8, 2.0};
const double kA[] = {0,   0.075, 0.1, 0.15, 0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8,
                     0.9, 1.0,   1.2, 1.4,  1.6, 1.8,  2.0, 2.2, 2.4, 2.6, 2.8, 3.0};
const double kAngles[] = {0, 15, 30, 45, 60, 75};

// Equilibrium recomputed from the lines, the load and the returned motion:
// the largest of |sum F - P d| / P and |moment about the load line| / (P L).
double Imbalance(const WeldLineTable& lines, double ex, double angleDeg, double Fexx, double D, int spi,
                 const ElementReport& rep) {
    const shell::GroupMotion& m = rep.Motion;
    auto move = [&](double x, double y, double& ux, double& uy) {
        ux = m.VX - m.W * (y - rep.CentroidY);
        uy = m.VY + m.W * (x - rep.CentroidX);
    };
    auto theta = [](double tx, double ty, double ux, double uy) {
        const double c = std::min(1.0, std::fabs(tx * ux + ty * uy) / std::hypot(ux, uy));
        return std::acos(c) * 180 / std::numbers::pi;
    };
    auto du = [&](double t) { return D * std::min(1.087 * std::pow(t + 6, -0.65), 0.17); };
    struct El {
        double x, y, tx, ty, area;
    };
    std::vector<El> els;
    double crit = INFINITY, size = 0.0;
    for (const WeldLineRec& l : lines) {
        const double len = std::hypot(l.x2 - l.x1, l.y2 - l.y1);
        if (len == 0) continue;
        size = std::max(size, len);
        const double tx = (l.x2 - l.x1) / len, ty = (l.y2 - l.y1) / len;
        const int n = std::max(1, static_cast<int>(std::ceil(len * spi - 1e-9)));
        for (int j = 0; j < n; ++j) {
            const double t = (j + 0.5) / n;
            els.push_back({l.x1 + t * (l.x2 - l.x1), l.y1 + t * (l.y2 - l.y1), tx, ty, len / n * D * std::sqrt(0.5)});
        }
        for (double t : {0.0, 1.0}) {  // the line ends count for the critical ratio
            double ux, uy;
            move(l.x1 + t * (l.x2 - l.x1), l.y1 + t * (l.y2 - l.y1), ux, uy);
            const double r = std::hypot(ux, uy);
            if (r > 0) crit = std::min(crit, du(theta(tx, ty, ux, uy)) / r);
        }
    }
    for (const El& e : els) {
        double ux, uy;
        move(e.x, e.y, ux, uy);
        const double r = std::hypot(ux, uy);
        if (r > 0) crit = std::min(crit, du(theta(e.tx, e.ty, ux, uy)) / r);
    }
    const double a = angleDeg * std::numbers::pi / 180;
    const double dx = std::sin(a), dy = std::cos(a);           // load direction
    const double qx = rep.CentroidX + ex, qy = rep.CentroidY;  // a point of the load line
    double fx = 0, fy = 0, mo = 0;
    for (const El& e : els) {
        double ux, uy;
        move(e.x, e.y, ux, uy);
        const double r = std::hypot(ux, uy);
        if (r == 0) continue;
        const double t = theta(e.tx, e.ty, ux, uy);
        const double p = crit * r / (0.209 * D * std::pow(t + 2, -0.32));
        const double R = 0.6 * Fexx * (1 + 0.5 * std::pow(std::sin(t * std::numbers::pi / 180), 1.5)) *
                         std::pow(p * (1.9 - 0.9 * p), 0.3) * e.area;
        fx += R * ux / r;
        fy += R * uy / r;
        mo += (e.x - qx) * R * uy / r - (e.y - qy) * R * ux / r;
    }
    const double P = rep.Capacity;
    return std::max({std::fabs(fx - P * dx) / P, std::fabs(fy - P * dy) / P, std::fabs(mo) / (P * size)});
}

}  // namespace

TEST(WeldElementSweep, EveryStandardShapeEndsBalancedOrSaysSo) {
    const int spi = 16;
    int converged = 0, failed = 0, total = 0;
    double worst = 0.0;
    for (int16_t config = 1; config <= 9; ++config) {
        for (double k : kK) {
            if (config == 1 && k != 0) continue;                 // configuration 1 has no kL
            if (config != 1 && k == 0 && config <= 5) continue;  // degenerate duplicates of 1
            for (double a : kA) {
                for (double angle : kAngles) {
                    ++total;
                    const weld::ConfigShape shape = weld::Config_Shape({config, 10, 10 * k, 10 * a, angle});
                    const ElementReport rep = SolveElements(shape.Group, 70, 0.0625, spi);
                    ASSERT_FALSE(rep.Refused);
                    if (!rep.Converged) {
                        ++failed;
                        EXPECT_EQ(rep.Capacity, 0.0);
                        continue;
                    }
                    ++converged;
                    const double err = Imbalance(shape.Group.Lines, shape.Group.Ex, angle, 70, 0.0625, spi, rep);
                    worst = std::max(worst, err);
                    ASSERT_LT(err, 1e-6) << "config " << config << " k " << k << " a " << a << " angle " << angle;
                    ASSERT_GT(rep.Capacity, 0.0);
                }
            }
        }
    }
    std::cout << "[ sweep    ] " << total << " solves: " << converged << " converged, " << failed
              << " without convergence; worst imbalance " << worst << "\n";
    EXPECT_EQ(converged + failed, total);
}

TEST(WeldElementSweep, ArbitraryGroupsBalance) {
    // Inclined lines, a line with a negative slope, lines that cross.
    const WeldLineTable groups[] = {
        {WeldLineRec{0, 0, 3, 7}, WeldLineRec{3, 7, 9, 5}},
        {WeldLineRec{0, 6, 5, 0}, WeldLineRec{0, 0, 0, 6}},
        {WeldLineRec{0, 0, 6, 6}, WeldLineRec{0, 6, 6, 0}, WeldLineRec{0, 3, 6, 3}},
    };
    for (const WeldLineTable& g : groups)
        for (double ex : {0.0, 0.5, 3.0, 12.0, 60.0})
            for (double angle : {0.0, 20.0, 55.0, 75.0}) {
                const ElementReport rep = SolveElements({g, ex, angle}, 70, 0.25, 32);
                ASSERT_TRUE(rep.Converged) << "ex " << ex << " angle " << angle;
                EXPECT_LT(Imbalance(g, ex, angle, 70, 0.25, 32, rep), 1e-6) << "ex " << ex << " angle " << angle;
            }
}
