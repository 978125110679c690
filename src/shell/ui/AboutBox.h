// The two about boxes: one for the drawing board, one for the calculator.
#pragma once

#include <QDialog>

class AboutBox : public QDialog {
    Q_OBJECT
public:
    enum class Kind { Board, Calculator };
    explicit AboutBox(Kind kind, QWidget* parent = nullptr);
};
