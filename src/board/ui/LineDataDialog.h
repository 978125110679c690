// The line data dialog: shows the geometry of one line of the layout and
// sets a new length and a new angle about a chosen base point. It works on
// the row itself and keeps the row selected while it is open.
#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>

#include "board/core/LayoutDocument.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

class LineDataDialog : public QDialog {
    Q_OBJECT
public:
    // What the board does when the row changes: repaint its lines and
    // dimensions, and put its grips on the row's start, end and middle.
    struct BoardHooks {
        std::function<void()> Redraw;
        std::function<void(const Layout::LineRec&)> Show_Grips;
    };

    LineDataDialog(Layout::LayoutDocument& doc, int16_t lineIndex, BoardHooks hooks = {},
                QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Refresh_LineData();
    void BasePtBox_Click();
    void ApplyButton_Click();
    void ExitButton_Click();
    void CopyEnds();
    void BoardChanged();

    Layout::LayoutDocument& doc_;
    int16_t index_;
    BoardHooks hooks_;
    Layout::PointRec SelStart;
    Layout::PointRec SelEnd;

    QLabel* LineNameBox = nullptr;
    QLabel* StartPTx = nullptr;
    QLabel* StartPTy = nullptr;
    QLabel* EndPTx = nullptr;
    QLabel* EndPTy = nullptr;
    QLabel* SegLen = nullptr;
    QLabel* RotAng = nullptr;
    QLabel* xRotAng = nullptr;
    QCheckBox* DisplayModeBox = nullptr;
    QComboBox* BasePtBox = nullptr;
    QLineEdit* LenBox = nullptr;
    QLineEdit* RotBox = nullptr;
    QPushButton* ApplyButton = nullptr;
    QPushButton* ExitButton = nullptr;
    QFrame* StartBox = nullptr;
    QFrame* MidBox = nullptr;
    QFrame* EndBox = nullptr;
};
