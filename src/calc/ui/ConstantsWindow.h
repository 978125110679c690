// The constants window: the 128 constants and conversion factors in a list;
// the chosen row's value goes back to the calculator through ConstantChoice.
#pragma once

#include <QDialog>

struct CalculatorState;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class ConstantsWindow : public QDialog {
    Q_OBJECT
public:
    ConstantsWindow(CalculatorState& s, QWidget* parent = nullptr);

    // Opens the window modally; ConstantChoice holds the chosen value text
    // afterwards, or is empty when the user left with Exit.
    static void Open(CalculatorState& s, QWidget* parent);

private:
    void Fill_List();
    void Row_Picked(QTreeWidgetItem* item);
    void Take_Value();
    void Leave();

    CalculatorState& s_;
    QTreeWidget* list_ = nullptr;
    QGroupBox* valueFrame_ = nullptr;
    QLineEdit* value_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* exit_ = nullptr;
};
