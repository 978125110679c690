// The forces a solve gives beside its capacity: where the center lies on
// groups whose answer is known, and that the forces carry the load.
#include <gtest/gtest.h>

#include <cmath>

#include "shell/core/MathUtil.h"
#include "weld/core/WeldSolve.h"

using namespace weld;
using shell::SolverModel;

namespace {

SolveResult SolveWithForces(const LoadedGroup& g, SolverModel model) {
    SolveOptions o;
    o.Model = model;
    o.SegmentsPerInch = 8;
    o.WithForces = true;
    return Solve(g, o);
}

const SolverModel kModels[] = {SolverModel::Iterative, SolverModel::AiscElement};

TEST(ElementForces, SymmetricGroupGivesMirroredForcesAndCenterOnTheAxis) {
    // Two 10 in vertical lines 6 in apart under a vertical load: the group is
    // symmetric about its horizontal axis, and so is the motion.
    const LoadedGroup g{{{0, 0, 0, 10}, {6, 0, 6, 10}}, 9.0, 0.0};
    for (SolverModel model : kModels) {
        const SolveResult r = SolveWithForces(g, model);
        ASSERT_TRUE(r.Converged);
        ASSERT_EQ(r.Forces.size(), 160u);
        EXPECT_NEAR(r.CenterY, 0.0, 1e-6);
        EXPECT_LT(r.CenterX, 0.0);  // on the side away from the load
        for (const shell::ElementForce& e : r.Forces) {
            const shell::ElementForce* twin = nullptr;
            for (const shell::ElementForce& o : r.Forces)
                if (std::fabs(o.X - e.X) < 1e-9 && std::fabs(o.Y + e.Y) < 1e-9) twin = &o;
            ASSERT_NE(twin, nullptr);
            EXPECT_NEAR(twin->Force, e.Force, 1e-9 * e.Force);
            EXPECT_NEAR(twin->DirX, -e.DirX, 1e-9);
            EXPECT_NEAR(twin->DirY, e.DirY, 1e-9);
        }
    }
}

TEST(ElementForces, SingleLineUnderAMomentTurnsAboutItsMidpoint) {
    // A far load is all moment: the center nears the line's middle.
    const LoadedGroup g{{{2, 3, 2, 15}}, 1e6, 0.0};
    for (SolverModel model : kModels) {
        const SolveResult r = SolveWithForces(g, model);
        EXPECT_NEAR(r.CenterX, 0.0, 1e-3);
        EXPECT_NEAR(r.CenterY, 0.0, 1e-3);
    }
}

TEST(ElementForces, ForcesBalanceTheLoad) {
    // A channel-shaped group under an inclined load; the iteration balances to
    // its tolerance of 1e-5 kips, the element model to the last digits.
    const LoadedGroup g{{{0, 0, 4, 0}, {0, 0, 0, 10}, {0, 10, 4, 10}}, 7.0, 30.0};
    for (SolverModel model : kModels) {
        const SolveResult r = SolveWithForces(g, model);
        ASSERT_TRUE(r.Converged);
        const double a = shell::Radians(g.Angle), arm = std::fabs(std::cos(a) * g.Ex);
        const double sgn = std::cos(a) < 0 ? -1.0 : 1.0;
        // The load line passes through the point at `arm` across the load
        // from the centroid (the load frame turned back).
        const double lx = arm * sgn * std::cos(a), ly = -arm * sgn * std::sin(a);
        const double px = r.Value * std::sin(a), py = r.Value * std::cos(a);
        double fx = 0, fy = 0, m = 0;
        for (const shell::ElementForce& e : r.Forces) {
            fx += e.Force * e.DirX;
            fy += e.Force * e.DirY;
            m += (e.ArmX - r.CenterX) * e.Force * e.DirY - (e.ArmY - r.CenterY) * e.Force * e.DirX;
        }
        const double loadMoment = (lx - r.CenterX) * py - (ly - r.CenterY) * px;
        const double tol = model == SolverModel::Iterative ? 1e-5 : 1e-6 * r.Value;
        EXPECT_NEAR(fx, px, tol);
        EXPECT_NEAR(fy, py, tol);
        EXPECT_NEAR(m, loadMoment, tol * (1 + arm + std::hypot(r.CenterX, r.CenterY)));
    }
}

}  // namespace
