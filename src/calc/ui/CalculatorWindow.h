// The scientific calculator's window: a display with its indicators, a key
// pad, four pages of keys in the tab strip SelectTab, and the menus. It turns
// clicks and keys into tokens for the engine and copies the engine's display
// fields to its labels; the state it works on outlives the window.
#pragma once

#include <QMainWindow>
#include <string>

#include "calc/core/CalculatorState.h"
#include "calc/core/KeyTable.h"
#include "shell/ui/RunPump.h"

class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTabWidget;

class Voice;

class CalculatorWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit CalculatorWindow(CalculatorState& state, QWidget* parent = nullptr);
    ~CalculatorWindow() override;

    // A Qt key press as the calculator's keyboard key and modifiers.
    struct KeyStroke {
        Calculator::Keyboard key = Calculator::Keyboard::None;
        Calculator::Modifiers modifiers = Calculator::Modifiers::None;
    };
    static KeyStroke Keyboard_Of(int qtKey, Qt::KeyboardModifiers modifiers);

    // Presses the key with this token as its button would.
    void Press(const std::string& token);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Build_Display();
    QWidget* Build_KeyPad();
    QWidget* Build_Page(std::initializer_list<const char*> tokens, int columns);
    QWidget* Build_Angle_Page();
    QWidget* Build_Display_Page();
    void Build_Menus();
    QWidget* Key_Button(const Calculator::KeyDef& key);

    void Key_Click(const Calculator::KeyDef& key);
    void key_Time_Click();
    void Refresh();

    void mnuCopy_Click();
    void mnuCopyDigits_Click();
    void mnuReadOut_Click();
    void mnuFile_Click();
    void mnuMode_Click();
    void Angle_Click(AngleMode mode);
    void Stay_On_Top(bool on);

    // ---- Windows of the other calculator forms -------------------------------
    // STUBS: these open nothing yet. The register, data, constant and help
    // windows are connected here when they exist.
    void Show_Register_Window(CalculatorState& s);  // engine hook of the register keys
    void Show_Constant_Window(CalculatorState& s);  // engine hook of the constant key
    void mnuRegisters_Click();
    void mnuData_Click();                         // also the key key_Del
    void mnuConstants_Click();
    void mnuHelpTopics_Click();
    // Speech hook: the words of a key or result, "" to cut off. Silent until
    // the voice is connected here.
    void Say(const std::string& words);

    CalculatorState& s_;
    shell::RunGuard guard_;
    Voice* voice_ = nullptr;  // made at the first word spoken
    QFrame* Frame1_ = nullptr;
    QLabel *DisplayBox_ = nullptr, *ExpoBox_ = nullptr, *DateBox_ = nullptr;
    QLabel *OperatorIndicator_ = nullptr, *CCalc_Indicator_ = nullptr, *Mem_Indicator_ = nullptr;
    QLabel *Mode_Indicator_ = nullptr, *DispMode_Indicator_ = nullptr, *PrecLab_ = nullptr;
    QLineEdit* DummyBox_ = nullptr;
    QTabWidget* SelectTab_ = nullptr;
    QComboBox* PrecBox_ = nullptr;
    QRadioButton *DegButton_ = nullptr, *RadButton_ = nullptr, *GradButton_ = nullptr;
    QRadioButton *StdButton_ = nullptr, *FxnButton_ = nullptr, *ScnButton_ = nullptr;
    QAction *mnuReadOut_ = nullptr, *mnuCopy_ = nullptr, *mnuCopyDigits_ = nullptr;
};
