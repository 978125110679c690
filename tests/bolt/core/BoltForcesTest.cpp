// The force on every bolt that a solve gives when asked.
#include <gtest/gtest.h>

#include <algorithm>

#include "bolt/core/BoltSolve.h"

namespace {

using shell::SolverModel;

TEST(ElementForces, BoltForcesCarryTheLoadAndNoneWithoutAsking) {
    const bolt::BoltPattern p{3, 2, 3.0, 3.0};
    for (SolverModel model : {SolverModel::Iterative, SolverModel::AiscElement}) {
        EXPECT_TRUE(bolt::Solve(p, {4.0, 0.0}, {model}).Forces.empty());
        const bolt::SolveResult r = bolt::Solve(p, {4.0, 0.0}, {model, true});
        ASSERT_EQ(r.Forces.size(), 6u);
        double fy = 0, most = 0;
        for (const shell::ElementForce& e : r.Forces) {
            fy += e.Force * e.DirY;
            most = std::max(most, e.Deformation);
        }
        EXPECT_NEAR(fy, r.Value, 1e-4);
        EXPECT_DOUBLE_EQ(most, 1.0);  // the farthest bolt at the ultimate deformation
    }
}

}  // namespace
