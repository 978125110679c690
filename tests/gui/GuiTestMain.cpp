#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "GuiTestSupport.h"

namespace guitest {

ModalWatchdog::ModalWatchdog(QMessageBox::StandardButton answer) : answer_(answer) {
    timer_.setInterval(20);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
}

ModalWatchdog::~ModalWatchdog() { timer_.stop(); }

void ModalWatchdog::Poll() {
    QWidget* w = QApplication::activeModalWidget();
    if (w == nullptr) return;
    if (auto* box = qobject_cast<QMessageBox*>(w)) {
        seen_.push_back({box->windowTitle(), box->text(), box->icon()});
        QAbstractButton* b = box->button(answer_);
        if (b == nullptr) b = box->defaultButton();
        if (b == nullptr && !box->buttons().isEmpty()) b = box->buttons().first();
        if (b != nullptr) b->click();
        else box->reject();
        return;
    }
    if (auto* dlg = qobject_cast<QDialog*>(w)) {
        seen_.push_back({dlg->windowTitle(), QString(), QMessageBox::NoIcon});
        if (handler_ && handler_(dlg)) return;
        dlg->reject();
    }
}

void SaveScreenFits(QWidget* window, const QString& name) {
    const QString shots = qEnvironmentVariable("FERROLITH_SHOTS");
    if (shots.isEmpty()) return;
    const QSize size = window->size();
    for (const QSize& screen : {QSize(784, 452), QSize(1350, 720)}) {
        window->resize(window->sizeHint().expandedTo(window->minimumSizeHint()).boundedTo(screen));
        QApplication::processEvents();
        window->grab().save(QStringLiteral("%1/%2-fit-%3x%4-x%5.png")
                                .arg(shots, name)
                                .arg(screen.width())
                                .arg(screen.height())
                                .arg(qEnvironmentVariable("QT_SCALE_FACTOR", "1")));
    }
    window->resize(size);
    QApplication::processEvents();
}

}  // namespace guitest

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Settings and data files of each test process live in a folder of its
    // own, so tests that run side by side never see each other's files (the
    // toolkit's test mode would give them all one shared folder).
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", (home.path() + "/config").toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + "/data").toUtf8());
    qputenv("XDG_CACHE_HOME", (home.path() + "/cache").toUtf8());
    QApplication app(argc, argv);
    QApplication::setApplicationName("Ferrolith");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
