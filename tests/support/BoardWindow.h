// The main window driven as a user drives its board, the board held at 8 by
// 5 inches so that whole world inches fall on whole pixels.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "board/core/Viewport.h"
#include "board/ui/BoardSurface.h"
#include "shell/ui/FileDialogs.h"
#include "board/ui/MainWindow.h"

namespace boardwindow {

// File dialog answers the tests give; the real dialogs come back afterwards.
struct DialogSeam {
    QString open, save;
    int opens = 0, saves = 0;
    DialogSeam() {
        filedialogs::SetOpenDialog([this](QWidget*, const QString&) { return ++opens, open; });
        filedialogs::SetSaveDialog([this](QWidget*, const QString&, bool) { return ++saves, save; });
    }
    ~DialogSeam() {
        filedialogs::SetOpenDialog({});
        filedialogs::SetSaveDialog({});
    }
};

struct BoardWindow {
    MainWindow w;
    BoardSurface& s;
    QLineEdit* box;

    explicit BoardWindow(const QString& path = QString()) : w(nullptr, path), s(w.Surface()) {
        box = w.findChild<QLineEdit*>("CommandBox");
        s.setFixedSize(8 * s.logicalDpiX(), 5 * s.logicalDpiY());
        w.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&w));
    }
    Layout::LayoutDocument& Doc() { return w.Document(); }
    BoardState::Board& Board() { return w.Board(); }

    // World inches to the board's widget pixels.
    QPoint Px(double wx, double wy) {
        return {qRound(Viewport::To_BoardX(Doc(), wx) * s.logicalDpiX()),
                qRound(Viewport::To_BoardY(Doc(), wy) * s.logicalDpiY())};
    }
    void Type(const QString& text) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }
    // A pointer move sent to the board itself, so it arrives whatever the
    // cursor's place on the screen.
    void MoveTo(const QPoint& p, Qt::MouseButtons held = Qt::NoButton) {
        QMouseEvent e(QEvent::MouseMove, QPointF(p), QPointF(s.mapToGlobal(p)), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&s, &e);
    }
    void ClickAt(const QPoint& p, Qt::MouseButton b = Qt::LeftButton, Qt::KeyboardModifiers mods = {}) {
        MoveTo(p);
        QTest::mouseClick(&s, b, mods, p);
    }
    void Drag(const QPoint& from, const QPoint& to) {
        MoveTo(from);
        QTest::mousePress(&s, Qt::LeftButton, {}, from);
        MoveTo((from + to) / 2, Qt::LeftButton);
        MoveTo(to, Qt::LeftButton);
        QTest::mouseRelease(&s, Qt::LeftButton, {}, to);
    }
    void DoubleClickAt(const QPoint& p) {  // press, release, double-click, release
        ClickAt(p);
        QTest::mouseDClick(&s, Qt::LeftButton, {}, p);
        QTest::mouseRelease(&s, Qt::LeftButton, {}, p);
    }
    void Key(Qt::Key key) {  // to the control that has the focus
        QWidget* f = QApplication::focusWidget();
        QTest::keyClick(f != nullptr ? f : &w, key);
    }
    void Mode(int index) {
        QTest::mouseClick(w.findChild<QWidget*>(QStringLiteral("ModeBarButton_%1").arg(index)), Qt::LeftButton);
    }
    void Press(const char* button) { QTest::mouseClick(w.findChild<QPushButton*>(button), Qt::LeftButton); }
    void Snap(int mode) {
        // On the indicator: a click beside a short caption would miss the button.
        auto* button = w.findChild<QRadioButton*>(QStringLiteral("SnapButton_%1").arg(mode));
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
    }
};

}  // namespace boardwindow
