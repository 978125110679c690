#include <gtest/gtest.h>

#include "shell/core/ModelCheck.h"

using namespace modelcheck;

TEST(ModelCheck, LinesAndTheWarningThreshold) {
    struct Case {
        double system;
        std::optional<double> element;
        double threshold;
        const char* line;
        bool exceeds;
    };
    const Case cases[] = {
        {169.10115, 115.12027, 5, "AISC element model: 115.12 kips (-31.9 %)", true},
        {42.45258, 49.85849, 5, "AISC element model: 49.86 kips (+17.4 %)", false},
        {105.0, 100.0, 5, "AISC element model: 100.00 kips (-4.8 %)", false},  // 5 % above: not beyond
        {105.01, 100.0, 5, "AISC element model: 100.00 kips (-4.8 %)", true},
        {105.01, 100.0, 10, "AISC element model: 100.00 kips (-4.8 %)", false},
        {100.0, 100.004, 5, "AISC element model: 100.00 kips (+0.0 %)", false},  // no "-0.0"
        {100.0, std::nullopt, 5, "AISC element model: no equilibrium for this load", false},
        {100.0, 0.0, 5, "AISC element model: no equilibrium for this load", false},
    };
    for (const Case& c : cases) {
        const Comparison cmp = Compare(c.system, c.element, c.threshold);
        EXPECT_EQ(CheckLine(cmp, "kips", 2), c.line) << c.system;
        EXPECT_EQ(cmp.exceeds, c.exceeds) << c.system;
    }
    EXPECT_EQ(WarningLine(Compare(169.10115, 115.12027, 5)),
              "The iteration exceeds the AISC element model by 46.9 %: the lower value governs.");
    EXPECT_EQ(CheckLine(Compare(3.1, 3.0, 5), "", 5), "AISC element model: 3.00000 (-3.2 %)");
    EXPECT_NEAR(Compare(169.1, 115.1, 5).ratio, 1.4692, 1e-4);
}

TEST(ModelCheck, ThresholdFromTheSettings) {
    EXPECT_EQ(PercentFrom(""), kDefaultPercent);
    EXPECT_EQ(PercentFrom("2.5"), 2.5);
    EXPECT_EQ(PercentFrom(" 0 "), 0.0);
    EXPECT_EQ(PercentFrom("-1"), kDefaultPercent);
    EXPECT_EQ(PercentFrom("150"), kDefaultPercent);
    EXPECT_EQ(PercentFrom("five"), kDefaultPercent);
}
