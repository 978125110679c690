// Both models of a bolt group through the one solve entry, and what is
// particular to each: the iteration's settling and yields, the element
// model's equilibrium checked from its returned motion alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "bolt/core/BoltElementKernel.h"
#include "bolt/core/BoltElementModel.h"
#include "bolt/core/BoltSolve.h"
#include "bolt/core/BoltSolver.h"

using namespace bolt;
using shell::SolverModel;

namespace {

constexpr SolverModel kIterative = SolverModel::Iterative, kElement = SolverModel::AiscElement;

SolveResult C(SolverModel model, BoltPattern g, double ex, double angle, const shell::YieldFn& yield = nullptr) {
    return Solve(g, {ex, angle}, {model}, yield);
}
SolveResult CPrime(SolverModel model, BoltPattern g) { return Solve(g, kCouple, {model}); }

const double kUltimate = BoltElementModel::BoltForce(0.34);  // one bolt at its ultimate deformation

}  // namespace

// The worked groups to four decimals are bolt-c's golden cases.
TEST(BoltGroup, TheElementModelHoldsThePublishedCoefficients) {
    const struct {
        BoltPattern g;
        double ex, c;
    } published[] = {{{6, 2, 3, 5.5}, 16, 3.55}, {{4, 1, 3, 3}, 3, 2.81}};
    for (const auto& p : published) EXPECT_NEAR(C(kElement, p.g, p.ex, 0).Value, p.c, 0.01 * p.c);
    EXPECT_NEAR(CPrime(kElement, {4, 2, 3, 3}).Value, 26.0, 0.26);
}

TEST(BoltGroup, BothModelsFindTheSameCenterAndTheCouplesTurnAboutTheCentroid) {
    // The iteration measures the forces by the farthest bolt's force, the
    // element model by the ultimate one: the same center, C a little apart.
    const SolveResult it = C(kIterative, {4, 2, 3, 3}, 6, 30), el = C(kElement, {4, 2, 3, 3}, 6, 30);
    ASSERT_TRUE(el.Converged && !el.CenterAtInfinity);
    EXPECT_NEAR(it.CenterX, el.CenterX, 1e-4);
    EXPECT_NEAR(it.CenterY, el.CenterY, 1e-4);
    EXPECT_LT(it.CenterX, 0.0);  // opposite the load
    // So the iteration's C is checked by the element model's, which has no check of its own.
    const auto check = CrossCheck({4, 2, 3, 3}, {6, 30}, {kIterative});
    ASSERT_TRUE(check);
    EXPECT_EQ(check(), el.Value);
    EXPECT_EQ(CrossCheck({1, 1, 3, 3}, {6, 0}, {kIterative})(), std::nullopt);  // no equilibrium
    EXPECT_FALSE(CrossCheck({4, 2, 3, 3}, {6, 30}, {kElement}));
    // By symmetry a couple turns every rectangular pattern about its centroid.
    for (const BoltPattern g : {BoltPattern{4, 2, 3, 3}, {6, 1, 3, 3}, {3, 3, 3, 3}, {12, 2, 3, 3}, {5, 4, 2.5, 4}}) {
        const SolveResult r = CPrime(kElement, g);
        ASSERT_TRUE(r.Converged);
        EXPECT_NEAR(r.CenterX, 0.0, 1e-9);
        EXPECT_NEAR(r.CenterY, 0.0, 1e-9);
        EXPECT_NEAR(r.Value, CPrime(kIterative, g).Value, 1e-9 * r.Value);
    }
}

TEST(BoltGroup, SymmetriesOfTheLoad) {
    for (SolverModel model : {kIterative, kElement}) {
        SCOPED_TRACE(shell::SolverModelName(model));
        const double base = C(model, {3, 3, 3, 3}, 12, 30).Value;
        EXPECT_NEAR(C(model, {3, 3, 3, 3}, -12, 30).Value, base, 1e-9 * base);
        EXPECT_NEAR(C(model, {3, 3, 3, 3}, 12, 210).Value, base, 1e-9 * base);
        // The arm shrinks as the load leans, so the group only gets stronger,
        // up to all eight bolts at 90 degrees.
        double last = 0.0;
        for (double angle : {0.0, 15.0, 30.0, 60.0, 85.0, 90.0}) {
            const double c = C(model, {4, 2, 3, 3}, 6, angle).Value;
            EXPECT_GT(c, last) << angle;
            last = c;
        }
        EXPECT_NEAR(last, model == kIterative ? 8.0 : 8 * kUltimate, 1e-6);
    }
}

