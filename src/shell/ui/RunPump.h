// Run control shared by every window whose handlers run long loops (the
// capacity run, the coefficient runs, the bolt runs, the calculator clock).
//
// ThrottledPump lets waiting window events run from inside a loop, at most
// once per interval, so the loop keeps its speed and the window stays live.
// Text a loop produces on every pass is buffered by its window and pushed to
// the widgets in BeforePump, just before events are served.
//
// RunGuard keeps a window alive while one of its handlers is still on the
// stack: a close request during a run hides the window and is carried out
// once the outermost handler has returned.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <functional>

#include "shell/core/Yield.h"

class QCloseEvent;
class QWidget;

namespace shell {

class ThrottledPump {
public:
    explicit ThrottledPump(int intervalMs = 10);

    // Serves events when the interval has passed since the last time. Solvers
    // call this for every segment, so the clock is read only on every
    // kCallsPerClockRead-th call (a few microseconds of work apart).
    void operator()() {
        if (intervalMs_ > 0 && ++calls_ < kCallsPerClockRead) return;
        calls_ = 0;
        if (timer_.elapsed() >= intervalMs_) Now();
    }
    // Serves events now.
    void Now();
    // This pump as the core's yield callback (the pump must outlive it).
    YieldFn AsYield();

    // Called right before events are served: flush buffered text here.
    std::function<void()> BeforePump;

private:
    static constexpr int kCallsPerClockRead = 64;
    QElapsedTimer timer_;
    int intervalMs_;
    int calls_ = 0;
};

class RunGuard {
public:
    explicit RunGuard(QWidget* window);
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;

    // Marks a handler as running for as long as it lives.
    class Scope {
    public:
        explicit Scope(RunGuard& guard);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        RunGuard& guard_;
    };

    [[nodiscard]] Scope Enter() { return Scope(*this); }
    bool Busy() const { return busy_ > 0; }
    // A close was asked for while a handler ran; loops check this after
    // every return from the pump and leave as soon as they can.
    bool ClosePending() const { return closePending_; }

    // For closeEvent. While a handler runs, the window is hidden, the event
    // ignored and true returned; the window is closed again (through its own
    // closeEvent) once the outermost handler has returned. Otherwise false:
    // the caller closes as usual.
    bool DeferClose(QCloseEvent* event);

private:
    void Leave();

    QPointer<QWidget> window_;
    int busy_ = 0;
    bool closePending_ = false;
};

}  // namespace shell
