#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace cli {

namespace {
constexpr double kFirstShow = 1.0;    // seconds before the line appears
constexpr double kRedraw = 0.25;      // seconds between redraws

double SteadySeconds() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}
}  // namespace

Progress::Progress(std::string label)
    : Progress(std::move(label), std::cerr, isatty(STDERR_FILENO) == 1, SteadySeconds) {}

Progress::Progress(std::string label, std::ostream& out, bool terminal, Clock clock)
    : label_(std::move(label)), out_(out), active_(terminal), clock_(std::move(clock)) {
    if (active_) start_ = clock_();
}

Progress::~Progress() { Clear(); }

void Progress::Tick(const std::string& detail) {
    if (!active_) return;
    const double now = clock_() - start_;
    if (now < kFirstShow || (lastDrawn_ >= 0.0 && now - lastDrawn_ < kRedraw)) return;
    lastDrawn_ = now;
    char secs[32];
    std::snprintf(secs, sizeof secs, "%.1f s", now);
    out_ << "\r\x1b[K" << label_ << ": running, " << secs << (detail.empty() ? "" : ", " + detail) << std::flush;
    shown_ = true;
}

void Progress::Clear() {
    if (!shown_) return;
    out_ << "\r\x1b[K" << std::flush;
    shown_ = false;
}

}  // namespace cli
