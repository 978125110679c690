#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <numbers>
#include <string>

#include "weld/core/WeldElementKernel.h"
#include "weld/core/WeldElementModel.h"

using namespace WeldElementModel;
using weld::WeldLineRec;
using weld::WeldLineTable;

namespace {

struct Published {
    int16_t config;
    double k, a, angle, C;
};

// Coefficients of the design examples engineers check against (L = 10).
const Published kPublished[] = {
    {1, 0.0, 0.0, 0, 3.71},     // two vertical lines, concentric
    {1, 0.0, 0.17, 0, 3.61},    // two vertical lines, k = 0
    {6, 0.5, 0.875, 0, 1.88},   // C-shape
    {6, 0.5, 0.875, 75, 3.45},  // C-shape, inclined load
    {6, 0.5, 0.5, 0, 2.85},     // C-shape
};

}  // namespace

TEST(WeldElementModel, PublishedCoefficientsHoldWithinOnePercent) {
    for (const Published& p : kPublished) {
        for (int16_t spi : {16, 32, 64}) {
            ElementReport rep;
            const double C = Config_C(p.config, 10, 10 * p.k, 10 * p.a, p.angle, spi, &rep);
            SCOPED_TRACE("config " + std::to_string(p.config) + " k " + std::to_string(p.k) + " a " +
                         std::to_string(p.a) + " angle " + std::to_string(p.angle) + " strip " + std::to_string(spi));
            EXPECT_TRUE(rep.Converged);
            EXPECT_NEAR(C, p.C, 0.01 * p.C);
        }
    }
}

TEST(WeldElementModel, DeformationLimitsFollowTheElementCurves) {
    // Du is capped at 0.17 w up to about 11.4 degrees; Dm falls with theta.
    EXPECT_DOUBLE_EQ(WeldKernel::DeltaU(0, 0.25), 0.17 * 0.25);
    EXPECT_DOUBLE_EQ(WeldKernel::DeltaU(11, 1), 0.17);
    EXPECT_NEAR(WeldKernel::DeltaU(90, 1), 1.087 * std::pow(96.0, -0.65), 1e-15);
    EXPECT_NEAR(WeldKernel::DeltaM(0, 1), 0.209 * std::pow(2.0, -0.32), 1e-15);
    EXPECT_GT(WeldKernel::DeltaM(10, 1), WeldKernel::DeltaM(20, 1));
}

TEST(WeldElementModel, ConcentricLoadOnParallelLinesIsAPureTranslation) {
    // Every element at theta = 0 deforms to the same 0.17 w: no iteration.
    ElementReport rep;
    const double C = Config_C(1, 10, 0, 0, 0, 32, &rep);
    ASSERT_TRUE(rep.Converged);
    EXPECT_TRUE(rep.Concentric);
    EXPECT_EQ(rep.Iterations, 0);
    EXPECT_TRUE(rep.Motion.Translation);
    const double p = 0.17 / (0.209 * std::pow(2.0, -0.32));
    const double f = std::pow(p * (1.9 - 0.9 * p), 0.3);
    EXPECT_NEAR(C, 2 * 0.6 * 70 * std::numbers::sqrt2 / 2 / 16 * f, 1e-12);
}

TEST(WeldElementModel, ConcentricLoadOnAnUnevenGroupStillBalances) {
    // The transverse flanges of a channel are stiffer than its back, so a load
    // through the centroid turns the group: the solve finds that center.
    ElementReport rep;
    Config_C(6, 10, 5, 0, 0, 32, &rep);
    ASSERT_TRUE(rep.Converged);
    EXPECT_TRUE(rep.Concentric);
    EXPECT_FALSE(rep.Motion.Translation);
    EXPECT_LT(rep.Residual, 1e-9);
}

TEST(WeldElementModel, SignsOfEccentricityAndLoadSideDoNotMatter) {
    struct Case {
        int16_t config;
        double k, a, angle, angle2;
    } cases[] = {{6, 0.5, 0.5, 0, 180}, {8, 0.4, 1.0, 30, 210}, {2, 1.0, 0.3, 0, -180}};
    for (const Case& c : cases) {
        const double C1 = Config_C(c.config, 10, 10 * c.k, 10 * c.a, c.angle, 32);
        EXPECT_NEAR(Config_C(c.config, 10, 10 * c.k, -10 * c.a, c.angle, 32), C1, 1e-9);
        EXPECT_NEAR(Config_C(c.config, 10, 10 * c.k, 10 * c.a, c.angle2, 32), C1, 1e-6 * C1);
    }
}

TEST(WeldElementModel, CapacityIsProportionalToElectrodeAndSize) {
    const WeldLineTable lines = {WeldLineRec{0, 0, 0, 8}, WeldLineRec{0, 8, 4, 8}};
    const ElementReport unit = Solve(lines, 6, 20, 1, 1, 32);
    const ElementReport real = Solve(lines, 6, 20, 70, 0.3125, 32);
    ASSERT_TRUE(unit.Converged && real.Converged);
    EXPECT_NEAR(real.Capacity, unit.Capacity * 70 * 0.3125, 1e-9 * real.Capacity);
}

