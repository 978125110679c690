#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "shell/core/Settling.h"

using namespace shell;

namespace {

// One pass of a made-up run: its center and residuals at pass n (from 1).
struct Pass {
    double x, y, r1, r2;
};
using RunFn = std::function<Pass(int64_t)>;

struct Outcome {
    int64_t firstHalving = 0;  // pass of the first halving, 0 for none
    int32_t halvings = 0;
    bool gaveUp = false;
};

Outcome Watch(const SettlingRule& rule, const RunFn& run, int64_t passes) {
    Settling s(rule);
    Outcome o;
    for (int64_t n = 1; n <= passes && !s.GaveUp(); ++n) {
        const Pass p = run(n);
        if (s.Observe(p.x, p.y, p.r1, p.r2) && o.firstHalving == 0) o.firstHalving = n;
    }
    o.halvings = s.Halvings();
    o.gaveUp = s.GaveUp();
    return o;
}

const SettlingRule kCycles{1e-5, 500, 100, 20, true, 1.0 / 8};
const SettlingRule kBlocksOnly{1e-5, 500, 100, 20, false, 0.0};

}  // namespace

TEST(Settling, HalvesOnlyForRunsThatSwing) {
    constexpr double kPi = 3.14159265358979;
    struct Case {
        const char* what;
        SettlingRule rule;
        RunFn run;
        int64_t passes, firstHalving;
        int32_t halvings;
        bool gaveUp;
    };
    const Case cases[] = {
        // A damped swing settles by itself: the factor stays exactly 1.
        {"damped swing", kCycles,
         [](int64_t n) {
             const double a = std::pow(-0.9, static_cast<double>(n));
             return Pass{1 + a, 0.5 * a, a, -a};
         },
         400, 0, 0, false},
        // A creep toward the root never changes sign.
        {"creep", kCycles,
         [](int64_t n) { return Pass{-1.0 * static_cast<double>(n), 3.0, 1.0 / static_cast<double>(n), 0.0}; }, 2000, 0,
         0, false},
        // Two centers taken in turn: caught at the second return.
        {"two-cycle", kCycles,
         [](int64_t n) {
             const double s = n % 2 ? 1.0 : -1.0;
             return Pass{-1.2 + 0.05 * s, 0.0, 0.17 * s, 1e-15 * s};
         },
         3, 3, 1, false},
        // A cycle of three centers.
        {"three-cycle", kCycles,
         [](int64_t n) {
             const double t = 2 * kPi * static_cast<double>(n % 3) / 3;
             return Pass{std::cos(t), std::sin(t), std::cos(t), std::sin(t)};
         },
         4, 4, 1, false},
        // An irregular swing that never repeats: halved at each block check
        // until the floor of 1/8 is passed.
        {"irregular swing", kCycles,
         [](int64_t n) {
             const double v = std::sin(static_cast<double>(n) * 1.7);
             return Pass{v, std::cos(static_cast<double>(n) * 0.3), v, 0.0};
         },
         5000, 501, 3, true},
        // Without the cycle watch a two-cycle waits for the blocks, and there
        // is no floor: passes 501, 601, 701 ...
        {"blocks only", kBlocksOnly,
         [](int64_t n) {
             const double s = n % 2 ? 1.0 : -1.0;
             return Pass{s, 0.0, s, 0.0};
         },
         1000, 501, 5, false},
        // A swing within the tolerance does not count.
        {"swing within tolerance", kCycles,
         [](int64_t n) {
             const double s = n % 2 ? 1.0 : -1.0;
             return Pass{s, 0.0, 1e-6 * s, 1e-6 * s};
         },
         1000, 0, 0, false},
    };
    for (const Case& c : cases) {
        const Outcome o = Watch(c.rule, c.run, c.passes);
        EXPECT_EQ(o.firstHalving, c.firstHalving) << c.what;
        EXPECT_EQ(o.halvings, c.halvings) << c.what;
        EXPECT_EQ(o.gaveUp, c.gaveUp) << c.what;
    }
}

TEST(Settling, ASwingLongAgoDoesNotCountAtTheBlock) {
    // Swings up to pass 400, then a creep: the block check at 501 looks back
    // only 20 passes and leaves the factor alone.
    const Outcome o = Watch(
        kBlocksOnly,
        [](int64_t n) {
            const double s = (n < 400 && n % 2) ? -1.0 : 1.0;
            return Pass{static_cast<double>(n), 0.0, s, 0.0};
        },
        1000);
    EXPECT_EQ(o.halvings, 0);
}
