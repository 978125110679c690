#include <gtest/gtest.h>

#include <cmath>

#include "weld/core/WeldElementKernel.h"
#include "weld/core/WeldElementModel.h"
#include "weld/core/WeldSolve.h"

using weld::WeldLineRec;

namespace {

weld::SolveOptions Element(int16_t spi = 32, double fexx = 70, double d = 0.25) {
    weld::SolveOptions o;
    o.Model = shell::SolverModel::AiscElement;
    o.SegmentsPerInch = spi;
    o.Fexx = fexx;
    o.D = d;
    return o;
}

}  // namespace

TEST(WeldElementModel, PublishedCoefficientsHoldWithinOnePercent) {
    // Coefficients of the design examples engineers check against (L = 10).
    const struct {
        int16_t config;
        double k, a, angle, C;
    } published[] = {
        {1, 0.0, 0.0, 0, 3.71},     // two vertical lines, concentric
        {1, 0.0, 0.17, 0, 3.61},    // two vertical lines, k = 0
        {6, 0.5, 0.875, 0, 1.88},   // C-shape
        {6, 0.5, 0.875, 75, 3.45},  // C-shape, inclined load
        {6, 0.5, 0.5, 0, 2.85},     // C-shape
    };
    for (const auto& p : published)
        for (int16_t spi : {16, 32, 64}) {
            SCOPED_TRACE(testing::Message()
                         << "config " << p.config << " a " << p.a << " angle " << p.angle << " strip " << spi);
            const weld::SolveResult r =
                weld::Solve(weld::StandardConfig{p.config, 10, 10 * p.k, 10 * p.a, p.angle}, Element(spi));
            EXPECT_TRUE(r.Converged);
            EXPECT_NEAR(r.Value, p.C, 0.01 * p.C);
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

TEST(WeldElementModel, ConcentricLoadOnAnUnevenGroupStillBalances) {
    // The transverse flanges of a channel are stiffer than its back, so a load
    // through the centroid turns the group: the solve finds that center.
    const weld::ConfigShape channel = weld::Config_Shape({6, 10, 5, 0, 0});
    const WeldElementModel::ElementReport rep = WeldElementModel::Solve(channel.Group, Element());
    ASSERT_TRUE(rep.Converged);
    EXPECT_TRUE(rep.Concentric);
    EXPECT_FALSE(rep.Motion.Translation);
    EXPECT_LT(rep.Residual, 1e-9);
}

TEST(WeldElementModel, CenterOfASymmetricGroupLiesOppositeTheLoad) {
    // Two vertical lines 5 in apart, load 5 in right of the centroid: the
    // center sits on the horizontal through the centroid, to its left.
    const weld::LoadedGroup group{{WeldLineRec{0, 0, 0, 10}, WeldLineRec{5, 0, 5, 10}}, 5, 0};
    const WeldElementModel::ElementReport rep = WeldElementModel::Solve(group, Element());
    ASSERT_TRUE(rep.Converged);
    EXPECT_DOUBLE_EQ(rep.CentroidX, 2.5);
    EXPECT_DOUBLE_EQ(rep.CentroidY, 5.0);
    ASSERT_FALSE(rep.Motion.Translation);
    EXPECT_NEAR(rep.Motion.CenterY, 5.0, 1e-6);
    EXPECT_LT(rep.Motion.CenterX, 2.5);
    // The solve entry gives the same center from the centroid.
    const weld::SolveResult r = weld::Solve(group, Element());
    EXPECT_EQ(r.CenterX, rep.Motion.CenterX - 2.5);
    EXPECT_EQ(r.Value, rep.Capacity);
}
