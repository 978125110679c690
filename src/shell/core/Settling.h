// Settling of a center iteration that swings about its fixed point. Both
// instantaneous center iterations of the program (weld groups and bolt
// groups) correct their trial center by a step proportional to the two
// residuals of a pass. Where that step is about twice the distance to the
// root the center jumps to and fro for ever, in a short cycle or in a
// bounded, irregular swing. A Settling watches the passes of one run and
// says when the correction should be cut by half:
//
//   - at once, when the run has entered a cycle: the center comes back, to
//     within a billionth of its jumps, to where it stood two to eight passes
//     earlier while a residual changed sign on the way (an exact cycle never
//     converges, however long it runs);
//   - at the end of a block of passes, when a residual has changed sign
//     beyond the tolerance within the last `swingWindow` passes (an
//     irregular swing; a run that creeps toward the root keeps its full
//     step, which is what gets it there).
//
// Until one of these fires the factor is exactly 1, so a run that settles
// by itself takes the same passes and gives the same bits as without the
// watch. Below `floor` the watch gives up instead of halving again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace shell {

struct SettlingRule {
    double tolerance = 1e-5;     // a residual within this does not swing
    int64_t firstBlock = 1000;   // passes before the first block check
    int64_t laterBlock = 1000;   // passes between later block checks
    int64_t swingWindow = 100;   // a swing this recent counts at a block check
    bool watchCycles = false;    // halve at once when an exact cycle is seen
    double floor = 0.0;          // smallest factor; 0: halve for ever
};

class Settling {
public:
    explicit Settling(const SettlingRule& rule) : rule_(rule), nextCheck_(rule.firstBlock + 1) {}

    // One pass, after its residuals and before its correction: the trial
    // center (x, y) of the pass and its two residuals. Returns true when the
    // factor has just been halved; Factor() then applies to this pass's
    // correction already.
    bool Observe(double x, double y, double r1, double r2);

    double Factor() const { return factor_; }
    int32_t Halvings() const { return halvings_; }
    // The factor had reached the floor and the run still swung.
    bool GaveUp() const { return gaveUp_; }

private:
    static constexpr int kDepth = 8;  // longest cycle looked for, in passes

    bool Swings(double before, double after) const;
    bool InCycle(double x, double y, double jump2) const;
    bool Halve();

    SettlingRule rule_;
    double factor_ = 1.0;
    int32_t halvings_ = 0;
    bool gaveUp_ = false;

    int64_t pass_ = 0;
    int64_t nextCheck_;
    int64_t lastSwing_ = -1;
    double last1_ = 0.0, last2_ = 0.0;
    // The last kDepth + 1 centers and the jumps that led to them, by pass.
    struct Visit {
        double x = 0.0, y = 0.0, jump2 = 0.0;
    };
    std::array<Visit, kDepth + 1> ring_{};
    int64_t filled_ = 0;  // earlier passes held in the ring since the last halving
    const Visit& Slot(int64_t pass) const { return ring_[static_cast<std::size_t>(pass % (kDepth + 1))]; }
};

}  // namespace shell
