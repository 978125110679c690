#include "bolt/core/BoltSolver.h"

#include <gtest/gtest.h>

#include <cmath>

#include "shell/core/Primitives.h"

using namespace bolt;

namespace {

struct GroupCase {
    int16_t m, n;
    double sv, sh, ex, angle;
    const char* C;
    const char* CPrime;
};

std::string Four(double v) { return prim::Format(v, "0.0000"); }

TEST(BoltGroup, WorkedGroupsToFourDecimals) {
    const GroupCase cases[] = {
        {4, 2, 3, 3, 6, 0, "3.7562", "26.0315"},     {6, 1, 3, 3, 8, 0, "2.9075", "25.0929"},
        {2, 2, 3, 3, 4, 0, "1.7064", "8.3283"},      {3, 3, 3, 3, 12, 30, "2.5372", "28.0478"},
        {3, 2, 3, 3, 16, 15, "0.9988", "15.7877"},   {4, 2, 3, 3, 6, 75, "6.2371", "26.0315"},
        {12, 2, 3, 3, 36, 45, "7.3353", "203.5304"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.m << "x" << c.n << " ex " << c.ex << " angle " << c.angle);
        BoltRunInfo info;
        const auto C = BoltGroup_C(c.m, c.n, c.sv, c.sh, c.ex, c.angle, nullptr, &info);
        const auto CP = BoltGroup_CPrime(c.m, c.n, c.sv, c.sh);
        ASSERT_TRUE(C && CP);
        EXPECT_EQ(Four(*C), c.C);
        EXPECT_EQ(Four(*CP), c.CPrime);
        EXPECT_EQ(info.Halvings, 0);
    }
}

TEST(BoltGroup, SymmetriesOfTheLoad) {
    const double base = *BoltGroup_C(4, 2, 3, 3, 6, 0);
    EXPECT_DOUBLE_EQ(*BoltGroup_C(4, 2, 3, 3, 6, 180), base);  // through s = -1
    EXPECT_DOUBLE_EQ(*BoltGroup_C(4, 2, 3, 3, -6, 0), base);
    // The arm shrinks as the load leans, so the group only gets stronger.
    double last = base;
    for (double angle : {15.0, 30.0, 45.0, 60.0, 75.0, 89.0}) {
        const double c = *BoltGroup_C(4, 2, 3, 3, 6, angle);
        EXPECT_GT(c, last) << angle;
        EXPECT_LE(c, 8.0 + 1e-4) << angle;
        last = c;
    }
}

TEST(BoltGroup, NoArmSharesTheLoadWithoutIterating) {
    int yields = 0;
    const YieldFn count = [&] { ++yields; };
    for (double angle : {0.0, 33.0, 180.0, -270.0}) {
        BoltRunInfo info;
        EXPECT_EQ(*BoltGroup_C(4, 2, 3, 3, 0.0, angle, count, &info), 8.0);
        EXPECT_EQ(info.Passes, 0);
    }
    EXPECT_EQ(yields, 0);
    EXPECT_EQ(*BoltGroup_C(1, 1, 3, 3, 0.0, 0.0), 1.0);
}

TEST(BoltGroup, NinetyDegreesStillIterates) {
    // The truncated pi leaves a tiny arm, so the run does not take the
    // equal-share shortcut but still lands on the bolt count.
    BoltRunInfo info;
    const double c = *BoltGroup_C(4, 2, 3, 3, 6, 90, nullptr, &info);
    EXPECT_EQ(info.Passes, 2);
    EXPECT_NEAR(c, 8.0, 1e-9);
    EXPECT_NE(c, 8.0 + 0.0 * c);  // not the exact shortcut value
}

TEST(BoltGroup, DegenerateGroups) {
    BoltRunInfo info;
    // One bolt with an arm: every bolt sits on the center, nothing carries load.
    EXPECT_EQ(*BoltGroup_C(1, 1, 3, 3, 6, 0, nullptr, &info), 0.0);
    EXPECT_EQ(info.Passes, 1);
    EXPECT_EQ(*BoltGroup_CPrime(1, 1, 3, 3), 0.0);
    // Both spacings zero: all bolts at one point.
    EXPECT_EQ(*BoltGroup_C(3, 4, 0, 0, 6, 20, nullptr, &info), 0.0);
    EXPECT_EQ(info.Passes, 1);
    EXPECT_EQ(*BoltGroup_CPrime(3, 4, 0, 0), 0.0);
    // A bolt at the centroid (odd by odd) contributes no direction in the first pass.
    EXPECT_EQ(Four(*BoltGroup_C(3, 3, 3, 3, 12, 30)), "2.5372");
}

TEST(BoltGroup, GroupsThatCannotBeLaidOut) {
    const int16_t bad[][2] = {{0, 2}, {2, 0}, {0, 0}, {-1, 3}, {200, 200}};
    for (const auto& g : bad) {
        EXPECT_FALSE(BoltGroup_C(g[0], g[1], 3, 3, 6, 0).has_value()) << g[0] << "x" << g[1];
        EXPECT_FALSE(BoltGroup_CPrime(g[0], g[1], 3, 3).has_value()) << g[0] << "x" << g[1];
    }
    EXPECT_TRUE(BoltGroup_CPrime(181, 181, 3, 3).has_value());
}

TEST(BoltGroup, SwingingRunsSettleOnTheirFixedPoint) {
    BoltRunInfo info;
    const double c = *BoltGroup_C(3, 2, 3, 3, 6, 0, nullptr, &info);
    EXPECT_EQ(Four(c), "2.2920");
    EXPECT_GT(info.Passes, kSettlePasses);
    EXPECT_GE(info.Halvings, 1);
    // More groups that swing for ever without settling: single rows and
    // columns at large arms or steep angles. Each ends, and on a point
    // where the moment balance holds: C stays below the bolt count.
    const GroupCase swinging[] = {
        {1, 2, 3, 3, 2, 0, "", ""},   {1, 3, 3, 3, 72, 15, "", ""}, {1, 3, 3, 3, 200, 30, "", ""},
        {1, 2, 3, 3, 1, 15, "", ""},  {3, 2, 3, 3, 6, 0, "", ""},
    };
    for (const auto& g : swinging) {
        SCOPED_TRACE(testing::Message() << g.m << "x" << g.n << " ex " << g.ex << " angle " << g.angle);
        const double v = *BoltGroup_C(g.m, g.n, g.sv, g.sh, g.ex, g.angle, nullptr, &info);
        EXPECT_GE(info.Halvings, 1);
        EXPECT_GT(v, 0.0);
        EXPECT_LT(v, g.m * g.n);
    }
}

TEST(BoltGroup, CreepingRunsKeepTheirFullStep) {
    // A tiny arm puts the center far away; the run creeps toward it and must
    // not be slowed down by the settling rule.
    BoltRunInfo info;
    const double c = *BoltGroup_C(1, 4, 3, 3, 0.5, 75, nullptr, &info);
    EXPECT_EQ(info.Halvings, 0);
    EXPECT_EQ(info.Passes, 2404);
    EXPECT_EQ(Four(c), "3.9929");
}

TEST(BoltGroup, YieldsAtEachBoltAndEachPass) {
    int yields = 0;
    BoltRunInfo info;
    BoltGroup_C(4, 2, 3, 3, 6, 0, [&] { ++yields; }, &info);
    EXPECT_EQ(yields, info.Passes * (2 * 8 + 1));
}

}  // namespace
