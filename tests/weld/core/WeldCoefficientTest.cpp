#include "weld/core/WeldCoefficient.h"

#include <gtest/gtest.h>

#include <cmath>

#include "weld/core/WeldConfigurations.h"
#include "weld/core/WeldPicture.h"

using namespace WeldCoefficient;

// Incomplete and impossible rows are explained in CoefficientWindowTest.
TEST(WeldCoefficient, CellTextRules) {
    EXPECT_EQ(CellText("12.3456"), "12.346     ");
    EXPECT_EQ(CellText("  "), "  ");
    EXPECT_EQ(CellText("7abc"), "7.000     ");
    // A value wipes an old result only when it differs at three decimals.
    EXPECT_FALSE(ChangedAtThreeDecimals("10.0004", "10.000     "));
    EXPECT_TRUE(ChangedAtThreeDecimals("10.001", "10.000     "));
    EXPECT_TRUE(ChangedAtThreeDecimals("", "1.000"));
    EXPECT_EQ(WindowCaption(ItemText(3)), "Weld Group Coefficient Calculator    -    [Weld Configuration 3]");
}

TEST(WeldCoefficient, CentroidRowsByConfiguration) {
    struct Case {
        int16_t config;
        const char* L;
        const char* kL;
        std::string xL, yL;
    };
    const std::string mid(kMidpoint);
    const Case cases[] = {
        {1, "10", "", mid, mid},           {3, "10", "4", mid, mid},
        {6, "10", "", "", mid},            {6, "10", "4", "0.889     ", mid},
        {7, "10", "4", "0.889     ", mid},  // measured from the back on the right
        {8, "", "4", "", ""},              {8, "10", "4", "0.571     ", "3.571     "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.config);
        const CentroidRows rows = Update_Centroids(c.config, c.L, c.kL);
        EXPECT_EQ(rows.xL, c.xL);
        EXPECT_EQ(rows.yL, c.yL);
    }
}

// The pictures are drawn from the shapes: the welds are the configuration's
// lines, the load stands aL right of the centroid, and every k and a shows.
TEST(WeldPicture, FollowsTheShapeForEveryKAndA) {
    for (int16_t n = 1; n <= 9; ++n) {
        for (double k : {0.0, 0.3, 1.0, 2.5}) {
            for (double a : {0.0, 0.4, 3.0}) {
                SCOPED_TRACE(testing::Message() << n << " k=" << k << " a=" << a);
                const WeldPicture::Model m = WeldPicture::Picture(n, k, a, 30);
                const auto lines = weld::Config_Lines(n, 1.0, n == 1 ? 0.0 : k);
                ASSERT_EQ(m.welds.size(), lines.size());
                EXPECT_DOUBLE_EQ(m.centroid.x, weld::Centroid_X(lines));
                EXPECT_DOUBLE_EQ(m.loadPoint.x - m.centroid.x, a);
                EXPECT_GT(m.loadTail.y, m.loadPoint.y);
                EXPECT_GT(m.loadTail.x, m.loadPoint.x);
                int labelled = 0;
                for (const auto& d : m.dims) {
                    const double len = std::hypot(d.to.x - d.from.x, d.to.y - d.from.y);
                    if (d.text == "L") { EXPECT_DOUBLE_EQ(len, 1.0); }
                    if (d.text == "kL") { EXPECT_DOUBLE_EQ(len, k); }
                    if (d.text == "aL") { EXPECT_DOUBLE_EQ(len, a); }
                    ++labelled;
                }
                const bool hasK = n != 1 && k > 0;
                EXPECT_EQ(labelled, 1 + (hasK ? 1 : 0) + (a > 0 ? 1 : 0));
                EXPECT_LE(m.min.x, 0.0);
                EXPECT_GE(m.max.x, m.loadTail.x);
            }
        }
    }
    EXPECT_TRUE(WeldPicture::Picture(10, 1, 1, 0).welds.empty());
}
