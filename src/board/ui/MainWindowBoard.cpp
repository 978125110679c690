// The main window's side of the drawing board: pointer events, the command
// box's keys and colour, the pop-up menus, the board's message boxes and the
// line data dialog, each handed to the board and its outcome shown.
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPalette>

#include "board/ui/BoardSurface.h"
#include "board/core/CommandLine.h"
#include "board/ui/LineDataDialog.h"
#include "board/ui/MainWindow.h"
#include "shell/ui/QtText.h"

using BoardState::Button;

namespace {

Button ToButton(int code) {
    switch (code) {
        case 1:
            return Button::Left;
        case 2:
            return Button::Right;
        case 4:
            return Button::Middle;
        default:
            return Button::None;
    }
}

Button HeldButton(int buttons) {
    if (buttons & Qt::LeftButton) return Button::Left;
    if (buttons & Qt::RightButton) return Button::Right;
    if (buttons & Qt::MiddleButton) return Button::Middle;
    return Button::None;
}

QMessageBox::Icon ToIcon(BoardMessages::Icon icon) {
    return icon == BoardMessages::Icon::Exclamation ? QMessageBox::Warning : QMessageBox::Critical;
}

}  // namespace

std::function<void()> MainWindow::Board_Command(void (BoardState::Board::*command)()) {
    return [this, command] {
        ((*board_).*command)();
        SyncUi();
        FocusCommandBox();
    };
}

void MainWindow::Board_MouseDown(int button, bool shift, double x, double y) {
    board_->DrawingBoard_MouseDown(ToButton(button), shift, x, y);
    SyncUi();
}

void MainWindow::Board_MouseMove(int buttons, bool shift, double x, double y) {
    board_->DrawingBoard_MouseMove(HeldButton(buttons), shift, x, y);
    SyncUi();
}

void MainWindow::Board_MouseUp(int button, bool shift, double x, double y, bool click) {
    const BoardState::PopUp pop = board_->DrawingBoard_MouseUp(ToButton(button), shift, x, y);
    if (click) board_->DrawingBoard_Click();
    SyncUi();
    if (pop == BoardState::PopUp::Osnap) PopUp_Menu(QStringLiteral("mnuOsnap"), x, y);
    if (pop == BoardState::PopUp::Selection) PopUp_Menu(QStringLiteral("mnuSelection"), x, y);
}

void MainWindow::Board_DoubleClick() {
    board_->DrawingBoard_DblClick();
    SyncUi();
}

void MainWindow::PopUp_Menu(const QString& name, double x, double y) {
    const QPoint at(qRound(x * DrawingBoard->logicalDpiX()), qRound(y * DrawingBoard->logicalDpiY()));
    menu(name)->popup(DrawingBoard->mapToGlobal(at));
}

bool MainWindow::Show_Message(const BoardMessages::BoardMessage& m) {
    QMessageBox box(ToIcon(m.MessageIcon), Q(m.Title), Q(m.Text),
                    m.YesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, this);
    return box.exec() == QMessageBox::Yes;
}

void MainWindow::Show_LineData(int16_t index) {
    Board_Changed = true;
    LineDataDialog::BoardHooks hooks;
    hooks.Redraw = [this] { board_->Repaint(true); };
    hooks.Show_Grips = [this](const Layout::LineRec& line) {
        board_->Show_Grips(line);
        SyncUi();
    };
    LineDataDialog dialog(doc_, index, hooks, this);
    dialog.exec();
    // The board shows the dialog's edits once it is back.
    if (Board_Changed) {
        board_->RefreshButton_Click();
        Board_Changed = false;
    }
    SyncUi();
}

void MainWindow::CommandBox_Change() {
    QPalette pal = CommandBox->palette();
    const int32_t bgr = CommandLine::CommandBox_Color(S(CommandBox->text()));
    pal.setColor(QPalette::Text, QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF));
    CommandBox->setPalette(pal);
}

void MainWindow::Type_Reply(const QString& text) {
    CommandBox->setText(text);
    board_->CommandBox_KeyDown(BoardState::Key::Enter, S(text));
    SyncUi();
}

void MainWindow::History_Command(bool undo) {
    if (undo)
        board_->Undo_Step();
    else
        board_->Redo_Step();
    SyncUi();
    FocusCommandBox();
}

bool MainWindow::History_Key(QObject* watched, QEvent* event) {
    if (watched != CommandBox || (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress))
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    const QKeyCombination k = key->keyCombination();
    const bool undo = k == QKeyCombination(Qt::ControlModifier, Qt::Key_Z);
    const bool redo = k == QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Z) ||
                      k == QKeyCombination(Qt::ControlModifier, Qt::Key_Y);
    if (!undo && !redo) return false;
    // The box takes the key in any case, so that the menu's shortcut does not
    // fire behind its back; the key itself decides below.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (CommandBox->isModified() && !CommandBox->text().isEmpty()) return false;
    History_Command(undo);
    return true;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (History_Key(watched, event)) return true;
    if (event->type() != QEvent::KeyPress || QApplication::activeModalWidget() != nullptr)
        return QMainWindow::eventFilter(watched, event);
    // Key preview: the form sees a key before the control that has the focus.
    auto* w = qobject_cast<QWidget*>(watched);
    QWidget* focus = QApplication::focusWidget();
    const bool inBox = watched == CommandBox;
    const bool mine = inBox || (w != nullptr && w->window() == this && (w == focus || (focus == nullptr && w == this)));
    if (!mine) return QMainWindow::eventFilter(watched, event);
    using BoardState::Key;
    Key key;
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
            key = Key::Escape;
            break;
        case Qt::Key_Delete:
            key = Key::Delete;
            break;
        case Qt::Key_F8:
            key = Key::F8;
            break;
        case Qt::Key_F9:
            key = Key::F9;
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            key = Key::Enter;
            break;
        default:
            return QMainWindow::eventFilter(watched, event);
    }
    board_->Form_KeyDown(key);
    SyncUi();
    // Then the command box's own handler: the replies.
    if (inBox && (key == Key::Enter || key == Key::Escape)) {
        board_->CommandBox_KeyDown(key, S(CommandBox->text()));
        SyncUi();
        return true;
    }
    return key == Key::F8 || key == Key::F9;
}
