// Opening size of a tool window: what its layout asks for, within the
// screen's free area less a margin for the frame and title bar.
#pragma once

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace shell {

inline void FitToScreen(QWidget* w) {
    QSize want = w->sizeHint().expandedTo(w->minimumSizeHint());
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        want = want.boundedTo(screen->availableGeometry().size() - QSize(16, 48));
    w->resize(want);
}

}  // namespace shell
