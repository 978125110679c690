#include <gtest/gtest.h>

#include "shell/core/ModelCheck.h"

#include "support/CaseTable.h"

using namespace modelcheck;

TEST(ModelCheck, LinesAndTheWarningThreshold) {
    for (const casetable::Row& c : casetable::Read(FERROLITH_TEST_DATA "/shell_cases.table", "model checks")) {
        const Comparison cmp =
            Compare(c.Num(0), c[1] == "none" ? std::nullopt : std::optional<double>(c.Num(1)), c.Num(2));
        EXPECT_EQ(CheckLine(cmp, "kips", 2), c[3]) << "line " << c.line;
        EXPECT_EQ(cmp.exceeds, c[4] == "yes") << "line " << c.line;
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