TEST(BoltGroup, NoArmSharesTheLoadWithoutIterating) {
    int yields = 0;
    for (double angle : {0.0, 33.0, 180.0, -270.0}) {
        const SolveResult it = C(kIterative, {4, 2, 3, 3}, 0.0, angle, [&] { ++yields; });
        EXPECT_EQ(it.Value, 8.0);
        EXPECT_TRUE(it.Concentric && it.CenterAtInfinity);
        EXPECT_EQ(it.Passes, 0);
        // Every bolt at the ultimate deformation: a pure translation.
        const SolveResult el = C(kElement, {4, 2, 3, 3}, 0.0, angle);
        EXPECT_TRUE(el.Converged && el.Concentric && el.CenterAtInfinity);
        EXPECT_EQ(el.Passes, 0);
        EXPECT_NEAR(el.Value, 8 * kUltimate, 1e-12);
    }
    EXPECT_EQ(yields, 0);
    EXPECT_EQ(C(kIterative, {1, 1, 3, 3}, 0, 0).Value, 1.0);
    EXPECT_NEAR(C(kElement, {1, 1, 3, 3}, 0, 0).Value, kUltimate, 1e-15);
    EXPECT_NEAR(kUltimate, std::pow(1 - std::exp(-3.4), 0.55), 1e-15);
    // 90 degrees: the truncated pi leaves a tiny arm, so the iteration does not
    // take the equal-share shortcut but still lands on the bolt count.
    const SolveResult ninety = C(kIterative, {4, 2, 3, 3}, 6, 90);
    EXPECT_EQ(ninety.Passes, 2);
    EXPECT_NEAR(ninety.Value, 8.0, 1e-9);
    EXPECT_FALSE(ninety.Concentric);
}

TEST(BoltGroup, DegenerateAndRefusedGroups) {
    // One bolt with an arm, or every bolt at one point: the iteration gives 0
    // after one pass, the element model says there is no equilibrium.
    for (const BoltPattern g : {BoltPattern{1, 1, 3, 3}, BoltPattern{3, 4, 0, 0}}) {
        const SolveResult it = C(kIterative, g, 6, 20);
        EXPECT_EQ(it.Value, 0.0);
        EXPECT_EQ(it.Passes, 1);
        EXPECT_EQ(CPrime(kIterative, g).Value, 0.0);
        const SolveResult el = C(kElement, g, 6, 20);
        EXPECT_TRUE(el.NoEquilibrium && !el.Converged && !el.Refused);
        EXPECT_EQ(el.Value, 0.0);
    }
    // Groups that cannot be laid out are refused by both models.
    for (SolverModel model : {kIterative, kElement})
        for (const BoltPattern g : {BoltPattern{0, 2, 3, 3}, {2, 0, 3, 3}, {0, 0, 3, 3}, {-1, 3, 3, 3}, {200, 200, 3, 3}}) {
            EXPECT_TRUE(C(model, g, 6, 0).Refused) << g.M << "x" << g.N;
            EXPECT_TRUE(CPrime(model, g).Refused) << g.M << "x" << g.N;
        }
    EXPECT_FALSE(CPrime(kIterative, {181, 181, 3, 3}).Refused);
    EXPECT_TRUE(C(kElement, {2, 2, 3, 3}, INFINITY, 0).Refused);
}

TEST(BoltGroup, SwingingRunsSettleAndCreepingRunsKeepTheirFullStep) {
    EXPECT_EQ(C(kIterative, {4, 2, 3, 3}, 6, 0).Relaxation, 1.0);
    BoltRunInfo info;
    BoltGroup_C(3, 2, 3, 3, 6, 0, nullptr, &info);
    EXPECT_GT(info.Passes, kSettlePasses);
    EXPECT_GE(info.Halvings, 1);
    // More groups that swing for ever without settling: single rows and
    // columns at large arms or steep angles. Each ends, and on a point where
    // the moment balance holds: C stays below the bolt count.
    const double swinging[][4] = {{1, 2, 2, 0}, {1, 3, 72, 15}, {1, 3, 200, 30}, {1, 2, 1, 15}, {3, 2, 6, 0}};
    for (const auto& g : swinging) {
        const auto m = static_cast<int16_t>(g[0]), n = static_cast<int16_t>(g[1]);
        const SolveResult r = C(kIterative, {m, n, 3, 3}, g[2], g[3]);
        EXPECT_LT(r.Relaxation, 1.0) << g[2];
        EXPECT_GT(r.Value, 0.0);
        EXPECT_LT(r.Value, m * n);
    }
    // A tiny arm puts the center far away; the run creeps toward it and is
    // not slowed down by the settling rule.
    const SolveResult creep = C(kIterative, {1, 4, 3, 3}, 0.5, 75);
    EXPECT_EQ(creep.Relaxation, 1.0);
    EXPECT_EQ(creep.Passes, 2404);
    // The window is served at every bolt of both sweeps of a pass, and after it.
    int yields = 0;
    const SolveResult r = C(kIterative, {4, 2, 3, 3}, 6, 0, [&] { ++yields; });
    EXPECT_EQ(yields, r.Passes * (2 * 8 + 1));
    // Where the iteration takes hundreds of passes the element model takes a few steps.
    const SolveResult slow = C(kElement, {20, 4, 3, 3}, 2, 10);
    ASSERT_TRUE(slow.Converged);
    EXPECT_LT(slow.Passes, 20);
    EXPECT_LT(slow.Value, 80 * kUltimate);
}

