// Window tests: a QApplication on the offscreen platform, settings and data
// files in a temporary place, and a watchdog for modal dialogs so that a
// test never hangs on a message box.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <functional>

class CellGrid;
class QLineEdit;

namespace guitest {

// What the watchdog saw of one modal message box.
struct SeenBox {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

// Answers every modal message box that opens while it lives: it records the
// box and presses `answer` (or the default button when the box lacks it).
// A modal dialog that is not a message box is rejected and recorded with its
// window title.
class ModalWatchdog {
public:
    explicit ModalWatchdog(QMessageBox::StandardButton answer = QMessageBox::Ok);
    ~ModalWatchdog();
    void SetAnswer(QMessageBox::StandardButton answer) { answer_ = answer; }
    // Called with each dialog before the watchdog answers it, to fill in
    // fields of a dialog that is not a message box.
    void SetDialogHandler(std::function<bool(QDialog*)> handler) { handler_ = std::move(handler); }
    const QList<SeenBox>& Seen() const { return seen_; }
    void Clear() { seen_.clear(); }

private:
    void Poll();
    QTimer timer_;
    QMessageBox::StandardButton answer_;
    QList<SeenBox> seen_;
    std::function<bool(QDialog*)> handler_;
};

// With FERROLITH_SHOTS naming a folder, saves the window as it opens on a
// 1600 x 1000 screen at scale 2 (784 x 452 logical pixels) and on 1366 x 768,
// as <name>-fit-WxH-xSCALE.png; the window keeps its size. Nothing without it.
void SaveScreenFits(QWidget* window, const QString& name);

// Types into a cell of a grid with a floating editor as a user does: the
// first key goes to the grid and opens the editor over the cell, the rest go
// into the editor, and `commit` ends the edit. Fails when no editor opens.
void TypeInGridCell(CellGrid* grid, QLineEdit* editor, int row, int col, const QString& text,
                    Qt::Key commit = Qt::Key_Return);

// Checks that the window's minimum fits a 1600 x 1000 screen at scale 2
// (800 x 460 logical pixels once the frame is off), lays it out at its
// minimum and then `extra` larger (saving the screen fits under `name`
// between the two) and returns how much `part` grew.
QSize GrowthFromMinimum(QWidget* window, QWidget* part, QSize extra, const QString& name);

}  // namespace guitest
