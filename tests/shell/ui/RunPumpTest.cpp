#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include "shell/ui/RunPump.h"

namespace {

// A window that closes itself by deleteLater unless a run is on the stack.
class RunWindow : public QWidget {
public:
    shell::RunGuard guard{this};
    int closes = 0;

protected:
    void closeEvent(QCloseEvent* e) override {
        ++closes;
        if (guard.DeferClose(e)) return;
        e->accept();
        deleteLater();
    }
};

TEST(RunPump, ServesEventsAtMostOncePerIntervalAndFlushesFirst) {
    shell::ThrottledPump pump(1000);
    int flushes = 0;
    pump.BeforePump = [&] { ++flushes; };
    for (int i = 0; i < 1000; ++i) pump();
    EXPECT_EQ(flushes, 0);  // the interval has not passed
    pump.Now();
    EXPECT_EQ(flushes, 1);

    shell::ThrottledPump fast(0);
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(0);
    const shell::YieldFn yield = fast.AsYield();
    for (int i = 0; i < 50; ++i) yield();
    EXPECT_GT(ticks, 0);
}

TEST(RunPump, CloseDuringARunWaitsForTheOutermostHandlerAndWithoutOneIsImmediate) {
    auto* w = new RunWindow;
    w->show();
    QPointer<RunWindow> alive(w);
    {
        const auto outer = w->guard.Enter();
        {
            const auto inner = w->guard.Enter();
            w->close();
            EXPECT_TRUE(w->guard.ClosePending());
            EXPECT_FALSE(w->isVisible());
        }
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(alive.isNull());  // the outer handler still runs
        EXPECT_TRUE(w->guard.ClosePending());
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(alive.isNull());
    // With no run on the stack a close is immediate.
    auto* idle = new RunWindow;
    QPointer<RunWindow> gone(idle);
    idle->show();
    idle->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

}  // namespace
