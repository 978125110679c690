#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <QTest>

#include "support/GuiTestSupport.h"
#include "shell/ui/GridEditor.h"

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

void TypeInGridCell(CellGrid* grid, QLineEdit* editor, int row, int col, const QString& text, Qt::Key commit) {
    ASSERT_FALSE(text.isEmpty());
    grid->setCurrentCell(row, col);
    QTest::keyClick(grid, text.at(0).toLatin1());
    ASSERT_TRUE(editor->isVisible()) << "no editor opened over cell " << row << "," << col;
    if (text.size() > 1) QTest::keyClicks(editor, text.mid(1));
    QTest::keyClick(editor, commit);
}

QSize GrowthFromMinimum(QWidget* window, QWidget* part, QSize extra, const QString& name) {
    EXPECT_LE(window->minimumSizeHint().width(), 800);
    EXPECT_LE(window->minimumSizeHint().height(), 460);
    window->resize(window->minimumSizeHint());
    QApplication::processEvents();
    const QSize small = part->size();
    window->resize(window->minimumSizeHint() + extra);
    QApplication::processEvents();
    SaveScreenFits(window, name);
    return part->size() - small;
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