TEST(WeldElementModel, CenterOfASymmetricGroupLiesOppositeTheLoad) {
    // Two vertical lines 5 in apart, load 5 in right of the centroid: the
    // center sits on the horizontal through the centroid, to its left.
    const WeldLineTable lines = {WeldLineRec{0, 0, 0, 10}, WeldLineRec{5, 0, 5, 10}};
    const ElementReport rep = Solve(lines, 5, 0, 70, 0.25, 32);
    ASSERT_TRUE(rep.Converged);
    EXPECT_DOUBLE_EQ(rep.CentroidX, 2.5);
    EXPECT_DOUBLE_EQ(rep.CentroidY, 5.0);
    ASSERT_FALSE(rep.Motion.Translation);
    EXPECT_NEAR(rep.Motion.CenterY, 5.0, 1e-6);
    EXPECT_LT(rep.Motion.CenterX, 2.5);
    EXPECT_GT(rep.Capacity, 0.0);
}

TEST(WeldElementModel, NothingToSolveIsRefused) {
    EXPECT_TRUE(Solve({}, 5, 0, 70, 0.25, 32).Refused);
    EXPECT_TRUE(Solve({WeldLineRec{1, 1, 1, 1}}, 5, 0, 70, 0.25, 32).Refused);
    const WeldLineTable line = {WeldLineRec{0, 0, 0, 10}};
    EXPECT_TRUE(Solve(line, 5, 0, 70, 0.25, 0).Refused);
    EXPECT_TRUE(Solve(line, 5, 0, 0, 0.25, 32).Refused);
    EXPECT_TRUE(Solve(line, NAN, 0, 70, 0.25, 32).Refused);
    EXPECT_TRUE(Solve({WeldLineRec{0, 0, 0, 20000}}, 5, 0, 70, 0.25, 64).Refused);  // 1.28 M elements
    EXPECT_TRUE(Solve({WeldLineRec{0, 0, 0, 1e300}}, 5, 0, 70, 0.25, 64).Refused);
    EXPECT_EQ(Config_C(0, 10, 5, 5, 0, 32), 0.0);
    EXPECT_EQ(Config_C(6, 0, 0, 5, 0, 32), 0.0);  // no length at all
}

TEST(WeldElementModel, ShortLinesKeepAtLeastOneElement) {
    // A line shorter than the strip is still weld: one element.
    const ElementReport rep = Solve({WeldLineRec{0, 0, 0, 0.01}, WeldLineRec{0, 0, 0, 4}}, 2, 0, 70, 0.25, 4);
    EXPECT_EQ(rep.Elements, 1 + 16);
    EXPECT_TRUE(rep.Converged);
}

TEST(WeldElementModel, CoefficientsKeepTheGoldenTable) {
    // element_model.golden holds C as the model gave it before its sweep was
    // made faster; the same equilibrium must come out to 1e-9.
    std::ifstream in(std::string(FERROLITH_TEST_DATA) + "/element_model.golden");
    in.ignore(1000, '\n');
    int config, spi, rows = 0;
    double k, a, angle, C;
    while (in >> config >> k >> a >> angle >> spi >> C) {
        ++rows;
        EXPECT_NEAR(Config_C(config, 10, 10 * k, 10 * a, angle, spi), C, 1e-9 * C)
            << config << " " << k << " " << a << " " << angle << " " << spi;
    }
    EXPECT_EQ(rows, 600);
}

TEST(WeldElementModel, SlopesOfTheResultantMatchDifferences) {
    // Two lines of an angle and an inclined one, under motions about centers
    // near and far; the critical line end changes with the motion.
    WeldKernel::Elements el;
    el.D = 0.25;
    for (const auto& l : {std::array{0.0, 0.0, 0.0, 6.0}, {0.0, 0.0, 4.0, 0.0}, {1.0, 1.0, 5.0, 4.0}}) {
        const double len = std::hypot(l[2] - l[0], l[3] - l[1]), tx = (l[2] - l[0]) / len, ty = (l[3] - l[1]) / len;
        for (int j = 0; j < 8; ++j)
            el.Add(l[0] + (j + 0.5) / 8 * len * tx, l[1] + (j + 0.5) / 8 * len * ty, tx, ty, 0.1);
        el.AddProbe(l[0], l[1], tx, ty);
        el.AddProbe(l[2], l[3], tx, ty);
    }
    for (const shell::Motion& m : {shell::Motion{0.2, 1.0, 0.05}, shell::Motion{-0.3, 0.4, 0.3},
                                   shell::Motion{0.1, 1.0, -0.02}, shell::Motion{1.0, -0.2, 2.0}}) {
        const shell::Resultant r = WeldKernel::Forces(el, m);
        ASSERT_TRUE(r.ok && r.slopes);
        for (int j = 0; j < 3; ++j) {
            auto at = [&](double h) {
                shell::Motion t = m;
                (j == 0 ? t.vx : j == 1 ? t.vy : t.w) += h;
                const shell::Resultant f = WeldKernel::Forces(el, t);
                return std::array{f.fx, f.fy, f.moment};
            };
            const auto up = at(1e-6), down = at(-1e-6);
            for (int i = 0; i < 3; ++i) {
                const double fd = (up[i] - down[i]) / 2e-6;
                EXPECT_NEAR(r.d[i][j], fd, 1e-6 * (1 + std::fabs(fd))) << i << " " << j << " " << m.w;
            }
        }
    }
}
