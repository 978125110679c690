// The register window: the 100 registers in a list, opened for one action
// (MemoryAction: IN, RECALL, SWAP, ADD, MINUS, DELETE). It previews the
// picked register, asks before overwriting, and hands the choice back in
// RegisterChoice and RegisterText; DELETE it carries out itself.
#pragma once

#include <QDialog>

#include "calc/core/CalculatorState.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class RegistersWindow : public QDialog {
    Q_OBJECT
public:
    RegistersWindow(CalculatorState& s, QWidget* parent = nullptr);

    // Opens the window modally for s.MemoryAction; afterwards RegisterChoice
    // is the chosen register (-1 for none) and RegisterText its description.
    static void Open(CalculatorState& s, QWidget* parent);

    // Exit, Escape and the window's close control: no register chosen.
    void reject() override;

private:
    void Form_Load();
    void Fill_List();
    void ItemBox_ItemClick(QTreeWidgetItem* item);
    void ItemBox_ItemCheck();
    void SelectAllButton_Click();
    void CLRButton_Click();
    void OKButton_Click();
    void ExitButton_Click();
    int CheckedCount() const;
    bool Ask(const QString& question);

    CalculatorState& s_;
    RegisterAction action_ = RegisterAction::In;
    int current_ = 0;       // list row (from 1) last clicked, 0 for none
    int previous_ = 0;      // the one clicked before it
    bool filling_ = false;

    QLabel* Lab1 = nullptr;
    QTreeWidget* ItemBox = nullptr;
    QGroupBox* DecFrame = nullptr;
    QLineEdit* DescBox = nullptr;
    QGroupBox* DeleteFrame = nullptr;
    QPushButton* SelectAllButton = nullptr;
    QPushButton* CLRButton = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* ExitButton = nullptr;
};
