// Robustness of the weld element model over the ranges of the coefficient
// tables: every solve ends either converged, with a positive capacity and a
// balanced group, or with the plain no-convergence result.
#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldElementModel.h"

TEST(WeldElementSweep, EveryStandardShapeEndsBalancedOrSaysSo) {
    const double kK[] = {0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.2, 1.4, 1.6, 1.8, 2.0};
    const double kA[] = {0,   0.075, 0.1, 0.15, 0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8,
                         0.9, 1.0,   1.2, 1.4,  1.6, 1.8,  2.0, 2.2, 2.4, 2.6, 2.8, 3.0};
    weld::SolveOptions o;
    o.SegmentsPerInch = 16;
    o.Fexx = 70;
    o.D = 0.0625;
    int converged = 0, failed = 0;
    for (int16_t config = 1; config <= 9; ++config)
        for (double k : kK) {
            if (config == 1 && k != 0) continue;                 // configuration 1 has no kL
            if (config != 1 && k == 0 && config <= 5) continue;  // degenerate duplicates of 1
            for (double a : kA)
                for (double angle : {0, 15, 30, 45, 60, 75}) {
                    const weld::ConfigShape shape = weld::Config_Shape({config, 10, 10 * k, 10 * a, angle});
                    const WeldElementModel::ElementReport rep = WeldElementModel::Solve(shape.Group, o);
                    ASSERT_FALSE(rep.Refused);
                    if (!rep.Converged) {
                        ++failed;
                        EXPECT_EQ(rep.Capacity, 0.0);
                        continue;
                    }
                    ++converged;
                    ASSERT_TRUE(std::isfinite(rep.Capacity) && rep.Capacity > 0.0 && rep.Residual < 1e-6)
                        << "config " << config << " k " << k << " a " << a << " angle " << angle;
                }
        }
    std::cout << "[ sweep    ] " << converged << " converged, " << failed << " without convergence\n";
    EXPECT_GT(converged, 10 * failed);
}
