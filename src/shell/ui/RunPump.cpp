#include "shell/ui/RunPump.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QMetaObject>
#include <QWidget>

namespace shell {

ThrottledPump::ThrottledPump(int intervalMs) : intervalMs_(intervalMs) { timer_.start(); }

void ThrottledPump::Now() {
    if (BeforePump) BeforePump();
    QCoreApplication::processEvents();
    timer_.restart();
}

YieldFn ThrottledPump::AsYield() {
    return [this] { (*this)(); };
}

RunGuard::RunGuard(QWidget* window) : window_(window) {}

RunGuard::Scope::Scope(RunGuard& guard) : guard_(guard) { ++guard_.busy_; }

RunGuard::Scope::~Scope() { guard_.Leave(); }

void RunGuard::Leave() {
    if (--busy_ > 0 || !closePending_) return;
    closePending_ = false;
    // Queued, so the handler that is returning has left the window first.
    if (window_) QMetaObject::invokeMethod(window_.data(), "close", Qt::QueuedConnection);
}

bool RunGuard::DeferClose(QCloseEvent* event) {
    if (busy_ == 0) return false;
    closePending_ = true;
    event->ignore();
    if (window_) window_->hide();
    return true;
}

}  // namespace shell
