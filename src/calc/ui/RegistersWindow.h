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
    void Set_Captions();
    void Fill_List();
    void Row_Picked(QTreeWidgetItem* item);
    void Checks_Changed();
    void Select_All();
    void Clear_Checks();
    void Take_Register();
    void Leave();
    bool Ask(const QString& question);

    CalculatorState& s_;
    RegisterAction action_ = RegisterAction::In;
    int current_ = 0;       // list row (from 1) last clicked, 0 for none
    int previous_ = 0;      // the one clicked before it
    bool filling_ = false;

    QLabel* prompt_ = nullptr;
    QTreeWidget* list_ = nullptr;
    QGroupBox* descriptionFrame_ = nullptr;
    QLineEdit* description_ = nullptr;
    QGroupBox* selectionFrame_ = nullptr;
    QPushButton* selectAll_ = nullptr;
    QPushButton* clearChecks_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* exit_ = nullptr;
};
