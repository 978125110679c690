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
    void Form_Load();
    void ItemBox_ItemClick(QTreeWidgetItem* item);
    void OKButton_Click();
    void ExitButton_Click();

    CalculatorState& s_;
    QTreeWidget* ItemBox = nullptr;
    QGroupBox* ValueFrame = nullptr;
    QLineEdit* ValueBox = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* ExitButton = nullptr;
};
