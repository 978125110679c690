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
#include "bolt/core/BoltSolver.h"

using namespace BoltElementModel;

TEST(BoltElementModel, PublishedCoefficientsHoldWithinOnePercent) {
    struct Case {
        int16_t m, n;
        double sv, sh, ex, angle, C;
    } cases[] = {
        {6, 2, 3, 5.5, 16, 0, 3.55},  // two columns, gage 5.5 in, six rows at 3 in
        {4, 1, 3, 3, 3, 0, 2.81},     // one column of four at 3 in
    };
    for (const Case& c : cases) {
        const BoltReport rep = BoltGroup_C(c.m, c.n, c.sv, c.sh, c.ex, c.angle);
        ASSERT_TRUE(rep.Converged);
        EXPECT_NEAR(rep.Value, c.C, 0.01 * c.C);
    }
    const BoltReport cp = BoltGroup_CPrime(4, 2, 3, 3);
    ASSERT_TRUE(cp.Converged);
    EXPECT_NEAR(cp.Value, 26.0, 0.26);
}

TEST(BoltElementModel, PureMomentTurnsAboutTheCentroidOfASymmetricGroup) {
    // By symmetry the couple turns every rectangular pattern about its
    // centroid, where the system's own C' is taken.
    struct Case {
        int16_t m, n;
        double sv, sh;
    } cases[] = {{4, 2, 3, 3}, {6, 1, 3, 3}, {3, 3, 3, 3}, {12, 2, 3, 3}, {5, 4, 2.5, 4}};
    for (const Case& c : cases) {
        const BoltReport rep = BoltGroup_CPrime(c.m, c.n, c.sv, c.sh);
        ASSERT_TRUE(rep.Converged);
        EXPECT_NEAR(rep.Motion.CenterX, 0.0, 1e-9);
        EXPECT_NEAR(rep.Motion.CenterY, 0.0, 1e-9);
        EXPECT_NEAR(rep.Value, *bolt::BoltGroup_CPrime(c.m, c.n, c.sv, c.sh), 1e-9 * rep.Value);
    }
}

TEST(BoltElementModel, ConcentricLoadIsAPureTranslation) {
    const BoltReport rep = BoltGroup_C(4, 2, 3, 3, 0, 30);
    ASSERT_TRUE(rep.Converged);
    EXPECT_TRUE(rep.Concentric);
    EXPECT_TRUE(rep.Motion.Translation);
    EXPECT_EQ(rep.Iterations, 0);
    // Every bolt at the ultimate deformation.
    EXPECT_NEAR(rep.Value, 8 * BoltForce(0.34), 1e-12);
    EXPECT_NEAR(BoltForce(0.34), std::pow(1 - std::exp(-3.4), 0.55), 1e-15);
}

TEST(BoltElementModel, NoEquilibriumIsSaidPlainly) {
    // One bolt, or all bolts at one point, cannot resist a moment.
    for (const BoltReport& rep : {BoltGroup_C(1, 1, 3, 3, 2, 0), BoltGroup_C(3, 2, 0, 0, 4, 0)}) {
        EXPECT_FALSE(rep.Converged);
        EXPECT_FALSE(rep.Refused);
        EXPECT_EQ(rep.Value, 0.0);
        EXPECT_GT(rep.Starts, 1);
    }
    // Without an arm one bolt carries its own strength.
    const BoltReport one = BoltGroup_C(1, 1, 3, 3, 0, 0);
    EXPECT_TRUE(one.Converged);
    EXPECT_NEAR(one.Value, BoltForce(0.34), 1e-15);
}

TEST(BoltElementModel, GroupsThatCannotBeLaidOutAreRefused) {
    EXPECT_TRUE(BoltGroup_C(0, 2, 3, 3, 6, 0).Refused);
    EXPECT_TRUE(BoltGroup_C(200, 200, 3, 3, 6, 0).Refused);
    EXPECT_TRUE(BoltGroup_C(-1, -2, 3, 3, 6, 0).Refused);
    EXPECT_TRUE(BoltGroup_C(2, 2, 3, 3, INFINITY, 0).Refused);
    EXPECT_TRUE(BoltGroup_CPrime(0, 0, 3, 3).Refused);
}

TEST(BoltElementModel, SignsAndLoadSideDoNotMatter) {
    const double C = BoltGroup_C(3, 3, 3, 3, 12, 30).Value;
    EXPECT_NEAR(BoltGroup_C(3, 3, 3, 3, -12, 30).Value, C, 1e-9 * C);
    EXPECT_NEAR(BoltGroup_C(3, 3, 3, 3, 12, 210).Value, C, 1e-9 * C);
    // A leaning load has a shorter arm: the group grows stronger toward 90 degrees.
    double last = 0.0;
    for (double angle : {0.0, 30.0, 60.0, 85.0, 90.0}) {
        const BoltReport rep = BoltGroup_C(4, 2, 3, 3, 6, angle);
        ASSERT_TRUE(rep.Converged);
        EXPECT_GT(rep.Value, last);
        last = rep.Value;
    }
    EXPECT_NEAR(last, 8 * BoltForce(0.34), 1e-6);
}

TEST(BoltElementModel, SlowGroupsOfTheSystemSolveInAFewSteps) {
    // Several hundred passes of the system's iteration.
    const BoltReport rep = BoltGroup_C(20, 4, 3, 3, 2, 10);
    ASSERT_TRUE(rep.Converged);
    EXPECT_LT(rep.Iterations, 20);
    EXPECT_GT(rep.Value, 0.0);
    EXPECT_LT(rep.Value, 80 * BoltForce(0.34));
}

TEST(BoltElementModel, SweepEndsBalancedOrSaysSo) {
    // Each converged solve is checked here from its returned motion alone:
    // bolt forces along their displacements, the farthest bolt at 0.34 in.
    int converged = 0, failed = 0;
    for (int16_t m = 1; m <= 12; ++m)
        for (int16_t n = 1; n <= 4; ++n)
            for (double ex : {0.0, 2.0, 6.0, 16.0, 36.0})
                for (double angle : {0.0, 15.0, 30.0, 45.0, 60.0, 75.0}) {
                    const double sv = 3, sh = 5.5;
                    const BoltReport rep = BoltGroup_C(m, n, sv, sh, ex, angle);
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
                        const double R = BoltForce(0.34 * b[2] / dmax);
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

TEST(BoltElementModel, CoefficientsKeepTheGoldenTable) {
    // C (or C' where the angle is "-") as the model gave it before its sweep
    // was made faster, bolts at 3 in both ways.
    std::ifstream in(std::string(FERROLITH_TEST_DATA) + "/element_model.golden");
    in.ignore(1000, '\n');
    int m, n, rows = 0;
    std::string ex, angle;
    double C;
    while (in >> m >> n >> ex >> angle >> C) {
        ++rows;
        const auto i = static_cast<int16_t>(m), j = static_cast<int16_t>(n);
        const BoltReport rep =
            angle == "-" ? BoltGroup_CPrime(i, j, 3, 3) : BoltGroup_C(i, j, 3, 3, std::stod(ex), std::stod(angle));
        EXPECT_NEAR(rep.Value, C, 1e-9 * C) << m << " " << n << " " << ex << " " << angle;
    }
    EXPECT_EQ(rows, 448);
}

TEST(BoltElementModel, SlopesOfTheResultantMatchDifferences) {
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