TEST(BoltGroup, ElementSweepEndsBalancedOrSaysSo) {
    // Each converged solve is checked here from its returned motion alone:
    // bolt forces along their displacements, the farthest bolt at 0.34 in.
    int converged = 0, failed = 0;
    for (int16_t m = 1; m <= 12; ++m)
        for (int16_t n = 1; n <= 4; ++n)
            for (double ex : {0.0, 2.0, 6.0, 16.0, 36.0})
                for (double angle : {0.0, 15.0, 30.0, 45.0, 60.0, 75.0}) {
                    const double sv = 3, sh = 5.5;
                    const BoltElementModel::BoltReport rep = BoltElementModel::BoltGroup_C(m, n, sv, sh, ex, angle);
                    ASSERT_FALSE(rep.Refused);
                    if (!rep.Converged) {
                        ++failed;
                        EXPECT_EQ(m * n, 1);  // only a lone bolt cannot take a moment
                        continue;
                    }
                    ++converged;
                    const shell::GroupMotion& g = rep.Motion;
                    std::vector<std::array<double, 3>> bolts;  // x, y, distance measure
                    double dmax = 0;
                    for (int i = 0; i < m; ++i)
                        for (int j = 0; j < n; ++j) {
                            const double x = sh * j - sh * (n - 1) / 2.0, y = sv * i - sv * (m - 1) / 2.0;
                            const double d = std::hypot(g.VX - g.W * y, g.VY + g.W * x);
                            bolts.push_back({x, y, d});
                            dmax = std::max(dmax, d);
                        }
                    const double a = angle * 3.14159265358979 / 180;
                    const double P = rep.Value, dx = std::sin(a), dy = std::cos(a);
                    double fx = 0, fy = 0, mo = 0;
                    for (const auto& b : bolts) {
                        if (b[2] == 0) continue;
                        const double R = BoltElementModel::BoltForce(0.34 * b[2] / dmax);
                        const double ux = (g.VX - g.W * b[1]) / b[2], uy = (g.VY + g.W * b[0]) / b[2];
                        fx += R * ux;
                        fy += R * uy;
                        mo += (b[0] - ex) * R * uy - b[1] * R * ux;  // about a point of the load line
                    }
                    const double size = std::hypot(sv * m, sh * n);
                    EXPECT_NEAR(fx, P * dx, 1e-7 * P);
                    EXPECT_NEAR(fy, P * dy, 1e-7 * P);
                    EXPECT_NEAR(mo, 0.0, 1e-7 * P * size);
                }
    std::cout << "[ sweep    ] bolt groups: " << converged << " converged, " << failed << " without convergence\n";
}

TEST(BoltGroup, TheElementModelKeepsTheGoldenTable) {
    // C (or C' where the angle is "-") as the model gave it before its sweep
    // was made faster, bolts at 3 in both ways.
    std::ifstream in(std::string(FERROLITH_TEST_DATA) + "/element_model.golden");
    in.ignore(1000, '\n');
    int m, n, rows = 0;
    std::string ex, angle;
    double value;
    while (in >> m >> n >> ex >> angle >> value) {
        ++rows;
        const BoltPattern g{static_cast<int16_t>(m), static_cast<int16_t>(n), 3, 3};
        const SolveResult r = angle == "-" ? CPrime(kElement, g) : C(kElement, g, std::stod(ex), std::stod(angle));
        EXPECT_NEAR(r.Value, value, 1e-9 * value) << m << " " << n << " " << ex << " " << angle;
    }
    EXPECT_EQ(rows, 448);
}

TEST(BoltGroup, SlopesOfTheElementResultantMatchDifferences) {
    // Five bolts in no pattern, under motions about centers near and far;
    // the farthest bolt changes with the motion.
    const double x[] = {-3, 0, 3, 1, -2}, y[] = {-4, 0, 2, 5, 3};
    double r[15];
    for (const std::array<double, 3>& m : {std::array{0.2, 1.0, 0.05}, {-0.3, 0.4, 0.3}, {1.0, -0.2, 2.0}}) {
        const BoltKernel::Sums s = BoltKernel::ForceSums(x, y, r, 5, 0.34, m[0], m[1], m[2]);
        for (int j = 0; j < 3; ++j) {
            auto at = [&](double h) {
                std::array<double, 3> t = m;
                t[j] += h;
                const BoltKernel::Sums f = BoltKernel::ForceSums(x, y, r, 5, 0.34, t[0], t[1], t[2]);
                return std::array{f.fx, f.fy, f.moment};
            };
            const auto up = at(1e-6), down = at(-1e-6);
            for (int i = 0; i < 3; ++i) {
                const double fd = (up[i] - down[i]) / 2e-6;
                EXPECT_NEAR(s.d[i][j], fd, 1e-6 * (1 + std::fabs(fd))) << i << " " << j << " " << m[2];
            }
        }
    }
}
