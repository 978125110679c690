#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "shell/core/MotionSolver.h"

using namespace shell;

TEST(MotionSolver, EndsWithoutConvergenceWhereNoMotionBalances) {
    // No motion gives a force, or every motion gives the same unbalanced one:
    // the solve must end, say so, and stay within its bounded work.
    const ResultantFn none = [](const Motion&) { return Resultant{}; };
    const ResultantFn constant = [](const Motion&) { return Resultant{1.0, 1.0, 5.0, true}; };
    for (const ResultantFn* f : {&none, &constant}) {
        for (bool pure : {false, true}) {
            MotionProblem p;
            p.arm = 2.0;
            p.pureMoment = pure;
            const MotionResult r = SolveMotion(p, *f);
            EXPECT_FALSE(r.converged);
            EXPECT_LT(r.evaluations, 20000);
        }
    }
    MotionProblem bad;
    bad.length = 0.0;
    EXPECT_FALSE(SolveMotion(bad, constant).converged);
    EXPECT_EQ(SolveMotion(bad, constant).evaluations, 0);
}

TEST(MotionSolver, FindsTheCenterOfALinearGroup) {
    // Forces in proportion to the displacement (an elastic group of four
    // points): the center lies at -J / (A arm) on the x axis.
    const double xs[] = {-1, 1, -1, 1}, ys[] = {-2, -2, 2, 2};
    const ResultantFn f = [&](const Motion& m) {
        Resultant r;
        for (int i = 0; i < 4; ++i) {
            const double ux = m.vx - m.w * ys[i], uy = m.vy + m.w * xs[i];
            r.fx += ux;
            r.fy += uy;
            r.moment += xs[i] * uy - ys[i] * ux;
        }
        r.ok = true;
        return r;
    };
    MotionProblem p;
    p.arm = 2.5;
    p.length = std::sqrt(5.0);
    p.force = 4;
    const MotionResult r = SolveMotion(p, f);
    ASSERT_TRUE(r.converged);
    EXPECT_NEAR(-r.motion.vy / r.motion.w, -5.0 / 2.5, 1e-9);
    EXPECT_NEAR(r.motion.vx / r.motion.w, 0.0, 1e-9);
}

TEST(LoadFrame, MotionsTurnBackToTheGroupsAxes) {
    // A center at (-2, 1) in the load frame of a group turned by 30 degrees
    // about (5, 7), and the same mirrored (load angle beyond 90 degrees).
    for (double deg : {30.0, 150.0}) {
        const LoadFrame f(5, 7, deg * std::numbers::pi / 180);
        const Motion m{1.0, 2.0, 1.0};  // center at (-vy/w, vx/w) = (-2, 1)
        const GroupMotion g = f.Back(m);
        ASSERT_FALSE(g.Translation);
        double X, Y;
        f.ToLoad(g.CenterX, g.CenterY, X, Y);
        EXPECT_NEAR(X, -2.0, 1e-12);
        EXPECT_NEAR(Y, 1.0, 1e-12);
        EXPECT_EQ(g.W, deg < 90 ? 1.0 : -1.0);
    }
    EXPECT_TRUE(LoadFrame(0, 0, 0.3).Back(Motion{0.5, 1.0, 0.0}).Translation);
    EXPECT_DOUBLE_EQ(LoadFrame(0, 0, 60 * std::numbers::pi / 180).Arm(-10), 10 * std::cos(60 * std::numbers::pi / 180));
}
