#include "shell/core/Settling.h"

#include <algorithm>
#include <cmath>

namespace shell {

namespace {
// A return within this share of the largest jump on the way counts as the
// same point (squared, as distances are compared squared).
constexpr double kSamePoint2 = 1e-9 * 1e-9;
}  // namespace

bool Settling::Swings(double before, double after) const {
    return std::fabs(before) > rule_.tolerance && std::fabs(after) > rule_.tolerance &&
           (before < 0.0) != (after < 0.0);
}

// Whether the center (x, y) of this pass stands where the center of one of
// the last kDepth passes stood, with a swing of the residuals on the way.
// `jump2` is this pass's squared jump; the ring holds the passes before it.
bool Settling::InCycle(double x, double y, double jump2) const {
    double largest2 = jump2;
    for (int64_t lag = 2; lag <= kDepth && lag <= filled_; ++lag) {
        largest2 = std::max(largest2, Slot(pass_ - lag + 1).jump2);
        if (lastSwing_ < pass_ - lag + 1) continue;
        const Visit& back = Slot(pass_ - lag);
        const double dx = x - back.x, dy = y - back.y;
        if (largest2 > 0.0 && dx * dx + dy * dy <= kSamePoint2 * largest2) return true;
    }
    return false;
}

bool Settling::Halve() {
    if (rule_.floor > 0.0 && factor_ * 0.5 < rule_.floor) {
        gaveUp_ = true;
        return false;
    }
    factor_ *= 0.5;
    ++halvings_;
    filled_ = 0;  // the cycle test starts over on the new step
    return true;
}

bool Settling::Observe(double x, double y, double r1, double r2) {
    ++pass_;
    // The block check looks at the swings of the passes before this one.
    bool halve = false;
    if (pass_ == nextCheck_) {
        nextCheck_ = pass_ + rule_.laterBlock;
        halve = lastSwing_ >= 0 && lastSwing_ >= pass_ - 1 - rule_.swingWindow;
    }
    if (pass_ > 1 && (Swings(last1_, r1) || Swings(last2_, r2))) lastSwing_ = pass_;
    last1_ = r1;
    last2_ = r2;

    double jump2 = 0.0;
    if (filled_ > 0) {
        const Visit& prev = Slot(pass_ - 1);
        jump2 = (x - prev.x) * (x - prev.x) + (y - prev.y) * (y - prev.y);
    }
    // Only a run whose residuals swung lately pays for the cycle test.
    if (!halve && rule_.watchCycles && lastSwing_ > pass_ - kDepth) halve = InCycle(x, y, jump2);
    Visit& slot = ring_[static_cast<std::size_t>(pass_ % (kDepth + 1))];
    slot = Visit{x, y, jump2};
    if (filled_ < kDepth) ++filled_;
    return halve && Halve();
}

}  // namespace shell
